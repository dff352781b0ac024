#pragma once

#include <memory>
#include <optional>
#include <string>

#include "practice/system.h"
#include "sap/names.h"
#include "sap/service.h"

namespace qor {

struct OpcionesDeServicio {
    OpcionesDeSistema sistema;
    std::optional<std::string> rol;  // that the client gets at the logon
};

// A practice system to log on to, through the interface that a real one is reached by. It has four function modules, by the roles
// that they play: the report runner, whose report is compiled and runs on the tables of the system; the function look-up; the two
// source readers. A call is one unit of work.
//
// A logon opens the system's file, which stays open until the logoff; there is nothing to be asked, so `silencioso` shows no
// difference but that it does not connect. Between two calls other programs may change the file, or put another one in its
// place: the next call sees what they did. Throws nothing before the logon.
std::unique_ptr<ServicioRFC> CrearServicioDePractica(OpcionesDeServicio opciones, NombresRFC nombres);

}  // namespace qor
