#include "app/data_directory.h"

#include <system_error>

#include "base/process.h"

// QOR_INSTALLED_DATA: from the directory of the installed program. QOR_TREE_DATA: of the source tree, absolute.
namespace qor {

namespace fs = std::filesystem;

fs::path DirectorioDeDatos() { return DirectorioDeDatos(RutaDelPrograma()); }

fs::path DirectorioDeDatos(const fs::path& programa) {
    const auto instalado = (programa.parent_path() / QOR_INSTALLED_DATA).lexically_normal();
    std::error_code ignorado;
    return fs::is_regular_file(instalado / "language.txt", ignorado) ? instalado : fs::path(QOR_TREE_DATA);
}

}  // namespace qor
