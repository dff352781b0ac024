#pragma once

#include <filesystem>

#include "app/settings.h"
#include "sap/nwrfc_service.h"
#include "sap/session.h"

namespace qor {

// The session of the program, not connected: names, library and time limits by the settings, query reports from the data files.
SesionSAP NuevaSesionSAP(const AjustesDelPrograma& ajustes, const std::filesystem::path& directorioDeDatos, DialogoDeLogon dialogo);

OpcionesDeLogon OpcionesDeLogonDe(const AjustesDelPrograma& ajustes);

}  // namespace qor
