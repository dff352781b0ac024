#pragma once

#include "app/command.h"

namespace qor {

// data: the group of commands on input files, with `check` and `split`. The answer is the group, for further commands of it.
Ordenes AgregarComandosDeEntrada(Ordenes ordenes);

}  // namespace qor
