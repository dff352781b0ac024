#pragma once

#include "abap/check/check.h"
#include "findings/rules.h"

// What a compiler would say to the report, as findings of the specification that it was made from.
namespace qor {

// Adds one for each fault, and a warning for each line that is longer than what publishing takes. What follows from a finding that
// is in the list already is left out: a row that is known to be wrong makes lines that are wrong.
void HallazgosDelReporteSinRepetir(const Generacion& g, std::vector<Hallazgo>& lista);

}  // namespace qor
