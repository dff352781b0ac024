#include "input/record_units.h"

#include <algorithm>

namespace qor {

using Forma = RelacionDeRegistros::Forma;

UnidadesDeRegistros::UnidadesDeRegistros(const RelacionDeRegistros& relacion, std::size_t archivos)
    : relacion_(relacion), malas_(archivos), nodos_(archivos) {}

void UnidadesDeRegistros::Tomar(std::size_t archivo, std::uint32_t unidad, bool mala) {
    if (relacion_.LaForma() == Forma::PorPosicion) {
        if (unidad != unidad_) TerminarUnidad();
        unidad_ = unidad;
        unidadMala_ = unidadMala_ || mala;
    }
    malas_[archivo].push_back(mala);
    if (relacion_.LaForma() == Forma::PorClaves) nodos_[archivo].push_back(unidad);
}

void UnidadesDeRegistros::Terminar() {
    if (relacion_.LaForma() == Forma::PorPosicion) TerminarUnidad();
    std::vector<bool> unidadesMalas;
    const auto cadaUnidad = [&](auto hacer) {
        for (std::size_t archivo = 0; archivo < nodos_.size(); ++archivo) {
            for (std::size_t registro = 0; registro < nodos_[archivo].size(); ++registro) {
                const auto nodo = nodos_[archivo][registro];
                if (nodo != RelacionDeRegistros::sinUnidad) hacer(malas_[archivo][registro], nodo, relacion_.Unidad(nodo));
            }
        }
    };
    cadaUnidad([&](std::vector<bool>::reference mala, std::uint32_t nodo, std::uint32_t unidad) {
        if (unidad >= unidadesMalas.size()) unidadesMalas.resize(unidad + std::size_t{1});
        if (mala || !relacion_.TienePrincipal(nodo)) unidadesMalas[unidad] = true;
    });
    cadaUnidad([&](std::vector<bool>::reference mala, std::uint32_t, std::uint32_t unidad) { mala = unidadesMalas[unidad]; });
}

// All records since the last main record share its lot.
void UnidadesDeRegistros::TerminarUnidad() {
    auto& malas = malas_.front();
    if (unidadMala_) std::fill(malas.begin() + static_cast<std::ptrdiff_t>(principio_), malas.end(), true);
    principio_ = malas.size();
    unidadMala_ = false;
}

}  // namespace qor
