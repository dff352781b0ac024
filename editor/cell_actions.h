#pragma once

#include <optional>

#include "editor/window.h"

// Double clicks, clicks and drops on the grids.
namespace qor {

// The row of a cell has a name of a field or parameter, to which a note belongs, and on the file side code.
bool TieneNombre(const Ventana& ventana, LugarDeCelda lugar);

// A double click on a cell: the row whose note is to be edited (editor/notes.h), if any. Only Text2 beside a name and Text4 with a
// text open a note; row 0 of the program side takes none, with message 343.
std::optional<FilaDeTabla> DobleClicEnCelda(Ventana& ventana, LugarDeCelda lugar);

// A click on ABAP(linea): the file row whose code is to be edited (editor/user_code.h), if the row has a name.
std::optional<int> ClicEnABAP(const Ventana& ventana, int linea);

// The labels that can be dragged: OK codes of a screen.
enum class RotuloDeOkCode { EnterCode, SaveCode, F5Code, CreateCode };

// Drops onto Text5(linea): an OK code makes the row a BDC_OKCODE field in place of all that it holds; a cell of Text1 gives the row
// its name as value, unless the field belongs to another step-loop.
void SoltarOkCode(Ventana& ventana, int linea, RotuloDeOkCode rotulo);
void SoltarCampo(Ventana& ventana, int linea, int lineaDeText1);

}  // namespace qor
