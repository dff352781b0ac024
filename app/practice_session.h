#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "app/command.h"
#include "practice/database.h"
#include "sap/session.h"

// The option --practice of the commands that need a system.
namespace qor {

// Where it is given, `archivo` holds its file; an empty name is the user's own system.
Opcion AgregarOpcionPractice(Orden orden, std::optional<std::string>& archivo);

// Logs on to the practice system of a file. Nothing, with a message, where it can't be opened; a missing one that is only read is a
// new system, and no file is made. `ajustes` are those of the session, with its catalogue; beside `documento` may lie definitions
// of its own.
std::optional<SesionSAP> EntrarEnPractica(const ContextoDeComando& contexto, const AjustesDelPrograma& ajustes,
                                          const std::string& archivo, Acceso acceso, const std::filesystem::path& documento = {});

}  // namespace qor
