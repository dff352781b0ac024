#pragma once

#include "app/pages/controls.h"
#include "base/messages.h"

// Every word that the main form shows: its menus, its tool bar and its pages. The tables in captions.cpp name each control with the
// number of its message or word in the language table.
namespace qor {

// Puts all captions and tips in the loaded language. The choices of PrioridadCombo are made anew, without one chosen. Every control
// of the tables must be there.
void PonerRotulos(const Controles& controles, const TextosIdioma& textos);

}  // namespace qor
