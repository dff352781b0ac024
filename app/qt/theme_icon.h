#pragma once

#include <QIcon>

namespace qor {

// An icon of the program, by the name of its drawing. Its lines have the colour of the palette's text at the moment it is painted,
// so that it can be read on light and dark; disabled, that of disabled text.
QIcon IconoDeTema(const char* nombre);

}  // namespace qor
