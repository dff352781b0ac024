#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>
#include <optional>
#include <ostream>

#include "app/command.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"
#include "editor/close_gaps.h"
#include "editor/document_commands.h"
#include "sap/import.h"
#include "sap/publish.h"
#include "sap/widths.h"

namespace qor {

namespace {

struct Argumentos {
    std::string documento;
    std::string archivo;
    bool reemplazar = false;
    bool agregar = false;
    bool cerrarHuecos = false;
    std::optional<std::string> exportar;
    std::optional<std::string> importar;
    std::optional<std::string> consulta;
    std::string nombre;
    bool soloMostrar = false;
};

// A document that doesn't exist starts as a new one.
bool AbrirONuevo(Editor& editor, const std::string& documento) {
    std::error_code ignorado;
    if (std::filesystem::exists(std::filesystem::symlink_status(RutaDelSistema(documento), ignorado))) {
        return AbrirDocumento(editor, documento);
    }
    FijarDocumento(editor, documento);
    return true;
}

Respuesta RespuestaSobreFilas(const Argumentos& argumentos) {
    if (argumentos.reemplazar) return Respuesta::Si;
    return argumentos.agregar ? Respuesta::No : Respuesta::Cancelar;
}

// The first row holds no operation, and rows behind it do.
bool EmpiezaEnBlanco(const Especificacion& especificacion) {
    if (!especificacion.FilaTransaccionVacia(0)) return false;
    for (int r = 1; r <= ultimaFila; ++r) {
        if (!especificacion.FilaTransaccionVacia(r)) return true;
    }
    return false;
}

bool Import(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    Editor editor(contexto.textos, contexto.vista);
    if (!AbrirONuevo(editor, DeArgumento(argumentos.documento))) return false;
    contexto.vista.Responder(330, RespuestaSobreFilas(argumentos));
    if (!ImportarSesion(editor, DeArgumento(argumentos.archivo))) return false;
    if (argumentos.cerrarHuecos) QuitarFilasEnBlanco(editor);
    if (EmpiezaEnBlanco(editor.especificacion)) {
        contexto.vista.Advertir(Componer(contexto.textos, {302}));
        return false;
    }
    return SaveOption(editor);
}

void ImprimirReporte(const LineasABAP& lineas, std::ostream& salida) {
    for (const auto& linea : lineas) salida << TextoDeTerminal(linea) << '\n';
}

// The whole text of a file, or the message that tells of its absence.
std::optional<std::string> LeerOAdvertir(const ContextoDeComando& contexto, const std::string& archivo, int mensaje) {
    try {
        return LeerArchivo(RutaDelSistema(archivo));
    } catch (const FalloDeEjecucion&) {
        contexto.vista.Advertir(Componer(contexto.textos, {mensaje}));
        return std::nullopt;
    }
}

bool Query(const ContextoDeComando& contexto, const std::string& archivo) {
    const auto texto = LeerOAdvertir(contexto, archivo, 415);
    if (!texto) return false;
    ImprimirReporte(ReporteDeAnchos(PartirEnLineas(*texto)), contexto.salida);
    return true;
}

bool Widths(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    if (argumentos.consulta) return Query(contexto, DeArgumento(*argumentos.consulta));
    Editor editor(contexto.textos, contexto.vista);
    if (!AbrirDocumento(editor, DeArgumento(argumentos.documento))) return false;
    if (argumentos.exportar) {
        return GenerarInfoCampos(editor.especificacion, DeArgumento(*argumentos.exportar), false, contexto.textos, contexto.vista);
    }
    return ImportInfo(editor, DeArgumento(*argumentos.importar)) && SaveOption(editor);
}

bool Publish(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    const auto fuente = LeerOAdvertir(contexto, DeArgumento(argumentos.archivo), 411);
    if (!fuente) return false;
    ImprimirReporte(ComponerPublicacion(*fuente, DeArgumento(argumentos.nombre)).lineas, contexto.salida);
    return true;
}

using ArgumentosCompartidos = std::shared_ptr<Argumentos>;

void AlLeer(CLI::App* orden, Ordenes ordenes, const ArgumentosCompartidos& argumentos,
            bool (*accion)(const ContextoDeComando&, const Argumentos&)) {
    orden->callback([argumentos, accion, &comando = ordenes.comando] {
        comando = [argumentos, accion](const ContextoDeComando& contexto) { return accion(contexto, *argumentos); };
    });
}

void AgregarImport(Ordenes ordenes) {
    auto argumentos = std::make_shared<Argumentos>();
    auto* const orden = ordenes.programa.add_subcommand("import", "Turn a recording or a session file into rows of a document");
    orden->footer(
        "A DOCUMENT that doesn't exist starts as a new one. Where it has rows already, nothing is imported without\n"
        "--replace or --append.");
    orden->add_option("DOCUMENT", argumentos->documento, "A .qor document")->required();
    orden->add_option("FILE", argumentos->archivo, "The program made of a recording, or a file of session records")->required();
    auto* const reemplazar = orden->add_flag("--replace", argumentos->reemplazar, "Replace the rows of the program side");
    orden->add_flag("--append", argumentos->agregar, "Add behind the rows of the program side")->excludes(reemplazar);
    orden->add_flag("--close-gaps", argumentos->cerrarHuecos, "Remove the blank rows behind the first row before saving");
    AlLeer(orden, ordenes, argumentos, Import);
}

void AgregarWidths(Ordenes ordenes) {
    auto argumentos = std::make_shared<Argumentos>();
    auto* const orden = ordenes.programa.add_subcommand("widths", "Exchange field widths with a system by way of a file");
    orden->footer("A line of the file holds table, field and file field in 30 columns each; the length comes behind them.");
    auto* const documento = orden->add_option("DOCUMENT", argumentos->documento, "A .qor document");
    auto* const acciones = orden->add_option_group("Action", "What to do");
    acciones->require_option(1);
    acciones->add_option("--export", argumentos->exportar, "Write the file that asks for the widths")
        ->type_name("FILE")
        ->needs(documento);
    acciones->add_option("--import", argumentos->importar, "Take the widths of the completed file, and save")
        ->type_name("FILE")
        ->needs(documento);
    acciones->add_option("--query", argumentos->consulta, "Print the report that looks up the widths for the file")
        ->type_name("FILE")
        ->excludes(documento);
    AlLeer(orden, ordenes, argumentos, Widths);
}

void AgregarPublish(Ordenes ordenes) {
    auto argumentos = std::make_shared<Argumentos>();
    auto* const orden = ordenes.programa.add_subcommand("publish", "Print the report that installs a program in a system");
    orden->add_option("SOURCE", argumentos->archivo, "The source of the program")->required();
    orden->add_option("NAME", argumentos->nombre, "Its name in the system")->required();
    orden->add_flag("--dry-run", argumentos->soloMostrar, "Send nothing; programs are installed from the desktop")->required();
    AlLeer(orden, ordenes, argumentos, Publish);
}

}  // namespace

void AgregarComandosDeSAP(Ordenes ordenes) {
    AgregarImport(ordenes);
    AgregarWidths(ordenes);
    AgregarPublish(ordenes);
}

}  // namespace qor
