#pragma once

#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

#include "abap/values/internal_table.h"

namespace qor {

// A row of BDCDATA, without the blanks behind its texts. The texts lie in whatever the row was read from.
struct FilaDeBDC {
    std::string_view programa;
    std::string_view dynpro;
    bool abre = false;  // DYNBEGIN is "X": the row opens a screen
    std::string_view campo;
    std::string_view valor;
};

// The text without the blanks behind it. Fields of screens are mostly blanks, so they are passed over many at a time.
inline std::string_view SinBlancosDetras(std::string_view texto) {
    constexpr std::uint64_t ochoBlancos = 0x2020202020202020;
    const auto ocho = [&texto](std::size_t lugar) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, texto.data() + lugar, sizeof bytes);
        return bytes ^ ochoBlancos;
    };
    std::size_t largo = texto.size();
    while (largo >= 32 && (ocho(largo - 8) | ocho(largo - 16) | ocho(largo - 24) | ocho(largo - 32)) == 0) largo -= 32;
    while (largo >= 8 && ocho(largo - 8) == 0) largo -= 8;
    while (largo > 0 && texto[largo - 1] == ' ') --largo;
    return texto.substr(0, largo);
}

// Reads the rows of an internal table that has the components of BDCDATA, by their names; a line that has none of these names is
// read by the places that they have in BDCDATA.
class LectorDeFilas {
public:
    // The rows live until the next call, and their texts as long as the table.
    std::span<const FilaDeBDC> Leer(const abap::TablaInterna& tabla);

private:
    struct Tramo {
        std::uint32_t lugar = 0;
        std::uint32_t largo = 0;
    };

    void Situar(const abap::TipoDeCampo& linea);

    const abap::Estructura* estructura_ = nullptr;
    std::uint32_t largo_ = 0;
    Tramo programa_, dynpro_, abre_, campo_, valor_;
    std::vector<FilaDeBDC> filas_;
};

}  // namespace qor
