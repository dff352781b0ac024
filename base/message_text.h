#pragma once

#include <string>

#include "base/messages.h"
#include "base/phrase.h"

namespace qor {

// What a screen shows of a message, in the loaded language also where the command line says it in English. Where an operation on a
// file failed, it says what failed, why, and the file's whole name: the numbered texts guess at all that may be the reason, since
// the command line has it on a line of its own.
struct TextoEnPantalla {
    std::string texto;    // windows-1252
    std::string detalle;  // UTF-8; empty for most messages
};

// A sentence of the core in the loaded language. `primeraFila`: how the first row counts.
std::string EnIdioma(const Frase& frase, const TextosIdioma& textos, int primeraFila = 0);

TextoEnPantalla EnPantalla(const Mensaje& mensaje, const TextosIdioma& textos);
// A failure in one line: why, and the file's whole name; UTF-8.
std::string EnPantalla(const FalloDeMensaje& fallo, const TextosIdioma& textos);

}  // namespace qor
