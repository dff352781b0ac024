#pragma once

#include <filesystem>

#include "app/start_up.h"
#include "base/file_request.h"

// Where the file dialogs begin: the directory of the last file of each kind, kept in the file beside the settings that remembers
// windows. That of the documents is a setting of its own.
namespace qor {

LugaresDeDialogo LugaresDe(const Programa& programa, const std::filesystem::path& documento, ClaseDeArchivo clase);

// What was chosen in a dialog; a directory ends in a separator.
void RecordarLugar(Programa& programa, ClaseDeArchivo clase, const std::filesystem::path& elegido);

}  // namespace qor
