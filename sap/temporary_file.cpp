#include "sap/temporary_file.h"

#include <filesystem>
#include <system_error>

#include "base/clock.h"
#include "base/failure.h"
#include "base/private_place.h"
#include "base/process.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr const char* extension = ".tmp";

void ElegirDirectorio(SesionSAP& sesion) {
    const fs::path deEjecucion = VariableDeEntorno("XDG_RUNTIME_DIR");
    if (EsPrivado(deEjecucion)) {
        sesion.DirectorioTemporal = deEjecucion;
        return;
    }
    const auto directorio = CrearDirectorioPrivado(fs::temp_directory_path(), "qor-generator-");
    if (directorio.empty()) throw FalloDeEjecucion("no directory for temporary files can be made");
    sesion.DirectorioPropio = {nullptr, [directorio](void*) { BorrarTemporal(directorio); }};
    sesion.DirectorioTemporal = directorio;
}

}  // namespace

fs::path CrearTemporal(SesionSAP& sesion) {
    try {
        if (sesion.DirectorioTemporal.empty()) ElegirDirectorio(sesion);
        return CrearArchivoPrivado(sesion.DirectorioTemporal, FechaParaNombre(HoraActual()) + "_", extension);
    } catch (const FalloDeEjecucion&) {
        return {};
    } catch (const fs::filesystem_error&) {
        return {};
    }
}

void BorrarTemporal(const fs::path& ruta) {
    std::error_code ignorado;
    fs::remove(ruta, ignorado);
}

}  // namespace qor
