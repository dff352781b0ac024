#pragma once

#include <string>

#include "app/language.h"

namespace qor::pruebas {

// The texts of a language, from the language file of the tree.
inline TextosIdioma TextosDe(std::string idioma) {
    TextosIdioma textos;
    RecuperarIdioma(textos, QOR_TEST_SOURCE_DIR "/data/language.txt", idioma);
    return textos;
}

// Its words alone, for a table whose messages are made up.
inline void PonerPalabras(TextosIdioma& textos) {
    static const TextosIdioma ingles = TextosDe("English");
    textos.CompletarPalabras(ingles);
    textos.CompletarInglesas(ingles);
}

}  // namespace qor::pruebas
