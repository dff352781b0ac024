#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

// The journal of a run beside a stored one. Both are read line by line, whatever their size.
namespace qor {

// Looks through a stored journal. Throws FalloDeArchivo for one that is missing, damaged or without an end.
void ChequearDiarioEsperado(const std::filesystem::path& diario);

struct DiferenciasDeDiarios {
    std::uint64_t cuantas = 0;          // events that differ, are missing or are not expected
    std::vector<std::string> primeras;  // in words: record, event, and what differs
    bool hayMas = false;                // than those told
};
constexpr std::size_t maximoDeDiferencias = 20;

// Compares the journal of a run with the one that was expected, record by record: an event too many or too few does not make all
// behind it differ.
DiferenciasDeDiarios CompararDiarios(const std::filesystem::path& esperado, const std::filesystem::path& propio);

}  // namespace qor
