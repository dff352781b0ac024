#pragma once

#include "app/command.h"

namespace qor {

// run: runs the report of a document, or one that is there already, on a practice system.
void AgregarComandoRun(Ordenes ordenes);

}  // namespace qor
