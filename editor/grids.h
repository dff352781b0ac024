#pragma once

#include "editor/window.h"

// The two grids as windows that move over their tables, and the operations on whole rows. Lines are those of the grid, rows those
// of the table. What fills cells leaves no steps to undo but those that are told.
namespace qor {

// Brings a row to the first line of its grid, as far as the grid can go down, and gives the row's first cell the focus. The cell
// that had the focus is left by its rule before the grid moves. The view's MostrarFila is these two.
void MostrarArchivo(Ventana& ventana, int fila);
void MostrarTransaccion(Ventana& ventana, int fila);

// Shows a program side that has come as a whole from its top. The cell that had the focus stands for another row now and is not
// left by its rule.
void MostrarTablaNueva(Ventana& ventana);

// Fills the grid from a new offset, which becomes the row last entered; the focus stays.
void MostrarArchivoSinFocus(Ventana& ventana, int primeraFila);
void MostrarTransaccionSinFocus(Ventana& ventana, int primeraFila);

// One row down or up; nothing at the limit.
void VentanaArchivoAbajo(Ventana& ventana);
void VentanaArchivoArriba(Ventana& ventana);
void VentanaTransaccionAbajo(Ventana& ventana);
void VentanaTransaccionArriba(Ventana& ventana);

// The wheel and the scroll bar: any number of rows, down for positive ones, as far as the grid goes. A cell of the grid that has
// the focus keeps it: its row is left and another is entered.
void DesplazarArchivo(Ventana& ventana, int filas);
void DesplazarTransaccion(Ventana& ventana, int filas);

// The user's commands on rows, each with a step to undo. A new row at the line repeats the text of the row that was there, without
// note and code; the last row of the table is lost. On the file side the repeated name gets a number at once.
void InsertarArchivo(Ventana& ventana, int linea);
void InsertarTransaccion(Ventana& ventana, int linea);
// The same with a row that has no text.
void InsertarArchivoEnBlanco(Ventana& ventana, int linea);
void InsertarTransaccionEnBlanco(Ventana& ventana, int linea);
void BorrarArchivo(Ventana& ventana, int linea);
void BorrarTransaccion(Ventana& ventana, int linea);

// The same without a step, for rows that the program opens and fills at once; the repeated name stays.
void AbrirFilaArchivo(Ventana& ventana, int linea);
void AbrirFilaTransaccion(Ventana& ventana, int linea);
void QuitarFilaArchivo(Ventana& ventana, int linea);
void QuitarFilaTransaccion(Ventana& ventana, int linea);

// Moves the file row last entered by one row, with its note and code; the focus goes with it.
void UpButton(Ventana& ventana);
void DownButton(Ventana& ventana);

// Moves a row of the program side by one row up (-1) or down (1), with its note; the focus goes with it, in its column. One step to
// undo. Nothing at the ends of the table.
void MoverTransaccion(Ventana& ventana, LugarDeCelda lugar, int paso);

// A double click on the label of the row number.
void DobleClicLineaArchivo(Ventana& ventana);
void DobleClicLineaTransaccion(Ventana& ventana);

// Gives the cells of a row that tell of its note and code their colours, where the row is seen.
void ColorearFila(Ventana& ventana, FilaDeTabla fila);

}  // namespace qor
