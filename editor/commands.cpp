#include "editor/commands.h"

#include "base/failure_trap.h"
#include "editor/cell_focus.h"

namespace qor {

bool EjecutarComando(Ventana& ventana, const std::function<void()>& accion, const CeldaConTeclado& teclado) {
    bool empezado = false;
    ConTrampa(ventana.vista, [&] {
        empezado = DejarCelda(ventana);
        if (empezado) accion();
    });
    ConTrampa(ventana.vista, [&] {
        if (const auto celda = teclado()) EntrarEnCelda(ventana, *celda);
    });
    return empezado;
}

}  // namespace qor
