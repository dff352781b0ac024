#include "app/run_command.h"

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "abap/values/conversion.h"
#include "app/journal_compare.h"
#include "app/output_check.h"
#include "app/practice_file.h"
#include "app/private_directory.h"
#include "app/repetition.h"
#include "app/report_origins.h"
#include "app/run_view.h"
#include "base/code_page.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "generator/generate.h"
#include "practice/error_table_use.h"
#include "practice/programs.h"
#include "practice/run.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

struct Argumentos {
    std::optional<std::string> documento;
    std::optional<std::string> reporte;
    std::optional<std::string> publicado;
    std::vector<std::string> archivos;
    std::vector<std::string> parametros;
    std::vector<std::string> tablas;
    std::vector<std::string> fallos;
    std::vector<std::string> grabaciones;
    std::optional<std::string> registros;
    std::optional<std::string> valores;
    std::optional<std::string> sistema;
    std::optional<std::string> diario;
    std::optional<std::string> esperado;
    std::int64_t limite = 100'000'000;
};

// What is run, and where it comes from.
struct Programa {
    std::unique_ptr<DocumentoDeComando> documento;  // null for a report that was there already
    std::string texto;
    OrigenesDelReporte origenes{{}};
    fs::path carpeta;
    fs::path sistema;  // file of the practice system; empty: in memory
    std::string que;   // as the command line names it

    const Especificacion* LaEspecificacion() const { return documento ? &documento->documento.especificacion : nullptr; }
    const Opciones* LasOpciones() const { return documento ? &documento->documento.opciones : nullptr; }
};

// NAME=VALUE.
std::pair<std::string, std::string> PartirEnIgual(const char* opcion, const std::string& argumento) {
    const auto igual = argumento.find('=');
    if (igual == std::string::npos || igual == 0) throw MalUso(std::string(opcion) + ": " + argumento + " is not NAME=VALUE");
    return {argumento.substr(0, igual), argumento.substr(igual + 1)};
}

std::vector<ArchivoNombrado> LeerArchivosNombrados(const Argumentos& argumentos) {
    std::vector<ArchivoNombrado> archivos;
    for (const auto& argumento : argumentos.archivos) {
        auto [nombre, ruta] = PartirEnIgual("--file", argumento);
        if (ruta.empty()) throw MalUso("--file: " + argumento + " names no file");
        archivos.push_back({DeArgumento(nombre), ruta});
    }
    return archivos;
}

FallosPorRegistro LeerFallos(const Argumentos& argumentos) {
    FallosPorRegistro fallos;
    for (const auto& argumento : argumentos.fallos) {
        if (!LeerFalloPedido(DeArgumento(argumento), fallos)) {
            throw MalUso("--fail: " + argumento + " is not the number of a record, from 1, or N=TEXT");
        }
    }
    return fallos;
}

TramoDeRegistros LeerTramoPedido(const Argumentos& argumentos) {
    TramoDeRegistros tramo;
    if (argumentos.registros && !LeerTramo(*argumentos.registros, tramo)) {
        throw MalUso("--records: " + *argumentos.registros + " is not A-B, two numbers from 1 on, of which B is not below A");
    }
    return tramo;
}

OpcionesDeSistema LeerOpcionesDeSistema(const ContextoDeComando& contexto, const Argumentos& argumentos, const Programa& programa) {
    auto opciones = OpcionesDelUsuario(contexto.ajustes, contexto.directorioDeDatos, contexto.directorioDeAjustes);
    opciones.archivo = programa.sistema;
    if (argumentos.valores) {
        opciones.valores = *argumentos.valores;
        if (!fs::is_directory(opciones.valores)) throw FalloDeArchivo(ENOTDIR, opciones.valores);
    } else if (!programa.sistema.empty()) {
        opciones.valores = programa.sistema.parent_path() / "values";
    }
    opciones.grabaciones.assign(argumentos.grabaciones.begin(), argumentos.grabaciones.end());
    for (const auto& argumento : argumentos.tablas) {
        auto [nombre, archivo] = PartirEnIgual("--table", argumento);
        opciones.tablas.emplace_back(Mayusculas(DeArgumento(nombre)), archivo);
    }
    opciones.diccionariosPropios.push_back(programa.carpeta / nombreDeDiccionario);
    opciones.archivos = LeerArchivosNombrados(argumentos);
    opciones.carpeta = programa.carpeta;
    for (const auto& archivo : {argumentos.documento, argumentos.reporte}) {
        if (archivo) opciones.ajenos.emplace_back(*archivo);
    }
    for (const auto& archivo : {argumentos.diario, argumentos.esperado}) {
        if (archivo) opciones.ajenos.emplace_back(*archivo);
    }
    if (const auto* especificacion = programa.LaEspecificacion()) {
        for (int i = 0; i < especificacion->FilasBAPIs(); ++i) opciones.bapis.push_back(especificacion->TablaBAPIs[i].nombre);
    }
    return opciones;
}

