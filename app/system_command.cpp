#include "app/system_command.h"

#include <memory>
#include <optional>
#include <ostream>

#include "app/data_directory.h"
#include "app/output_check.h"
#include "app/practice_file.h"
#include "app/run_view.h"
#include "base/code_page.h"
#include "base/files.h"
#include "base/text.h"
#include "practice/csv.h"
#include "practice/dictionary.h"
#include "practice/programs.h"
#include "practice/queue.h"
#include "practice/recording_load.h"
#include "practice/role.h"
#include "practice/session_processing.h"
#include "practice/session_transfer.h"
#include "practice/stored_recordings.h"
#include "practice/system.h"
#include "practice/system_tables.h"
#include "practice/table_load.h"
#include "practice/table_transfer.h"

namespace qor {

namespace {

constexpr const char* sinRol = "none";

struct Argumentos {
    std::optional<std::string> sistema;
    std::string nombre;  // of a table, or the id of a queue entry
    std::string archivo;
    std::optional<std::string> diario;
    std::optional<std::string> rol;
};

using ArgumentosCompartidos = std::shared_ptr<Argumentos>;

std::filesystem::path RutaDeSistema(const Argumentos& argumentos) {
    if (!argumentos.sistema) return RutaDePracticaConDirectorio(EntornoDelProceso());
    if (argumentos.sistema->empty()) throw MalUso("--system: the name of a file is missing");
    return *argumentos.sistema;
}

// The practice system with all that its tables show.
struct Sistema {
    Sistema(const ContextoDeComando& contexto, const Argumentos& argumentos, Acceso acceso)
        : ruta(RutaDeSistema(argumentos)),
          base(ruta, acceso),
          cola(base, MomentoActual()),
          diccionario(base, TextoDe(contexto.ajustes.ArchivoBAPI)),
          tablas(base, diccionario) {
        diccionario.AgregarArchivo(contexto.directorioDeDatos / nombreDeDiccionario, true);
        diccionario.AgregarArchivo(contexto.directorioDeAjustes / nombreDeDiccionario, false);
        diccionario.AgregarAnchos(TextoDe(contexto.ajustes.ArchivoAnchos));
    }

    // One that can't be read leaves its tables empty.
    static std::string TextoDe(const std::filesystem::path& archivo) {
        try {
            return LeerArchivo(archivo, limiteDeCatalogo);
        } catch (const FalloDeArchivo&) {
            return {};
        }
    }

