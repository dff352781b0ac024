#pragma once

#include <optional>
#include <string>

#include "generator/output.h"

namespace qor {

// Checks the specification and writes its report, a text file in windows-1252 with CR LF. False when it was refused, stopped or
// failed; the view has shown why, and a file written so far stays.
bool Generar(const PedidoDeGeneracion& pedido, EstadoDelGenerador& estado);

// The same checks, up to the opening of the output file.
bool ChequearEspecificacion(const PedidoDeGeneracion& pedido);

// The report itself, by the same checks but those of an output file, and without one. Nothing when it was refused, stopped or
// failed; the view has shown why.
std::optional<std::string> ComponerReporte(const PedidoDeGeneracion& pedido);

}  // namespace qor
