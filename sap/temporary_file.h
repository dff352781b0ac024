#pragma once

#include <string>

namespace qor {

// The directory, then the present date and time as "yyyymmdd_hhmmss", then ".tmp".
std::string NombreTemporal(const std::string& directorio);

// Deletes a file; a failure is ignored.
void BorrarTemporal(const std::string& ruta);

}  // namespace qor
