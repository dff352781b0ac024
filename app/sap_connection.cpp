#include "app/sap_connection.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace qor {

namespace {

// A call may run as long as the settings say; what is not a report answers at once, or the system is out of reach.
OpcionesNWRFC OpcionesDe(const AjustesDelPrograma& ajustes) {
    constexpr std::chrono::seconds maximoDeConexion{60};
    const std::chrono::seconds limite(ajustes.SegundosDeLlamadaRFC);
    return {ajustes.BibliotecaRFC, limite, std::min(limite, maximoDeConexion)};
}

}  // namespace

SesionSAP NuevaSesionSAP(const AjustesDelPrograma& ajustes, const std::filesystem::path& directorioDeDatos,
                         DialogoDeLogon dialogo) {
    SesionSAP sesion;
    sesion.nombres = ConNombresConocidos(ajustes.nombresRFC);
    sesion.plantillas = CargarPlantillas(directorioDeDatos);
    sesion.CrearServicio = [opciones = OpcionesDe(ajustes), dialogo = std::move(dialogo)] {
        return CrearServicioNWRFC(opciones, dialogo);
    };
    return sesion;
}

OpcionesDeLogon OpcionesDeLogonDe(const AjustesDelPrograma& ajustes) {
    return {ajustes.ChequearErroresLogon, ajustes.ImportarSHDBLogon};
}

}  // namespace qor
