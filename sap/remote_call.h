#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "sap/session.h"

namespace qor {

// One remote call, of the pattern that all of them follow.
struct LlamadaRFC {
    std::string modulo;
    std::pair<std::string, std::string> exporta;  // name and value of the scalar parameter
    struct Entrada {
        std::string tabla;
        const std::vector<std::string>& filas;
    };
    std::optional<Entrada> entrada;
    std::string salida;  // table that carries the output
    int columna = 1;     // the column of it that is wanted
};

// The rows of the output's column; nothing when the session is not usable or the call fails, and `Motivo` tells why.
std::optional<std::vector<std::string>> Llamar(SesionSAP& sesion, const LlamadaRFC& llamada);

}  // namespace qor
