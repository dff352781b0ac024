#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

#include "generator/report.h"

namespace qor {

// The lines of a report and their places. Lines count from 1.
class LineasDelReporte {
public:
    explicit LineasDelReporte(const Reporte& reporte) : tramos_(reporte.Origenes()) {
        std::string_view texto = reporte.Texto();
        while (!texto.empty()) {
            const auto fin = std::min(texto.find('\n'), texto.size());
            auto linea = texto.substr(0, fin);
            if (linea.ends_with('\r')) linea.remove_suffix(1);
            lineas_.push_back(linea);
            texto.remove_prefix(std::min(fin + 1, texto.size()));
        }
    }

    int Cantidad() const { return static_cast<int>(lineas_.size()); }
    std::string_view Texto(int linea) const {
        return linea < 1 || linea > Cantidad() ? std::string_view() : lineas_[static_cast<std::size_t>(linea - 1)];
    }

    Lugar LugarDe(int linea) const {
        const auto detras = std::upper_bound(tramos_.begin(), tramos_.end(), linea - 1,
                                             [](int primera, const TramoDeOrigen& tramo) { return primera < tramo.primeraLinea; });
        return detras == tramos_.begin() ? Lugar{} : std::prev(detras)->lugar;
    }

private:
    const std::vector<TramoDeOrigen>& tramos_;
    std::vector<std::string_view> lineas_;
};

}  // namespace qor
