#include "app/data_directory.h"

#include <system_error>

#include "base/process.h"

// QOR_INSTALLED_DATA: the way from the directory of the installed program. A build tree has a link "data" to those of its sources.
namespace qor {

namespace fs = std::filesystem;

fs::path DirectorioDeDatos() { return DirectorioDeDatos(RutaDelPrograma()); }

fs::path DirectorioDeDatos(const fs::path& programa) {
    const fs::path directorio = programa.parent_path();
    const fs::path instalado = (directorio / QOR_INSTALLED_DATA).lexically_normal();
    std::error_code ignorado;
    for (const auto& ruta : {instalado, directorio / "data", directorio.parent_path() / "data"}) {
        if (!fs::is_regular_file(ruta / "language.txt", ignorado)) continue;
        const fs::path sinEnlaces = fs::canonical(ruta, ignorado);
        return ruta == instalado || sinEnlaces.empty() ? ruta : sinEnlaces;
    }
    return instalado;
}

}  // namespace qor
