#pragma once

#include <string>
#include <string_view>

#include "model/operations.h"

namespace qor {

struct TextoConvertido {
    std::string texto;
    bool CampoDeStep = false;  // the line refers to a field of a step-loop record
};

// The line with each "#" turned into the prefix of the main record's table. A name behind it ends at a blank, CR, or one of
// + ( < [ . , and at nothing else.
TextoConvertido ConvertirTexto(std::string_view linea, const Operaciones& operaciones, const std::string& GTprefijo);

// The text between the first two apostrophes of a line; nothing when the line holds fewer than two or more than four.
struct PrimerTexto {
    std::string texto;
    bool malEscrita = false;  // message 372 is due
};
PrimerTexto ExtraerPrimero(std::string_view linea);

// The text between the third and the fourth apostrophe. Throws FalloDeEjecucion when there are fewer.
std::string ExtraerSegundo(std::string_view linea);

}  // namespace qor
