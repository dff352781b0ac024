#pragma once

#include <filesystem>
#include <vector>

namespace qor {

// The documents that were opened or saved last: the last one first, at most ten, none of them twice. They are kept in the file
// beside the settings that remembers windows, which programs that run at the same time share, so it is read anew each time.
std::vector<std::filesystem::path> DocumentosRecientes(const std::filesystem::path& memoria);
void RecordarDocumento(const std::filesystem::path& memoria, const std::filesystem::path& documento);
void OlvidarDocumento(const std::filesystem::path& memoria, const std::filesystem::path& documento);
void OlvidarDocumentos(const std::filesystem::path& memoria);

}  // namespace qor
