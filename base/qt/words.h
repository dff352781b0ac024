#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "base/messages.h"
#include "base/phrase.h"
#include "base/words.h"

namespace qor {

// A word of the loaded language; its number is one of base/words.h.
QString Palabra(const TextosIdioma& textos, int numero);

// What the core says in English, in the loaded language: the word whose English text it is. A text that is no word stays.
QString EnIdioma(const TextosIdioma& textos, std::string_view ingles);

// A sentence in the loaded language.
std::string FraseEnIdioma(const TextosIdioma& textos, const Frase& frase);
QString FraseQt(const TextosIdioma& textos, const Frase& frase);

}  // namespace qor
