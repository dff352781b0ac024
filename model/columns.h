#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "base/view.h"
#include "model/specification.h"

// The columns that can be typed into: two of the file side, four of the program side.
namespace qor {

// From left to right.
enum class Columna { CampoDeArchivo, Ancho, Programa, Dynpro, Campo, Valor };

inline constexpr std::array columnasDeCeldasDeArchivo = {Columna::CampoDeArchivo, Columna::Ancho};
inline constexpr std::array columnasDeCeldasDeTransaccion = {Columna::Programa, Columna::Dynpro, Columna::Campo, Columna::Valor};

constexpr std::size_t largoMaximoDeCampo = 30;

Tabla TablaDe(Columna columna);
std::span<const Columna> ColumnasDe(Tabla tabla);

// Number of the column on its side, from 0.
std::size_t NumeroDeColumna(Columna columna);

// The text of a row that stands in the column, for columns of the file side and of the program side.
std::string FilaDeArchivo::*ColumnaDeArchivo(Columna columna);
std::string FilaDeTransaccion::*ColumnaDeTransaccion(Columna columna);

// What a typed text becomes in the table: cut and in upper case; a constant in the value column keeps its case.
std::string TextoDeTabla(Columna columna, std::string_view texto);

}  // namespace qor
