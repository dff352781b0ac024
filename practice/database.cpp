#include "practice/database.h"

#include <sqlite3.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "abap/short_dump.h"
#include "base/system_calls.h"
#include "base/text.h"
#include "practice/database_entry.h"
#include "practice/query_text.h"
#include "practice/stored_recordings.h"

namespace qor {

namespace {

constexpr std::int64_t idDeAplicacion = 0x514F5250;
constexpr std::int64_t version = 2;

// Names with "_qor_" in front are this system's own; reports don't see them.
constexpr const char* esquema = R"(
CREATE TABLE _qor_tables (name TEXT PRIMARY KEY, kind INTEGER NOT NULL) WITHOUT ROWID;
CREATE TABLE _qor_columns (tab TEXT NOT NULL, position INTEGER NOT NULL, name TEXT NOT NULL, type INTEGER NOT NULL,
    length INTEGER NOT NULL, decimals INTEGER NOT NULL, is_key INTEGER NOT NULL, role INTEGER NOT NULL,
    PRIMARY KEY (tab, position)) WITHOUT ROWID;
CREATE TABLE _qor_queue (number INTEGER PRIMARY KEY AUTOINCREMENT, qid TEXT NOT NULL UNIQUE, grp TEXT NOT NULL, client TEXT NOT NULL,
    creator TEXT NOT NULL, date TEXT NOT NULL, time TEXT NOT NULL, keep TEXT NOT NULL, state TEXT NOT NULL,
    transactions INTEGER NOT NULL);
CREATE TABLE _qor_shapes (number INTEGER PRIMARY KEY, rows BLOB NOT NULL UNIQUE);
CREATE TABLE _qor_transactions (entry INTEGER NOT NULL, number INTEGER NOT NULL, tcode TEXT NOT NULL, shape INTEGER NOT NULL,
    fields BLOB NOT NULL, PRIMARY KEY (entry, number)) WITHOUT ROWID;
CREATE TABLE _qor_programs (name TEXT PRIMARY KEY, creator TEXT NOT NULL, date TEXT NOT NULL, time TEXT NOT NULL,
    source BLOB NOT NULL) WITHOUT ROWID;
)";

// What is new in the second version of the file.
constexpr const char* esquemaDos = R"(
CREATE TABLE _qor_recordings (number INTEGER PRIMARY KEY AUTOINCREMENT, qid TEXT NOT NULL UNIQUE, name TEXT NOT NULL UNIQUE,
    grp TEXT NOT NULL, creator TEXT NOT NULL, date TEXT NOT NULL, time TEXT NOT NULL, source BLOB NOT NULL);
CREATE TABLE _qor_settings (name TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID;
)";

// A file of the first version has recordings without an id and a date.
constexpr const char* desdeUno = R"(
INSERT INTO _qor_recordings (qid, name, grp, creator, date, time, source)
    SELECT '00000000000000' || (900000 + row_number() OVER (ORDER BY name)), name, '', 'PRACTICE', '00000000', '000000', source
    FROM _qor_recordings_1 ORDER BY name;
DROP TABLE _qor_recordings_1;
)";

void NombrarGrabaciones(Conexion& base) {
    std::vector<std::pair<std::int64_t, std::string>> nombres;
    const auto leer = base.Preparar("SELECT number, name FROM _qor_recordings");
    while (leer->Paso()) nombres.emplace_back(leer->Entero(0), leer->Texto(1));
    const auto poner = base.Preparar("UPDATE _qor_recordings SET grp = ? WHERE number = ?");
    for (const auto& [numero, nombre] : nombres) {
        const auto grupo = GrupoDeGrabacion(nombre);
        poner->LigarTexto(0, grupo);
        poner->Ligar(1, numero);
        poner->Ejecutar();
    }
}

enum class PapelDeColumna { Ninguno, Cliente, Larga };

constexpr const char* noEsSistema = "It is no practice system";

