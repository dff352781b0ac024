#pragma once

#include <filesystem>

#include "base/messages.h"
#include "base/view.h"
#include "model/specification.h"

// What the desktop does and tells beside its commands while it is connected to a practice system. `sistema` is the file of it.
namespace qor {

// Asks for a file with a recording, and keeps it. Tells how it went.
void GuardarGrabacionElegida(const std::filesystem::path& sistema, const TextosIdioma& textos, Vista& vista);

// Whether there is a recording to import; where there is none, the user can be told how one gets in.
bool HayGrabacion(const std::filesystem::path& sistema);
void AvisarSinGrabaciones(const TextosIdioma& textos, Vista& vista);

// Behind a look-up of widths: tells which fields have none yet, and where a definition can be put, which is in `diccionario`.
void AvisarAnchosDesconocidos(const Especificacion& especificacion, const std::filesystem::path& diccionario,
                              const TextosIdioma& textos, Vista& vista);

}  // namespace qor
