#pragma once

#include "app/connection_actions.h"

namespace qor {

// Connections to SAP systems over the NetWeaver RFC library, with the dialogs of the program. The last connection is remembered
// beside the settings, without its password.
std::unique_ptr<AccionesDeConexion> ConexionSAP(const EntornoDeConexion& entorno);

}  // namespace qor
