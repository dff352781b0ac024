#include <algorithm>
#include <memory>
#include <optional>
#include <ostream>
#include <utility>

#include "app/command.h"
#include "app/practice_session.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "model/gaps.h"
#include "practice/stored_recordings.h"
#include "sap/import.h"
#include "sap/publish.h"
#include "sap/queue_choice.h"
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
    std::optional<std::string> practica;
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

// An entry of the system's queue.
struct EntradaDelSistema {
    bool esGrabacion;
    std::string qid;
};

// The session or recording of that id or name. Nothing, with a message, where there is none or several have the name.
std::optional<EntradaDelSistema> BuscarEntrada(const ContextoDeComando& contexto, SesionSAP& sesion, const std::string& pedida) {
    std::vector<EntradaDelSistema> llamadas;
    for (const bool esGrabacion : {false, true}) {
        FormularioImport formulario;
        formulario.EsGrabacion = esGrabacion;
        if (!LlenarGrilla(formulario, sesion, contexto.textos, contexto.vista)) return std::nullopt;
        for (const auto& fila : formulario.Grilla) {
            if (fila[6] == pedida) return EntradaDelSistema{esGrabacion, fila[6]};
            const bool llamada = IgualesSinCaja(fila[2], pedida) || (esGrabacion && fila[2] == GrupoDeGrabacion(pedida));
            if (llamada) llamadas.push_back({esGrabacion, fila[6]});
        }
    }
    if (llamadas.size() == 1) return llamadas.front();
    std::string texto = "The practice system has no session and no recording " + pedida + ".";
    if (!llamadas.empty()) {
        texto = "The practice system has several entries " + pedida + ". Name one by its id:";
        for (const auto& llamada : llamadas) texto += " " + llamada.qid;
    }
    contexto.vista.Advertir(MensajeLiteral(texto));
    return std::nullopt;
}

std::optional<Importacion> LeerDePractica(const ContextoDeComando& contexto, const Argumentos& argumentos,
                                          const Especificacion& especificacion) {
    auto sesion = EntrarEnPractica(contexto, contexto.ajustes, *argumentos.practica, Acceso::Leer);
    if (!sesion) return std::nullopt;
    const auto entrada = BuscarEntrada(contexto, *sesion, std::string(Recortar(DeArgumento(argumentos.archivo))));
    if (!entrada) return std::nullopt;
    // The dialog closes without a word where an entry can't be had; here it is told.
    const auto tomar = [&](FormularioImport& formulario) {
        ActivarFila(formulario, entrada->qid, *sesion, contexto.vista);
        if (!formulario.ArchivoImportado.empty()) return;
        contexto.vista.Advertir(ConMotivo(*sesion, Componer(contexto.textos, {415})));
    };
    return entrada->esGrabacion ? ButtonOnlineSHDB(especificacion, tomar, contexto.textos, contexto.vista)
                                : ButtonOnlineSM35(especificacion, tomar, contexto.textos, contexto.vista);
}

