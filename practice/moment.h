#pragma once

#include "abap/surroundings.h"

namespace qor {

// The present moment as reports have it.
abap::Momento MomentoActual();

// Who works on the practice system.
constexpr const char* usuarioDePractica = "PRACTICE";

}  // namespace qor
