#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "abap/surroundings.h"
#include "practice/events.h"
#include "practice/sqlite.h"
#include "practice/table_definition.h"

// What lasts in the practice system: one SQLite file with tables and their rows, the queue, programs, recordings.
//
// All that changes it belongs to a unit of work, which is one transaction of SQLite. It begins with the first change, and ends with
// COMMIT WORK, ROLLBACK WORK, a CALL TRANSACTION and the end of the report; a process that is killed leaves the file as the last
// finished unit has left it. SQLite's write-ahead log (FILE-wal, FILE-shm) lies beside the file while it is open, and behind a
// killed process until the next one opens the file.
namespace qor {

enum class Acceso { Leer, Escribir };

// Puts a row into a table that is being filled; the values stand in the order of its columns.
using PonerFila = std::function<void(std::span<const abap::ValorDeBase>)>;

// A table that the system knows without anybody having made it.
struct TablaProvista {
    DefinicionDeTabla definicion;
    bool derivada = false;                         // its rows come from elsewhere and can't be changed
    std::string vista;                             // they are those of this SELECT,
    std::function<void(const PonerFila&)> llenar;  // or are given by this, once
};

class ProveedorDeTablas {
public:
    virtual ~ProveedorDeTablas() = default;
    virtual std::optional<TablaProvista> Proveer(std::string_view nombre) = 0;
};

// A system file and what the database keeps beside it while it works.
std::vector<std::filesystem::path> ArchivosDeSistema(const std::filesystem::path& archivo);

class BaseDePractica : public abap::BaseDeDatos {
public:
    // Opens a file, which is made where there is none; an empty path keeps all in memory. Throws FalloDeArchivo for a file that is
    // no practice system, of a newer program, locked by another one, or can't be opened. With Acceso::Leer nothing is written, and
    // a missing file is an empty system.
    explicit BaseDePractica(const std::filesystem::path& ruta = {}, Acceso acceso = Acceso::Escribir);
    ~BaseDePractica() override;

    // Whoever is told of what happens, or null. Rows are told for as long as it is set.
    void PonerOyente(OyenteDePractica* oyente) { oyente_ = oyente; }
    void PonerProveedor(ProveedorDeTablas* proveedor) { proveedor_ = proveedor; }
    void PonerCliente(std::string_view cliente) { cliente_ = cliente; }
    const std::string& Cliente() const { return cliente_; }

    // ---- Tables ----

    // Null where there is no such table. What a definition says stays at its place until the table is made anew.
    const DefinicionDeTabla* BuscarTabla(std::string_view nombre);
    // Tables in the file, by name, with their number of rows.
    struct ResumenDeTabla {
        std::string nombre;
        DefinicionDeTabla::Clase clase;
        std::int64_t filas;
    };
    std::vector<ResumenDeTabla> Tablas();
    // Makes a table in the place of one of the same name, which goes with its rows; part of the unit of work.
    void CrearTabla(DefinicionDeTabla definicion);
    void BorrarTabla(const std::string& nombre);
    // Everything goes: tables, queue, programs, recordings and settings, as a unit of its own.
    void Vaciar();
    // Makes the error table that a report asks for, with lines of that many characters, as a unit of its own. One that is there
    // keeps its rows: a narrower one becomes wider, and a loaded table with the columns of an error table becomes one. Throws
    // FalloDeEjecucion where the table of that name is another one, or holds values that don't fit.
    void CrearTablaDeErrores(std::string_view nombre, std::uint32_t largoDeLinea);

    // What is set of the system itself.
    std::string Ajuste(std::string_view nombre, std::string_view deFabrica);
    void PonerAjuste(std::string_view nombre, std::string_view valor);  // part of the unit of work

    // ---- Rows, as reports ask for them ----

    std::unique_ptr<abap::FilasDeBase> Seleccionar(const abap::ConsultaDeBase& consulta) override;
    bool Insertar(const abap::Estructura& tabla, std::span<const abap::ValorDeBase> fila) override;
    std::int64_t Actualizar(const std::string& tabla, std::span<const abap::AsignacionDeBase> cambios,
                            const abap::CondicionDeBase& donde) override;
    std::int64_t ActualizarFila(const abap::Estructura& tabla, std::span<const abap::ValorDeBase> fila) override;
    std::int64_t Borrar(const std::string& tabla, const abap::CondicionDeBase& donde) override;
    std::int64_t BorrarFila(const abap::Estructura& tabla, std::span<const abap::ValorDeBase> fila) override;
    std::unique_ptr<abap::FilasDeBase> SeleccionarNativo(const std::string& texto,
                                                         std::span<const abap::ValorDeBase> valores) override;
    void Confirmar() override;
    void Deshacer() override;

    // Puts a row into a table as it stands, the client too; false where the key is taken. Nobody is told.
    bool PonerFilaEn(const DefinicionDeTabla& tabla, std::span<const abap::ValorDeBase> fila);

    // ---- Units of work ----

    // The end of a unit that no COMMIT WORK or ROLLBACK WORK asked for: CALL TRANSACTION, the end of the report; a short dump.
    void TerminarUnidad();
    void AbandonarUnidad();
    // What changes the file by itself calls this first.
    void EmpezarUnidad();

    // Another one in each unit.
    std::int64_t NumeroDeUnidad() const { return unidad_; }

    Conexion& LaConexion() { return *conexion_; }

private:
    struct Entrada;
    class Cursor;
    struct PorTexto {
        using is_transparent = void;
        std::size_t operator()(std::string_view texto) const { return std::hash<std::string_view>{}(texto); }
    };

    void Abrir(const std::filesystem::path& ruta, Acceso acceso);
    void Preparar();
    void LeerDefiniciones();
    Entrada* Buscar(std::string_view nombre);
    Entrada& Pedir(std::string_view nombre);  // throws SAPSQL_INVALID_TABLENAME
    Entrada& PedirParaEscribir(std::string_view nombre);
    void Hacer(Entrada& entrada);
    void HacerDerivada(Entrada& entrada);
    void EscribirDefinicion(const DefinicionDeTabla& definicion);
    void EnsancharTablaDeErrores(DefinicionDeTabla nueva);
    void AdoptarTablaDeErrores(const DefinicionDeTabla& vieja, DefinicionDeTabla nueva);
    void LigarFila(Sentencia& sentencia, const DefinicionDeTabla& tabla, std::span<const abap::ValorDeBase> fila, bool comoEs);
    void LigarClave(Sentencia& sentencia, const DefinicionDeTabla& tabla, std::span<const abap::ValorDeBase> fila, int desde);
    std::unique_ptr<Sentencia> TomarSentencia(const std::string& texto);
    void VaciarCursores();
    std::unique_ptr<Sentencia> PrepararNativa(const std::string& texto);
    static int Autorizar(void* base, int accion, const char* uno, const char* dos, const char* esquema, const char* vista);

    std::unique_ptr<Conexion> conexion_;
    OyenteDePractica* oyente_ = nullptr;
    ProveedorDeTablas* proveedor_ = nullptr;
    std::string cliente_ = "000";
    std::int64_t unidad_ = 0;
    bool nativa_ = false;           // a statement of a report is being compiled
    bool esquemaCambiado_ = false;  // a table was made or dropped in this unit
    std::unordered_map<std::string, std::unique_ptr<Entrada>, PorTexto, std::equal_to<>> tablas_;
    std::vector<std::unique_ptr<Entrada>> antiguas_;  // definitions that somebody may still look at
    std::unordered_map<std::string, std::vector<std::unique_ptr<Sentencia>>> libres_;
    std::vector<Cursor*> cursores_;
};

}  // namespace qor
