#include "sap/remote_reports.h"

#include <ostream>

#include "base/text.h"
#include "sap/remote_call.h"

namespace qor {

namespace {

std::optional<FilasDeLista> SinLaUltima(std::optional<FilasDeLista> filas) {
    if (filas && !filas->empty()) filas->pop_back();
    return filas;
}

// The wildcards of the user as those of LIKE.
std::string ComoPatron(const std::string& texto) { return ReemplazarTodo(ReemplazarTodo(texto, "*", "%"), "+", "_"); }

LineasABAP Condiciones(const std::string& usuario, bool porCreador, const std::string& programa) {
    LineasABAP lineas;
    if (!usuario.empty()) lineas.push_back((porCreador ? "CNAM LIKE '" : "UNAM LIKE '") + ComoPatron(usuario) + "' AND");
    if (programa.empty()) {
        lineas.emplace_back("( NAME LIKE 'Y%' OR NAME LIKE 'Z%' ) AND");
    } else {
        lineas.push_back("NAME LIKE '" + ComoPatron(programa) + "' AND");
    }
    return lineas;
}

}  // namespace

std::optional<FilasDeLista> EjecutarReporte(SesionSAP& sesion, const LineasABAP& programa) {
    return Llamar(sesion, {sesion.ModuloRFC, {"MODE", "F"}, LlamadaRFC::Entrada{"PROGRAM", programa}, "WRITES"});
}

std::optional<FilasDeLista> BuscarProgramas(SesionSAP& sesion, const std::string& usuario, bool porCreador,
                                            const std::string& programa) {
    const auto condiciones = Condiciones(usuario, porCreador, programa);
    LineasABAP reporte;
    for (const auto& linea : sesion.plantillas.PlantillaProgramas) {
        if (Contiene(linea, "<conditions>")) {
            reporte.insert(reporte.end(), condiciones.begin(), condiciones.end());
        } else {
            reporte.push_back(linea);
        }
    }
    return SinLaUltima(EjecutarReporte(sesion, reporte));
}

std::optional<FilasDeLista> ListarColas(SesionSAP& sesion, const std::string& tipo) {
    return SinLaUltima(EjecutarReporte(sesion, Sustituir(sesion.plantillas.PlantillaColas, "<datatype>", tipo)));
}

std::optional<FilasDeLista> ListarBAPIs(SesionSAP& sesion) {
    return SinLaUltima(EjecutarReporte(sesion, sesion.plantillas.PlantillaBAPIs));
}

bool BajarBAPI(SesionSAP& sesion, const std::string& funcion, std::ostream& archivo) {
    const auto filas = SinLaUltima(EjecutarReporte(sesion, Sustituir(sesion.plantillas.PlantillaBAPI, "<function>", funcion)));
    if (!filas) return false;
    for (const auto& fila : *filas) archivo << fila << "\r\n";
    return true;
}

std::optional<FilasDeLista> LeerCola(SesionSAP& sesion, const std::string& qid, const std::string& tipo) {
    const auto conQid = Sustituir(sesion.plantillas.PlantillaDatosCola, "<qid>", qid);
    return EjecutarReporte(sesion, Sustituir(conQid, "<datatype>", tipo));
}

}  // namespace qor
