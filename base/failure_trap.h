#pragma once

#include <exception>
#include <string>

#include "base/view.h"

namespace qor {

// Runs what an event of a form does. A failure that no rule of its own catches ends it with a message that says what was wrong, and
// the ordinary pointer. False then.
template <typename Accion>
bool ConTrampa(Vista& vista, Accion accion) {
    try {
        accion();
        return true;
    } catch (const std::exception& fallo) {
        vista.PunteroOcupado(false);
        vista.Advertir(ConDetalle(MensajeLiteral(std::string("The action failed: ") + fallo.what() + "."), fallo));
        return false;
    }
}

}  // namespace qor
