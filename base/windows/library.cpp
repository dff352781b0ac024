#include "base/library.h"

#include <windows.h>

#include <cstdio>

namespace qor {

std::string NombreDeBiblioteca(std::string_view nombre) { return std::string(nombre) + ".dll"; }

std::shared_ptr<void> CargarBiblioteca(const std::filesystem::path& ruta, std::string_view /*companera*/, std::string& motivo) {
    // What it needs is looked for beside it.
    const DWORD marcas = ruta.is_absolute() ? LOAD_WITH_ALTERED_SEARCH_PATH : 0;
    auto deSistema = ruta;
    const HMODULE modulo = ::LoadLibraryExW(deSistema.make_preferred().c_str(), nullptr, marcas);
    if (modulo != nullptr) return {modulo, [](void*) {}};
    char texto[256];
    std::snprintf(texto, sizeof texto, "%s: error %lu of Windows", ruta.string().c_str(), ::GetLastError());
    motivo = texto;
    return nullptr;
}

void* BuscarEnBiblioteca(void* biblioteca, const char* nombre) {
    return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(biblioteca), nombre));
}

}  // namespace qor
