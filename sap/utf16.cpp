#include "sap/utf16.h"

#include "base/code_page.h"

namespace qor {

namespace {

bool EsSustituto(char16_t c) { return c >= 0xD800 && c <= 0xDFFF; }

// A character of the first plane.
std::string EnUtf8(char16_t c) {
    if (c < 0x80) return {static_cast<char>(c)};
    if (c < 0x800) return {static_cast<char>(0xC0 | (c >> 6)), static_cast<char>(0x80 | (c & 0x3F))};
    return {static_cast<char>(0xE0 | (c >> 12)), static_cast<char>(0x80 | ((c >> 6) & 0x3F)), static_cast<char>(0x80 | (c & 0x3F))};
}

}  // namespace

std::u16string AUtf16(std::string_view texto) {
    // The code page's characters are all in the first plane, so none takes more than three bytes in UTF-8.
    const std::string utf8 = AUtf8(texto);
    std::u16string resultado;
    for (std::size_t i = 0; i < utf8.size();) {
        const auto byte = [&](std::size_t n) { return static_cast<unsigned char>(utf8[i + n]); };
        if (byte(0) < 0x80) {
            resultado += static_cast<char16_t>(byte(0));
            i += 1;
        } else if (byte(0) < 0xE0) {
            resultado += static_cast<char16_t>((byte(0) & 0x1F) << 6 | (byte(1) & 0x3F));
            i += 2;
        } else {
            resultado += static_cast<char16_t>((byte(0) & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F));
            i += 3;
        }
    }
    return resultado;
}

std::string DesdeUtf16(std::u16string_view texto) {
    std::string resultado;
    for (std::size_t i = 0; i < texto.size(); ++i) {
        if (EsSustituto(texto[i])) {
            resultado += '#';
            if (texto[i] < 0xDC00 && i + 1 < texto.size() && EsSustituto(texto[i + 1])) ++i;
            continue;
        }
        resultado += DesdeUtf8(EnUtf8(texto[i])).value_or("#");
    }
    return resultado;
}

}  // namespace qor