// A journal that takes the place of what is read would destroy it.
void ChequearDiario(const Argumentos& argumentos, const OpcionesDeSistema& opciones) {
    if (!argumentos.diario) return;
    std::vector<fs::path> leidos(argumentos.grabaciones.begin(), argumentos.grabaciones.end());
    for (const auto& archivo : opciones.archivos) leidos.push_back(archivo.ruta);
    for (const auto& [nombre, archivo] : opciones.tablas) leidos.push_back(archivo);
    for (const auto& archivo : {argumentos.documento, argumentos.reporte, argumentos.esperado}) {
        if (archivo) leidos.emplace_back(*archivo);
    }
    if (!opciones.archivo.empty()) {
        for (auto& archivo : ArchivosDeSistema(opciones.archivo)) leidos.push_back(std::move(archivo));
    }
    ChequearSalida("--journal", *argumentos.diario, leidos, "is read by the run");
}

fs::path CarpetaDe(const fs::path& archivo) {
    const auto carpeta = archivo.parent_path();
    return carpeta.empty() ? fs::path(".") : carpeta;
}

// A program of the practice system, by default of the user's own.
bool TomarPublicado(const ContextoDeComando& contexto, const Argumentos& argumentos, Programa& programa) {
    if (!argumentos.sistema) programa.sistema = RutaDePractica(EntornoDelProceso());
    const std::string nombre = Mayusculas(DeArgumento(*argumentos.publicado));
    BaseDePractica base(programa.sistema, Acceso::Leer);
    auto publicado = ProgramasDePractica(base).Buscar(nombre);
    if (!publicado) {
        contexto.vista.Advertir(MensajeLiteral("The practice system has no program " + nombre + "."));
        return false;
    }
    programa.texto = std::move(publicado->texto);
    programa.carpeta = ".";
    programa.que = "--program " + *argumentos.publicado;
    return true;
}

// False, with a message, where there is no report to run.
bool TomarPrograma(const ContextoDeComando& contexto, const Argumentos& argumentos, Programa& programa) {
    if (argumentos.sistema) programa.sistema = *argumentos.sistema;
    if (argumentos.publicado) return TomarPublicado(contexto, argumentos, programa);
    programa.que = argumentos.documento ? *argumentos.documento : "--report " + *argumentos.reporte;
    if (argumentos.reporte) {
        programa.texto = LeerArchivo(*argumentos.reporte);
        programa.carpeta = CarpetaDe(*argumentos.reporte);
        return true;
    }
    programa.documento = std::make_unique<DocumentoDeComando>();
    if (!programa.documento->Abrir(contexto, *argumentos.documento)) return false;
    programa.carpeta = CarpetaDe(*argumentos.documento);
    auto generado = ComponerReporte(programa.documento->Pedido(contexto));
    if (!generado) return false;
    programa.texto = std::move(generado->texto);
    programa.origenes = OrigenesDelReporte(std::move(generado->origenes));
    return true;
}

// The file of a group's records, as the variables of a running report lead to it.
std::string ArchivoDelGrupo(abap::Ejecucion& ejecucion, const std::string& nombre, SistemaDePractica& sistema) {
    const auto variable = ejecucion.BuscarVariable(nombre);
    if (variable.datos == nullptr || abap::EsInicial(variable)) return {};
    const auto ruta = sistema.NombresDeLosArchivos().ParaLeer(variable.Texto());
    return ruta ? ruta->string() : std::string();
}

// The journal that --expect names is looked through before anything runs.
bool SirveElEsperado(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    if (!argumentos.esperado) return true;
    try {
        ChequearDiarioEsperado(*argumentos.esperado);
        return true;
    } catch (const FalloDeArchivo& fallo) {
        contexto.vista.Advertir(ConDetalle(MensajeLiteral("The expected journal can't be used; nothing was run."), fallo));
        return false;
    }
}

bool EsComoSeEsperaba(const Argumentos& argumentos, const fs::path& diario, VistaDeTerminal& vista) {
    const std::string nombre = TextoDeRuta(*argumentos.esperado);
    const auto diferencias = CompararDiarios(*argumentos.esperado, diario);
    for (const auto& diferencia : diferencias.primeras) vista.Aviso(diferencia);
    if (diferencias.cuantas == 0) {
        vista.Aviso("The journal is as in " + nombre + ".");
    } else {
        vista.Aviso(std::to_string(diferencias.cuantas) +
                    (diferencias.cuantas == 1 ? " event is not as in " : " events are not as in ") + nombre +
                    (diferencias.hayMas ? "; the first ones are told." : "."));
    }
    return diferencias.cuantas == 0;
}

