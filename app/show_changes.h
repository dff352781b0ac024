#pragma once

#include <string_view>

#include "editor/window.h"
#include "sap/import.h"

// What came from files or a system, taken into the document and shown.
namespace qor {

// An import, as one step to undo: the program side from its top, on the first page of the tabs. Where it changes nothing, neither
// is there. Message 329 with the number of rows that came; `filas` is the word in front of it.
void TomarImportacion(Ventana& ventana, Importacion importacion, std::string_view filas);

// Field widths have been read: the file side from its top, on the first page.
void MostrarAnchos(Ventana& ventana);

}  // namespace qor
