#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "input/data_finding.h"

namespace qor {

// The findings that the preview keeps, in the order of the files and their lines, and how many there were in all.
class HallazgosVistos {
public:
    // Whether all that was kept before is still where it was.
    bool Agregar(HallazgoDeDatos hallazgo);
    // So many more that are not kept.
    void Contar(std::uint64_t errores, std::uint64_t avisos);
    void Quitar();

    // Counted whether they are kept or not.
    std::uint64_t Errores() const { return errores_; }
    std::uint64_t Avisos() const { return avisos_; }
    bool Completos() const { return errores_ + avisos_ == lista_.size(); }

    const std::vector<HallazgoDeDatos>& Lista() const { return lista_; }
    // Those of a line: the first one and how many.
    std::pair<std::size_t, std::size_t> DeLinea(int archivo, std::uint64_t linea) const;
    // The next one behind a place, or before it with a step of -1, round the end; -1 for none. Those at the place are passed over.
    int Vecino(int archivo, std::uint64_t linea, std::size_t columna, int paso) const;

private:
    std::vector<HallazgoDeDatos> lista_;
    std::uint64_t errores_ = 0;
    std::uint64_t avisos_ = 0;
};

}  // namespace qor
