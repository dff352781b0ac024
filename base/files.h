#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

// The whole content of a regular file. Throws FalloDeEjecucion when it can't be opened or read.
std::string LeerArchivo(const std::filesystem::path& ruta);

// Splits at CR LF, LF or CR; a last line without an end counts.
std::vector<std::string_view> PartirEnLineas(std::string_view texto);

// A file held open against every other opener of this system, in this process or another. The lock goes with the object, and
// with the process.
class ArchivoBloqueado {
public:
    ArchivoBloqueado() = default;
    ArchivoBloqueado(const ArchivoBloqueado&) = delete;
    ArchivoBloqueado& operator=(const ArchivoBloqueado&) = delete;
    ArchivoBloqueado(ArchivoBloqueado&& otro) noexcept;
    ArchivoBloqueado& operator=(ArchivoBloqueado&& otro) noexcept;
    ~ArchivoBloqueado();

    // Opens a regular file for reading and locks it. Throws FalloDeEjecucion when it is missing, unreadable or locked.
    static ArchivoBloqueado Abrir(const std::filesystem::path& ruta);

    // Creates or empties a file for writing and locks it.
    static ArchivoBloqueado Crear(const std::filesystem::path& ruta);

    bool Abierto() const { return descriptor_ >= 0; }
    void Cerrar();

    // The whole content, through this opening of the file.
    std::string LeerTodo() const;

    // Writes the text and flushes it to the disk.
    void EscribirTodo(std::string_view texto);

private:
    explicit ArchivoBloqueado(int descriptor) : descriptor_(descriptor) {}
    int descriptor_ = -1;
};

// Writes a text as the whole content of a file. An opening that holds the file locked, in this process or another, is a failure,
// and the file then stays as it was; so an open document is never overwritten. Whatever is no regular file is just written to.
class ArchivoDeSalida {
public:
    // Opens the file and empties it. Throws FalloDeEjecucion.
    explicit ArchivoDeSalida(const std::filesystem::path& ruta);
    ~ArchivoDeSalida();
    ArchivoDeSalida(const ArchivoDeSalida&) = delete;
    ArchivoDeSalida& operator=(const ArchivoDeSalida&) = delete;

    // Both throw FalloDeEjecucion when the text can't be written, or can't be brought to the disk.
    void Escribir(std::string_view texto);
    void LlevarAlDisco();

private:
    int descriptor_;
};

// Puts `nuevo` in the place of `destino` in one atomic step and flushes the directory. Throws FalloDeEjecucion.
void ReemplazarArchivo(const std::filesystem::path& nuevo, const std::filesystem::path& destino);

}  // namespace qor
