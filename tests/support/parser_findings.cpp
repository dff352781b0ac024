#include "tests/support/parser_findings.h"

#include "base/files.h"
#include "base/new_file.h"
#include "base/text.h"
#include "findings/catalogue.h"

namespace qor::pruebas {

namespace {

// The lines of the report that come from the place of a finding.
std::string LineasDe(const ReporteGenerado& reporte, const Hallazgo& hallazgo) {
    const Lugar& lugar = hallazgo.lugar;
    std::string lineas;
    const auto total = static_cast<int>(PartirEnLineas(reporte.texto).size());
    for (std::size_t t = 0; t < reporte.origenes.size(); ++t) {
        const Lugar& origen = reporte.origenes[t].lugar;
        const bool mismo = origen.parte == lugar.parte && origen.fila == lugar.fila && origen.Opcion() == lugar.Opcion() &&
                           (lugar.parte == Lugar::Parte::Programa || lugar.linea == 0 || origen.linea == lugar.linea);
        if (!mismo) continue;
        const int fin = t + 1 < reporte.origenes.size() ? reporte.origenes[t + 1].primeraLinea : total;
        for (int linea = reporte.origenes[t].primeraLinea; linea < fin; ++linea) lineas += " " + std::to_string(linea + 1);
    }
    for (const int linea : hallazgo.lineas) lineas += " " + std::to_string(linea);
    return lineas;
}

}  // namespace

void GuardarParaElParser(const std::filesystem::path& directorio, const std::string& nombre, const ReporteGenerado& reporte,
                         const Hallazgos& hallazgos) {
    std::string hallados;
    for (const auto& h : hallazgos.lista) {
        if (h.gravedad == Gravedad::Error) hallados += CodigoDeHallazgo(h.codigo) + LineasDe(reporte, h) + "\n";
    }
    GuardarArchivo(directorio / (nombre + ".abap"), reporte.texto);
    GuardarArchivo(directorio / (nombre + ".findings"), hallados);
}

}  // namespace qor::pruebas
