#pragma once

#include <QColor>

namespace qor {

enum class Tono { Nota, Cabeza, Comentario, Literal, Referencia };

// A colour that can be read on the palette of the program, light or dark.
QColor ColorLegible(Tono tono);

}  // namespace qor