bool Run(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    if (argumentos.limite <= 0) throw MalUso("--limit: a number from 1 on");
    const auto tramo = LeerTramoPedido(argumentos);
    auto fallos = LeerFallos(argumentos);
    PedidoDeCorrida pedido;
    for (const auto& argumento : argumentos.parametros) {
        const auto [nombre, valor] = PartirEnIgual("--param", argumento);
        pedido.parametros.emplace_back(DeArgumento(nombre), DeArgumento(valor));
    }
    pedido.archivos = LeerArchivosNombrados(argumentos);
    Programa programa;
    if (!TomarPrograma(contexto, argumentos, programa)) return false;
    auto opciones = LeerOpcionesDeSistema(contexto, argumentos, programa);
    ChequearDiario(argumentos, opciones);
    if (!SirveElEsperado(contexto, argumentos)) return false;
    opciones.guardaSesiones = !opciones.archivo.empty() || SistemaDePractica::LeeSesiones(programa.texto);

    Explicaciones explicaciones(programa.LaEspecificacion(), programa.LasOpciones(), TextoDeRuta(opciones.valores));
    VistaDeTerminal vista(contexto.salida, contexto.errores, explicaciones);
    Curso curso(vista, tramo, std::move(fallos));
    SistemaDePractica sistema(opciones, curso, curso);
    const auto nombres = SetearConvencionesDeNombres(contexto.ajustes.preferencias);
    Repeticion repeticion(BuscarTablaDeErrores(programa.texto).value_or(UsoDeTablaDeErrores()).nombre, nombres);
    bool empezado = false;
    vista.AlEmpezar([&](abap::Ejecucion& ejecucion) {
        empezado = true;
        explicaciones.EsRepeticion(repeticion.EsRepeticion(ejecucion));
        explicaciones.PonerArchivos(
            [&](int grupo) { return ArchivoDelGrupo(ejecucion, explicaciones.VariableDeArchivo(grupo, nombres), sistema); });
    });
    vista.AlTerminar([&](abap::Ejecucion& ejecucion) { repeticion.Anotar(ejecucion); });

    pedido.reporte = programa.texto;
    std::optional<DirectorioPrivado> propio;
    if (argumentos.diario)
        pedido.diario = *argumentos.diario;
    else if (argumentos.esperado)
        pedido.diario = propio.emplace().Ruta() / "journal";
    pedido.limite = argumentos.limite;
    pedido.todosLosRegistros = tramo.Todos();
    pedido.origen = [&programa](int linea) { return programa.origenes.De(linea); };
    try {
        const bool bien = Correr(pedido, sistema, curso, vista, vista);
        if (curso.Cuenta().fallados > 0) {
            for (const auto& paso : repeticion.Pasos(programa.que, opciones.archivo.string())) contexto.errores << paso << '\n';
        }
        if (!argumentos.esperado || !empezado) return bien;
        // Failures that were expected are none.
        return EsComoSeEsperaba(argumentos, *pedido.diario, vista) && !curso.Parado() && !curso.Cuenta().archivoSinLeer;
    } catch (const ParametroImposible& imposible) {
        throw MalUso(std::string("--param: ") + AUtf8(imposible.what()));
    }
}

}  // namespace

void AgregarComandoRun(Ordenes ordenes) {
    auto argumentos = std::make_shared<Argumentos>();
    auto orden = ordenes.raiz.Suborden("run", "Run the report of a document on a practice system");
    orden.Pie(
        "The list of the report and a line that counts go to the standard output, what fails to the error output.\n"
        "Exit status 0 means that the report ran to its end, at least one record took part and none failed; with --expect, that\n"
        "the journal is the expected one. Reports that work with the day and the time run alike each time with SOURCE_DATE_EPOCH "
        "set.");
    auto fuente = orden.Grupo("Report", "What to run");
    fuente.PedirUnaOpcion();
    fuente.Dato("DOCUMENT", argumentos->documento, "A .qor document, whose report is generated in memory");
    fuente.Dato("--report", argumentos->reporte, "A report that is there already").Tipo("FILE");
    fuente.Dato("--program", argumentos->publicado, "A program that was published to the practice system, by default your own")
        .Tipo("NAME");
    const auto varias = [&](const char* nombre, std::vector<std::string>& valores, const char* tipo, const char* descripcion) {
        orden.Dato(nombre, valores, descripcion).Tipo(tipo).UnaPorVez();
    };
    varias("--file", argumentos->archivos, "NAME=PATH", "The file behind a file parameter, or behind a path that the report holds");
    varias("--param", argumentos->parametros, "NAME=VALUE", "The value of a parameter of the selection screen");
    orden.Dato("--records", argumentos->registros, "Only these records").Tipo("A-B");
    varias("--fail", argumentos->fallos, "N[=TEXT]", "Let record N fail, with a message; N=A:TEXT lets a BAPI answer with type A");
    orden.Dato("--values", argumentos->valores, "Folder of value lists; by default values beside the system").Tipo("DIR");
    varias("--recording", argumentos->grabaciones, "FILE", "A recording or a session file, by which transactions are checked");
    varias("--table", argumentos->tablas, "NAME=CSV", "A table of the database, from comma-separated values");
    orden.Dato("--system", argumentos->sistema, "File of the practice system; by default one in memory, of --program your own")
        .Tipo("FILE");
    orden.Dato("--journal", argumentos->diario, "Write all that happens to a file of JSON Lines").Tipo("FILE");
    orden.Dato("--expect", argumentos->esperado, "Compare the journal with a stored one, and end with status 1 where they differ")
        .Tipo("FILE");
    orden.Dato("--limit", argumentos->limite, "Statements without a new record or event; by default 100 million").Tipo("N");
    AlLeer(orden, ordenes, argumentos, Run);
}

}  // namespace qor
