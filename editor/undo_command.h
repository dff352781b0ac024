#pragma once

#include "editor/window.h"

namespace qor {

// The click of UndoButton: takes back the last step, in the grid as it stood then, and gives the row the focus. Nothing when there
// is no step; there is no redo. No cell is left by its rule.
void Deshacer(Ventana& ventana);

}  // namespace qor
