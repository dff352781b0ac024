#pragma once

#include "base/messages.h"
#include "base/view.h"
#include "model/place.h"
#include "model/specification.h"

namespace qor {

// Blank rows with rows behind them count from `primera` on: from row 1 in the check of 373, from row 0 where a person closes them.

// The first row of each run of such rows, on the file side, then on the program side.
std::vector<Lugar> BuscarHuecos(const Especificacion& especificacion, int primera = 1);

// False when a table has such a gap, behind which rows would be lost: message 373.
bool TablasOK(const Especificacion& especificacion, const TextosIdioma& textos, Vista& vista);

// The rows of the file side without those in front of the last named one that have no name; their widths, notes and code go with
// them.
std::vector<FilaDeArchivo> ArchivoSinHuecos(const Especificacion& especificacion);

// The rows of the program side without the blank ones, among them rows with text only where it doesn't count.
std::vector<FilaDeTransaccion> SinFilasEnBlanco(const Especificacion& especificacion, int primera = 1);

}  // namespace qor
