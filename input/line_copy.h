#pragma once

#include "base/files.h"
#include "base/new_file.h"
#include "input/line_reader.h"

namespace qor {

// Writes a line that was read from a file into another one, byte for byte with its end, also where it is a very long one. Throws
// FalloDeArchivo, also for a file that has become shorter.
void CopiarLinea(const ArchivoAbierto& archivo, const LineaLeida& linea, ArchivoNuevo& salida);

}  // namespace qor
