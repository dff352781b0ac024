#pragma once

#include <string>

#include "generator/request.h"

namespace qor {

// What outlives a run: the last file written.
struct EstadoDelGenerador {
    std::string UltimoPrograma;
    bool ProgramaTemporal = false;  // that file is to be deleted later
};

// Checks the specification and writes its report, a text file in windows-1252 with CR LF. False when it was refused, stopped or
// failed; the view has shown why, and a file written so far stays.
bool Generar(const PedidoDeGeneracion& pedido, EstadoDelGenerador& estado);

// The same checks, up to the opening of the output file.
bool ChequearEspecificacion(const PedidoDeGeneracion& pedido);

}  // namespace qor
