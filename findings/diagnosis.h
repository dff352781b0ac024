#pragma once

#include "abap/check/check.h"
#include "findings/report_lines.h"
#include "findings/rules.h"

namespace qor {

// What a fault of the report is a fault of, in the specification.
struct Veredicto {
    int codigo;
    Lugar lugar;
};

Veredicto Diagnosticar(const abap::Falta& falta, const Generacion& g, const LineasDelReporte& reporte);

}  // namespace qor