std::unique_ptr<Conexion> AbrirParaLeer(const std::filesystem::path& ruta) {
    const auto directorio = ruta.parent_path();
    if (sistema::SePuedeEscribir(ruta) && sistema::SePuedeEscribir(directorio)) {
        return std::make_unique<Conexion>(ruta, SQLITE_OPEN_READWRITE);
    }
    // Where nothing can be written beside the file, it is read as one that nobody changes.
    auto registro = ruta;
    registro += "-wal";
    if (sistema::SePuedeEscribir(directorio) || std::filesystem::exists(registro)) {
        return std::make_unique<Conexion>(ruta, SQLITE_OPEN_READONLY);
    }
    std::string uri = "file:";
    constexpr const char* cifras = "0123456789ABCDEF";
    for (const char c : ruta.string()) {
        const auto byte = static_cast<unsigned char>(c);
        uri += '%';
        uri += cifras[byte >> 4];
        uri += cifras[byte & 0xF];
    }
    return std::make_unique<Conexion>(uri + "?immutable=1", SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
}

}  // namespace

// ---- The file ----

std::vector<std::filesystem::path> ArchivosDeSistema(const std::filesystem::path& archivo) {
    std::vector<std::filesystem::path> archivos;
    for (const char* const final : {"", "-wal", "-shm", "-journal"}) archivos.emplace_back(archivo.string() + final);
    return archivos;
}

BaseDePractica::BaseDePractica(const std::filesystem::path& ruta, Acceso acceso) {
    Abrir(ruta, acceso);
    sqlite3_set_authorizer(conexion_->Mango(), Autorizar, this);
    LeerDefiniciones();
}

BaseDePractica::~BaseDePractica() = default;

