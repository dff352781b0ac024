#include "app/finding_formats.h"

#include <filesystem>

#include "app/console_view.h"
#include "base/text.h"
#include "findings/catalogue.h"
#include "findings/place_words.h"

namespace qor {

namespace {

std::string EnUnaLinea(std::string_view texto) { return ReemplazarTodo(texto, "\n", " "); }

// A value of a workflow command, behind "::" or as a property.
std::string DatoDeOrden(std::string_view texto) {
    return ReemplazarTodo(ReemplazarTodo(ReemplazarTodo(texto, "%", "%25"), "\r", "%0D"), "\n", "%0A");
}
std::string PropiedadDeOrden(std::string_view texto) {
    return ReemplazarTodo(ReemplazarTodo(DatoDeOrden(texto), ":", "%3A"), ",", "%2C");
}

}  // namespace

void TomarAvisosPorErrores(Hallazgos& hallazgos) {
    for (auto& hallazgo : hallazgos.lista) {
        if (hallazgo.gravedad == Gravedad::Aviso) hallazgo.gravedad = Gravedad::Error;
    }
}

std::string HallazgosComoTexto(const DocumentosRevisados& documentos) {
    std::string lineas;
    for (const auto& documento : documentos) {
        for (const auto& hallazgo : documento.hallazgos.lista) {
            lineas += EnUnaLinea(documento.ruta) + ": ";
            if (const auto lugar = TextoDeLugar(hallazgo.lugar); !lugar.empty()) lineas += lugar + ": ";
            lineas.append(PalabraDeGravedad(hallazgo.gravedad)).append(" ").append(CodigoDeHallazgo(hallazgo.codigo));
            if (hallazgo.mensaje != 0) lineas += " (" + std::to_string(hallazgo.mensaje) + ")";
            lineas += ": " + EnUnaLinea(TextoDeTerminal(hallazgo.texto)) + '\n';
        }
    }
    return lineas;
}

std::string ResumenDeHallazgos(const DocumentosRevisados& documentos) {
    std::string resumen;
    std::size_t errores = 0;
    std::size_t avisos = 0;
    std::size_t notas = 0;
    for (const auto& documento : documentos) {
        const auto cuenta = ContarHallazgos(documento.hallazgos.lista);
        errores += static_cast<std::size_t>(cuenta.errores);
        avisos += static_cast<std::size_t>(cuenta.avisos);
        notas += static_cast<std::size_t>(cuenta.notas);
        if (documento.motivo) {
            resumen += EnUnaLinea(documento.ruta) + ": not checked\n";
        } else if (!documento.hallazgos.completo) {
            resumen += EnUnaLinea(documento.ruta) + ": not checked to its end, there may be more behind these\n";
        }
    }
    return resumen + Cuantos(documentos.size(), "document") + ", " + Cuantos(errores, "error") + ", " + Cuantos(avisos, "warning") +
           ", " + Cuantos(notas, "note") + '\n';
}

std::string HallazgosParaGitHub(const DocumentosRevisados& documentos) {
    std::string ordenes;
    const auto agregar = [&](std::string_view orden, const std::string& propiedades, std::string_view dato) {
        ordenes.append("::").append(orden).append(" ").append(propiedades).append("::").append(DatoDeOrden(dato)).append("\n");
    };
    for (const auto& documento : documentos) {
        const std::string archivo = "file=" + PropiedadDeOrden(std::filesystem::path(documento.ruta).lexically_normal().string());
        if (documento.motivo) {
            agregar("error", archivo + ",title=not checked", TextoDeTerminal(documento.motivo->texto));
        }
        for (const auto& hallazgo : documento.hallazgos.lista) {
            const auto palabra = hallazgo.gravedad == Gravedad::Nota ? "notice" : PalabraDeGravedad(hallazgo.gravedad);
            const auto lugar = TextoDeLugar(hallazgo.lugar);
            agregar(palabra,
                    archivo + ",line=" + std::to_string(documento.lineas.LineaDe(hallazgo.lugar)) +
                        ",title=" + CodigoDeHallazgo(hallazgo.codigo),
                    (lugar.empty() ? "" : lugar + ": ") + TextoDeTerminal(hallazgo.texto));
        }
    }
    return ordenes;
}

}  // namespace qor
