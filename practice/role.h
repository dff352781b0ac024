#pragma once

#include <string>
#include <string_view>

#include "practice/database.h"

namespace qor {

// The role of the system's client, as T000 has it: P production, T test, C customizing, D demonstration, E training, S reference,
// or nothing. A new system's is T. Setting it is part of the unit of work.
constexpr std::string_view rolesDeSistema = "PTCDES";
std::string RolDeSistema(BaseDePractica& base);
void PonerRolDeSistema(BaseDePractica& base, std::string_view rol);

}  // namespace qor
