#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/messages.h"
#include "base/view.h"
#include "model/options.h"
#include "model/place.h"
#include "model/specification.h"

// Control characters (0x00 to 0x1F and 0x7F) where no text box lets one in. In a report or a query, a line break in a cell would
// begin a statement.
//
// Free of them are all cells of both sides but notes and conversions, what stands between the marks of a step-loop's head, the
// names of conditions and BAPIs, and the options of one line. Texts of several lines may hold any character.
namespace qor {

struct CaracterDeControl {
    Lugar sitio;
    std::optional<Tabla> tabla;  // the side; nothing for what stands in neither
    int fila = 0;                // from 0, as the labels of the rows count; of its side, or of the conditions or BAPIs
    std::string control;         // the control of the main form that shows it, or its option's; empty when there is none
    std::string lugar;           // the place in words
    unsigned char caracter = 0;  // the first one there
};

// All of them: file side, program side, conditions, BAPIs, options, each from above.
std::vector<CaracterDeControl> BuscarCaracteresDeControl(const Especificacion& especificacion, const Opciones& opciones);

Mensaje MensajeDe(const CaracterDeControl& caracter);

// False where there is one; the view has shown the first one's message and place.
bool SinCaracteresDeControl(const Especificacion& especificacion, const Opciones& opciones, Vista& vista);

}  // namespace qor
