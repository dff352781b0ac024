#include "abap/values/value_text.h"

#include <algorithm>
#include <cstring>

#include "abap/values/conversion.h"

namespace qor::abap {

std::string TextoConSigno(std::string_view cifras, bool negativo, std::size_t ancho) {
    std::string texto(cifras);
    if (negativo) {
        texto += '-';
    } else if (cifras.size() < ancho) {
        texto += ' ';
    }
    if (texto.size() <= ancho) return std::string(ancho - texto.size(), ' ') + texto;
    texto.erase(0, texto.size() - ancho);
    if (!texto.empty()) texto[0] = '*';
    return texto;
}

void PonerCifras(std::string_view cifras, bool negativo, const Campo& destino) {
    if (destino.tipo == Tipo::Cadena) {
        *destino.cadena = TextoConSigno(cifras, negativo, cifras.size() + 1);
    } else {
        const auto texto = TextoConSigno(cifras, negativo, destino.largo);
        std::memcpy(destino.datos, texto.data(), texto.size());
    }
}

std::string Hexadecimal(const Campo& campo) {
    constexpr std::string_view digitos = "0123456789ABCDEF";
    std::string texto;
    texto.reserve(2 * std::size_t(campo.largo));
    for (std::uint32_t i = 0; i < campo.largo; ++i) {
        texto += digitos[campo.datos[i] >> 4];
        texto += digitos[campo.datos[i] & 0x0F];
    }
    return texto;
}

void PonerHexadecimal(std::string_view texto, const Campo& destino) {
    std::string bytes(destino.largo, '\0');
    for (std::size_t i = 0; i < texto.size() && i / 2 < bytes.size(); ++i) {
        const char c = texto[i];
        int valor = 0;
        if (c >= '0' && c <= '9') {
            valor = c - '0';
        } else if (c >= 'A' && c <= 'F') {
            valor = c - 'A' + 10;
        } else {
            break;
        }
        const auto antes = static_cast<unsigned char>(bytes[i / 2]);
        bytes[i / 2] = static_cast<char>(i % 2 == 0 ? valor << 4 : antes | valor);
    }
    std::memcpy(destino.datos, bytes.data(), bytes.size());
}

}  // namespace qor::abap
