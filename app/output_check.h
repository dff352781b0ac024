#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace qor {

// An output of the command line that would take the place of what is read, or of the system itself. Throws MalUso with `que` and
// `porque` around the path.
void ChequearSalida(const std::string& que, const std::filesystem::path& salida, const std::vector<std::filesystem::path>& leidos,
                    const char* porque);

}  // namespace qor
