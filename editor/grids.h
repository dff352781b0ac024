#pragma once

#include "editor/editor.h"

// The two grids as windows that move over their tables, and the operations on whole rows. Lines are those of the grid, rows those
// of the table. What fills cells leaves no steps to undo but those that are told.
namespace qor {

// Brings a row to the first line of its grid, as far as the grid can go down, and gives the row's first cell the focus. The cell
// that had the focus is left by its rule before the grid moves. The view's MostrarFila is these two.
void MostrarArchivo(Editor& editor, int fila);
void MostrarTransaccion(Editor& editor, int fila);

// Fills the grid from a new offset, which becomes the row last entered; the focus stays.
void MostrarArchivoSinFocus(Editor& editor, int primeraFila);
void MostrarTransaccionSinFocus(Editor& editor, int primeraFila);

// One row down or up; nothing at the limit.
void VentanaArchivoAbajo(Editor& editor);
void VentanaArchivoArriba(Editor& editor);
void VentanaTransaccionAbajo(Editor& editor);
void VentanaTransaccionArriba(Editor& editor);

// The wheel and the scroll bar: any number of rows, down for positive ones, as far as the grid goes. A cell of the grid that has
// the focus keeps it: its row is left and another is entered.
void DesplazarArchivo(Editor& editor, int filas);
void DesplazarTransaccion(Editor& editor, int filas);

// A new row at the line, which repeats the text of the row that was there, without note and code; the last row of the table is
// lost. On the file side the repeated name gets a number at once.
void InsertarArchivo(Editor& editor, int linea);
void InsertarTransaccion(Editor& editor, int linea);

void BorrarArchivo(Editor& editor, int linea);
void BorrarTransaccion(Editor& editor, int linea);

// Moves the file row last entered by one row, with its note and code; the focus goes with it.
void UpButton(Editor& editor);
void DownButton(Editor& editor);

// A double click on the label of the row number.
void DobleClicLineaArchivo(Editor& editor);
void DobleClicLineaTransaccion(Editor& editor);

// Gives the cells of a row that tell of its note and code their colours, where the row is seen.
void ColorearFila(Editor& editor, FilaDeTabla fila);

// A row opened for values that follow at once: InsertarArchivo without the number for the repeated name.
void AbrirFilaArchivo(Editor& editor, int linea);

}  // namespace qor
