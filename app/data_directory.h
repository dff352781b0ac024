#pragma once

#include <filesystem>

namespace qor {

// Where language.txt and the other data files lie: beside the installed program, or else in the source tree that it was built from.
std::filesystem::path DirectorioDeDatos();

// The same for a program file.
std::filesystem::path DirectorioDeDatos(const std::filesystem::path& programa);

}  // namespace qor
