#include "app/practice_session.h"

#include "app/practice_file.h"
#include "app/sap_connection.h"

namespace qor {

Opcion AgregarOpcionPractice(Orden orden, std::optional<std::string>& archivo) {
    return orden.Dato("--practice", archivo, "Ask the practice system of FILE, by default your own").Tipo("[FILE]").Cuantos(0, 1);
}

std::optional<SesionSAP> EntrarEnPractica(const ContextoDeComando& contexto, const AjustesDelPrograma& ajustes,
                                          const std::string& archivo, Acceso acceso, const std::filesystem::path& documento) {
    std::filesystem::path ruta = archivo;
    if (archivo.empty()) {
        ruta = acceso == Acceso::Leer ? RutaDePractica(EntornoDelProceso()) : RutaDePracticaConDirectorio(EntornoDelProceso());
    }
    auto opciones = OpcionesDelUsuario(ajustes, contexto.directorioDeDatos, contexto.directorioDeAjustes, ruta);
    opciones.acceso = acceso;
    if (!documento.empty()) opciones.diccionariosPropios.push_back(documento.parent_path() / nombreDeDiccionario);
    auto sesion = NuevaSesionDePractica(ajustes, contexto.directorioDeDatos, std::move(opciones));
    auto preferencias = ajustes.preferencias;
    if (!Logon_Click(sesion, {}, preferencias, contexto.textos, contexto.vista)) return std::nullopt;
    return sesion;
}

}  // namespace qor
