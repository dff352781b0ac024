#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/messages.h"
#include "base/view.h"
#include "model/document.h"

// The insertion of a BAPI into a specification: a head and a row for each field, the declarations of its variables, and the whole
// text of its call.
namespace qor {

// Asks which parameters are wanted: true for all, false for the mandatory ones; nothing when the user cancels.
using PreguntaDeCampos = std::function<std::optional<bool>()>;

enum class ResultadoInsercion {
    Hecho,
    Cancelado,  // the user backed out; nothing was changed
    Detenido    // an unknown kind of parameter, a parameter missing in the call text, or an unreadable catalogue; what was
                // inserted until then stays, and the view has shown why
};

// What OK does for the chosen BAPI. With `soloDefinicion` only declarations and call text are wanted. `Cancelado` leaves the
// browser open.
ResultadoInsercion ElegirBAPI(Documento& documento, const std::filesystem::path& ArchivoBAPI, const std::string& nombre,
                              bool soloDefinicion, int fila, const PreguntaDeCampos& preguntar, const TextosIdioma& textos,
                              Vista& vista);

// The insertion itself, from a catalogue's text: `indice` is the row of TablaBAPIs that holds the name and gets the call text, -1
// for no declarations and no call; `fila` the row of the head, -1 for no rows; `todos` wants all parameters. Throws
// FalloDeEjecucion where the specification can't take what is inserted.
ResultadoInsercion InsertarDeTexto(Documento& documento, std::string_view catalogo, const std::string& nombre, int indice, int fila,
                                   bool todos, const TextosIdioma& textos, Vista& vista);

}  // namespace qor
