#pragma once

#include <functional>
#include <optional>

#include "editor/window.h"

namespace qor {

// The cell in which a key would arrive now, as the form knows it; none while another control has the keyboard.
using CeldaConTeclado = std::function<std::optional<LugarDeCelda>()>;

// Runs what a user asks for by a button, a tool button, a menu, a shortcut, a change of the page or the end of the program, behind
// the failure trap. First the cell that has the focus is left by its rule, so that no command works on a cell that was never left.
// A rule that refuses the text of the cell, with its warning, ends it there: the command is not begun, and the focus stays. Behind
// the command the cell that has the keyboard is entered again, which is the one that was left unless the command put the focus
// elsewhere. False when the command was not begun.
//
// The keys of a cell itself (editor/cell_keys.h) are no commands.
bool EjecutarComando(Ventana& ventana, const std::function<void()>& accion, const CeldaConTeclado& teclado);

}  // namespace qor
