#pragma once

#include <vector>

#include "generator/report.h"
#include "practice/run.h"

namespace qor {

// Where the lines of a generated report come from, as runs tell it. Rows count as their labels do, from 0, and columns in the order
// of documents, from 0 too.
class OrigenesDelReporte {
public:
    explicit OrigenesDelReporte(std::vector<TramoDeOrigen> tramos) : tramos_(std::move(tramos)) {}

    // `linea` counts from 1.
    OrigenDeLinea De(int linea) const;
    Lugar LugarDe(int linea) const;

private:
    std::vector<TramoDeOrigen> tramos_;
};

}  // namespace qor
