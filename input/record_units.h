#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "input/check_relation.h"

namespace qor {

// Which records are bad, where what belongs together shares its lot: an order with all its items, in whatever files they lie. With
// keys an item without its order is bad, too. One bit for a record, and its node where records are joined by keys.
class UnidadesDeRegistros {
public:
    // Keeps the reference, which tells the units.
    UnidadesDeRegistros(const RelacionDeRegistros& relacion, std::size_t archivos);

    // The next record of a file, with what RelacionDeRegistros::Tomar answered of it, and whether it is bad by itself.
    void Tomar(std::size_t archivo, std::uint32_t unidad, bool mala);
    // Behind the last one.
    void Terminar();

    // By their order in the file.
    const std::vector<bool>& Malas(std::size_t archivo) const { return malas_[archivo]; }

private:
    void TerminarUnidad();

    const RelacionDeRegistros& relacion_;
    std::vector<std::vector<bool>> malas_;
    std::vector<std::vector<std::uint32_t>> nodos_;
    std::uint32_t unidad_ = 0;
    bool unidadMala_ = false;
    std::size_t principio_ = 0;  // the first record of the unit, where records are joined by their position
};

}  // namespace qor
