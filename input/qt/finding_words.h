#pragma once

#include <QString>

#include "base/messages.h"
#include "input/data_finding.h"

namespace qor {

// What is wrong, in the loaded language. In English it is the finding's own text; other languages have one for each kind.
QString TextoDeHallazgo(const TextosIdioma& textos, const HallazgoDeDatos& hallazgo);

}  // namespace qor
