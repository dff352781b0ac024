#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "abap/values/internal_table.h"

// What several statements do with the rows of internal tables.
namespace qor::abap {

// The components of the standard key: all that are no numbers. A line without components is its own key.
std::vector<Componente> ClaveEstandar(const TipoDeCampo& linea);

// The components that are added up: those of types I, P and F.
std::vector<Componente> ComponentesNumericos(const TipoDeCampo& linea);

// A line as a component of itself.
Componente LineaEntera(const TipoDeCampo& linea);

// A component of a row.
Campo CampoDeFila(const TablaInterna& tabla, const Componente& componente, std::size_t fila);

// Takes out the rows that are marked; `marcas` has one mark for each row.
void BorrarFilas(TablaInterna& tabla, const std::vector<bool>& marcas);

// Puts an initial row where row `fila` is, which exists.
void PonerInicial(const TablaInterna& tabla, std::size_t fila);

// ITAB1[] = ITAB2[]. The rows are converted where the lines differ.
void CopiarTabla(const TablaInterna& origen, TablaInterna& destino);

// The first row at or behind `desde` that fulfils all, or Filas(); by an index where that is safe.
std::size_t BuscarFila(TablaInterna& tabla, std::span<const Igualdad> igualdades, std::size_t desde);

// Lines, of which some components are meant.
bool TieneLosMismos(std::span<const Componente> componentes, const Campo& a, const Campo& b);
void MoverLinea(std::span<const Componente> componentes, const Campo& origen, const Campo& destino);  // without any, all of it

struct ClaveDeOrden {
    Componente componente;
    bool descendente = false;
};

// Rows that are equal keep their order.
void Ordenar(TablaInterna& tabla, std::span<const ClaveDeOrden> claves);

}  // namespace qor::abap
