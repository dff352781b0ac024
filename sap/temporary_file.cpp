#include "sap/temporary_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "base/clock.h"
#include "base/failure.h"
#include "base/paths.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr const char* extension = ".tmp";

// A directory of this user that no other may enter.
bool EsPrivado(const fs::path& directorio) {
    constexpr mode_t permisos = 07777;
    struct stat estado {};
    return directorio.is_absolute() && ::stat(directorio.c_str(), &estado) == 0 && S_ISDIR(estado.st_mode) &&
           estado.st_uid == ::geteuid() && (estado.st_mode & permisos) == S_IRWXU;
}

void ElegirDirectorio(SesionSAP& sesion) {
    const char* const deEjecucion = std::getenv("XDG_RUNTIME_DIR");
    if (deEjecucion != nullptr && EsPrivado(deEjecucion)) {
        sesion.DirectorioTemporal = deEjecucion;
        return;
    }
    std::string nombre = (fs::temp_directory_path() / "qor-generator-XXXXXX").string();
    if (::mkdtemp(nombre.data()) == nullptr) throw FalloDeEjecucion("no directory for temporary files can be made");
    sesion.DirectorioPropio = {nullptr, [nombre](void*) { ::rmdir(nombre.c_str()); }};
    sesion.DirectorioTemporal = nombre;
}

}  // namespace

fs::path CrearTemporal(SesionSAP& sesion) {
    try {
        if (sesion.DirectorioTemporal.empty()) ElegirDirectorio(sesion);
        std::string nombre = (sesion.DirectorioTemporal / (FechaParaNombre(HoraActual()) + "_XXXXXX" + extension)).string();
        const int descriptor = ::mkstemps(nombre.data(), static_cast<int>(std::string_view(extension).size()));
        if (descriptor < 0) return {};
        ::close(descriptor);
        return nombre;
    } catch (const FalloDeEjecucion&) {
        return {};
    } catch (const fs::filesystem_error&) {
        return {};
    }
}

void BorrarTemporal(const fs::path& ruta) {
    std::error_code ignorado;
    fs::remove(ruta, ignorado);
}

}  // namespace qor
