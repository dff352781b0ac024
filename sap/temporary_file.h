#pragma once

#include <filesystem>
#include <string>

#include "sap/session.h"

// Files of a moment hold a system's data: nobody else can read them, or put another file in their place.
namespace qor {

// Makes an empty file, "yyyymmdd_hhmmss_" and six characters that nobody can guess and ".tmp", with mode 0600, and answers its
// path. It lies in $XDG_RUNTIME_DIR where that directory is the user's alone, else in a directory that the session makes for
// itself, and that goes with the session when it is empty. Empty when the file can't be made.
std::filesystem::path CrearTemporal(SesionSAP& sesion);

// Deletes a file; a failure is ignored.
void BorrarTemporal(const std::filesystem::path& ruta);

}  // namespace qor
