#include "app/check_command.h"

#include <algorithm>
#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "app/finding_formats.h"
#include "base/text.h"
#include "findings/finding.h"
#include "generator/generate.h"
#include "model/document_file.h"

namespace qor {

namespace {

struct Argumentos {
    std::string documento;
    std::vector<std::string> otros;
    bool todos = false;
    std::string formato = "text";
    bool avisosComoErrores = false;
};

using Revisados = const DocumentosRevisados&;
using Textos = const TextosIdioma&;
const std::map<std::string, std::string (*)(Revisados, Textos)> formatos = {
    {"text", [](Revisados revisados, Textos) { return HallazgosComoTexto(revisados); }},
    {"json", [](Revisados revisados, Textos) { return HallazgosComoJSON(revisados); }},
    {"sarif", HallazgosComoSARIF},
    {"github", [](Revisados revisados, Textos) { return HallazgosParaGitHub(revisados); }}};

bool Check(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    const auto chequear = [&](const std::string& ruta) {
        // Of several documents a line tells which one the messages are about.
        if (!argumentos.otros.empty()) contexto.errores << RutaDeTerminal(ruta) << ":\n";
        DocumentoDeComando abierto;
        return abierto.Abrir(contexto, ruta) && ChequearEspecificacion(abierto.Pedido(contexto));
    };
    bool bien = chequear(argumentos.documento);
    for (const auto& otro : argumentos.otros) bien = chequear(otro) && bien;
    return bien;
}

// Opens a document and finds what is wrong with it. Answers why it could not be done.
std::optional<Mensaje> Revisar(const ContextoDeComando& contexto, DocumentoRevisado& revisado) {
    if (EstaEnBlanco(revisado.ruta)) return MensajeLiteral("The name of a document is blank.");
    try {
        DocumentoDeComando abierto;
        auto& documento = abierto.documento;
        if (auto motivo = AbrirDocumento(documento, revisado.ruta, contexto.textos, revisado.lineas)) return motivo;
        abierto.lineas.MostrarDocumento(documento.especificacion, contexto.textos, contexto.vista);
        revisado.hallazgos = BuscarHallazgos({documento.especificacion, documento.opciones, contexto.ajustes.preferencias,
                                              contexto.textos, documento.RutaDocumento(), documento.NombreDocumento()});
        return std::nullopt;
    } catch (const std::exception& fallo) {
        // The other documents are still checked.
        return ConDetalle(MensajeLiteral(std::string("The check failed: ") + fallo.what() + "."), fallo);
    }
}

bool CheckAll(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    DocumentosRevisados revisados;
    bool bien = true;
    const auto revisar = [&](const std::string& documento) {
        auto& revisado = revisados.emplace_back();
        revisado.ruta = documento;
        revisado.motivo = Revisar(contexto, revisado);
        if (revisado.motivo) contexto.vista.Advertir(*revisado.motivo);
        if (argumentos.avisosComoErrores) TomarAvisosPorErrores(revisado.hallazgos);
        bien = bien && !revisado.motivo && ContarHallazgos(revisado.hallazgos.lista).errores == 0;
    };
    revisar(argumentos.documento);
    for (const auto& otro : argumentos.otros) revisar(otro);
    contexto.salida << formatos.at(argumentos.formato)(revisados, contexto.textos);
    if (argumentos.formato == "text") contexto.errores << ResumenDeHallazgos(revisados);
    return bien;
}

}  // namespace

void AgregarComandoCheck(Ordenes ordenes) {
    const auto argumentos = std::make_shared<Argumentos>();
    const Orden orden = ordenes.raiz.Suborden("check", "Check a document as generate does, and write nothing");
    orden.Pie(
        "Exit status 0 means that generate would open its output file, of every document; with --all, that there are no errors.");
    orden.Dato("DOCUMENT", argumentos->documento, "A .qor document").Obligatoria();
    orden.Dato("OTHERS", argumentos->otros, "More documents; a line with its path stands before the messages of each");
    auto todos = orden.Marca("--all", argumentos->todos, "Tell all findings with their places, on the standard output");
    orden.Dato("--format", argumentos->formato, "Form of the findings: text, json, sarif or github; by default text")
        .Necesita(todos)
        .UnaDe(Nombres(formatos))
        .Tipo("FORM");
    orden.Marca("--warnings-as-errors", argumentos->avisosComoErrores, "Take warnings for errors").Necesita(todos);
    AlLeer(orden, ordenes, argumentos, [](const ContextoDeComando& contexto, const Argumentos& leidos) {
        return leidos.todos ? CheckAll(contexto, leidos) : Check(contexto, leidos);
    });
}

}  // namespace qor
