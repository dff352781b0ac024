#pragma once

#include "abap/values/number.h"

namespace qor::abap {

// The digits of a packed field, with its sign. Throws BCD_BADDATA for bytes that are none.
Entero128 LeerEmpaquetado(const std::uint8_t* datos, std::uint32_t largo);

// Throws COMPUTE_BCD_OVERFLOW where they don't fit.
void PonerEmpaquetado(Entero128 digitos, std::uint8_t* datos, std::uint32_t largo);

}  // namespace qor::abap
