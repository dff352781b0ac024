#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

// Libraries that are loaded while the program runs. Each operating system has its own file of this.
namespace qor {

// The file's name of a library, such as "libX.so" or "X.dll".
std::string NombreDeBiblioteca(std::string_view nombre);

// Loads a library, and before it a companion that the loader doesn't look for beside it; it stays in the process for good, as it
// may have threads of its own. Nothing, with the reason in the loader's words (UTF-8), where that fails.
std::shared_ptr<void> CargarBiblioteca(const std::filesystem::path& ruta, std::string_view companera, std::string& motivo);

// The address of a function; null where the library has none of that name.
void* BuscarEnBiblioteca(void* biblioteca, const char* nombre);

}  // namespace qor
