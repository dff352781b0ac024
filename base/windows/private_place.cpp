#include "base/private_place.h"

#include <windows.h>

#include "base/windows/handle.h"
#include "base/windows/random_name.h"

// The directory for temporary files is the user's own on Windows, and what is made in it has its rights.
namespace qor {

bool EsPrivado(const std::filesystem::path& /*directorio*/) { return false; }

std::filesystem::path CrearDirectorioPrivado(const std::filesystem::path& padre, std::string_view comienzo) {
    auto ruta = padre / (std::filesystem::path(comienzo).wstring() + sistema::NombreAlAzar());
    return ::CreateDirectoryW(ruta.c_str(), nullptr) ? ruta : std::filesystem::path();
}

std::filesystem::path CrearArchivoPrivado(const std::filesystem::path& padre, std::string_view comienzo,
                                          std::string_view extension) {
    auto ruta =
        padre / (std::filesystem::path(comienzo).wstring() + sistema::NombreAlAzar() + std::filesystem::path(extension).wstring());
    const sistema::Mango mango(
        ::CreateFileW(ruta.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_TEMPORARY, nullptr));
    return mango.Abierto() ? ruta : std::filesystem::path();
}

}  // namespace qor
