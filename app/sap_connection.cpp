#include "app/sap_connection.h"

#include <utility>

namespace qor {

SesionSAP NuevaSesionSAP(const AjustesDelPrograma& ajustes, const std::filesystem::path& directorioDeDatos,
                         DialogoDeLogon dialogo) {
    SesionSAP sesion;
    sesion.nombres = ConNombresConocidos(ajustes.nombresRFC);
    sesion.plantillas = CargarPlantillas(directorioDeDatos);
    sesion.CrearServicio = [opciones = OpcionesNWRFC{ajustes.BibliotecaRFC, ajustes.SegundosDeLlamadaRFC},
                            dialogo = std::move(dialogo)] { return CrearServicioNWRFC(opciones, dialogo); };
    return sesion;
}

OpcionesDeLogon OpcionesDeLogonDe(const AjustesDelPrograma& ajustes) {
    return {ajustes.ChequearErroresLogon, ajustes.ImportarSHDBLogon};
}

}  // namespace qor
