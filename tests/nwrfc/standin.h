#pragma once

// What the stand-in for the NetWeaver RFC library tells a test about itself.
extern "C" {
using StandInConexiones = int();              // connections that are open
using StandInFunciones = int();               // functions that were created and not destroyed
using StandInParametros = const char16_t*();  // the parameters of the last logon, "NAME=value" in order, separated by ";"
}
