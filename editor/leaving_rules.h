#pragma once

#include <string>
#include <string_view>

#include "editor/window.h"

// What completes or corrects a cell when it is left. False when the rule refused the text: it is emptied or cut, with a warning.
namespace qor {

// Text1: a name that another row has gets a number, or the next number; one of 25 characters or more is emptied with message 338.
// Runs once for each change of a cell of the column.
bool ReglaDeDuplicados(Ventana& ventana, int linea);

// Text5: a constant stays. A variable is declared as a parameter, with message 312, when no definition has it; its name has at most
// eight characters. Anything else becomes the name of a file field, at most 30 characters (message 333), and with Autofill on that
// field is added to the file side where it is missing. Where characters had to be replaced, the window's hint tells how a constant
// is written.
bool ReglaDeValor(Ventana& ventana, int linea);

}  // namespace qor
