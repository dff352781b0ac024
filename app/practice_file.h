#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "app/settings.h"
#include "practice/system.h"

namespace qor {

// Where the practice system of a user lies: practice.sqlite in $XDG_DATA_HOME/qor-generator, by default
// ~/.local/share/qor-generator.
std::filesystem::path RutaDePractica(const Entorno& entorno);

// The same, with its directory made where it is missing. Throws FalloDeArchivo.
std::filesystem::path RutaDePracticaConDirectorio(const Entorno& entorno);

// What every practice system of the user is made of: definitions, widths, the catalogue in use.
OpcionesDeSistema OpcionesDelUsuario(const AjustesDelPrograma& ajustes, const std::filesystem::path& directorioDeDatos,
                                     const std::filesystem::path& directorioDeAjustes);

// The same for a system that lies in a file, with the value lists beside it.
OpcionesDeSistema OpcionesDelUsuario(const AjustesDelPrograma& ajustes, const std::filesystem::path& directorioDeDatos,
                                     const std::filesystem::path& directorioDeAjustes, const std::filesystem::path& archivo);

// The role of a system's client; that of a new one where it can't be read.
std::string LeerRolDeSistema(const std::filesystem::path& archivo);

// Where a practice system's catalogue goes, not among those of real systems: a directory beside the settings.
std::filesystem::path DirectorioDeCatalogosDePractica(const std::filesystem::path& directorioDeAjustes);

// The name of a dictionary file of the user's own, beside the settings or beside a document.
constexpr const char* nombreDeDiccionario = "dictionary.txt";

}  // namespace qor
