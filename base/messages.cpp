#include "base/messages.h"

#include <filesystem>
#include <utility>

#include "base/failure.h"

namespace qor {

const std::string& TextosIdioma::Texto(int numero) const {
    static const std::string vacio;
    return numero >= 0 && numero <= ultimo ? textos_[static_cast<std::size_t>(numero)] : vacio;
}

void TextosIdioma::Poner(int numero, std::string_view texto) { textos_.at(static_cast<std::size_t>(numero)) = texto; }

void TextosIdioma::Vaciar() { textos_.fill({}); }

Mensaje Componer(const TextosIdioma& textos, std::initializer_list<Pieza> piezas) {
    Mensaje mensaje;
    for (const auto& pieza : piezas) {
        if (const int* numero = std::get_if<int>(&pieza)) {
            mensaje.numeros.push_back(*numero);
            mensaje.texto += textos.Texto(*numero);
        } else {
            mensaje.texto += std::get<std::string_view>(pieza);
        }
    }
    return mensaje;
}

Mensaje MensajeLiteral(std::string_view texto) { return {{}, std::string(texto)}; }

Mensaje ConDetalle(Mensaje mensaje, const std::exception& fallo) {
    if (const auto* const deArchivo = dynamic_cast<const FalloDeArchivo*>(&fallo)) {
        mensaje.detalle = deArchivo->Detalle();
    } else if (const auto* const delSistema = dynamic_cast<const std::filesystem::filesystem_error*>(&fallo)) {
        mensaje.detalle = delSistema->code().message() + ": " + delSistema->path1().string();
    }
    return mensaje;
}

}  // namespace qor
