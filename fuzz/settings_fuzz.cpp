// Any bytes as a settings file: the settings read from it come back from the file that is saved, and a second save has nothing
// to do.

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "app/settings.h"
#include "base/files.h"
#include "base/text.h"
#include "fuzz/require.h"

namespace {

using namespace qor;

// A line that names a setting without a value stays in the file as a remark, and hides the value that a save puts behind it.
bool TieneClaveSinValor(std::string_view texto) {
    ArchivoINI ajustes;
    GuardarAjustes(ajustes, {});
    for (const auto linea : PartirEnLineas(texto)) {
        if (Contiene(linea, "=") || EstaEnBlanco(linea)) continue;
        if (Contiene("\r\n" + ajustes.TextoCambiado(""), "\r\n" + Mayusculas(Recortar(linea)) + "=")) return true;
    }
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    const std::string_view texto(reinterpret_cast<const char*>(datos), cantidad);
    ArchivoINI ini;
    ini.LeerTexto(texto);
    GuardarAjustes(ini, LeerAjustes(ini, "/data"));
    const std::string guardado = ini.TextoCambiado(texto);

    ArchivoINI otro;
    otro.LeerTexto(guardado);
    Exigir(otro.TextoCambiado(guardado) == guardado, "an unchanged file stays as it is");
    if (TieneClaveSinValor(texto)) return 0;
    GuardarAjustes(otro, LeerAjustes(otro, "/data"));
    Exigir(!otro.Modificado(), "settings that were saved are read back");
    return 0;
}