    std::filesystem::path ruta;
    BaseDePractica base;
    ColaDePractica cola;
    DiccionarioDePractica diccionario;
    TablasDelSistema tablas;
};

bool Rechazar(const ContextoDeComando& contexto, const std::string& motivo) {
    contexto.vista.Advertir(MensajeLiteral(motivo + "."));
    return false;
}

bool Rechazar(const ContextoDeComando& contexto, const std::string& motivo, const FalloDeArchivo& fallo) {
    contexto.vista.Advertir(ConDetalle(MensajeLiteral(motivo + "."), fallo));
    return false;
}

void Informar(const ContextoDeComando& contexto, const std::string& texto) { contexto.vista.Informar(MensajeLiteral(texto + ".")); }

// A line of comma-separated values on the terminal.
void Imprimir(const ContextoDeComando& contexto, std::initializer_list<std::string_view> valores) {
    const char* separador = "";
    for (const auto valor : valores) {
        contexto.salida << separador << TextoDeTerminal(CampoCsv(valor));
        separador = ",";
    }
    contexto.salida << '\n';
}

std::string NombreDeTabla(const Argumentos& argumentos) { return Mayusculas(DeArgumento(argumentos.nombre)); }

// ---- Tables ----

bool Load(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    const auto nombre = NombreDeTabla(argumentos);
    Sistema sistema(contexto, argumentos, Acceso::Escribir);
    try {
        const auto cargada = CargarTablaDeArchivo(sistema.base, nombre, argumentos.archivo);
        std::string texto = nombre + ": " + Cuantos(cargada.filas, "row") + " loaded";
        if (cargada.deOtroCliente > 0) {
            texto += "; " + std::to_string(cargada.deOtroCliente) + " of them of other clients than " + sistema.base.Cliente() +
                     ", which Open SQL does not see";
        }
        Informar(contexto, texto);
        return true;
    } catch (const FalloDeArchivo& fallo) {
        return Rechazar(contexto, "The table " + nombre + " can't be loaded", fallo);
    }
}

const char* ClaseDeTabla(DefinicionDeTabla::Clase clase) {
    switch (clase) {
        case DefinicionDeTabla::Clase::Cargada: return "loaded";
        case DefinicionDeTabla::Clase::DeErrores: return "errors";
        case DefinicionDeTabla::Clase::DeDiccionario: break;
    }
    return "dictionary";
}

bool Tables(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    Sistema sistema(contexto, argumentos, Acceso::Leer);
    Imprimir(contexto, {"TABLE", "KIND", "ROWS"});
    for (const auto& tabla : sistema.base.Tablas()) {
        Imprimir(contexto, {tabla.nombre, ClaseDeTabla(tabla.clase), std::to_string(tabla.filas)});
    }
    return true;
}

void ChequearQueNoEsElSistema(const char* que, const std::filesystem::path& salida, const Argumentos& argumentos) {
    ChequearSalida(que, salida, ArchivosDeSistema(RutaDeSistema(argumentos)), "is the practice system itself");
}

// The rows of a session as they were sent, behind the number and the code of their transaction.
void EscribirSesion(ColaDePractica& cola, const EntradaDeCola& entrada, std::ostream& salida) {
    salida << "NUMBER,TCODE,PROGRAM,DYNPRO,DYNBEGIN,FNAM,FVAL\n";
    int numero = 0;
    cola.CadaTransaccion(entrada.numero, [&](const TransaccionDeCola& transaccion) {
        ++numero;
        for (const auto& fila : transaccion.filas) {
            salida << numero;
            for (const std::string_view parte : {std::string_view(transaccion.transaccion), fila.programa, fila.dynpro,
                                                 std::string_view(fila.abre ? "X" : ""), fila.campo, fila.valor}) {
                salida << ',' << AUtf8(CampoCsv(parte));
            }
            salida << '\n';
        }
        return true;
    });
}

bool Show(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    Sistema sistema(contexto, argumentos, Acceso::Leer);
    if (const auto entrada = sistema.cola.Buscar(DeArgumento(argumentos.nombre))) {
        EscribirSesion(sistema.cola, *entrada, contexto.salida);
        return true;
    }
    EscribirTabla(sistema.base, NombreDeTabla(argumentos), [&](std::string_view linea) { contexto.salida << AUtf8(linea); });
    return true;
}

bool Download(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    ChequearQueNoEsElSistema("FILE", argumentos.archivo, argumentos);
    const auto nombre = NombreDeTabla(argumentos);
    Sistema sistema(contexto, argumentos, Acceso::Leer);
    const auto bajadas = BajarTabla(sistema.base, nombre, argumentos.archivo);
    Informar(contexto, nombre + ": " + Cuantos(bajadas.definiciones + bajadas.filas, "row") + " written");
    if (bajadas.definiciones == 0) {
        return Rechazar(contexto,
                        "The table " + nombre + " has no rows that define fields; the data-set editor does not know the file");
    }
    return true;
}

bool Upload(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    const auto nombre = NombreDeTabla(argumentos);
    Sistema sistema(contexto, argumentos, Acceso::Escribir);
    try {
        const auto subidas = SubirTabla(sistema.base, nombre, argumentos.archivo);
        Informar(contexto,
                 nombre + ": " + Cuantos(subidas.cambiadas, "row") + " replaced, " + std::to_string(subidas.nuevas) + " added");
        return true;
    } catch (const FalloDeArchivo& fallo) {
        return Rechazar(contexto, "The file can't be taken into the table " + nombre, fallo);
    }
}

// ---- The queue ----

bool Queue(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    Sistema sistema(contexto, argumentos, Acceso::Leer);
    Imprimir(contexto, {"QID", "GROUP", "CLIENT", "CREATOR", "DATE", "TIME", "STATE", "TRANSACTIONS"});
    for (const auto& entrada : sistema.cola.Entradas()) {
        Imprimir(contexto, {entrada.qid, entrada.grupo, entrada.cliente, entrada.creador, entrada.fecha, entrada.hora,
                            entrada.estado, std::to_string(entrada.transacciones)});
    }
    return true;
}

bool Export(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    ChequearQueNoEsElSistema("FILE", argumentos.archivo, argumentos);
    Sistema sistema(contexto, argumentos, Acceso::Leer);
    const auto entrada = sistema.cola.Buscar(DeArgumento(argumentos.nombre));
    if (!entrada) return Rechazar(contexto, "The queue has no entry " + DeArgumento(argumentos.nombre));
    ExportarSesion(sistema.cola, *entrada, argumentos.archivo);
    Informar(contexto, entrada->grupo + ": " + Cuantos(entrada->transacciones, "transaction") + " written");
    return true;
}

bool Delete(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    Sistema sistema(contexto, argumentos, Acceso::Escribir);
    const auto qid = DeArgumento(argumentos.nombre);
    GrabacionesDePractica grabaciones(sistema.base);
    std::string grupo;
    if (const auto sesion = sistema.cola.Buscar(qid)) {
        grupo = sesion->grupo;
        sistema.cola.Borrar(sesion->numero);
    } else if (const auto grabacion = grabaciones.Buscar(qid)) {
        grupo = grabacion->grupo;
        grabaciones.Borrar(qid);
    } else {
        return Rechazar(contexto, "The queue has no entry " + qid);
    }
    sistema.base.TerminarUnidad();
    Informar(contexto, grupo + ": deleted");
    return true;
}

bool ImportSession(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    Sistema sistema(contexto, argumentos, Acceso::Escribir);
    try {
        const auto qid = ImportarSesion(sistema.base, sistema.cola, usuarioDePractica, argumentos.archivo);
        contexto.salida << qid << '\n';
        return true;
    } catch (const FalloDeArchivo& fallo) {
        return Rechazar(contexto, "The session can't be put into the queue", fallo);
    }
}

bool Process(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    if (argumentos.diario) ChequearQueNoEsElSistema("--journal", *argumentos.diario, argumentos);
    const auto opciones =
        OpcionesDelUsuario(contexto.ajustes, contexto.directorioDeDatos, contexto.directorioDeAjustes, RutaDeSistema(argumentos));
    Explicaciones explicaciones(nullptr, nullptr, opciones.valores.string());
    VistaDeTerminal vista(contexto.salida, contexto.errores, explicaciones);
    Curso curso(vista, {}, {});
    SistemaDePractica sistema(opciones, curso, curso);
    const std::string qid = DeArgumento(argumentos.nombre);
    const auto entrada = sistema.Cola().Buscar(qid);
    if (!entrada) return Rechazar(contexto, "The queue has no entry " + qid);
    std::optional<Diario> diario;
    if (argumentos.diario) {
        diario.emplace(*argumentos.diario);
        curso.PonerDiario(&*diario);
        diario->Inicio(entrada->grupo, {{"QID", abap::CampoDe(qid)}});
    }
    const bool bien = ProcesarSesion(sistema, curso, *entrada);
    const auto& cuenta = curso.Cuenta();
    if (diario) {
        diario->Final(cuenta.registros, cuenta.Contabilizados(), cuenta.fallados);
        diario->Terminar();
    }
    vista.Resumen(cuenta);
    return bien;
}

// ---- Recordings, programs, all of it ----

bool Record(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    try {
        const auto grabacion = LeerGrabacionDeArchivo(argumentos.archivo);
        Sistema sistema(contexto, argumentos, Acceso::Escribir);
        GuardarGrabacion(sistema.base, grabacion);
        Informar(contexto, Cuantos(grabacion.transacciones, "transaction") + " recorded");
        return true;
    } catch (const FalloDeGrabacion& fallo) {
        return Rechazar(contexto, fallo.Que(), fallo);
    }
}

bool Programs(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    Sistema sistema(contexto, argumentos, Acceso::Leer);
    Imprimir(contexto, {"PROGRAM", "CREATOR", "DATE", "TIME"});
    for (const auto& programa : ProgramasDePractica(sistema.base).Todos()) {
        Imprimir(contexto, {programa.nombre, programa.creador, programa.fecha, programa.hora});
    }
    return true;
}

bool Recordings(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    Sistema sistema(contexto, argumentos, Acceso::Leer);
    Imprimir(contexto, {"QID", "GROUP", "FILE", "CREATOR", "DATE", "TIME"});
    for (const auto& grabacion : GrabacionesDePractica(sistema.base).Todas()) {
        Imprimir(contexto, {grabacion.qid, grabacion.grupo, grabacion.nombre, grabacion.creador, grabacion.fecha, grabacion.hora});
    }
    return true;
}

// Prints the role of the client, or sets it.
bool Role(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    if (!argumentos.rol) {
        Sistema sistema(contexto, argumentos, Acceso::Leer);
        const auto rol = RolDeSistema(sistema.base);
        contexto.salida << (rol.empty() ? sinRol : rol) << '\n';
        return true;
    }
    const bool ninguno = IgualesSinCaja(*argumentos.rol, sinRol);
    const std::string rol = ninguno ? std::string() : Mayusculas(*argumentos.rol);
    if (!ninguno && (rol.size() != 1 || rolesDeSistema.find(rol) == std::string_view::npos)) {
        throw MalUso("ROLE: " + *argumentos.rol + " is none of P, T, C, D, E, S and none");
    }
    Sistema sistema(contexto, argumentos, Acceso::Escribir);
    PonerRolDeSistema(sistema.base, rol);
    sistema.base.TerminarUnidad();
    return true;
}

bool Reset(const ContextoDeComando& contexto, const Argumentos& argumentos) {
    Sistema sistema(contexto, argumentos, Acceso::Escribir);
    const auto pregunta = MensajeLiteral("All tables, sessions, programs and recordings of the practice system " +
                                         DesdeUtf8ConFaltas(sistema.ruta.string()) + " are deleted. Go on?");
    if (contexto.vista.Preguntar(pregunta, Botones::SiNo) != Respuesta::Si) return false;
    sistema.base.Vaciar();
    return true;
}

using Accion = bool (*)(const ContextoDeComando&, const Argumentos&);

Orden AgregarOrden(Orden system, Ordenes ordenes, const ArgumentosCompartidos& argumentos, const char* nombre,
                   const char* descripcion, Accion accion) {
    const Orden orden = system.Suborden(nombre, descripcion);
    AlLeer(orden, ordenes, argumentos, accion);
    return orden;
}

}  // namespace

void AgregarComandoSystem(Ordenes ordenes) {
    auto argumentos = std::make_shared<Argumentos>();
    auto system = ordenes.raiz.Suborden("system", "Look into the practice system, and bring things into it and out of it");
    system.PedirSuborden();
    system.DejarPasar();
    system.Dato("--system", argumentos->sistema, "File of the practice system, in the place of the user's own").Tipo("FILE");
    const auto agregar = [&](const char* nombre, const char* descripcion, Accion accion) {
        return AgregarOrden(system, ordenes, argumentos, nombre, descripcion, accion);
    };
    const auto conTabla = [&](Orden orden) {
        orden.Dato("TABLE", argumentos->nombre, "Name of a table").Obligatoria();
        return orden;
    };
    const auto conArchivo = [&](Orden orden, const char* nombre, const char* descripcion) {
        orden.Dato(nombre, argumentos->archivo, descripcion).Obligatoria();
    };
    const auto conEntrada = [&](Orden orden) {
        orden.Dato("QID", argumentos->nombre, "Id of an entry of the queue").Obligatoria();
        return orden;
    };
    conArchivo(conTabla(agregar("load", "Make a table from comma-separated values", Load)), "CSV",
               "File whose first line names the columns");
    agregar("tables", "Print the tables as comma-separated values", Tables);
    conTabla(agregar("show", "Print the rows of a table or of a session as comma-separated values", Show));
    conArchivo(conTabla(agregar("download", "Write an error table in the form that dataset opens", Download)), "FILE",
               "File to write");
    conArchivo(conTabla(agregar("upload", "Take a corrected download back", Upload)), "FILE", "A download of the table");
    agregar("queue", "Print the batch-input queue as comma-separated values", Queue);
    conArchivo(conEntrada(agregar("export", "Write a session in the form that dataset and import open", Export)), "FILE",
               "File to write");
    conEntrada(agregar("process", "Try the transactions of a session", Process))
        .Dato("--journal", argumentos->diario, "Write all that happens to a file of JSON Lines")
        .Tipo("FILE");
    conEntrada(agregar("delete", "Delete a session or a recording", Delete));
    conArchivo(agregar("import-session", "Put a session file into the queue and print its id", ImportSession), "FILE",
               "A file of session records");
    conArchivo(agregar("record", "Keep a recording, which tells the screens of its transactions", Record), "RECORDING",
               "The program made of a recording, or a file of session records");
    agregar("programs", "Print the programs as comma-separated values", Programs);
    agregar("recordings", "Print the recordings as comma-separated values", Recordings);
    agregar("role", "Print the role of the client, or set it; a productive one takes no programs", Role)
        .Dato("ROLE", argumentos->rol, "P production, T test, C customizing, D demonstration, E training, S reference, or none");
    agregar("reset", "Delete all that the practice system holds; asks first", Reset);
}

}  // namespace qor
