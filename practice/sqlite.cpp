#include "practice/sqlite.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstring>

#include "base/code_page.h"
#include "base/system_calls.h"
#include "practice/sqlite_decimal.h"

namespace qor {

namespace {

constexpr int esperaMilisegundos = 1000;

bool EsAscii(std::string_view texto) {
    return std::none_of(texto.begin(), texto.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

std::string MotivoDe(sqlite3* mango, int codigo) {
    switch (codigo & 0xFF) {
        case SQLITE_NOTADB: return "It is no practice system";
        case SQLITE_CORRUPT: return "The file is damaged";
        case SQLITE_BUSY:
        case SQLITE_LOCKED: return "Another program is using it";
        case SQLITE_FULL: return std::strerror(ENOSPC);
        case SQLITE_CANTOPEN:
        case SQLITE_IOERR:
        case SQLITE_READONLY:
        case SQLITE_PERM: {
            const int error = sistema::ErrorDeC(sqlite3_system_errno(mango));
            return error != 0 ? std::strerror(error) : sqlite3_errstr(codigo);
        }
        default: return sqlite3_errmsg(mango);
    }
}

CausaDeFallo CausaDe(sqlite3* mango, int codigo) {
    switch (codigo & 0xFF) {
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT: return CausaDeFallo::Danado;
        case SQLITE_BUSY:
        case SQLITE_LOCKED: return CausaDeFallo::EnUso;
        case SQLITE_FULL: return CausaDeFallo::SinLugar;
        case SQLITE_READONLY: return CausaDeFallo::SoloLectura;
        case SQLITE_CANTOPEN:
        case SQLITE_IOERR:
        case SQLITE_PERM: return qor::CausaDe(sistema::ErrorDeC(sqlite3_system_errno(mango)));
        default: return CausaDeFallo::Otra;  // the system's number is that of an earlier call
    }
}

}  // namespace

bool FalloDeBase::EsDelArchivo() const {
    switch (codigo_ & 0xFF) {
        case SQLITE_NOTADB:
        case SQLITE_CORRUPT:
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
        case SQLITE_FULL:
        case SQLITE_CANTOPEN:
        case SQLITE_IOERR:
        case SQLITE_READONLY:
        case SQLITE_PERM: return true;
        default: return false;
    }
}

// ---- Statements ----

Sentencia::~Sentencia() { sqlite3_finalize(sentencia_); }

void Sentencia::Verificar(int codigo) {
    if (codigo != SQLITE_OK) conexion_->Fallar(codigo);
}

void Sentencia::Ligar(int lugar, std::int64_t valor) { Verificar(sqlite3_bind_int64(sentencia_, lugar + 1, valor)); }

void Sentencia::Ligar(int lugar, double valor) { Verificar(sqlite3_bind_double(sentencia_, lugar + 1, valor)); }

void Sentencia::LigarNada(int lugar) { Verificar(sqlite3_bind_null(sentencia_, lugar + 1)); }

void Sentencia::LigarTexto(int lugar, std::string_view texto, bool copia) {
    if (EsAscii(texto)) {
        const char* const datos = texto.empty() ? "" : texto.data();
        Verificar(
            sqlite3_bind_text64(sentencia_, lugar + 1, datos, texto.size(), copia ? SQLITE_TRANSIENT : SQLITE_STATIC, SQLITE_UTF8));
        return;
    }
    const std::string utf8 = AUtf8(texto);
    Verificar(sqlite3_bind_text64(sentencia_, lugar + 1, utf8.data(), utf8.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
}

void Sentencia::LigarBloque(int lugar, std::string_view bytes, bool copia) {
    const char* const datos = bytes.empty() ? "" : bytes.data();
    Verificar(sqlite3_bind_blob64(sentencia_, lugar + 1, datos, bytes.size(), copia ? SQLITE_TRANSIENT : SQLITE_STATIC));
}

bool Sentencia::Paso() {
    const int codigo = sqlite3_step(sentencia_);
    if (codigo == SQLITE_ROW) return true;
    sqlite3_reset(sentencia_);
    if (codigo != SQLITE_DONE) conexion_->Fallar(codigo);
    return false;
}

void Sentencia::Ejecutar() {
    if (Paso()) Reiniciar();
}

void Sentencia::Reiniciar() { sqlite3_reset(sentencia_); }

int Sentencia::Columnas() const { return sqlite3_column_count(sentencia_); }

Sentencia::Clase Sentencia::ClaseDe(int columna) const {
    switch (sqlite3_column_type(sentencia_, columna)) {
        case SQLITE_INTEGER: return Clase::Entero;
        case SQLITE_FLOAT: return Clase::Flotante;
        case SQLITE_TEXT: return Clase::Texto;
        case SQLITE_BLOB: return Clase::Bloque;
        default: return Clase::Nada;
    }
}

std::int64_t Sentencia::Entero(int columna) const { return sqlite3_column_int64(sentencia_, columna); }

double Sentencia::Flotante(int columna) const { return sqlite3_column_double(sentencia_, columna); }

std::string_view Sentencia::Bytes(int columna) const {
    const auto* const datos = static_cast<const char*>(sqlite3_column_blob(sentencia_, columna));
    const auto largo = static_cast<std::size_t>(sqlite3_column_bytes(sentencia_, columna));
    return datos == nullptr ? std::string_view{} : std::string_view(datos, largo);
}

std::string Sentencia::Texto(int columna) const {
    const auto* const datos = reinterpret_cast<const char*>(sqlite3_column_text(sentencia_, columna));
    if (datos == nullptr) return {};
    const std::string_view utf8(datos, static_cast<std::size_t>(sqlite3_column_bytes(sentencia_, columna)));
    return EsAscii(utf8) ? std::string(utf8) : DesdeUtf8ConFaltas(utf8);
}

std::string_view Sentencia::NombreDeColumna(int columna) const {
    const char* const nombre = sqlite3_column_name(sentencia_, columna);
    return nombre == nullptr ? std::string_view{} : std::string_view(nombre);
}

bool Sentencia::SoloLee() const { return sqlite3_stmt_readonly(sentencia_) != 0; }

// ---- The connection ----

void Conexion::Cierre::operator()(sqlite3* mango) const { sqlite3_close_v2(mango); }

Conexion::Conexion(const std::filesystem::path& ruta, int modo) : ruta_(ruta) {
    sqlite3* mango = nullptr;
    const int codigo = sqlite3_open_v2(ruta.string().c_str(), &mango, modo, nullptr);
    mango_.reset(mango);
    if (mango == nullptr) throw FalloDeBase(codigo, sqlite3_errstr(codigo), ruta_, CausaDeFallo::Otra);
    if (codigo != SQLITE_OK) Fallar(codigo);
    sqlite3_extended_result_codes(mango, 1);
    sqlite3_busy_timeout(mango, esperaMilisegundos);
    // A file may come from anywhere: nothing that it holds runs by itself.
    sqlite3_db_config(mango, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(mango, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(mango, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    AgregarDecimales(mango);
}

Conexion::~Conexion() = default;

void Conexion::Fallar(int codigo) const {
    throw FalloDeBase(codigo, MotivoDe(mango_.get(), codigo), ruta_, CausaDe(mango_.get(), codigo));
}

std::unique_ptr<Sentencia> Conexion::Preparar(std::string_view texto) {
    sqlite3_stmt* sentencia = nullptr;
    const int codigo = sqlite3_prepare_v3(mango_.get(), texto.data(), static_cast<int>(texto.size()), 0, &sentencia, nullptr);
    if (codigo != SQLITE_OK) Fallar(codigo);
    return std::make_unique<Sentencia>(*this, sentencia);
}

std::unique_ptr<Sentencia> Conexion::PrepararUna(std::string_view texto) {
    const std::string utf8 = AUtf8(texto);
    sqlite3_stmt* primera = nullptr;
    const char* resto = nullptr;
    int codigo = sqlite3_prepare_v3(mango_.get(), utf8.data(), static_cast<int>(utf8.size()), 0, &primera, &resto);
    if (codigo != SQLITE_OK) Fallar(codigo);
    auto sentencia = std::make_unique<Sentencia>(*this, primera);
    if (primera == nullptr || sqlite3_stmt_isexplain(primera) != 0) return nullptr;
    // Comments and points may follow. Whatever else does is another statement, or none.
    while (resto < utf8.data() + utf8.size()) {
        sqlite3_stmt* otra = nullptr;
        const char* const desde = resto;
        const auto largo = static_cast<int>(utf8.data() + utf8.size() - desde);
        codigo = sqlite3_prepare_v3(mango_.get(), desde, largo, 0, &otra, &resto);
        const Sentencia sobrante(*this, otra);
        if (codigo != SQLITE_OK || otra != nullptr || resto == desde)
            return codigo == SQLITE_OK && otra == nullptr ? std::move(sentencia) : nullptr;
    }
    return sentencia;
}

Sentencia& Conexion::Guardada(const std::string& texto) {
    auto lugar = guardadas_.find(texto);
    if (lugar == guardadas_.end()) lugar = guardadas_.emplace(texto, Preparar(texto)).first;
    lugar->second->Reiniciar();
    return *lugar->second;
}

void Conexion::Ejecutar(const std::string& texto) {
    const int codigo = sqlite3_exec(mango_.get(), texto.c_str(), nullptr, nullptr, nullptr);
    if (codigo != SQLITE_OK) Fallar(codigo);
}

std::int64_t Conexion::Numero(const std::string& texto) {
    const auto sentencia = Preparar(texto);
    return sentencia->Paso() ? sentencia->Entero(0) : 0;
}

std::int64_t Conexion::Cambios() const { return sqlite3_changes64(mango_.get()); }

std::int64_t Conexion::UltimoNumero() const { return sqlite3_last_insert_rowid(mango_.get()); }

bool Conexion::EnTransaccion() const { return sqlite3_get_autocommit(mango_.get()) == 0; }

std::string Entrecomillado(std::string_view nombre) {
    std::string texto = "\"";
    for (const char c : nombre) texto += c == '"' ? std::string("\"\"") : std::string(1, c);
    return texto + "\"";
}

}  // namespace qor
