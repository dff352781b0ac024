#include "sap/remote_reports.h"

#include <ostream>

#include "base/failure.h"
#include "base/text.h"
#include "sap/remote_call.h"

namespace qor {

namespace {

std::optional<FilasDeLista> SinLaUltima(std::optional<FilasDeLista> filas) {
    if (filas && !filas->empty()) filas->pop_back();
    return filas;
}

// The wildcards of the user as those of LIKE.
std::string ComoPatron(const std::string& texto) { return EnLiteral(ReemplazarTodo(ReemplazarTodo(texto, "*", "%"), "+", "_")); }

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

// Runs a report that `componer` makes of the templates and the arguments, unless they can't be part of one.
template <typename Componer, typename... Argumentos>
std::optional<FilasDeLista> Consultar(SesionSAP& sesion, Componer componer, const Argumentos&... argumentos) {
    try {
        return EjecutarReporte(sesion, componer(sesion.plantillas, argumentos...));
    } catch (const FalloDeEjecucion& fallo) {
        sesion.Motivo = fallo.what();
        return std::nullopt;
    }
}

}  // namespace

std::optional<FilasDeLista> EjecutarReporte(SesionSAP& sesion, const LineasABAP& programa) {
    return Llamar(sesion, {sesion.ModuloRFC, {"MODE", "F"}, LlamadaRFC::Entrada{"PROGRAM", programa}, "WRITES"});
}

LineasABAP ReporteDeProgramas(const PlantillasRFC& plantillas, const std::string& usuario, bool porCreador,
                              const std::string& programa) {
    const auto condiciones = Condiciones(usuario, porCreador, programa);
    LineasABAP reporte;
    for (const auto& linea : plantillas.PlantillaProgramas) {
        if (Contiene(linea, "<conditions>")) {
            reporte.insert(reporte.end(), condiciones.begin(), condiciones.end());
        } else {
            reporte.push_back(linea);
        }
    }
    return reporte;
}

LineasABAP ReporteDeColas(const PlantillasRFC& plantillas, const std::string& tipo) {
    return Sustituir(plantillas.PlantillaColas, "<datatype>", tipo);
}

LineasABAP ReporteDeBAPI(const PlantillasRFC& plantillas, const std::string& funcion) {
    return Sustituir(plantillas.PlantillaBAPI, "<function>", funcion);
}

LineasABAP ReporteDeCola(const PlantillasRFC& plantillas, const std::string& qid, const std::string& tipo) {
    return Sustituir(Sustituir(plantillas.PlantillaDatosCola, "<qid>", qid), "<datatype>", tipo);
}

std::optional<FilasDeLista> BuscarProgramas(SesionSAP& sesion, const std::string& usuario, bool porCreador,
                                            const std::string& programa) {
    return SinLaUltima(Consultar(sesion, ReporteDeProgramas, usuario, porCreador, programa));
}

std::optional<FilasDeLista> ListarColas(SesionSAP& sesion, const std::string& tipo) {
    return SinLaUltima(Consultar(sesion, ReporteDeColas, tipo));
}

std::optional<FilasDeLista> ListarBAPIs(SesionSAP& sesion) {
    return SinLaUltima(EjecutarReporte(sesion, sesion.plantillas.PlantillaBAPIs));
}

bool BajarBAPI(SesionSAP& sesion, const std::string& funcion, std::ostream& archivo) {
    const auto filas = SinLaUltima(Consultar(sesion, ReporteDeBAPI, funcion));
    if (!filas) return false;
    for (const auto& fila : *filas) archivo << fila << "\r\n";
    return true;
}

std::optional<FilasDeLista> LeerCola(SesionSAP& sesion, const std::string& qid, const std::string& tipo) {
    return Consultar(sesion, ReporteDeCola, qid, tipo);
}

}  // namespace qor
