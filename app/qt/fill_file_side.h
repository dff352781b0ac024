#pragma once

#include "base/line_index.h"
#include "editor/window.h"
#include "input/layout.h"
#include "input/preview_ruler.h"

// An empty file side gets its fields from a file: one step to undo.
namespace qor {

// From the names in the first line, which tabs separate. Asks whether tabs are read from now on where fields have fixed widths.
void LlenarLadoDeCabecera(Ventana& ventana, const DisenoDeEntrada& diseno, const IndiceDeLineas& archivo);
// From columns that are marked in the ruler. The last field reaches to the end of the longest line that is looked at.
void LlenarLadoDeMarcas(Ventana& ventana, const DisenoDeEntrada& diseno, const IndiceDeLineas& archivo,
                        const MarcasDeRegla& marcas);

}  // namespace qor
