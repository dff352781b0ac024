#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

#include "input/data_finding.h"
#include "input/layout.h"
#include "input/value_rules.h"

namespace qor {

// Where the parts of an input file go.
struct PartesDeArchivo {
    std::filesystem::path archivo;
    std::filesystem::path buenos;
    std::filesystem::path malos;
    std::filesystem::path motivos;
};

struct CuentaDePartes {
    std::uint64_t buenas = 0;  // lines
    std::uint64_t malas = 0;
};

// Parts input files into what has no errors and what has, byte for byte, into files of the same layout; hints are no errors.
//
// - What belongs together stays together: an order goes with its items, whichever file they lie in, and is bad when one of them is;
//   so is a line of no known id with the order before it, where order and items are told by their position. Orders with equal keys
//   are together, too.
// - In a file in UTF-8 each line with characters outside ASCII is bad and has a reason, and the first one with its byte order mark.
// - The reasons are lines in windows-1252 that end with CR LF: number of the line in the input, field (blank for a line as a whole)
//   and what is wrong with it, tabs between them. One for each error; what goes with it has none of its own.
//
// The inputs are read twice, and the outputs take their places when all are whole. Throws FalloDeArchivo, also for an input that
// was changed meanwhile or that can't be read to its end, and FalloDeEjecucion for an output that is an input or another output,
// and for step-loops whose records can't be told to belong to main records.
std::vector<CuentaDePartes> PartirArchivos(const DisenoDeEntrada& diseno, const ReglasDeValores& reglas,
                                           const std::vector<PartesDeArchivo>& partes);

}  // namespace qor
