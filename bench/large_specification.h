#pragma once

#include <string>

#include "model/options.h"
#include "model/specification.h"

namespace qor {

// A specification of `filas` rows on each side and `filas` conditions, of which every row uses one. With `grupos` the program side
// is made of screens with a step-loop each, all records in one file.
inline Especificacion EspecificacionGrande(int filas, int grupos = 0) {
    Especificacion e;
    for (int f = 0; f < filas; ++f) {
        e.TablaArchivo[f] = {"FIELD" + std::to_string(f), "10", "", f % 10 == 0 ? "'A' @ 'B'\r\n#FIELD0 = 'X'." : ""};
        e.TablaCondiciones[f] = {"COND" + std::to_string(f), "IF #FIELD0 = 'X' AND #FIELD1 = 'Y'.\r\nRESULT = YES.\r\nENDIF."};
    }
    e.TablaTransaccion[0] = {"TRANS", "VA01", "", "", ""};
    const int porPantalla = grupos > 0 ? filas / grupos : 10;
    for (int r = 1, pantalla = 0; r < filas && r < 1000; ++r) {
        const std::string numero = std::to_string(r);
        const int enPantalla = (r - 1) % porPantalla;
        if (enPantalla == 0) {
            e.TablaTransaccion[r] = {"SAPMV45A", std::to_string(1000 + pantalla++) + ";COND" + numero, "", "", ""};
        } else if (enPantalla == 1 && grupos > 0) {
            e.TablaTransaccion[r] = {"", "", "BDC_OKCODE", "'/00'", ""};
        } else if (enPantalla == 2 && grupos > 0) {
            e.TablaTransaccion[r] = {"", "", "VBAP-F" + numero + "(1)", "FIELD" + numero, "note!1 1!2file!30!4!51!610!7"};
        } else {
            e.TablaTransaccion[r] = {"", "", "VBAK-F" + numero + (grupos > 0 ? "(1)" : ";COND" + numero), "FIELD" + numero, ""};
        }
    }
    return e;
}

inline Opciones OpcionesDePrueba() {
    Opciones o;
    o.Programa = "unused";
    return o;
}

}  // namespace qor
