#pragma once

#include <optional>

#include "editor/window.h"

// Ways to other places of the specification.
namespace qor {

// Brings a row into its grid, where it isn't seen already, and gives one of its cells the focus.
void MostrarCelda(Ventana& ventana, Columna columna, int fila);

// The row of the file side whose field the value of a row of the program side names; nothing for other values.
std::optional<int> CampoDelValor(const Ventana& ventana, LugarDeCelda lugar);

// The row in the list of conditions of the one that a row of the program side names behind ";" in its dynpro or field; nothing
// where it names none, or one that isn't there.
std::optional<int> CondicionDeFila(const Ventana& ventana, LugarDeCelda lugar);

}  // namespace qor
