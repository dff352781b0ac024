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

// A sentence in the loaded language.
std::string FraseEnIdioma(const TextosIdioma& textos, const Frase& frase);
QString FraseQt(const TextosIdioma& textos, const Frase& frase);

}  // namespace qor
