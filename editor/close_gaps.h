#pragma once

#include "editor/window.h"

namespace qor {

// The command "Remove blank rows": takes out every blank row of the program side behind row 0, among them rows with text only where
// it doesn't count, and shows the grid from its top. One step to undo. False when there was nothing to remove, and then nothing
// changes.
bool QuitarFilasEnBlanco(Ventana& ventana);

}  // namespace qor
