#pragma once

#include "app/command.h"

namespace qor {

// system: looks into the practice system, and brings tables, sessions and recordings into it and out of it.
void AgregarComandoSystem(Ordenes ordenes);

}  // namespace qor
