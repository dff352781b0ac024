#pragma once

#include <filesystem>

namespace qor {

// Where language.txt and the other data files lie: those of the installed program, or else the directory "data" beside the program
// or one step above, where a build tree has a link to its sources. Where neither holds the file, the place of the installed ones.
std::filesystem::path DirectorioDeDatos();

// The same for a program file.
std::filesystem::path DirectorioDeDatos(const std::filesystem::path& programa);

}  // namespace qor
