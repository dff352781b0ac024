#pragma once

#include <string>
#include <string_view>

#include "editor/window.h"

// What becomes of a character before it reaches a cell or another text box. Characters are bytes in windows-1252; a form passes
// printable ones and the backspace (8), and for a paste each character of the text. No text box takes a double quote.
namespace qor {

// A key that the text box ignores.
constexpr char teclaDescartada = 0;
constexpr char retroceso = 8;

// A key in a cell of the grids. Drops it with a warning where the row can't take it: the row above is empty, or this one is a row
// of the other kind. The warnings come for every key, also for one that is dropped anyway.
char FiltrarTeclaDeCelda(Ventana& ventana, LugarDeCelda lugar, char tecla);

// A text pasted or dropped into a cell, as its keys would have it: characters that are dropped are missing. Empty, with the
// warning, where the row can't take it.
std::string FiltrarTextoDeCelda(Ventana& ventana, LugarDeCelda lugar, std::string_view texto);

// A key in any other text box of the main form and its dialogs: digits alone, upper case, or "_" for what is no letter or digit,
// as the box wants it. The boxes with a rule of their own beyond this are those of notes.h, conditions.h.
char FiltrarTecla(std::string_view control, char tecla);
std::string FiltrarTexto(std::string_view control, std::string_view texto);

}  // namespace qor
