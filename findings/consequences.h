#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "abap/check/check.h"
#include "findings/finding.h"
#include "findings/report_lines.h"

namespace qor {

// Tells which faults of a report are no faults of their own: they follow from an open literal in front of them, or from what is
// known to be wrong with the specification.
class Consecuencias {
public:
    Consecuencias(const Especificacion& especificacion, const std::vector<abap::Falta>& faltas, const LineasDelReporte& reporte,
                  const std::vector<Hallazgo>& lista);
    ~Consecuencias();
    Consecuencias(const Consecuencias&) = delete;
    Consecuencias& operator=(const Consecuencias&) = delete;

    // The fault is one of the reading of the report, behind an open literal.
    bool EsDeUnLiteral(const abap::Falta& falta) const;

    // The number in the list of the finding from which `hallazgo`, made of the fault, follows. `sentencia` is the place of the
    // beginning of its statement.
    std::optional<std::size_t> Causa(const Hallazgo& hallazgo, const Lugar& sentencia, const abap::Falta& falta) const;

private:
    class LineasEstropeadas;
    class YaDicho;
    std::unique_ptr<LineasEstropeadas> estropeadas_;
    std::unique_ptr<YaDicho> yaDicho_;
};

}  // namespace qor
