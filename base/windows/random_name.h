#pragma once

#include <string>

namespace qor::sistema {

// Twelve characters that nobody can guess, for names of files.
std::wstring NombreAlAzar();

}  // namespace qor::sistema
