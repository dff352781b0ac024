#pragma once

#include <span>
#include <string_view>

#include "base/failure.h"
#include "base/phrase.h"

namespace qor {

// What the core gives as reasons, in English. The words of the language file for them are palabra::DeMotivo(0) and so on.
std::span<const char* const> MotivosConocidos();

// The reason that a failure gives, `what()`, as a sentence that a screen can say in another language. What the system says, or a
// library, stays as it is. Names in it keep the bytes that they have.
Frase FraseDeMotivo(std::string_view motivo);

// The same of a whole failure, with the file behind its reason; in windows-1252.
Frase FraseDeFallo(const FalloDeEjecucion& fallo);

}  // namespace qor
