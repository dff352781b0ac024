#include "app/sap_connection.h"

#include <cstdlib>
#include <system_error>
#include <utility>

#include "base/paths.h"

namespace qor {

namespace {

// Files of a moment hold business data under names that can be guessed: the user's own run-time directory is kept from others.
std::filesystem::path DirectorioTemporal() {
    const char* const propio = std::getenv("XDG_RUNTIME_DIR");
    std::error_code ignorado;
    if (propio != nullptr && std::filesystem::is_directory(propio, ignorado)) return propio;
    return std::filesystem::temp_directory_path();
}

}  // namespace

SesionSAP NuevaSesionSAP(const AjustesDelPrograma& ajustes, const std::filesystem::path& directorioDeDatos,
                         DialogoDeLogon dialogo) {
    SesionSAP sesion;
    sesion.nombres = ConNombresConocidos(ajustes.nombresRFC);
    sesion.plantillas = CargarPlantillas(directorioDeDatos);
    sesion.DirectorioTemporal = RutaDelModelo(DirectorioTemporal());
    sesion.CrearServicio = [opciones = OpcionesNWRFC{ajustes.BibliotecaRFC, ajustes.SegundosDeLlamadaRFC},
                            dialogo = std::move(dialogo)] { return CrearServicioNWRFC(opciones, dialogo); };
    return sesion;
}

OpcionesDeLogon OpcionesDeLogonDe(const AjustesDelPrograma& ajustes) {
    return {ajustes.ChequearErroresLogon, ajustes.ImportarSHDBLogon};
}

}  // namespace qor
