#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "base/failure.h"

struct sqlite3;
struct sqlite3_stmt;

// A thin layer on SQLite. Texts are windows-1252 here and UTF-8 in the database; columns and places of "?" count from 0.
namespace qor {

// What the database could not do. `Codigo` is SQLite's extended result code.
class FalloDeBase : public FalloDeArchivo {
public:
    FalloDeBase(int codigo, const std::string& motivo, std::filesystem::path ruta, CausaDeFallo causa)
        : FalloDeArchivo(motivo, std::move(ruta), causa), codigo_(codigo) {}

    int Codigo() const { return codigo_; }
    // Of the file or the disk it lies on; else of the statement.
    bool EsDelArchivo() const;

private:
    int codigo_;
};

class Conexion;

// A prepared statement. Values stay bound until others take their place.
class Sentencia {
public:
    Sentencia(Conexion& conexion, sqlite3_stmt* sentencia) : conexion_(&conexion), sentencia_(sentencia) {}
    Sentencia(const Sentencia&) = delete;
    Sentencia& operator=(const Sentencia&) = delete;
    ~Sentencia();

    void Ligar(int lugar, std::int64_t valor);
    void Ligar(int lugar, double valor);
    void LigarNada(int lugar);
    // The text has to live until the statement has run, unless a copy is asked for.
    void LigarTexto(int lugar, std::string_view texto, bool copia = false);
    void LigarBloque(int lugar, std::string_view bytes, bool copia = false);

    // The next row; false behind the last one, and the statement can then run anew.
    bool Paso();
    // Runs a statement that answers no row, or the first one only.
    void Ejecutar();
    void Reiniciar();

    int Columnas() const;
    enum class Clase { Nada, Entero, Flotante, Texto, Bloque };
    Clase ClaseDe(int columna) const;
    std::int64_t Entero(int columna) const;
    double Flotante(int columna) const;
    std::string Texto(int columna) const;                 // windows-1252
    std::string_view Bytes(int columna) const;            // as they stand, until the next step
    std::string_view NombreDeColumna(int columna) const;  // UTF-8
    bool SoloLee() const;

private:
    void Verificar(int codigo);

    Conexion* conexion_;
    sqlite3_stmt* sentencia_;
};

// An open database. Not for two threads at a time.
class Conexion {
public:
    // An empty path opens one of its own that goes with the object; it lies in memory, and what is too much for that in a temporary
    // file.
    Conexion(const std::filesystem::path& ruta, int modo);
    Conexion(const Conexion&) = delete;
    Conexion& operator=(const Conexion&) = delete;
    ~Conexion();

    // Compiles a statement; `Guardada` keeps it by its text and gives the same one each time.
    std::unique_ptr<Sentencia> Preparar(std::string_view texto);
    // The same, of a windows-1252 text that has to be one statement and no EXPLAIN; null where it is not.
    std::unique_ptr<Sentencia> PrepararUna(std::string_view texto);
    Sentencia& Guardada(const std::string& texto);
    void Ejecutar(const std::string& texto);  // any number of statements
    // The number in the first column of the first row; 0 without a row.
    std::int64_t Numero(const std::string& texto);

    std::int64_t Cambios() const;  // rows that the last statement changed
    std::int64_t UltimoNumero() const;
    bool EnTransaccion() const;

    const std::filesystem::path& Ruta() const { return ruta_; }
    sqlite3* Mango() const { return mango_.get(); }
    [[noreturn]] void Fallar(int codigo) const;
    void SoltarGuardadas() { guardadas_.clear(); }

private:
    struct Cierre {
        void operator()(sqlite3* mango) const;
    };

    std::filesystem::path ruta_;
    std::unique_ptr<sqlite3, Cierre> mango_;
    std::unordered_map<std::string, std::unique_ptr<Sentencia>> guardadas_;
};

// A name between quotes, as a statement takes it.
std::string Entrecomillado(std::string_view nombre);

}  // namespace qor
