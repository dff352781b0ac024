#include "base/files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "base/failure.h"

namespace qor {

namespace {

[[noreturn]] void Fallar(const std::string& accion) { throw FalloDeEjecucion(accion + ": " + std::strerror(errno)); }

// O_NONBLOCK keeps a pipe's name from blocking the opener; it means nothing for a regular file.
int AbrirRegular(const std::filesystem::path& ruta, int modo) {
    const int descriptor = ::open(ruta.c_str(), modo | O_CLOEXEC | O_NONBLOCK, 0666);
    if (descriptor < 0) Fallar("the file can't be opened");
    struct stat datos {};
    if (::fstat(descriptor, &datos) != 0 || !S_ISREG(datos.st_mode)) {
        ::close(descriptor);
        throw FalloDeEjecucion("not a regular file");
    }
    return descriptor;
}

std::string LeerDescriptor(int descriptor) {
    if (::lseek(descriptor, 0, SEEK_SET) < 0) Fallar("the file can't be read");
    std::string texto;
    struct stat datos {};
    if (::fstat(descriptor, &datos) == 0 && datos.st_size > 0) texto.reserve(static_cast<std::size_t>(datos.st_size));
    char bloque[65536];
    for (;;) {
        const auto leidos = ::read(descriptor, bloque, sizeof bloque);
        if (leidos < 0 && errno == EINTR) continue;
        if (leidos < 0) Fallar("the file can't be read");
        if (leidos == 0) return texto;
        texto.append(bloque, static_cast<std::size_t>(leidos));
    }
}

void EscribirEnDescriptor(int descriptor, std::string_view texto) {
    while (!texto.empty()) {
        const auto escritos = ::write(descriptor, texto.data(), texto.size());
        if (escritos < 0 && errno == EINTR) continue;
        if (escritos < 0) Fallar("the file can't be written");
        texto.remove_prefix(static_cast<std::size_t>(escritos));
    }
}

}  // namespace

std::string LeerArchivo(const std::filesystem::path& ruta) {
    const int descriptor = AbrirRegular(ruta, O_RDONLY);
    try {
        std::string texto = LeerDescriptor(descriptor);
        ::close(descriptor);
        return texto;
    } catch (...) {
        ::close(descriptor);
        throw;
    }
}

std::vector<std::string_view> PartirEnLineas(std::string_view texto) {
    std::vector<std::string_view> lineas;
    while (!texto.empty()) {
        const auto fin = texto.find_first_of("\r\n");
        lineas.push_back(texto.substr(0, fin));
        if (fin == std::string_view::npos) break;
        const bool doble = texto[fin] == '\r' && fin + 1 < texto.size() && texto[fin + 1] == '\n';
        texto.remove_prefix(fin + (doble ? 2 : 1));
    }
    return lineas;
}

ArchivoBloqueado::ArchivoBloqueado(ArchivoBloqueado&& otro) noexcept : descriptor_(std::exchange(otro.descriptor_, -1)) {}

ArchivoBloqueado& ArchivoBloqueado::operator=(ArchivoBloqueado&& otro) noexcept {
    if (this != &otro) {
        Cerrar();
        descriptor_ = std::exchange(otro.descriptor_, -1);
    }
    return *this;
}

ArchivoBloqueado::~ArchivoBloqueado() { Cerrar(); }

ArchivoBloqueado ArchivoBloqueado::Abrir(const std::filesystem::path& ruta) {
    ArchivoBloqueado archivo(AbrirRegular(ruta, O_RDONLY));
    if (::flock(archivo.descriptor_, LOCK_EX | LOCK_NB) != 0) Fallar("the file is in use");
    return archivo;
}

ArchivoBloqueado ArchivoBloqueado::Crear(const std::filesystem::path& ruta) {
    // Emptied only under the lock: a file that another holds is not touched.
    ArchivoBloqueado archivo(AbrirRegular(ruta, O_RDWR | O_CREAT));
    if (::flock(archivo.descriptor_, LOCK_EX | LOCK_NB) != 0) Fallar("the file is in use");
    if (::ftruncate(archivo.descriptor_, 0) != 0) Fallar("the file can't be emptied");
    return archivo;
}

void ArchivoBloqueado::Cerrar() {
    if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
}

std::string ArchivoBloqueado::LeerTodo() const { return LeerDescriptor(descriptor_); }

void ArchivoBloqueado::EscribirTodo(std::string_view texto) {
    EscribirEnDescriptor(descriptor_, texto);
    if (::fsync(descriptor_) != 0) Fallar("the file can't be flushed to the disk");
}

ArchivoDeSalida::ArchivoDeSalida(const std::filesystem::path& ruta)
    : descriptor_(::open(ruta.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666)) {
    if (descriptor_ < 0) Fallar("the file can't be opened");
    struct stat datos {};
    const bool regular = ::fstat(descriptor_, &datos) == 0 && S_ISREG(datos.st_mode);
    if (!regular) return;
    if (::flock(descriptor_, LOCK_EX | LOCK_NB) == 0 && ::ftruncate(descriptor_, 0) == 0) return;
    const int error = errno;
    ::close(descriptor_);
    errno = error;
    Fallar("the file is in use");
}

ArchivoDeSalida::~ArchivoDeSalida() { ::close(descriptor_); }

void ArchivoDeSalida::Escribir(std::string_view texto) { EscribirEnDescriptor(descriptor_, texto); }

void ArchivoDeSalida::LlevarAlDisco() {
    if (::fsync(descriptor_) != 0) Fallar("the file can't be flushed to the disk");
}

void ReemplazarArchivo(const std::filesystem::path& nuevo, const std::filesystem::path& destino) {
    if (::rename(nuevo.c_str(), destino.c_str()) != 0) Fallar("the file can't be renamed");
    const auto directorio = destino.has_parent_path() ? destino.parent_path() : std::filesystem::path(".");
    const int descriptor = ::open(directorio.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;  // the file is in its place; a directory that can't be opened can't be flushed
    ::fsync(descriptor);
    ::close(descriptor);
}

}  // namespace qor
