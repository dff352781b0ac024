#pragma once

#include "editor/window.h"

namespace qor {

// A step to undo for a change of many rows: both sides and the declarations as they stand now. Undoing it shows the grid of
// `lugar` as it is now, with the focus in that cell.
RegistroDeshacer PasoDeTablas(const Ventana& ventana, LugarDeCelda lugar);

}  // namespace qor
