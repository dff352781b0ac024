#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <set>
#include <vector>

#include "input/layout.h"

namespace qor {

// The records of a rehearsal that failed, as they lie in the input files.
struct RegistrosFallados {
    std::function<bool(std::size_t registro)> es;  // record n, from 1
    std::vector<std::set<std::uint32_t>> lineas;   // by step-loop, from 1: those of its lines that failed records came to
};

// Writes their lines, byte for byte, into files of the same layout: the main records, and the lines of step-loops that belong to
// them by their keys or, in the one file, by their place, and those that the report came to. `entradas` are the files read, in the
// order of DisenoDeEntrada::Archivos; the first new one is `archivo`, the others have the name of their parameter in theirs. The
// answer names them. Throws FalloDeArchivo.
std::vector<std::filesystem::path> EscribirFallados(const DisenoDeEntrada& diseno,
                                                    const std::vector<std::filesystem::path>& entradas,
                                                    const RegistrosFallados& fallados, const std::filesystem::path& archivo);

}  // namespace qor
