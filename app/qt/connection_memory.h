#pragma once

#include <filesystem>

#include "sap/nwrfc_service.h"

// The last connection, in an INI file beside the settings that only its owner can read. No password is in it: neither the user's,
// nor a SAP router string that holds one.
namespace qor {

// Fills the parameters with what the file holds; a missing file leaves them empty.
void RecuperarConexion(const std::filesystem::path& ruta, ParametrosDeLogon& parametros);

void RecordarConexion(const std::filesystem::path& ruta, const ParametrosDeLogon& parametros);

}  // namespace qor
