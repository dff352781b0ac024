#include "base/library.h"

#include <dlfcn.h>

namespace qor {

std::string NombreDeBiblioteca(std::string_view nombre) { return "lib" + std::string(nombre) + ".so"; }

std::shared_ptr<void> CargarBiblioteca(const std::filesystem::path& ruta, std::string_view companera, std::string& motivo) {
    if (ruta.has_parent_path()) {
        ::dlopen((ruta.parent_path() / NombreDeBiblioteca(companera)).c_str(), RTLD_NOW | RTLD_GLOBAL);
    }
    void* const modulo = ::dlopen(ruta.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (modulo != nullptr) return {modulo, [](void* abierto) { ::dlclose(abierto); }};
    const char* const error = ::dlerror();
    motivo = error == nullptr ? "unknown error" : error;
    return nullptr;
}

void* BuscarEnBiblioteca(void* biblioteca, const char* nombre) { return ::dlsym(biblioteca, nombre); }

}  // namespace qor
