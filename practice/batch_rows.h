#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "abap/values/internal_table.h"
#include "base/text.h"

namespace qor {

// A row of BDCDATA, without the blanks behind its texts. The texts lie in whatever the row was read from.
struct FilaDeBDC {
    std::string_view programa;
    std::string_view dynpro;
    bool abre = false;  // DYNBEGIN is "X": the row opens a screen
    std::string_view campo;
    std::string_view valor;
};

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
