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

// The files that are written for a chosen one: itself, and one for each other file of the layout with the name of its parameter
// in its own.
std::vector<std::filesystem::path> ArchivosDeFallados(const DisenoDeEntrada& diseno, const std::filesystem::path& archivo);

// Writes their lines, byte for byte, into files of the same layout: the main records, and the lines of step-loops that belong to
// them by their keys or, in the one file, by their place, and those that the report came to. `entradas` are the files read, in the
// order of DisenoDeEntrada::Archivos; the new ones are those of ArchivosDeFallados, and take their places when all are whole.
// The answer names them. Throws FalloDeArchivo.
std::vector<std::filesystem::path> EscribirFallados(const DisenoDeEntrada& diseno,
                                                    const std::vector<std::filesystem::path>& entradas,
                                                    const RegistrosFallados& fallados, const std::filesystem::path& archivo);

}  // namespace qor
