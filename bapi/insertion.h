#pragma once

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

// `indice` is the row of TablaBAPIs that gets the call text, -1 for no declarations and no call; `fila` the row of the head, -1 for
// no rows.
ResultadoInsercion InsertarBAPI(Documento& documento, const std::string& ArchivoBAPI, const std::string& nombre, int indice,
                                int fila, const PreguntaDeCampos& preguntar, const TextosIdioma& textos, Vista& vista);

// What OK does for the chosen BAPI. With `soloDefinicion` only declarations and call text are wanted. `Cancelado` leaves the
// browser open.
ResultadoInsercion ElegirBAPI(Documento& documento, const std::string& ArchivoBAPI, const std::string& nombre, bool soloDefinicion,
                              int fila, const PreguntaDeCampos& preguntar, const TextosIdioma& textos, Vista& vista);

// The name for a parameter's variable: the parameter's own, with a number behind it where that name has another type.
struct VariableBAPI {
    std::string nombre;
    bool declarar = false;  // else it exists with this type
};
VariableBAPI NombreVariableBAPI(std::string_view VariablesGlobales, const std::string& raiz, const std::string& tipo, char clase);

// A name for a file field that no row of the program side has yet.
std::string CampoUnico(const Especificacion& especificacion, const std::string& nombre);

}  // namespace qor
