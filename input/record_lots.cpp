#include "input/record_lots.h"

#include <algorithm>

namespace qor {

namespace {

using Forma = RelacionDeRegistros::Forma;

}  // namespace

LotesDeRegistros::LotesDeRegistros(const RelacionDeRegistros& relacion, const DisenoDeEntrada& diseno)
    : relacion_(relacion),
      malos_(diseno.Archivos().size()),
      nodos_(diseno.Archivos().size()),
      porPosicion_(diseno.ArchivoUnico() && relacion.LaForma() != Forma::PorClaves) {}

void LotesDeRegistros::Agregar(int archivo, int clase, std::uint32_t unidad, bool malo) {
    const auto lugar = static_cast<std::size_t>(archivo);
    if (porPosicion_ && clase == 0) TerminarPosicion();
    unidadMala_ = unidadMala_ || malo;
    malos_[lugar].push_back(malo);
    if (relacion_.LaForma() == Forma::PorClaves) nodos_[lugar].push_back(unidad);
}

void LotesDeRegistros::TerminarPosicion() {
    auto& malos = malos_.front();
    if (unidadMala_) std::fill(malos.begin() + static_cast<std::ptrdiff_t>(principio_), malos.end(), true);
    principio_ = malos.size();
    unidadMala_ = false;
}

void LotesDeRegistros::Terminar() {
    if (porPosicion_) TerminarPosicion();
    std::vector<bool> unidadesMalas;
    const auto cadaUnido = [this](auto hacer) {
        for (std::size_t archivo = 0; archivo < nodos_.size(); ++archivo) {
            for (std::size_t linea = 0; linea < nodos_[archivo].size(); ++linea) {
                const auto nodo = nodos_[archivo][linea];
                if (nodo != RelacionDeRegistros::sinUnidad) hacer(malos_[archivo][linea], relacion_.Unidad(nodo));
            }
        }
    };
    cadaUnido([&](std::vector<bool>::reference malo, std::uint32_t unidad) {
        if (unidad >= unidadesMalas.size()) unidadesMalas.resize(unidad + std::size_t{1});
        if (malo) unidadesMalas[unidad] = true;
    });
    cadaUnido([&](std::vector<bool>::reference malo, std::uint32_t unidad) { malo = unidadesMalas[unidad]; });
}

bool LotesDeRegistros::Malo(int archivo, std::uint64_t numero) const {
    const auto& malos = malos_[static_cast<std::size_t>(archivo)];
    return numero >= malos.size() || malos[static_cast<std::size_t>(numero)];
}

}  // namespace qor
