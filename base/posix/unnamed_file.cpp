#include "base/unnamed_file.h"

#include <cerrno>
#include <string>

#include "base/failure.h"
#include "base/process.h"
#include "base/system_calls.h"

namespace qor {

namespace {

constexpr unsigned soloPropio = 0600;
constexpr int maximoIntentos = 1000;

// Where the file system has no files without a name, the file loses its name at once.
Descriptor AbrirConNombre(const std::filesystem::path& carpeta) {
    constexpr unsigned modo = modos::leerYEscribir | modos::crear | modos::soloNuevo | modos::sinEnlaces;
    for (int i = 0; i < maximoIntentos; ++i) {
        const auto nombre = carpeta / ("qor-" + std::to_string(NumeroDeProceso()) + "-" + std::to_string(i) + ".tmp");
        Descriptor descriptor(llamadas::Abrir(nombre, modo, soloPropio));
        if (descriptor.Abierto()) {
            if (llamadas::Borrar(nombre) != 0) throw FalloDeArchivo(errno, carpeta);
            return descriptor;
        }
        if (errno != EEXIST && errno != ELOOP) break;
    }
    throw FalloDeArchivo(errno, carpeta);
}

}  // namespace

ArchivoSinNombre::ArchivoSinNombre(const std::filesystem::path& carpeta)
    : carpeta_(carpeta), descriptor_(llamadas::Abrir(carpeta, modos::sinNombre | modos::leerYEscribir, soloPropio)) {
    if (!descriptor_.Abierto()) descriptor_ = AbrirConNombre(carpeta);
}

ArchivoSinNombre::~ArchivoSinNombre() = default;

std::filesystem::path ArchivoSinNombre::Ruta() const { return sistema::RutaDeAbierto(Numero()); }

std::filesystem::path ArchivoSinNombre::Prestar() { return Ruta(); }

void ArchivoSinNombre::Retomar() {}

}  // namespace qor
