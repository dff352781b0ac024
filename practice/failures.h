#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "base/phrase.h"
#include "practice/events.h"

namespace qor {

// A failure of a record, at the moment of it. What it refers to lives as long as the call that tells it.
struct FalloDeRegistro {
    std::size_t registro = 0;  // 0 outside of the main loop
    std::string_view que;      // the transaction or the function module
    bool esBapi = false;
    const MensajeDicho& mensaje;
    LugarDeFallo lugar;
};

// "MM01, SAPLMGMM 0070, MARA-MTART: 00 058 Entry ROHX does not exist"
Frase MotivoDeFallo(const FalloDeRegistro& fallo);
// The same of a record: "record 3, MM01, ..."
Frase LineaDeFallo(std::size_t registro, Frase motivo);

// The records that are to fail, by their numbers.
using FallosPorRegistro = std::map<std::size_t, FalloPedido>;

// Reads "N", "N=TEXT" or "N=A:TEXT" into the list; a later one of the same number counts. False for what is none of these.
bool LeerFalloPedido(std::string_view texto, FallosPorRegistro& fallos);

// The passes of the main loop that are worked on.
struct TramoDeRegistros {
    std::size_t desde = 1;
    std::size_t hasta = static_cast<std::size_t>(-1);

    bool Todos() const { return desde <= 1 && hasta == static_cast<std::size_t>(-1); }
    bool Tiene(std::size_t registro) const { return registro >= desde && registro <= hasta; }
};

// Reads "A-B". False for what is no number from 1 on, or where A is above B.
bool LeerTramo(std::string_view texto, TramoDeRegistros& tramo);

}  // namespace qor
