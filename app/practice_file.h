#pragma once

#include <filesystem>

#include "app/settings.h"

namespace qor {

// Where the practice system of a user lies: practice.sqlite in $XDG_DATA_HOME/qor-generator, by default
// ~/.local/share/qor-generator.
std::filesystem::path RutaDePractica(const Entorno& entorno);

// The same, with its directory made where it is missing. Throws FalloDeArchivo.
std::filesystem::path RutaDePracticaConDirectorio(const Entorno& entorno);

// The name of a dictionary file of the user's own, beside the settings or beside a document.
constexpr const char* nombreDeDiccionario = "dictionary.txt";

}  // namespace qor
