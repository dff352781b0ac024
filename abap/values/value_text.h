#pragma once

#include <string>
#include <string_view>

#include "abap/values/field.h"

namespace qor::abap {

// Digits, right-justified with the sign behind them, into a field of characters or a STRING. The place of a positive sign goes
// first where room is short; what does not fit even then is "*" in front of the last digits.
std::string TextoConSigno(std::string_view cifras, bool negativo, std::size_t ancho);
void PonerCifras(std::string_view cifras, bool negativo, const Campo& destino);

// Two hexadecimal digits for each byte.
std::string Hexadecimal(const Campo& campo);

// The bytes that hexadecimal digits spell, from the left up to the first character that is none; zeros behind them.
void PonerHexadecimal(std::string_view texto, const Campo& destino);

}  // namespace qor::abap
