#include "sap/temporary_file.h"

#include <ctime>
#include <filesystem>
#include <system_error>

#include "base/clock.h"
#include "base/failure.h"
#include "base/paths.h"

namespace qor {

std::string NombreTemporal(const std::string& directorio) {
    const std::tm hora = HoraActual();
    char nombre[64];
    std::strftime(nombre, sizeof nombre, "%Y%m%d_%H%M%S.tmp", &hora);
    return AgregarBarra(directorio) + nombre;
}

void BorrarTemporal(const std::string& ruta) {
    std::error_code ignorado;
    std::filesystem::remove(RutaDelSistema(ruta), ignorado);
}

}  // namespace qor
