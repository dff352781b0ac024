#include "app/private_directory.h"

#include <stdlib.h>

#include <string>
#include <system_error>

#include "base/failure.h"

namespace qor {

DirectorioPrivado::DirectorioPrivado() {
    std::error_code error;
    std::string nombre = (std::filesystem::temp_directory_path(error) / "qor-generator-XXXXXX").string();
    if (error || ::mkdtemp(nombre.data()) == nullptr) throw FalloDeEjecucion("no directory for temporary files can be made");
    ruta_ = nombre;
}

DirectorioPrivado::~DirectorioPrivado() {
    std::error_code ignorado;
    std::filesystem::remove_all(ruta_, ignorado);
}

}  // namespace qor
