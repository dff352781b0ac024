#include "practice/role.h"

namespace qor {

namespace {

constexpr const char* ajuste = "role";
constexpr const char* dePruebas = "T";

}  // namespace

std::string RolDeSistema(BaseDePractica& base) { return base.Ajuste(ajuste, dePruebas); }

void PonerRolDeSistema(BaseDePractica& base, std::string_view rol) { base.PonerAjuste(ajuste, rol); }

}  // namespace qor
