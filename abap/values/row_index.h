#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "abap/values/comparison.h"
#include "abap/values/internal_table.h"

namespace qor::abap {

// The rows of a table by the hash of some components. Rows of equal hash hang in a ring, in the order of the table. Rows that are
// put behind the others are taken up at the next search; any other change drops all.
class TablaInterna::Indice {
public:
    explicit Indice(std::span<const Igualdad> igualdades);

    bool EsDe(std::span<const Igualdad> igualdades) const;

    // Scans without the index are counted; it is built when they have cost as much as it does.
    bool Conviene(const TablaInterna& tabla);
    void Contar(std::size_t filas) { gastado_ += filas; }

    // Takes up what is new in the table; false where the table holds values that can't be looked up by hash.
    bool Completar(const TablaInterna& tabla);

    // As the table's search. False where the values can't be looked up by hash.
    bool Buscar(const TablaInterna& tabla, std::span<const Igualdad> igualdades, std::size_t desde, std::size_t& fila);

    void Soltar();

private:
    struct Parte {
        Componente componente;
        Tipo tipoDelValor;
    };

    bool CubetaDe(const std::uint8_t* fila, std::uint32_t& cubeta);
    bool CubetaDe(std::span<const Igualdad> igualdades, std::uint32_t& cubeta);
    std::uint32_t Dispersar() const;
    void Preparar(std::size_t filas);

    static constexpr std::uint32_t nada = std::numeric_limits<std::uint32_t>::max();

    std::vector<Parte> partes_;
    std::vector<std::uint32_t> ultimas_;     // by bucket: its last row
    std::vector<std::uint32_t> siguientes_;  // by row: the next one of its bucket, behind the last one the first
    std::string clave_;
    std::size_t gastado_ = 0;
    bool imposible_ = false;
    std::size_t hallada_ = 0;  // by the last search, one behind the row
    std::uint32_t cubetaHallada_ = nada;
};

}  // namespace qor::abap
