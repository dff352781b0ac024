#pragma once

#include <string>
#include <vector>

#include "editor/window.h"

// Changes of the file side that a user makes elsewhere than in its grid. Each is one step to undo, and the grid shows it.
namespace qor {

// The width of a row. Nothing when it stays the same.
void CambiarAncho(Ventana& ventana, int fila, const std::string& ancho);

// Fills a file side that has no fields; what stands behind its blank first row goes. Nothing when it has fields, or gets none.
void LlenarLadoDeArchivo(Ventana& ventana, std::vector<FilaDeArchivo> filas);

}  // namespace qor
