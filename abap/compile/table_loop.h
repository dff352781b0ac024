#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "abap/compile/row_condition.h"
#include "abap/compile/table_statements.h"

namespace qor::abap {

// LOOP AT, as it was written.
struct Recorrido {
    OperandoDeTabla tabla;
    std::optional<Operando> area;     // nothing with ASSIGNING and TRANSPORTING NO FIELDS
    std::optional<Operando> simbolo;  // ASSIGNING
    Tramo tramo;
    std::unique_ptr<CondicionDeFilas> condicion;
    std::uint32_t nivel = 0;
    bool principal = false;   // each of its rows is a record
    bool conNiveles = false;  // AT NEW or one of its kin is in it
};

// The same while it runs.
struct EstadoDeRecorrido : EstadoDeBucle {
    Pasada pasada;
    std::size_t desde = 0;  // the rows that FROM and TO leave
    std::size_t hasta = 0;
    std::size_t tabixDeAntes = 0;
    bool alguna = false;
    ValoresDeCondicion valores;
    // Of control levels: the row of this pass and of the one before.
    std::vector<std::uint8_t> actual;
    std::vector<std::uint8_t> anterior;
    bool primera = false;            // this is the first pass
    bool enNivel = false;            // between AT and ENDAT
    std::uint32_t largoDeNivel = 0;  // bytes from the start of a row that the rows of the level have in common

    // The row that the pass after this one would meet, or that behind the last one.
    std::size_t BuscarSiguiente(const Recorrido& recorrido, TablaInterna& tabla) const;
};

}  // namespace qor::abap
