#pragma once

#include "editor/window.h"

namespace qor {

// The keys that act on the grids instead of the text of a cell. Left and Right act wherever the caret stands.
enum class Tecla { Arriba, Abajo, Izquierda, Derecha, RePag, AvPag, F5, F6, MarcarArriba, MarcarAbajo, MayusF5 };

// A key in a cell. Up, Down and the page keys go along the column and scroll at the end of the grid; Left and Right walk through
// the cells in reading order; F5 inserts a copy of the row above it, with Shift a blank one; F6 deletes the row, or all rows that
// are marked; Shift and an arrow mark rows (editor/row_range.h). Wherever the focus goes, cells are left and entered by their
// rules; where the grid scrolls under the cell, its row is left before and the new one entered behind. F5 and F6 leave no cell.
void TeclaEnCelda(Ventana& ventana, LugarDeCelda lugar, Tecla tecla);

}  // namespace qor
