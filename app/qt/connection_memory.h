#pragma once

#include <filesystem>

#include "sap/logon_choice.h"

// The last connection, in an INI file beside the settings that only its owner can read. No password is in it: neither the user's,
// nor a SAP router string that holds one.
namespace qor {

// Fills the parameters with what the file holds; a missing file leaves them empty.
void RecuperarConexion(const std::filesystem::path& ruta, EleccionDeLogon& eleccion);

void RecordarConexion(const std::filesystem::path& ruta, const EleccionDeLogon& eleccion);

}  // namespace qor
