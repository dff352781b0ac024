#pragma once

#include <functional>
#include <string>

#include "sap/nwrfc_service.h"

namespace qor {

// What a user chooses at a logon: the practice system, or a real one.
struct EleccionDeLogon {
    bool practica = false;
    std::string rol;  // role that the client of the practice system shall have: a letter, or nothing
    ParametrosDeLogon parametros;
};

// Lets the user choose; false when the user backs out.
using DialogoDeEleccion = std::function<bool(EleccionDeLogon& eleccion)>;

}  // namespace qor
