#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "app/settings.h"

// The registration of the extension .qor with the desktop of the user: a file type, its icon, and the programs in the menu.
namespace qor {

struct ArchivoDeRegistro {
    std::filesystem::path ruta;
    std::string contenido;  // UTF-8
};

// The files that make up the registration, below $XDG_DATA_HOME (by default ~/.local/share), from the directory "desktop" of the
// data. None when there is no such place, when the data lack one of them, and when an installation in $XDG_DATA_DIRS brings them.
std::vector<ArchivoDeRegistro> PlanearRegistro(const Entorno& entorno, const std::filesystem::path& programa,
                                               const std::filesystem::path& directorioDeDatos);

// Writes the files that are not there yet, so that what the user changed in them stays. Failures are passed over. True when one was
// written: the desktop's own data bases are then to be brought up to date, by `ComandosDeRegistro`.
bool RegistrarExtension(const std::vector<ArchivoDeRegistro>& plan);

// The programs that do so, each with its arguments, for the directory of the plan. They need not exist.
std::vector<std::vector<std::string>> ComandosDeRegistro(const Entorno& entorno);

}  // namespace qor
