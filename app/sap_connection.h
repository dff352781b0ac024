#pragma once

#include <filesystem>
#include <functional>

#include "app/settings.h"
#include "practice/service.h"
#include "sap/logon_choice.h"
#include "sap/session.h"

// The sessions of the program, not connected: names, library and time limits by the settings, query reports from the data files.
namespace qor {

// What the practice system is made of, asked at each logon to it.
using OpcionesDePractica = std::function<OpcionesDeSistema()>;

// One whose logon asks `dialogo` for the system. Neither the practice system nor a real one stands in for the other.
SesionSAP NuevaSesionSAP(const AjustesDelPrograma& ajustes, const std::filesystem::path& directorioDeDatos,
                         DialogoDeEleccion dialogo, OpcionesDePractica practica);

// One whose logon leads to a practice system, and asks nothing.
SesionSAP NuevaSesionDePractica(const AjustesDelPrograma& ajustes, const std::filesystem::path& directorioDeDatos,
                                OpcionesDeSistema practica);

OpcionesDeLogon OpcionesDeLogonDe(const AjustesDelPrograma& ajustes);

}  // namespace qor
