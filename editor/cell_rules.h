#pragma once

#include <string>

#include "editor/editor.h"

// The cells of the grids: what each shows, which row it stands for, and the rule of every change.
namespace qor {

constexpr std::size_t largoMaximoDeCampo = 30;

Tabla TablaDe(Columna columna);

// Number of the cell's column in its grid, from 0.
std::size_t NumeroDeColumna(Columna columna);

// The text of a row that the cell shows, for cells of the file grid and of the program grid.
std::string FilaDeArchivo::*ColumnaDeArchivo(Columna columna);
std::string FilaDeTransaccion::*ColumnaDeTransaccion(Columna columna);

// Lines of the cell's grid.
int LineasDe(Columna columna);

Celda& CeldaDe(Editor& editor, LugarDeCelda lugar);
const Celda& CeldaDe(const Editor& editor, LugarDeCelda lugar);
const std::string& TextoDe(const Editor& editor, LugarDeCelda lugar);

// The row of the table that the cell stands for.
int FilaDe(const Editor& editor, LugarDeCelda lugar);

// The name under which the view knows the cell, such as "Text5_0".
std::string NombreDeControl(LugarDeCelda lugar);

// The change rule of a cell: nothing when the text stays the same; else the row is pushed for undo while changes are recorded, and
// the text goes into the table, cut and in upper case (a constant keeps its case). A field name beyond 30 characters is cut with
// message 333.
void CambiarCelda(Editor& editor, Columna columna, int linea, const std::string& texto);

}  // namespace qor
