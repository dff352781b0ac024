#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "input/check_relation.h"
#include "input/layout.h"

namespace qor {

// Which records share the lot of bad ones, as an order is taken with all its items or not at all. Records belong together as
// RelacionDeRegistros has it; in one file, where it does not tell, by their position behind a main record. A record that belongs to
// no other one has a lot of its own. Grows by a bit for a record, and by its unit where keys join them.
class LotesDeRegistros {
public:
    // Keeps the reference to the relation.
    LotesDeRegistros(const RelacionDeRegistros& relacion, const DisenoDeEntrada& diseno);

    // The next line of a file: its record's class, -1 for none, and the unit that the relation gave it.
    void Agregar(int archivo, int clase, std::uint32_t unidad, bool malo);
    // Behind the last one of all.
    void Terminar();

    // Of the lines of a file, from 0; one that was not there is bad.
    bool Malo(int archivo, std::uint64_t numero) const;

private:
    void TerminarPosicion();

    const RelacionDeRegistros& relacion_;
    std::vector<std::vector<bool>> malos_;           // by file and line
    std::vector<std::vector<std::uint32_t>> nodos_;  // by file and line, where keys join records
    bool porPosicion_;
    bool unidadMala_ = false;
    std::size_t principio_ = 0;  // of the unit, by position
};

}  // namespace qor
