#include "base/qt/words.h"

#include "base/message_text.h"
#include "base/qt/text.h"

namespace qor {

QString Palabra(const TextosIdioma& textos, int numero) { return TextoQt(textos.Palabra(numero)); }

std::string FraseEnIdioma(const TextosIdioma& textos, const Frase& frase) { return EnIdioma(frase, textos, 1); }

QString FraseQt(const TextosIdioma& textos, const Frase& frase) { return TextoQt(FraseEnIdioma(textos, frase)); }

}  // namespace qor
