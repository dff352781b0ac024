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

SesionSAP SesionSinServicio(const AjustesDelPrograma& ajustes, const std::filesystem::path& directorioDeDatos) {
    SesionSAP sesion;
    sesion.nombres = ConNombresConocidos(ajustes.nombresRFC);
    sesion.plantillas = CargarPlantillas(directorioDeDatos);
    return sesion;
}

}  // namespace

SesionSAP NuevaSesionSAP(const AjustesDelPrograma& ajustes, const std::filesystem::path& directorioDeDatos,
                         DialogoDeEleccion dialogo, OpcionesDePractica practica) {
    SesionSAP sesion = SesionSinServicio(ajustes, directorioDeDatos);
    sesion.CrearServicio = [opciones = OpcionesDe(ajustes), dialogo = std::move(dialogo), practica = std::move(practica),
                            nombres = sesion.nombres]() -> std::unique_ptr<ServicioRFC> {
        const auto eleccion = std::make_shared<EleccionDeLogon>();
        if (!dialogo(*eleccion)) return nullptr;
        if (eleccion->practica) return CrearServicioDePractica({practica(), eleccion->rol}, nombres);
        return CrearServicioNWRFC(opciones, [eleccion](ParametrosDeLogon& parametros) {
            parametros.Tomar(eleccion->parametros);
            return true;
        });
    };
    return sesion;
}

SesionSAP NuevaSesionDePractica(const AjustesDelPrograma& ajustes, const std::filesystem::path& directorioDeDatos,
                                OpcionesDeSistema practica) {
    SesionSAP sesion = SesionSinServicio(ajustes, directorioDeDatos);
    sesion.CrearServicio = [practica = std::move(practica), nombres = sesion.nombres] {
        return CrearServicioDePractica({practica, std::nullopt}, nombres);
    };
    return sesion;
}

OpcionesDeLogon OpcionesDeLogonDe(const AjustesDelPrograma& ajustes) {
    return {ajustes.ChequearErroresLogon, ajustes.ImportarSHDBLogon};
}

}  // namespace qor
