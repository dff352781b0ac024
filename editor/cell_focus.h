#pragma once

#include "editor/window.h"

// Which cell has the focus, and the rules of entering and leaving one.
//
// A form reports each cell that gets or loses the keyboard. The core moves the focus through the view's Enfocar; what the form
// reports in consequence finds everything done already and changes nothing. Losing the focus to a message, a menu or another window
// is no leaving and is not reported; a button of the main form takes no focus. The commands behind both leave the cell themselves
// (editor/commands.h).
namespace qor {

// The form: a cell has got the focus. The cell before is left by its rule, and the row becomes the one last entered. The form
// selects the whole text.
void EntrarEnCelda(Ventana& ventana, LugarDeCelda lugar);

// The form: a cell has lost the focus to a control that is no cell.
void SalirDeCelda(Ventana& ventana, LugarDeCelda lugar);

// The core: gives a cell the focus, with both rules.
void EnfocarCelda(Ventana& ventana, LugarDeCelda lugar);

// The core: leaves the cell that has the focus by its rule. No cell has it afterwards. False when the rule refused the cell's text.
bool DejarCelda(Ventana& ventana);

}  // namespace qor
