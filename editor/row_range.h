#pragma once

#include <string>

#include "editor/window.h"

// Rows of a grid that a user has marked with Shift and the arrow keys.
namespace qor {

// Moves the focus a line up or down, and marks the rows from where the marking began to there.
void ExtenderFilas(Ventana& ventana, LugarDeCelda lugar, int paso);

// The form: a cell of the marked rows has got the focus by a click that asks for their menu. They stay marked.
void EntrarEnMarcada(Ventana& ventana, LugarDeCelda lugar);

struct TramoDeFilas {
    Tabla tabla = Tabla::Archivo;
    int desde = 0;
    int hasta = 0;
    bool operator==(const TramoDeFilas&) const = default;
};

// The marked rows, or else the row of the cell.
TramoDeFilas FilasDelComando(const Ventana& ventana, LugarDeCelda lugar);

// Removes rows, with one step to undo; the first of them that stays behind gets the focus.
void BorrarFilas(Ventana& ventana, LugarDeCelda lugar, TramoDeFilas filas);

// The text for the clipboard of the marked rows, or else of the row of the cell.
std::string CopiarFilas(const Ventana& ventana, LugarDeCelda lugar);

}  // namespace qor
