#pragma once

#include "editor/window.h"

// The command "Remove blank rows", and its offer where blank rows stand in the way of another command.
namespace qor {

// Takes out every blank row of the program side behind row 0, among them rows with text only where it doesn't count, and the rows
// of the file side without a name that have named ones behind them; both grids are shown from their top. One step to undo. False
// when there was nothing to remove, and then nothing changes.
bool QuitarFilasEnBlanco(Ventana& ventana);

// The user's command: the same, and a message where there is nothing to remove.
void RemoveBlankOption(Ventana& ventana);

// In front of a command that no blank row may stand in the way of: where there is one between others, message 373 names its row and
// asks whether to remove them. False when they stay.
bool OfrecerQuitarHuecos(Ventana& ventana);

}  // namespace qor
