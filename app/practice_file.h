#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "app/settings.h"

namespace qor {

// Where the practice system of a user lies: practice.sqlite in $XDG_DATA_HOME/qor-generator, by default
// ~/.local/share/qor-generator.
std::filesystem::path RutaDePractica(const Entorno& entorno);

// The same, with its directory made where it is missing. Throws FalloDeArchivo.
std::filesystem::path RutaDePracticaConDirectorio(const Entorno& entorno);

// An output of the command line that would take the place of what is read, or of the system itself. Throws MalUso with `que` and
// `porque` around the path.
void ChequearSalida(const std::string& que, const std::filesystem::path& salida, const std::vector<std::filesystem::path>& leidos,
                    const char* porque);

// The name of a dictionary file of the user's own, beside the settings or beside a document.
constexpr const char* nombreDeDiccionario = "dictionary.txt";

}  // namespace qor
