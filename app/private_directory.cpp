#include "app/private_directory.h"

#include <system_error>

#include "base/failure.h"
#include "base/private_place.h"

namespace qor {

DirectorioPrivado::DirectorioPrivado() {
    std::error_code error;
    const auto padre = std::filesystem::temp_directory_path(error);
    if (!error) ruta_ = CrearDirectorioPrivado(padre, "qor-generator-");
    if (ruta_.empty()) throw FalloDeEjecucion("no directory for temporary files can be made");
}

DirectorioPrivado::~DirectorioPrivado() {
    std::error_code ignorado;
    std::filesystem::remove_all(ruta_, ignorado);
}

}  // namespace qor
