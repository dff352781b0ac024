#pragma once

#include "app/command.h"

namespace qor {

// check: the checks of a generation that wrote nothing; with --all the findings of any number of documents.
void AgregarComandoCheck(Ordenes ordenes);

}  // namespace qor
