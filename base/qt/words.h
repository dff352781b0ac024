#pragma once

#include <QString>
#include <span>
#include <string_view>

#include "base/messages.h"

// Words of the forms that have no number in the language table: literals in English, each with its Spanish twin in one table.
namespace qor {

// The word in the loaded language. English stands for every language but Spanish, and for a word without a twin.
QString Palabra(const TextosIdioma& textos, std::string_view ingles);

struct ParDePalabras {
    std::string_view ingles;
    std::string_view espanol;  // UTF-8
};

std::span<const ParDePalabras> TodasLasPalabras();

}  // namespace qor