void BaseDePractica::Abrir(const std::filesystem::path& ruta, Acceso acceso) {
    std::error_code error;
    const auto estado = ruta.empty() ? std::filesystem::file_status{} : std::filesystem::status(ruta, error);
    const bool existe = !ruta.empty() && std::filesystem::exists(estado);
    if (ruta.empty() || (!existe && !error && acceso == Acceso::Leer) || (acceso == Acceso::Leer && error.value() == ENOENT)) {
        conexion_ = std::make_unique<Conexion>(std::filesystem::path{}, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        conexion_->Ejecutar("PRAGMA journal_mode=MEMORY");
        conexion_->Ejecutar(esquema);
        conexion_->Ejecutar(esquemaDos);
        return;
    }
    if (existe && !std::filesystem::is_regular_file(estado)) {
        if (std::filesystem::is_directory(estado)) throw FalloDeArchivo(EISDIR, ruta);
        throw FalloDeArchivo(noEsSistema, ruta, CausaDeFallo::Danado);
    }
    try {
        // Behind its whole path no name means anything but a file.
        const auto entera = std::filesystem::absolute(ruta);
        conexion_ = acceso == Acceso::Leer ? AbrirParaLeer(entera)
                                           : std::make_unique<Conexion>(entera, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        if (acceso == Acceso::Escribir && sqlite3_db_readonly(conexion_->Mango(), "main") == 1) throw FalloDeArchivo(EACCES, ruta);
        Preparar();
    } catch (const FalloDeBase& fallo) {
        throw FalloDeBase(fallo.Codigo(), fallo.what(), ruta, fallo.Causa());
    } catch (const FalloDeArchivo& fallo) {
        throw FalloDeArchivo(fallo.what(), ruta, fallo.Causa());
    }
}

void BaseDePractica::Preparar() {
    auto& base = *conexion_;
    // 0: nothing is in it yet.
    const auto verificar = [&]() -> std::int64_t {
        const auto aplicacion = base.Numero("PRAGMA application_id");
        const bool vacia = aplicacion == 0 && base.Numero("SELECT count(*) FROM sqlite_schema") == 0;
        if (vacia) return 0;
        if (aplicacion != idDeAplicacion) throw FalloDeArchivo(noEsSistema, base.Ruta(), CausaDeFallo::Danado);
        const auto suya = base.Numero("PRAGMA user_version");
        if (suya > version) throw FalloDeArchivo("A newer release of this program has made it", base.Ruta());
        return suya;
    };
    const auto hecha = verificar();
    if (sqlite3_db_readonly(base.Mango(), "main") == 1) {
        if (hecha == 0) throw FalloDeArchivo(noEsSistema, base.Ruta(), CausaDeFallo::Danado);
        if (hecha < version) {
            throw FalloDeArchivo("An older release of this program has made it; it has to be opened once where it can be written",
                                 base.Ruta());
        }
        return;
    }
    base.Ejecutar("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; PRAGMA cache_size=-16384");
    if (hecha == version) return;
    base.Ejecutar("BEGIN IMMEDIATE");
    // Another process may have been faster.
    const auto ahora = verificar();
    if (ahora == 0) {
        base.Ejecutar(esquema);
        base.Ejecutar("PRAGMA application_id=" + std::to_string(idDeAplicacion));
    }
    if (ahora == 1) base.Ejecutar("ALTER TABLE _qor_recordings RENAME TO _qor_recordings_1");
    if (ahora < version) {
        base.Ejecutar(esquemaDos);
        if (ahora == 1) {
            base.Ejecutar(desdeUno);
            NombrarGrabaciones(base);
        }
        base.Ejecutar("PRAGMA user_version=" + std::to_string(version));
    }
    base.Ejecutar("COMMIT");
}

// ---- Units of work ----

void BaseDePractica::EmpezarUnidad() {
    if (!cursores_.empty()) VaciarCursores();
    if (conexion_->EnTransaccion()) return;
    conexion_->Guardada("BEGIN IMMEDIATE").Ejecutar();
    ++unidad_;
}

void BaseDePractica::TerminarUnidad() {
    if (!conexion_->EnTransaccion()) return;
    try {
        conexion_->Guardada("COMMIT").Ejecutar();
    } catch (const FalloDeBase&) {
        AbandonarUnidad();
        throw;
    }
    for (auto& [nombre, entrada] : tablas_) entrada->enUnidad = false;
    esquemaCambiado_ = false;
}

void BaseDePractica::AbandonarUnidad() {
    VaciarCursores();
    if (conexion_->EnTransaccion()) conexion_->Guardada("ROLLBACK").Ejecutar();
    if (esquemaCambiado_) {
        for (auto& [nombre, entrada] : tablas_) antiguas_.push_back(std::move(entrada));
        tablas_.clear();
        LeerDefiniciones();
        esquemaCambiado_ = false;
        return;
    }
    for (auto& [nombre, entrada] : tablas_) {
        if (std::exchange(entrada->enUnidad, false)) entrada->Deshacer();
    }
}

// ---- Definitions ----

void BaseDePractica::LeerDefiniciones() {
    const auto tablas = conexion_->Preparar("SELECT name, kind FROM _qor_tables");
    const auto columnas =
        conexion_->Preparar("SELECT name, type, length, decimals, is_key, role FROM _qor_columns WHERE tab = ? ORDER BY position");
    while (tablas->Paso()) {
        auto entrada = std::make_unique<Entrada>();
        auto& definicion = entrada->definicion;
        definicion.estructura.nombre = tablas->Texto(0);
        definicion.clase = static_cast<DefinicionDeTabla::Clase>(tablas->Entero(1));
        columnas->LigarTexto(0, definicion.estructura.nombre);
        while (columnas->Paso()) {
            abap::TipoDeCampo tipo;
            tipo.tipo = static_cast<abap::Tipo>(columnas->Entero(1));
            tipo.largo = static_cast<std::uint32_t>(columnas->Entero(2));
            tipo.decimales = static_cast<std::uint8_t>(columnas->Entero(3));
            const int lugar = static_cast<int>(definicion.estructura.componentes.size());
            const auto papel = static_cast<PapelDeColumna>(columnas->Entero(5));
            if (papel == PapelDeColumna::Cliente) definicion.cliente = lugar;
            if (papel == PapelDeColumna::Larga) definicion.larga = lugar;
            definicion.estructura.Agregar(columnas->Texto(0), tipo, columnas->Entero(4) != 0);
        }
        definicion.estructura.Cerrar();
        entrada->lugar = "main." + Entrecomillado(definicion.estructura.nombre);
        entrada->hecha = true;
        tablas_.emplace(definicion.estructura.nombre, std::move(entrada));
    }
}

BaseDePractica::Entrada* BaseDePractica::Buscar(std::string_view nombre) {
    if (const auto lugar = tablas_.find(nombre); lugar != tablas_.end()) return lugar->second.get();
    auto provista = proveedor_ == nullptr ? std::nullopt : proveedor_->Proveer(nombre);
    if (!provista) return nullptr;
    auto entrada = std::make_unique<Entrada>();
    entrada->definicion = provista->definicion;
    entrada->lugar = (provista->derivada ? "temp." : "main.") + Entrecomillado(nombre);
    entrada->provista = std::move(*provista);
    return tablas_.emplace(nombre, std::move(entrada)).first->second.get();
}

const DefinicionDeTabla* BaseDePractica::BuscarTabla(std::string_view nombre) {
    const auto* const entrada = Buscar(nombre);
    return entrada == nullptr ? nullptr : &entrada->definicion;
}

BaseDePractica::Entrada& BaseDePractica::Pedir(std::string_view nombre) {
    auto* const entrada = Buscar(nombre);
    if (entrada == nullptr) {
        throw abap::Volcado("SAPSQL_INVALID_TABLENAME", "The practice system has no table " + std::string(nombre));
    }
    if (!entrada->hecha) Hacer(*entrada);
    return *entrada;
}

BaseDePractica::Entrada& BaseDePractica::PedirParaEscribir(std::string_view nombre) {
    auto& entrada = Pedir(nombre);
    if (entrada.provista.derivada) {
        throw abap::Volcado("DBIF_RSQL_SQL_ERROR", "The rows of the table " + std::string(nombre) +
                                                       " follow from what the practice system holds, and can't be changed");
    }
    EmpezarUnidad();
    return entrada;
}

void BaseDePractica::Hacer(Entrada& entrada) {
    if (entrada.provista.derivada) return HacerDerivada(entrada);
    EmpezarUnidad();
    conexion_->Ejecutar(EscribirCreacion(entrada.definicion, entrada.lugar));
    EscribirDefinicion(entrada.definicion);
    entrada.hecha = entrada.enUnidad = true;
}

void BaseDePractica::HacerDerivada(Entrada& entrada) {
    entrada.enUnidad = conexion_->EnTransaccion();
    conexion_->Ejecutar("SAVEPOINT derived");
    try {
        if (!entrada.provista.vista.empty()) {
            conexion_->Ejecutar("CREATE TEMP VIEW " + Entrecomillado(entrada.definicion.estructura.nombre) + " AS " +
                                entrada.provista.vista);
        } else {
            conexion_->Ejecutar(EscribirCreacion(entrada.definicion, entrada.lugar));
            const auto insertar = conexion_->Preparar(EscribirInsercion(entrada.definicion, entrada.lugar));
            entrada.provista.llenar([&](std::span<const abap::ValorDeBase> fila) {
                LigarFila(*insertar, entrada.definicion, fila, true);
                insertar->Ejecutar();
            });
        }
    } catch (...) {
        conexion_->Ejecutar("ROLLBACK TO derived; RELEASE derived");
        throw;
    }
    conexion_->Ejecutar("RELEASE derived");
    entrada.hecha = true;
}

void BaseDePractica::EscribirDefinicion(const DefinicionDeTabla& definicion) {
    const auto& nombre = definicion.estructura.nombre;
    auto& tabla = conexion_->Guardada("INSERT INTO _qor_tables VALUES (?, ?)");
    tabla.LigarTexto(0, nombre);
    tabla.Ligar(1, static_cast<std::int64_t>(definicion.clase));
    tabla.Ejecutar();
    auto& columna = conexion_->Guardada("INSERT INTO _qor_columns VALUES (?, ?, ?, ?, ?, ?, ?, ?)");
    const auto& componentes = definicion.estructura.componentes;
    for (std::size_t i = 0; i < componentes.size(); ++i) {
        const auto& componente = componentes[i];
        auto papel = PapelDeColumna::Ninguno;
        if (static_cast<int>(i) == definicion.cliente) papel = PapelDeColumna::Cliente;
        if (static_cast<int>(i) == definicion.larga) papel = PapelDeColumna::Larga;
        columna.LigarTexto(0, nombre);
        columna.Ligar(1, static_cast<std::int64_t>(i));
        columna.LigarTexto(2, componente.nombre);
        columna.Ligar(3, static_cast<std::int64_t>(componente.tipo.tipo));
        columna.Ligar(4, static_cast<std::int64_t>(componente.tipo.largo));
        columna.Ligar(5, static_cast<std::int64_t>(componente.tipo.decimales));
        columna.Ligar(6, static_cast<std::int64_t>(componente.clave));
        columna.Ligar(7, static_cast<std::int64_t>(papel));
        columna.Ejecutar();
    }
}

std::vector<BaseDePractica::ResumenDeTabla> BaseDePractica::Tablas() {
    std::vector<ResumenDeTabla> resumen;
    for (const auto& [nombre, entrada] : tablas_) {
        if (!entrada->hecha || entrada->provista.derivada) continue;
        resumen.push_back({nombre, entrada->definicion.clase, conexion_->Numero("SELECT count(*) FROM " + entrada->lugar)});
    }
    std::sort(resumen.begin(), resumen.end(), [](const auto& uno, const auto& otro) { return uno.nombre < otro.nombre; });
    return resumen;
}

void BaseDePractica::CrearTabla(DefinicionDeTabla definicion) {
    BorrarTabla(definicion.estructura.nombre);
    auto entrada = std::make_unique<Entrada>();
    entrada->definicion = std::move(definicion);
    const auto& nombre = entrada->definicion.estructura.nombre;
    entrada->lugar = "main." + Entrecomillado(nombre);
    conexion_->Ejecutar(EscribirCreacion(entrada->definicion, entrada->lugar));
    EscribirDefinicion(entrada->definicion);
    entrada->hecha = true;
    tablas_[nombre] = std::move(entrada);
}

void BaseDePractica::BorrarTabla(const std::string& nombre) {
    EmpezarUnidad();
    esquemaCambiado_ = true;
    const auto lugar = tablas_.find(nombre);
    if (lugar == tablas_.end()) return;
    auto& entrada = *lugar->second;
    entrada.SoltarSentencias();
    libres_.clear();
    if (entrada.hecha) {
        conexion_->Ejecutar((entrada.provista.vista.empty() ? "DROP TABLE " : "DROP VIEW ") + entrada.lugar);
    }
    for (const char* const texto : {"DELETE FROM _qor_tables WHERE name = ?", "DELETE FROM _qor_columns WHERE tab = ?"}) {
        auto& borrar = conexion_->Guardada(texto);
        borrar.LigarTexto(0, nombre);
        borrar.Ejecutar();
    }
    antiguas_.push_back(std::move(lugar->second));
    tablas_.erase(lugar);
}

void BaseDePractica::Vaciar() {
    try {
        EmpezarUnidad();
        std::vector<std::string> nombres;
        for (const auto& [nombre, entrada] : tablas_) nombres.push_back(nombre);
        for (const auto& nombre : nombres) BorrarTabla(nombre);
        for (const char* const tabla :
             {"_qor_transactions", "_qor_shapes", "_qor_queue", "_qor_programs", "_qor_recordings", "_qor_settings"}) {
            conexion_->Ejecutar(std::string("DELETE FROM main.") + tabla);
        }
        TerminarUnidad();
    } catch (...) {
        AbandonarUnidad();
        throw;
    }
    conexion_->Ejecutar("VACUUM");
}

std::string BaseDePractica::Ajuste(std::string_view nombre, std::string_view deFabrica) {
    auto& leer = conexion_->Guardada("SELECT value FROM _qor_settings WHERE name = ?");
    leer.LigarTexto(0, nombre);
    std::string valor(leer.Paso() ? leer.Texto(0) : std::string(deFabrica));
    leer.Reiniciar();
    return valor;
}

void BaseDePractica::PonerAjuste(std::string_view nombre, std::string_view valor) {
    EmpezarUnidad();
    auto& poner = conexion_->Guardada("INSERT OR REPLACE INTO _qor_settings VALUES (?, ?)");
    poner.LigarTexto(0, nombre);
    poner.LigarTexto(1, valor);
    poner.Ejecutar();
}

}  // namespace qor
