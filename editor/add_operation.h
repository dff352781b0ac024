#pragma once

#include <functional>
#include <string>

#include "editor/window.h"

namespace qor {

// Asks for the transaction of a new operation: its code, or an empty text when the user cancels, or has chosen a BAPI, which then
// stands in the rows from `fila` on.
using PreguntaDeOperacion = std::function<std::string(int fila)>;

// The click of ButtonAddOperation: a "TRANS" head with the code in the first free row. Can be undone.
void AgregarOperacion(Ventana& ventana, const PreguntaDeOperacion& preguntar);

}  // namespace qor
