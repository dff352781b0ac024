#pragma once

#include <string>
#include <string_view>

#include "base/key_filters.h"
#include "editor/window.h"

// What becomes of a character before it reaches a cell of the grids.
namespace qor {

// A key in a cell. Drops it with a warning where the row can't take it: the row above is empty, or this one is a row of the other
// kind. The warnings come for every key, also for one that is dropped anyway.
char FiltrarTeclaDeCelda(Ventana& ventana, LugarDeCelda lugar, char tecla);

// A text pasted or dropped into a cell, as its keys would have it: characters that are dropped are missing. Empty, with the
// warning, where the row can't take it.
std::string FiltrarTextoDeCelda(Ventana& ventana, LugarDeCelda lugar, std::string_view texto);

}  // namespace qor
