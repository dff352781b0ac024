#pragma once

#include <QFont>

namespace qor {

// The system's font of fixed width, in the size of the program's font.
QFont LetraFija();

}  // namespace qor
