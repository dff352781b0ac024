#pragma once

#include <filesystem>
#include <string>
#include <string_view>

// Paths as the model holds them: windows-1252, in which both "/" and "\" end a directory.
namespace qor {

// The text before the last ".", or the whole path. A dot in a directory name counts too.
std::string QuitarExtension(std::string_view ruta);

// The text behind the last directory separator, or the whole path.
std::string NombreDeRuta(std::string_view ruta);

// The directory without its separator, unless it is a root such as "C:\" or "/"; empty when the path has no directory.
std::string DirectorioDeRuta(std::string_view ruta);

// A path of the model as the file system takes it, and back. `RutaDelModelo` throws FalloDeEjecucion for a name that the code
// page can't hold; `TextoDeRuta` is for what is shown and reported, with "?" for each character that the code page lacks.
std::filesystem::path RutaDelSistema(std::string_view ruta);
std::string RutaDelModelo(const std::filesystem::path& ruta);
std::string TextoDeRuta(const std::filesystem::path& ruta);

// The path made absolute by its text alone: "." and ".." are resolved, links are not. Throws FalloDeArchivo where the present
// directory is gone.
std::filesystem::path RutaAbsoluta(const std::filesystem::path& ruta);
// The same for what a person is told, and the path as it is where that can't be found.
std::filesystem::path RutaEntera(const std::filesystem::path& ruta);

}  // namespace qor
