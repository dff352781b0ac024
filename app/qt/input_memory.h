#pragma once

#include <filesystem>
#include <string>

namespace qor {

// The input files that a user chose for a document, kept outside of it, in the file beside the settings that remembers windows.
// A document that was never saved has none.
std::filesystem::path ArchivoRecordado(const std::filesystem::path& memoria, const std::filesystem::path& documento,
                                       const std::string& parametro);
void RecordarArchivo(const std::filesystem::path& memoria, const std::filesystem::path& documento, const std::string& parametro,
                     const std::filesystem::path& archivo);

}  // namespace qor
