#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "generator/request.h"
#include "print/device.h"

namespace qor {

// Chooses the device once the checks have passed; null when the user cancels.
using EleccionDeDispositivo = std::function<Dispositivo*()>;

// The open specification as a document for its reviewers: header data, the layouts of the records, the rows of the program side and
// the notes. False when it was refused (its check has told why) or cancelled, or its file can't be written (the view has told).
bool PrintOption(const PedidoDeGeneracion& pedido, const EleccionDeDispositivo& elegir);

// The documentation of one BAPI, without marks.
void ImprimirBAPI(Dispositivo& d, const TextosIdioma& textos, Vista& vista, std::string_view nombre,
                  std::string_view documentacion);

}  // namespace qor
