#pragma once

#include <QString>
#include <span>
#include <string>
#include <string_view>

#include "base/messages.h"
#include "base/phrase.h"

// Words of the forms that have no number in the language table: literals in English, each with its Spanish twin in one table.
namespace qor {

// The word in the loaded language. English stands for every language but Spanish, and for a word without a twin.
QString Palabra(const TextosIdioma& textos, std::string_view ingles);

// A sentence in the loaded language.
std::string FraseEnIdioma(const TextosIdioma& textos, const Frase& frase);
QString FraseQt(const TextosIdioma& textos, const Frase& frase);

struct ParDePalabras {
    std::string_view ingles;
    std::string_view espanol;  // UTF-8
};

std::span<const ParDePalabras> TodasLasPalabras();

}  // namespace qor
