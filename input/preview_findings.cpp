#include "input/preview_findings.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace qor {

namespace {

using Sitio = std::tuple<int, std::uint64_t, std::size_t>;

Sitio SitioDe(const HallazgoDeDatos& hallazgo) { return {hallazgo.archivo, hallazgo.linea, hallazgo.columna}; }

bool Antes(const HallazgoDeDatos& hallazgo, const Sitio& sitio) { return SitioDe(hallazgo) < sitio; }

bool Detras(const Sitio& sitio, const HallazgoDeDatos& hallazgo) { return sitio < SitioDe(hallazgo); }

}  // namespace

bool HallazgosVistos::Agregar(HallazgoDeDatos hallazgo) {
    ++(EsAviso(hallazgo.clase) ? avisos_ : errores_);
    // Nearly all come in their order.
    const auto lugar = std::upper_bound(lista_.begin(), lista_.end(), SitioDe(hallazgo), Detras);
    const bool alFinal = lugar == lista_.end();
    lista_.insert(lugar, std::move(hallazgo));
    return alFinal;
}

void HallazgosVistos::Contar(std::uint64_t errores, std::uint64_t avisos) {
    errores_ += errores;
    avisos_ += avisos;
}

void HallazgosVistos::Quitar() {
    lista_.clear();
    errores_ = avisos_ = 0;
}

std::pair<std::size_t, std::size_t> HallazgosVistos::DeLinea(int archivo, std::uint64_t linea) const {
    const auto desde = std::lower_bound(lista_.begin(), lista_.end(), Sitio{archivo, linea, 0}, Antes);
    const auto hasta = std::lower_bound(desde, lista_.end(), Sitio{archivo, linea + 1, 0}, Antes);
    return {static_cast<std::size_t>(desde - lista_.begin()), static_cast<std::size_t>(hasta - desde)};
}

int HallazgosVistos::Vecino(int archivo, std::uint64_t linea, std::size_t columna, int paso) const {
    if (lista_.empty()) return -1;
    const Sitio sitio{archivo, linea, columna};
    const auto ultimo = static_cast<int>(lista_.size()) - 1;
    if (paso > 0) {
        const auto lugar = std::upper_bound(lista_.begin(), lista_.end(), sitio, Detras);
        return lugar == lista_.end() ? 0 : static_cast<int>(lugar - lista_.begin());
    }
    const auto lugar = std::lower_bound(lista_.begin(), lista_.end(), sitio, Antes);
    return lugar == lista_.begin() ? ultimo : static_cast<int>(lugar - lista_.begin()) - 1;
}

}  // namespace qor
