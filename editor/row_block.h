#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "editor/window.h"

// Blocks of cells as spreadsheets put them on the clipboard: a tab between cells, a line end behind each row, quotes around a cell
// that holds one of these, and two quotes for one inside it.
namespace qor {

// The cells of a text, row by row, without blanks at their ends. A text of one line without a tab is no block and gives none.
std::vector<std::vector<std::string>> LeerBloque(std::string_view texto);

// Puts a block into the grid from a cell on, over what stands there, each cell by the rules of typing and leaving one, and gives
// the last row the focus. One step to undo. Nothing changes when a cell would be refused or cut, or the block does not fit: the
// message names the row of the block. False then, and for a text that is no block.
bool PegarBloque(Ventana& ventana, LugarDeCelda lugar, std::string_view texto);

// Rows of a grid in the same form, all columns.
std::string CopiarFilas(const Ventana& ventana, Tabla tabla, int desde, int hasta);

}  // namespace qor
