#include "base/unnamed_file.h"

#include <io.h>
#include <windows.h>

#include <cerrno>

#include "base/failure.h"
#include "base/windows/errors.h"
#include "base/windows/handle.h"
#include "base/windows/random_name.h"

namespace qor {

namespace {

// The file goes with its last opening, also when the process is killed.
Descriptor AbrirPasajero(const std::filesystem::path& ruta, DWORD disposicion) {
    sistema::Mango mango(::CreateFileW(ruta.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, disposicion,
                                       FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    if (!mango.Abierto()) {
        sistema::FallarComoC();
        throw FalloDeArchivo(errno, ruta.parent_path());
    }
    Descriptor descriptor(::_open_osfhandle(reinterpret_cast<std::intptr_t>(mango.Valor()), 0));
    if (!descriptor.Abierto()) throw FalloDeArchivo(errno, ruta.parent_path());
    mango.Soltar();
    return descriptor;
}

}  // namespace

ArchivoSinNombre::ArchivoSinNombre(const std::filesystem::path& carpeta)
    : carpeta_(carpeta),
      ruta_(carpeta / (L"qor-" + sistema::NombreAlAzar() + L".tmp")),
      descriptor_(AbrirPasajero(ruta_, CREATE_NEW)) {}

ArchivoSinNombre::~ArchivoSinNombre() {
    if (!descriptor_.Abierto()) llamadas::Borrar(ruta_);
}

std::filesystem::path ArchivoSinNombre::Ruta() const { return ruta_; }

// A library opens the file for itself alone.
std::filesystem::path ArchivoSinNombre::Prestar() {
    descriptor_.Cerrar();
    return ruta_;
}

void ArchivoSinNombre::Retomar() { descriptor_ = AbrirPasajero(ruta_, OPEN_EXISTING); }

}  // namespace qor
