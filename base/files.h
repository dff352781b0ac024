#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/file_calls.h"

// Reading files, and asking about them; base/new_file.h writes them. Whatever fails throws FalloDeArchivo.
namespace qor {

// No real file of its kind comes near these, in bytes.
constexpr std::uintmax_t limiteDeArchivo = std::uintmax_t{64} << 20;
constexpr std::uintmax_t limiteDeCatalogo = std::uintmax_t{1} << 30;
constexpr std::uintmax_t limiteDeSesion = std::uintmax_t{1} << 30;

// The whole content of a regular file. One that is larger than the limit is a failure.
std::string LeerArchivo(const std::filesystem::path& ruta, std::uintmax_t limite = limiteDeArchivo);

// Splits at CR LF, LF or CR; a last line without an end counts.
std::vector<std::string_view> PartirEnLineas(std::string_view texto);

// Whether a path leads to something. A missing file or directory is the only "no": any other failure to look is thrown.
bool Existe(const std::filesystem::path& ruta);

// The same of the name alone: a link exists even when it leads nowhere.
bool ExisteNombre(const std::filesystem::path& ruta);

// Which file it is, and in what state: another one after a program has changed it or put a new one in its place.
struct IdentidadDeArchivo {
    std::uintmax_t dispositivo = 0;
    std::uintmax_t inodo = 0;
    std::uintmax_t tamano = 0;
    std::int64_t cambiadoEn = 0;  // nanoseconds

    bool operator==(const IdentidadDeArchivo&) const = default;
    bool EsElMismo(const IdentidadDeArchivo& otra) const { return dispositivo == otra.dispositivo && inodo == otra.inodo; }
};

IdentidadDeArchivo IdentidadDe(const EstadoDeArchivo& estado);

// Of the file that a path leads to; nothing where there is none.
std::optional<IdentidadDeArchivo> Identidad(const std::filesystem::path& ruta);

// A regular file, open for reading. Opening anything else is a failure, and never waits.
class ArchivoAbierto {
public:
    ArchivoAbierto() = default;
    explicit ArchivoAbierto(const std::filesystem::path& ruta);

    bool Abierto() const { return descriptor_.Abierto(); }
    void Cerrar() { descriptor_.Cerrar(); }

    // The next bytes, or those at a place; how many there were, 0 at the end.
    std::size_t Leer(char* donde, std::size_t cuanto);
    std::size_t LeerEn(char* donde, std::size_t cuanto, std::uint64_t lugar) const;

    // The whole content.
    std::string LeerTodo(std::uintmax_t limite = limiteDeArchivo) const;

    // Of this opening, also when the path has come to lead to another file.
    IdentidadDeArchivo Identidad() const;

    const std::filesystem::path& Ruta() const { return ruta_; }
    int Numero() const { return descriptor_.Valor(); }

protected:
    ArchivoAbierto(Descriptor descriptor, std::filesystem::path ruta)
        : ruta_(std::move(ruta)), descriptor_(std::move(descriptor)) {}

private:
    std::filesystem::path ruta_;
    Descriptor descriptor_;
};

// A file held open against every other opener of this system, in this process or another. The lock goes with the object, and
// with the process.
class ArchivoBloqueado : public ArchivoAbierto {
public:
    ArchivoBloqueado() = default;

    // Opens a regular file for reading and locks it; a failure when another holds it.
    static ArchivoBloqueado Abrir(const std::filesystem::path& ruta);

private:
    friend class ArchivoNuevo;
    ArchivoBloqueado(Descriptor descriptor, std::filesystem::path ruta) : ArchivoAbierto(std::move(descriptor), std::move(ruta)) {}
    explicit ArchivoBloqueado(ArchivoAbierto archivo) : ArchivoAbierto(std::move(archivo)) {}
};

// Locks an open file, or fails: one that another holds is "in use".
void Bloquear(int descriptor, const std::filesystem::path& ruta);

// Writes all of a text.
void EscribirEn(int descriptor, std::string_view texto, const std::filesystem::path& ruta);

// A file that grows where it stands, for what has to be seen while it is written. An opening that holds the file locked is a
// failure, and the file then stays as it was.
class ArchivoDeSalida {
public:
    // Opens the file and empties it.
    explicit ArchivoDeSalida(const std::filesystem::path& ruta);

    void Escribir(std::string_view texto) { EscribirEn(descriptor_.Valor(), texto, ruta_); }

private:
    std::filesystem::path ruta_;
    Descriptor descriptor_;
};

// Puts `nuevo` in the place of `destino` in one atomic step and flushes the directory.
void ReemplazarArchivo(const std::filesystem::path& nuevo, const std::filesystem::path& destino);

// Brings a directory's entries to the disk, where the directory can be opened.
void LlevarDirectorioAlDisco(const std::filesystem::path& archivo);

}  // namespace qor
