#pragma once

#include <string>
#include <string_view>

#include "base/text.h"

// Services on single lines and names of the report.
namespace qor {

constexpr std::size_t columnasABAP = 71;

// Appends the line to `salida`, folded at blanks outside quotes so that every piece keeps within 71 columns; the last piece is
// padded on the left to end in column 71. A literal is never broken, and a comment line is never folded. Lines end with CR LF.
// Answers their number.
int ImprimirLineasCortas(std::string_view linea, std::string& salida);

// A name of at most `n` characters: vowels are dropped from the left, then the end is cut.
std::string CompactarTexto(std::string_view texto, int n);

}  // namespace qor
