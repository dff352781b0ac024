#pragma once

#include <string>

#include "editor/window.h"

// The cells of the grids: what each shows, which row it stands for, and the rule of every change.
namespace qor {

// Lines of the cell's grid.
int LineasDe(Columna columna);

Celda& CeldaDe(Ventana& ventana, LugarDeCelda lugar);
const Celda& CeldaDe(const Ventana& ventana, LugarDeCelda lugar);
const std::string& TextoDe(const Ventana& ventana, LugarDeCelda lugar);

// The row of the table that the cell stands for.
int FilaDe(const Ventana& ventana, LugarDeCelda lugar);

// The name under which the view knows the cell, such as "Text5_0".
std::string NombreDeControl(LugarDeCelda lugar);

// A user's edit and a program's fill. Neither does anything when the text stays the same; else the text goes into the table, cut
// and in upper case (a constant keeps its case), and a field name beyond 30 characters is cut with message 333. An edit changes the
// document, and its row can be had back by a step to undo; a fill leaves no step, and is a change only where the caller says so.
void EscribirEnCelda(Ventana& ventana, LugarDeCelda lugar, const std::string& texto);
void PonerEnCelda(Ventana& ventana, LugarDeCelda lugar, const std::string& texto);

}  // namespace qor
