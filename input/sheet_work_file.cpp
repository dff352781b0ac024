#include "input/sheet_work_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "base/failure.h"
#include "base/files.h"

namespace qor {

namespace {

constexpr std::size_t bloque = std::size_t{1} << 18;
constexpr std::size_t largoDePagina = std::size_t{1} << 12;
constexpr mode_t soloPropio = 0600;
constexpr int maximoIntentos = 1000;

// Where the file system has no files without a name, the file loses its name at once.
Descriptor AbrirConNombre(const std::filesystem::path& directorio) {
    for (int i = 0; i < maximoIntentos; ++i) {
        const auto nombre = directorio / ("qor-" + std::to_string(::getpid()) + "-" + std::to_string(i) + ".tmp");
        Descriptor descriptor(llamadas::Abrir(nombre.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, soloPropio));
        if (descriptor.Abierto()) {
            if (llamadas::Borrar(nombre.c_str()) != 0) throw FalloDeArchivo(errno, directorio);
            return descriptor;
        }
        if (errno != EEXIST && errno != ELOOP) break;
    }
    throw FalloDeArchivo(errno, directorio);
}

}  // namespace

ArchivoDeTrabajo::ArchivoDeTrabajo()
    : directorio_(std::filesystem::temp_directory_path()),
      descriptor_(llamadas::Abrir(directorio_.c_str(), O_TMPFILE | O_RDWR, soloPropio)) {
    if (!descriptor_.Abierto()) descriptor_ = AbrirConNombre(directorio_);
}

void ArchivoDeTrabajo::Agregar(std::string_view texto) {
    pendiente_.append(texto);
    if (pendiente_.size() >= bloque) Vaciar();
}

void ArchivoDeTrabajo::Vaciar() {
    EscribirEn(descriptor_.Valor(), pendiente_, directorio_);
    escritos_ += pendiente_.size();
    pendiente_.clear();
}

std::size_t ArchivoDeTrabajo::LeerEn(char* donde, std::size_t cuanto, std::uint64_t lugar) {
    if (!pendiente_.empty()) Vaciar();
    std::size_t leidos = 0;
    while (leidos < cuanto) {
        const auto n = llamadas::LeerEn(descriptor_.Valor(), donde + leidos, cuanto - leidos, static_cast<off_t>(lugar + leidos));
        if (n < 0) throw FalloDeArchivo(errno, directorio_);
        if (n == 0) break;
        leidos += static_cast<std::size_t>(n);
    }
    return leidos;
}

std::filesystem::path ArchivoDeTrabajo::Ruta() const { return "/proc/self/fd/" + std::to_string(descriptor_.Valor()); }

void PaginasDeTrabajo::Leer(std::uint64_t lugar, std::size_t largo, std::string& texto) {
    while (largo > 0) {
        const auto& bytes = Tomar(lugar / largoDePagina);
        const auto desde = static_cast<std::size_t>(lugar % largoDePagina);
        if (desde >= bytes.size()) return;
        const auto cuantos = std::min(largo, bytes.size() - desde);
        texto.append(bytes, desde, cuantos);
        lugar += cuantos;
        largo -= cuantos;
    }
}

const std::string& PaginasDeTrabajo::Tomar(std::uint64_t numero) {
    auto& pagina = paginas_[numero % paginas_.size()];
    if (pagina.numero != numero) {
        pagina.numero = UINT64_MAX;
        pagina.bytes.resize(largoDePagina);
        pagina.bytes.resize(archivo_.LeerEn(pagina.bytes.data(), largoDePagina, numero * largoDePagina));
        pagina.numero = numero;
    }
    return pagina.bytes;
}

}  // namespace qor
