#pragma once

#include <string>
#include <vector>

#include "editor/window.h"

// "Add missing file fields": the fields that the program side names and the file side lacks.
namespace qor {

// In the order of the program side, each once. Values that can't be names of fields are left out.
std::vector<std::string> CamposQueFaltan(const Especificacion& especificacion);

// Adds fields behind the last one of the file side, without widths, and shows them; the first one's width gets the focus. One step
// to undo. Nothing changes, and message 432 says how many there is room for, when they don't fit.
void AgregarCampos(Ventana& ventana, const std::vector<std::string>& campos);

}  // namespace qor
