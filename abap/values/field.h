#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// What a running report works on: fields of a type, which are bytes somewhere. One character is one byte of windows-1252.
namespace qor::abap {

enum class Tipo : std::uint8_t {
    C,          // characters, padded with blanks
    N,          // digits
    D,          // YYYYMMDD
    T,          // HHMMSS
    I,          // four bytes, as the machine has them
    P,          // packed: two digits a byte, the last half byte is the sign (C or D)
    F,          // eight bytes, a double
    X,          // bytes
    Cadena,     // STRING: a std::string elsewhere
    Estructura  // its components one behind the other; moved and compared as characters
};

// A view of a field's bytes; whoever made it keeps them.
struct Campo {
    union {
        std::uint8_t* datos = nullptr;
        std::string* cadena;  // of Tipo::Cadena, and of no other
    };
    std::uint32_t largo = 0;  // in bytes; nothing for Tipo::Cadena
    Tipo tipo = Tipo::C;
    std::uint8_t decimales = 0;  // of Tipo::P
    bool soloLectura = false;    // a literal or a constant

    // The bytes of all types that are characters: C, N, D, T, Estructura, and Cadena.
    std::string_view Texto() const {
        return tipo == Tipo::Cadena ? std::string_view(*cadena) : std::string_view(reinterpret_cast<const char*>(datos), largo);
    }
};

// A field that reads a text which lives elsewhere, as C.
inline Campo CampoDe(std::string_view texto) {
    Campo campo;
    campo.datos = reinterpret_cast<std::uint8_t*>(const_cast<char*>(texto.data()));
    campo.largo = static_cast<std::uint32_t>(texto.size());
    campo.soloLectura = true;
    return campo;
}

}  // namespace qor::abap
