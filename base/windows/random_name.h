#pragma once

#include <string>

namespace qor::sistema {

// Six characters that nobody can guess, for names of files.
std::wstring NombreAlAzar();

}  // namespace qor::sistema
