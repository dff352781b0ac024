#pragma once

#include "base/messages.h"
#include "base/view.h"
#include "model/specification.h"

namespace qor {

// False when a table has a gap, behind which rows would be lost: message 373. A blank row 0 is none.
bool TablasOK(const Especificacion& especificacion, const TextosIdioma& textos, Vista& vista);

// The rows of the program side without the blank ones behind row 0, among them rows with text only where it doesn't count.
std::vector<FilaDeTransaccion> SinFilasEnBlanco(const Especificacion& especificacion);

}  // namespace qor
