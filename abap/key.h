#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

// Words of the language and names have no case, and comparing them is what a reader of reports does most. So each word is turned
// into a key once, 64 bits of its characters in upper case, and keys are compared.
namespace qor::abap {

using Clave = std::uint64_t;

constexpr std::array<unsigned char, 256> HacerMayusculas() {
    std::array<unsigned char, 256> tabla{};
    for (std::size_t c = 0; c < tabla.size(); ++c) {
        const bool minuscula = (c >= 'a' && c <= 'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7);
        tabla[c] = static_cast<unsigned char>(minuscula ? c - 0x20 : c);
    }
    return tabla;
}

inline constexpr std::array<unsigned char, 256> mayusculas = HacerMayusculas();
inline constexpr Clave claveVacia = 14695981039346656037U;

constexpr Clave Agregar(Clave clave, char caracter) {
    return (clave ^ mayusculas[static_cast<unsigned char>(caracter)]) * 1099511628211U;
}

constexpr Clave ClaveDe(std::string_view texto) {
    Clave clave = claveVacia;
    for (const char c : texto) clave = Agregar(clave, c);
    return clave;
}

consteval Clave operator""_c(const char* texto, std::size_t largo) { return ClaveDe({texto, largo}); }

}  // namespace qor::abap