bool Import(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    DocumentoDeComando abierto;
    if (!AbrirONuevo(abierto, contexto, argumentos.documento)) return false;
    contexto.vista.Responder(330, RespuestaSobreFilas(argumentos));
    auto& especificacion = abierto.documento.especificacion;
    auto importacion = argumentos.practica ? LeerDePractica(contexto, argumentos, especificacion)
                                           : LeerImportacion(especificacion, argumentos.archivo, contexto.textos, contexto.vista);
    if (!importacion) return false;
    if (importacion->filas == 0) {
        contexto.vista.Advertir(MensajeLiteral(argumentos.practica
                                                   ? "The entry holds no transaction; nothing was imported."
                                                   : "The file holds no recording and no session; nothing was imported."));
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
    if (argumentos.practica) {
        auto sesion = EntrarEnPractica(contexto, contexto.ajustes, *argumentos.practica, Acceso::Leer, abierto.documento.ruta);
        if (!sesion || !ButtonOnlineAnchos(abierto.documento, *sesion, contexto.textos, contexto.vista)) return false;
        const auto campos = CamposSinAncho(especificacion);
        if (!campos.empty()) contexto.vista.Informar(MensajeLiteral("The practice system knows no width for " + campos + "."));
    } else if (!ImportInfo(abierto.documento, *argumentos.importar, contexto.textos, contexto.vista)) {
        return false;
    }
    abierto.lineas.MostrarArchivo(especificacion, contexto.textos, contexto.vista);
    return abierto.Guardar(contexto);
}

// What the dialog takes as it is typed has to be right here.
std::string NombreDePrograma(const std::string& argumento) {
    constexpr std::size_t largoDeNombre = 40;
    const std::string nombre = Mayusculas(DeArgumento(argumento));
    const bool bien = std::all_of(nombre.begin(), nombre.end(), [](char letra) { return TeclaDeNombre(letra) == letra; });
    if (!bien || nombre.empty() || nombre.size() > largoDeNombre) {
        throw MalUso("NAME: " + argumento + " is not the name of a program, up to 40 letters, digits and \"_\"");
    }
    return nombre;
}

bool PublicarEnPractica(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    const auto nombre = NombreDePrograma(argumentos.nombre);
    if (!LeerOAdvertir(contexto, argumentos.archivo, 411)) return false;
    auto sesion = EntrarEnPractica(contexto, contexto.ajustes, *argumentos.practica, Acceso::Escribir);
    if (!sesion) return false;
    const auto tomar = [&](const std::string& propuesto) {
        return AceptarNombreABAP(*sesion, propuesto, contexto.textos, contexto.vista).NombreElegido;
    };
    return PublicarArchivo(*sesion, argumentos.archivo, nombre, tomar, contexto.textos, contexto.vista);
}

bool Publish(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    if (argumentos.practica) return PublicarEnPractica(contexto, argumentos);
    const auto fuente = LeerOAdvertir(contexto, argumentos.archivo, 411);
    if (!fuente) return false;
    ImprimirReporte(ComponerPublicacion(*fuente, DeArgumento(argumentos.nombre)).lineas, contexto.salida);
    return true;
}

void AgregarImport(Ordenes ordenes) {
    auto argumentos = std::make_shared<Argumentos>();
    auto orden = ordenes.raiz.Suborden("import", "Turn a recording or a session file into rows of a document");
    orden.Pie(
        "A DOCUMENT that doesn't exist starts as a new one. Where it has rows already, nothing is imported without\n"
        "--replace or --append. With --practice FILE is a session or a recording of the practice system, by its id or\n"
        "its name, of a recording also by the name of its file.");
    orden.Dato("DOCUMENT", argumentos->documento, "A .qor document").Obligatoria();
    orden.Dato("FILE", argumentos->archivo, "The program made of a recording, or a file of session records").Obligatoria();
    auto reemplazar = orden.Marca("--replace", argumentos->reemplazar, "Replace the rows of the program side");
    orden.Marca("--append", argumentos->agregar, "Add behind the rows of the program side").Excluye(reemplazar);
    orden.Marca("--close-gaps", argumentos->cerrarHuecos, "Remove the blank rows behind the first row before saving");
    AgregarOpcionPractice(orden, argumentos->practica);
    AlLeer(orden, ordenes, argumentos, Import);
}

void AgregarWidths(Ordenes ordenes) {
    auto argumentos = std::make_shared<Argumentos>();
    auto orden = ordenes.raiz.Suborden("widths", "Exchange field widths with a system by way of a file");
    orden.Pie("A line of the file holds table, field and file field in 30 columns each; the length comes behind them.");
    auto documento = orden.Dato("DOCUMENT", argumentos->documento, "A .qor document");
    auto acciones = orden.Grupo("Action", "What to do");
    acciones.PedirUnaOpcion();
    acciones.Dato("--export", argumentos->exportar, "Write the file that asks for the widths").Tipo("FILE").Necesita(documento);
    acciones.Dato("--import", argumentos->importar, "Take the widths of the completed file, and save")
        .Tipo("FILE")
        .Necesita(documento);
    acciones.Dato("--query", argumentos->consulta, "Print the report that looks up the widths for the file")
        .Tipo("FILE")
        .Excluye(documento);
    AgregarOpcionPractice(acciones, argumentos->practica)
        .Descripcion("Look the widths up in the practice system of FILE, by default your own, and save")
        .Necesita(documento);
    AlLeer(orden, ordenes, argumentos, Widths);
}

void AgregarPublish(Ordenes ordenes) {
    auto argumentos = std::make_shared<Argumentos>();
    auto orden = ordenes.raiz.Suborden("publish", "Install a program in the practice system, or print the report that installs it");
    orden.Dato("SOURCE", argumentos->archivo, "The source of the program").Obligatoria();
    orden.Dato("NAME", argumentos->nombre, "Its name in the system").Obligatoria();
    auto acciones = orden.Grupo("Action", "What to do");
    acciones.PedirUnaOpcion();
    acciones.Marca("--dry-run", argumentos->soloMostrar, "Print the report that installs it, and send nothing");
    AgregarOpcionPractice(acciones, argumentos->practica)
        .Descripcion("Install it in the practice system of FILE, by default your own");
    AlLeer(orden, ordenes, argumentos, Publish);
}

}  // namespace

void AgregarComandosDeSAP(Ordenes ordenes) {
    AgregarImport(ordenes);
    AgregarWidths(ordenes);
    AgregarPublish(ordenes);
}

}  // namespace qor
