#pragma once

#include <cstddef>
#include <filesystem>

#include "input/layout.h"

namespace qor {

// The line, from 1, of record n of a kind in the file that holds it; 0 where the file has fewer of them. Throws FalloDeArchivo.
std::size_t LineaDeRegistro(const DisenoDeEntrada& diseno, int clase, std::size_t numero, const std::filesystem::path& archivo);

}  // namespace qor
