#pragma once

#include "app/command.h"

namespace qor {

// convert and template: records as tables of spreadsheets, and back. They go into `data`, the group of the commands on input files.
void AgregarComandosDeConversion(Ordenes grupo);

}  // namespace qor
