#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "input/check_relation.h"

namespace qor {

// Throws FalloDeEjecucion where it can't be told which records belong together: `que`, and the reason behind it.
void ExigirComparables(const RelacionDeRegistros& relacion, const std::string& que);

// Which records share the lot of bad ones, as an order is taken with all its items or not at all. Records belong together as
// RelacionDeRegistros has it. Grows by a bit for a record, and by its unit where keys join them.
class LotesDeRegistros {
public:
    // Keeps the reference. `sueltosMalos`: by keys, a record that lacks its main record is bad, and so is all that belongs to it.
    LotesDeRegistros(const RelacionDeRegistros& relacion, std::size_t archivos, bool sueltosMalos);

    // The next line of a file, with the unit that the relation gave its record.
    void Agregar(int archivo, std::uint32_t unidad, bool malo);
    // Behind the last one of all.
    void Terminar();

    // Of the lines of a file, from 0; one that was not there is bad.
    bool Malo(int archivo, std::uint64_t numero) const;

private:
    void TerminarPosicion();

    const RelacionDeRegistros& relacion_;
    bool sueltosMalos_;
    std::vector<std::vector<bool>> malos_;           // by file and line
    std::vector<std::vector<std::uint32_t>> nodos_;  // by file and line, where keys join records
    std::uint32_t unidad_ = 0;                       // the present one, by position
    bool unidadMala_ = false;
    std::size_t principio_ = 0;  // its first line
};

}  // namespace qor
