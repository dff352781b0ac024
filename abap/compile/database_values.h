#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "abap/surroundings.h"
#include "abap/values/structure.h"

// Values on their way between fields and the database.
namespace qor::abap {

// What the database gets of a field.
void LeerValor(const Campo& campo, ValorDeBase& valor);

// The same behind a move into the type of a column.
ValorDeBase ValorParaColumna(const Campo& campo, const TipoDeCampo& columna);

// Moves a value of a column into a field; nothing is its initial value.
void PonerValor(const ValorDeBase& valor, const TipoDeCampo& columna, const Campo& destino);

// The same of a value that no column tells the type of.
void PonerValor(const ValorDeBase& valor, const Campo& destino);

// A row of a table, of which `datos` has the bytes as its structure tells.
void LeerFila(const Estructura& tabla, const std::uint8_t* datos, std::vector<ValorDeBase>& fila);
void PonerFila(std::span<const ValorDeBase> fila, const Estructura& tabla, std::uint8_t* datos);

}  // namespace qor::abap
