#pragma once

#include <string>

#include "abap/surroundings.h"

namespace qor {

// Digits and nothing else: to the length of the field with zeros in front, and back without them. All else is moved as it stands,
// without the blanks around it.
std::string PonerCerosDelante(std::string_view valor, std::size_t largo);
std::string QuitarCerosDelante(std::string_view valor);

std::string LlamarCONVERSION_EXIT_ALPHA_INPUT(const abap::LlamadaAFuncion& llamada);
std::string LlamarCONVERSION_EXIT_ALPHA_OUTPUT(const abap::LlamadaAFuncion& llamada);

}  // namespace qor
