#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace qor {

// An output of the command line that would take the place of what is read, or of the system itself, whether that is there yet or
// not. Throws MalUso with `que` and `porque` around the path.
void ChequearSalida(const std::string& que, const std::filesystem::path& salida, const std::vector<std::filesystem::path>& leidos,
                    const char* porque);

// The same for several, no two of which may be one file.
void ChequearSalidas(const std::string& que, const std::vector<std::filesystem::path>& salidas,
                     const std::vector<std::filesystem::path>& leidos, const char* porque);

}  // namespace qor
