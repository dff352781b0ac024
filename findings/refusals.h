#pragma once

#include <vector>

#include "findings/rules.h"

// What Generate says on its way, as findings.
namespace qor {

// Adds one for each observation. Those that have no code of their own are told as what the report's form does not hold.
void HallazgosDeObservaciones(const Generacion& g, const std::vector<Observacion>& observaciones, std::vector<Hallazgo>& lista);

// Control characters and blank rows.
void HallazgosDeForma(const Generacion& g, std::vector<Hallazgo>& lista);

// The rows of the program side with a mark that can't be read, whether or not a report of this specification asks for it.
std::vector<int> FilasConMarcasIlegibles(const Especificacion& especificacion);

}  // namespace qor
