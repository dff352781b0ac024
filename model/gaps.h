#pragma once

#include "base/messages.h"
#include "base/view.h"
#include "model/place.h"
#include "model/specification.h"

namespace qor {

// The first row of each run of blank rows that has rows behind it, on the file side, then on the program side. A blank row 0 is
// none.
std::vector<Lugar> BuscarHuecos(const Especificacion& especificacion);

// False when a table has such a gap, behind which rows would be lost: message 373.
bool TablasOK(const Especificacion& especificacion, const TextosIdioma& textos, Vista& vista);

// The rows of the file side without those in front of the last named one that have no name; their widths, notes and code go with
// them.
std::vector<FilaDeArchivo> ArchivoSinHuecos(const Especificacion& especificacion);

// The rows of the program side without the blank ones behind row 0, among them rows with text only where it doesn't count.
std::vector<FilaDeTransaccion> SinFilasEnBlanco(const Especificacion& especificacion);

}  // namespace qor
