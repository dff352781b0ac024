#pragma once

#include <string>

#include "editor/window.h"

// The searches of the two grids for the text of TextoBuscado, in any case.
namespace qor {

// The clicks of BuscarArchivo and BuscarTransaccion: bring up the next row that holds the text, and give it the focus. A search
// goes from the top; while one is under way, from behind the row last entered. Without a hit: message 374, and the next one starts
// anew. Nothing with a blank text.
void BuscarArchivo(Ventana& ventana);
void BuscarTransaccion(Ventana& ventana);

// Numbers of the captions of the two buttons: "find" or "find next".
int RotuloDeBuscarArchivo(const Ventana& ventana);
int RotuloDeBuscarTransaccion(const Ventana& ventana);

// A change of the text sets the captions back, but not a search under way: it goes on, with the new text.
void CambiarTextoBuscado(Ventana& ventana, const std::string& texto);

}  // namespace qor
