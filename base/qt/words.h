#pragma once

#include <QString>
#include <span>
#include <string_view>

#include "base/messages.h"
#include "base/words.h"

namespace qor {

// A word of the loaded language; its number is one of base/words.h.
QString Palabra(const TextosIdioma& textos, int numero);

// The word in the loaded language. English stands for every language but Spanish, and for a word without a twin.
QString Palabra(const TextosIdioma& textos, std::string_view ingles);

struct ParDePalabras {
    std::string_view ingles;
    std::string_view espanol;  // UTF-8
};

std::span<const ParDePalabras> TodasLasPalabras();

}  // namespace qor
