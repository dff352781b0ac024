#include "sap/names.h"

namespace qor {

namespace {

void Completar(std::string& nombre, const char* conocido) {
    if (nombre.empty()) nombre = conocido;
}

}  // namespace

NombresRFC ConNombresConocidos(NombresRFC nombres) {
    Completar(nombres.ModuloRFCEstandar, "RFC_ABAP_INSTALL_AND_RUN");
    Completar(nombres.BusquedaDeFunciones, "RFC_FUNCTION_SEARCH");
    Completar(nombres.LectorFuenteA, "RFC_READ_REPORT");
    Completar(nombres.LectorFuenteB, "RFC_READ_DEVELOPMENT_OBJECT");
    Completar(nombres.IncludeEstandar, "LSUTLU01");
    return nombres;
}

}  // namespace qor
