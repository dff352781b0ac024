#pragma once

#include <string>

namespace qor {

// Names of remote functions, all in upper case. An empty one stands for the name that the program knows.
struct NombresRFC {
    std::string ModuloRFCPropio;    // the customer's copy of the report runner; empty when there is none
    std::string ModuloRFCEstandar;  // the report runner
    std::string BusquedaDeFunciones;
    std::string LectorFuenteA;
    std::string LectorFuenteB;
    std::string IncludeEstandar;  // the source of the report runner
};

// The names of a standard system, released by SAP with its function groups SUTL and SRFC:
//   report runner      RFC_ABAP_INSTALL_AND_RUN (MODE, tables PROGRAM and WRITES), its source the include LSUTLU01
//   function look-up   RFC_FUNCTION_SEARCH (FUNCNAME, table FUNCTIONS)
//   source readers     RFC_READ_REPORT and RFC_READ_DEVELOPMENT_OBJECT (PROGRAM, table QTAB)
// Fills the empty names; the customer's own module stays as it is.
NombresRFC ConNombresConocidos(NombresRFC nombres);

}  // namespace qor
