#pragma once

#include <cstddef>

namespace qor {

// A place in the input files.
struct LugarDeEntrada {
    int grupo = 0;          // the kind of record: 0 the main record, else the step-loop
    std::size_t linea = 0;  // of the file that it lies in, from 1
    int fila = -1;          // of the file side; -1 for the line as a whole
};

}  // namespace qor
