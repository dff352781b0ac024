#include "practice/batch_rows.h"

#include <algorithm>

namespace qor {

std::span<const FilaDeBDC> LectorDeFilas::Leer(const abap::TablaInterna& tabla) {
    Situar(tabla.Linea());
    const std::size_t cuantas = tabla.Filas();
    filas_.resize(cuantas);
    for (std::size_t i = 0; i < cuantas; ++i) {
        const auto* fila = reinterpret_cast<const char*>(tabla.Fila(i));
        const auto texto = [fila](const Tramo& tramo) {
            return SinBlancosDetras(std::string_view(fila + tramo.lugar, tramo.largo));
        };
        filas_[i] = {texto(programa_), texto(dynpro_), texto(abre_) == "X", texto(campo_), texto(valor_)};
    }
    return filas_;
}

void LectorDeFilas::Situar(const abap::TipoDeCampo& linea) {
    if (linea.estructura == estructura_ && linea.largo == largo_) return;
    estructura_ = linea.estructura;
    largo_ = linea.largo;
    struct Columna {
        Tramo& tramo;
        const char* nombre;
        Tramo enBDCDATA;
    };
    const Columna columnas[] = {{programa_, "PROGRAM", {0, 40}},
                                {dynpro_, "DYNPRO", {40, 4}},
                                {abre_, "DYNBEGIN", {44, 1}},
                                {campo_, "FNAM", {45, 132}},
                                {valor_, "FVAL", {177, 132}}};
    bool alguna = false;
    for (const auto& columna : columnas) {
        const auto* componente = estructura_ ? estructura_->Buscar(columna.nombre) : nullptr;
        const bool sirve = componente && componente->tipo.tipo != abap::Tipo::Cadena;
        columna.tramo = sirve ? Tramo{componente->desplazamiento, componente->tipo.largo} : Tramo{};
        alguna = alguna || sirve;
    }
    if (alguna || linea.tipo == abap::Tipo::Cadena) return;
    for (const auto& columna : columnas) {
        const auto lugar = std::min(columna.enBDCDATA.lugar, largo_);
        columna.tramo = {lugar, std::min(columna.enBDCDATA.largo, largo_ - lugar)};
    }
}

}  // namespace qor
