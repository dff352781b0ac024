#pragma once

#include <exception>
#include <string>

#include "editor/editor.h"

namespace qor {

// Runs what an event of a form does. A failure that no rule of its own catches ends it with a message that says what was wrong, the
// ordinary pointer, and cells that record changes again. False then.
template <typename Accion>
bool ConTrampa(Editor& editor, Accion accion) {
    try {
        accion();
        return true;
    } catch (const std::exception& fallo) {
        editor.RegistrarCambios = true;
        editor.vista.PunteroOcupado(false);
        editor.vista.Advertir(MensajeLiteral(std::string("The action failed: ") + fallo.what() + "."));
        return false;
    }
}

}  // namespace qor
