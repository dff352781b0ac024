#pragma once

#include <optional>
#include <string>
#include <vector>

#include "generator/generation.h"
#include "generator/output.h"

namespace qor {

// A report, and where each of its lines comes from.
struct ReporteGenerado {
    std::string texto;  // windows-1252, CR LF
    std::vector<TramoDeOrigen> origenes;
};

// Checks the specification and writes its report, a text file. Nothing when it was refused, stopped or failed; the view has shown
// why, and a file written so far stays.
std::optional<ReporteGenerado> Generar(const PedidoDeGeneracion& pedido, EstadoDelGenerador& estado);

// The same checks, up to the opening of the output file.
bool ChequearEspecificacion(const PedidoDeGeneracion& pedido);

// The report itself, by the same checks but those of an output file, and without one. Nothing when it was refused, stopped or
// failed; the view has shown why.
std::optional<ReporteGenerado> ComponerReporte(const PedidoDeGeneracion& pedido);

// For a listener that lets a run go on: tells it all that the checks and the sections have to say, and composes the report as far
// as it goes. Control characters, blank rows and the output file are not asked about. Throws FalloDeEjecucion where the marks of a
// step-loop can't be read, before anything is told.
void ComponerTodo(Generacion& g);

}  // namespace qor
