#include "base/private_place.h"

#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

namespace qor {

namespace {

std::string Plantilla(const std::filesystem::path& padre, std::string_view comienzo) {
    return (padre / (std::string(comienzo) + "XXXXXX")).string();
}

}  // namespace

bool EsPrivado(const std::filesystem::path& directorio) {
    constexpr mode_t permisos = 07777;
    struct stat estado {};
    return directorio.is_absolute() && ::stat(directorio.c_str(), &estado) == 0 && S_ISDIR(estado.st_mode) &&
           estado.st_uid == ::geteuid() && (estado.st_mode & permisos) == S_IRWXU;
}

std::filesystem::path CrearDirectorioPrivado(const std::filesystem::path& padre, std::string_view comienzo) {
    std::string nombre = Plantilla(padre, comienzo);
    if (::mkdtemp(nombre.data()) == nullptr) return {};
    return nombre;
}

std::filesystem::path CrearArchivoPrivado(const std::filesystem::path& padre, std::string_view comienzo,
                                          std::string_view extension) {
    std::string nombre = Plantilla(padre, comienzo).append(extension);
    const int descriptor = ::mkstemps(nombre.data(), static_cast<int>(extension.size()));
    if (descriptor < 0) return {};
    ::close(descriptor);
    return nombre;
}

}  // namespace qor
