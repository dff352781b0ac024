#pragma once

#include <string>

#include "abap/surroundings.h"
#include "practice/file_names.h"

namespace qor {

// GUI_UPLOAD and WS_UPLOAD: the lines of a file in the place of a table's rows, a piece of the file at a time. The header line of
// the table stays. Both answer the name of the exception that they raise.
std::string LlamarGUI_UPLOAD(const abap::LlamadaAFuncion& llamada, NombresDeArchivos& nombres);
std::string LlamarWS_UPLOAD(const abap::LlamadaAFuncion& llamada, NombresDeArchivos& nombres);

}  // namespace qor
