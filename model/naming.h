#pragma once

#include <string>

namespace qor {

// The choices that hold for all specifications of a user and live in the settings file, not in a document.
struct Preferencias {
    bool OptionWS_UPLOAD = false;  // else OptionGUI_UPLOAD
    std::string AdicionesDataset = "ENCODING DEFAULT.";

    int CheckActivateNamingConventions = 0;
    std::string GSprefijo = "GS_";
    std::string GNprefijo = "GN_";
    std::string GTprefijo = "GT_";
    std::string LSprefijo = "LS_";
    std::string LNprefijo = "LN_";
    std::string LTprefijo = "LT_";
    std::string GCprefijo = "GC_";
    std::string PSprefijo = "PS_";
    std::string PNprefijo = "PN_";

    bool operator==(const Preferencias&) const = default;
};

// Prefixes and names of the report's own data objects: empty prefixes while the conventions are off.
struct ConvencionesDeNombres {
    std::string GSprefijo;                      // global scalars
    std::string GNprefijo;                      // global numbers
    std::string GTprefijo;                      // global internal tables
    std::string LSprefijo;                      // local and form-parameter scalars
    std::string LNprefijo;                      // local numbers
    std::string LTprefijo;                      // local tables
    std::string GCprefijo;                      // global constants
    std::string PSprefijo;                      // scalar selection parameters
    std::string PNprefijo;                      // numeric selection parameters
    std::string ParamNuevoBatch = "NEWBATCH";   // radio button of a new run
    std::string ParamViejoBatch = "OLDBATCH";   // radio button of a repeated run
    std::string ParamNumeroBatch = "BATCHNUM";  // number of the run to repeat
    std::string RaizModo = "CALLMODE";
    std::string RaizArchivoStep = "SLOOP_";
};

ConvencionesDeNombres SetearConvencionesDeNombres(const Preferencias& preferencias);

}  // namespace qor
