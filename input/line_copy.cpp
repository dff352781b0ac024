#include "input/line_copy.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "base/failure.h"

namespace qor {

void CopiarLinea(const ArchivoAbierto& archivo, const LineaLeida& linea, ArchivoNuevo& salida) {
    if (linea.bytes.size() == linea.largo) {
        salida.Escribir(linea.bytes);
        return;
    }
    std::string trozo(std::size_t{1} << 16, '\0');
    for (std::uint64_t lugar = 0; lugar < linea.largo;) {
        const auto quedan = std::min<std::uint64_t>(trozo.size(), linea.largo - lugar);
        const auto leidos = archivo.LeerEn(trozo.data(), static_cast<std::size_t>(quedan), linea.lugar + lugar);
        if (leidos == 0) throw FalloDeArchivo(CausaDeFallo::Cambiado, archivo.Ruta());
        salida.Escribir(std::string_view(trozo).substr(0, leidos));
        lugar += leidos;
    }
}

}  // namespace qor
