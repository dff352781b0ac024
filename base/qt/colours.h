#pragma once

#include <QColor>

namespace qor {

enum class Tono { Nota, Cabeza, Comentario, Literal, Referencia };

// A colour that can be read on the palette of the program, light or dark.
QColor ColorLegible(Tono tono);

// Gives place holders half the colour of texts, in controls that are off too. Not every desktop does so, and then they look like
// contents. Called again where the palette changes.
void DistinguirTextosDeEspera();

}  // namespace qor
