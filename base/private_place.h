#pragma once

#include <filesystem>
#include <string_view>

// Places for files of a moment that nobody but the user can read, or put another file in. Each operating system has its own file of
// this.
namespace qor {

// A directory of this user that no other may enter. Where the system can't tell, no.
bool EsPrivado(const std::filesystem::path& directorio);

// Makes a directory that only the user can enter, "comienzo" and six characters that nobody can guess. Empty when it can't be made.
std::filesystem::path CrearDirectorioPrivado(const std::filesystem::path& padre, std::string_view comienzo);

// The same for an empty file, with an extension behind the six characters.
std::filesystem::path CrearArchivoPrivado(const std::filesystem::path& padre, std::string_view comienzo,
                                          std::string_view extension);

}  // namespace qor
