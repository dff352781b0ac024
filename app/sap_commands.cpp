#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <ostream>
#include <utility>

#include "app/command.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"
#include "model/gaps.h"
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
bool AbrirONuevo(DocumentoDeComando& abierto, const ContextoDeComando& contexto, const std::filesystem::path& ruta) {
    try {
        if (ExisteNombre(ruta)) return abierto.Abrir(contexto, ruta);
    } catch (const FalloDeArchivo& fallo) {
        contexto.vista.Advertir(ConDetalle(Componer(contexto.textos, {335}), fallo));
        return false;
    }
    abierto.documento.ruta = RutaAbsoluta(ruta);
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
    DocumentoDeComando abierto;
    if (!AbrirONuevo(abierto, contexto, argumentos.documento)) return false;
    contexto.vista.Responder(330, RespuestaSobreFilas(argumentos));
    auto& especificacion = abierto.documento.especificacion;
    auto importacion = LeerImportacion(especificacion, argumentos.archivo, contexto.textos, contexto.vista);
    if (!importacion) return false;
    if (importacion->filas == 0) {
        contexto.vista.Advertir(MensajeLiteral("The file holds no recording and no session; nothing was imported."));
        return false;
    }
    Importar(abierto.documento, std::move(*importacion));
    abierto.lineas.MostrarTransaccion(especificacion);
    contexto.vista.Informar(Componer(contexto.textos, {329}));
    if (argumentos.cerrarHuecos) {
        especificacion.TablaTransaccion = SinFilasEnBlanco(especificacion);
        abierto.lineas.MostrarTransaccion(especificacion);
    }
    if (EmpiezaEnBlanco(especificacion)) {
        contexto.vista.Advertir(Componer(contexto.textos, {302}));
        return false;
    }
    return abierto.Guardar(contexto);
}

void ImprimirReporte(const LineasABAP& lineas, std::ostream& salida) {
    for (const auto& linea : lineas) salida << TextoDeTerminal(linea) << '\n';
}

// The whole text of a file, or the message that tells of its absence.
std::optional<std::string> LeerOAdvertir(const ContextoDeComando& contexto, const std::filesystem::path& archivo, int mensaje) {
    try {
        return LeerArchivo(archivo);
    } catch (const FalloDeEjecucion& fallo) {
        contexto.vista.Advertir(ConDetalle(Componer(contexto.textos, {mensaje}), fallo));
        return std::nullopt;
    }
}

bool Query(const ContextoDeComando& contexto, const std::filesystem::path& archivo) {
    const auto texto = LeerOAdvertir(contexto, archivo, 415);
    if (!texto) return false;
    ImprimirReporte(ReporteDeAnchos(PartirEnLineas(*texto)), contexto.salida);
    return true;
}

bool Widths(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    if (argumentos.consulta) return Query(contexto, *argumentos.consulta);
    DocumentoDeComando abierto;
    if (!abierto.Abrir(contexto, argumentos.documento)) return false;
    auto& especificacion = abierto.documento.especificacion;
    if (argumentos.exportar) {
        return GenerarInfoCampos(abierto.documento, *argumentos.exportar, false, contexto.textos, contexto.vista);
    }
    if (!ImportInfo(abierto.documento, *argumentos.importar, contexto.textos, contexto.vista)) return false;
    abierto.lineas.MostrarArchivo(especificacion, contexto.textos, contexto.vista);
    return abierto.Guardar(contexto);
}

bool Publish(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    const auto fuente = LeerOAdvertir(contexto, argumentos.archivo, 411);
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
