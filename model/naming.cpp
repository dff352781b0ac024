#include "model/naming.h"

#include "base/text.h"

namespace qor {

ConvencionesDeNombres SetearConvencionesDeNombres(const Preferencias& preferencias) {
    ConvencionesDeNombres nombres;
    if (preferencias.CheckActivateNamingConventions != 1) return nombres;
    nombres.GSprefijo = Recortar(preferencias.GSprefijo);
    nombres.GNprefijo = Recortar(preferencias.GNprefijo);
    nombres.GTprefijo = Recortar(preferencias.GTprefijo);
    nombres.LSprefijo = Recortar(preferencias.LSprefijo);
    nombres.LNprefijo = Recortar(preferencias.LNprefijo);
    nombres.LTprefijo = Recortar(preferencias.LTprefijo);
    nombres.GCprefijo = Recortar(preferencias.GCprefijo);
    nombres.PSprefijo = Recortar(preferencias.PSprefijo);
    nombres.PNprefijo = Recortar(preferencias.PNprefijo);
    nombres.ParamNuevoBatch = nombres.PSprefijo + "NEWB";
    nombres.ParamViejoBatch = nombres.PSprefijo + "OLDB";
    nombres.ParamNumeroBatch = nombres.PSprefijo + "BNUM";
    nombres.RaizModo = "MODE";
    nombres.RaizArchivoStep = "LF";
    return nombres;
}

}  // namespace qor
