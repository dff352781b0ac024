#pragma once

#include <functional>
#include <optional>
#include <string>

#include "editor/window.h"

namespace qor {

// The place of a new operation: the first free row behind the program side, and the window in which it is shown.
struct LugarDeOperacion {
    int fila;
    int primeraFila;
    int linea;
};

// Nothing when there is no free row; the view has shown message 515.
std::optional<LugarDeOperacion> LugarParaOperacion(Ventana& ventana);

// Asks for the transaction of a new operation: its code, or an empty text when the user cancels, or has chosen a BAPI, which then
// stands in the rows from `fila` on.
using PreguntaDeOperacion = std::function<std::string(int fila)>;

// The click of ButtonAddOperation: a "TRANS" head with the code in the first free row. Can be undone.
void AgregarOperacion(Ventana& ventana, const PreguntaDeOperacion& preguntar);

}  // namespace qor
