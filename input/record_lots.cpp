#include "input/record_lots.h"

#include <algorithm>

#include "base/failure.h"

namespace qor {

namespace {

using Forma = RelacionDeRegistros::Forma;

}  // namespace

void ExigirComparables(const RelacionDeRegistros& relacion, const std::string& que) {
    if (relacion.SinComparar().empty()) return;
    const auto& una = relacion.SinComparar().front();
    throw FalloDeEjecucion(que + ": " + una.campo + (una.campo.empty() ? "" : ": ") + una.texto);
}

LotesDeRegistros::LotesDeRegistros(const RelacionDeRegistros& relacion, std::size_t archivos, bool sueltosMalos)
    : relacion_(relacion), sueltosMalos_(sueltosMalos), malos_(archivos), nodos_(archivos) {}

void LotesDeRegistros::Agregar(int archivo, std::uint32_t unidad, bool malo) {
    const auto lugar = static_cast<std::size_t>(archivo);
    if (relacion_.LaForma() == Forma::PorPosicion) {
        if (unidad != unidad_) TerminarPosicion();
        unidad_ = unidad;
        unidadMala_ = unidadMala_ || malo;
    }
    malos_[lugar].push_back(malo);
    if (relacion_.LaForma() == Forma::PorClaves) nodos_[lugar].push_back(unidad);
}

// The one file: all lines since the last main record.
void LotesDeRegistros::TerminarPosicion() {
    auto& malos = malos_.front();
    if (unidadMala_) std::fill(malos.begin() + static_cast<std::ptrdiff_t>(principio_), malos.end(), true);
    principio_ = malos.size();
    unidadMala_ = false;
}

void LotesDeRegistros::Terminar() {
    if (relacion_.LaForma() == Forma::PorPosicion) TerminarPosicion();
    std::vector<bool> unidadesMalas;
    const auto cadaUnido = [this](auto hacer) {
        for (std::size_t archivo = 0; archivo < nodos_.size(); ++archivo) {
            for (std::size_t linea = 0; linea < nodos_[archivo].size(); ++linea) {
                const auto nodo = nodos_[archivo][linea];
                if (nodo != RelacionDeRegistros::sinUnidad) hacer(malos_[archivo][linea], nodo, relacion_.Unidad(nodo));
            }
        }
    };
    cadaUnido([&](std::vector<bool>::reference malo, std::uint32_t nodo, std::uint32_t unidad) {
        if (unidad >= unidadesMalas.size()) unidadesMalas.resize(unidad + std::size_t{1});
        if (malo || (sueltosMalos_ && !relacion_.TienePrincipal(nodo))) unidadesMalas[unidad] = true;
    });
    cadaUnido([&](std::vector<bool>::reference malo, std::uint32_t, std::uint32_t unidad) { malo = unidadesMalas[unidad]; });
}

bool LotesDeRegistros::Malo(int archivo, std::uint64_t numero) const {
    const auto& malos = malos_[static_cast<std::size_t>(archivo)];
    return numero >= malos.size() || malos[static_cast<std::size_t>(numero)];
}

}  // namespace qor
