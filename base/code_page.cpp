#include "base/code_page.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace qor {

namespace {

// Unicode values of the bytes 80 to 9F.
constexpr std::array<char32_t, 32> altos = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                            0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                            0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void AgregarUtf8(std::string& salida, char32_t c) {
    if (c < 0x80) {
        salida += static_cast<char>(c);
    } else if (c < 0x800) {
        salida += static_cast<char>(0xC0 | (c >> 6));
        salida += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        salida += static_cast<char>(0xE0 | (c >> 12));
        salida += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        salida += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// Reads one character at `i` and moves `i` behind it. Nothing for a malformed or overlong sequence.
std::optional<char32_t> LeerUtf8(std::string_view texto, std::size_t& i) {
    const auto primero = static_cast<unsigned char>(texto[i++]);
    if (primero < 0x80) return primero;
    int siguientes = 0;
    char32_t valor = 0;
    char32_t minimo = 0;
    if ((primero & 0xE0) == 0xC0) {
        siguientes = 1, valor = primero & 0x1F, minimo = 0x80;
    } else if ((primero & 0xF0) == 0xE0) {
        siguientes = 2, valor = primero & 0x0F, minimo = 0x800;
    } else {
        return std::nullopt;  // four bytes: no character of the code page lies there
    }
    for (; siguientes > 0; --siguientes) {
        if (i >= texto.size() || (static_cast<unsigned char>(texto[i]) & 0xC0) != 0x80) return std::nullopt;
        valor = (valor << 6) | (static_cast<unsigned char>(texto[i++]) & 0x3F);
    }
    if (valor < minimo) return std::nullopt;
    return valor;
}

}  // namespace

std::string AUtf8(std::string_view texto) {
    std::string salida;
    salida.reserve(texto.size());
    for (const char c : texto) {
        const auto byte = static_cast<unsigned char>(c);
        AgregarUtf8(salida, byte >= 0x80 && byte < 0xA0 ? altos[byte - 0x80] : byte);
    }
    return salida;
}

bool EsInvisible(char caracter) {
    const auto byte = static_cast<unsigned char>(caracter);
    return byte < 0x20 || byte == 0x7F || (byte >= 0x80 && byte < 0xA0 && altos[byte - 0x80] == byte);
}

namespace {

// The byte of a character, or nothing.
std::optional<char> ByteDe(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
    const auto* const lugar = std::find(altos.begin(), altos.end(), c);
    if (lugar == altos.end()) return std::nullopt;
    return static_cast<char>(0x80 + (lugar - altos.begin()));
}

}  // namespace

std::optional<std::string> DesdeUtf8(std::string_view texto) {
    std::string salida;
    salida.reserve(texto.size());
    for (std::size_t i = 0; i < texto.size();) {
        const auto c = LeerUtf8(texto, i);
        const auto byte = c ? ByteDe(*c) : std::nullopt;
        if (!byte) return std::nullopt;
        salida += *byte;
    }
    return salida;
}

std::string DesdeUtf8ConFaltas(std::string_view texto) {
    std::string salida;
    salida.reserve(texto.size());
    for (std::size_t i = 0; i < texto.size();) {
        const std::size_t inicio = i;
        const auto c = LeerUtf8(texto, i);
        salida += (c ? ByteDe(*c) : std::nullopt).value_or('?');
        if (c) continue;
        // Behind a malformed sequence reading goes on at the next byte that can start one.
        for (i = inicio + 1; i < texto.size() && (static_cast<unsigned char>(texto[i]) & 0xC0) == 0x80;) ++i;
    }
    return salida;
}

}  // namespace qor
