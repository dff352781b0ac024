#include "abap/machine/list.h"

#include <algorithm>

namespace qor::abap {

namespace {

constexpr int saltoMaximo = 60000;  // lines of SKIP at once

}  // namespace

void Lista::Entregar() {
    if (!abierta_) return;
    const auto fin = linea_.find_last_not_of(' ');
    linea_.resize(fin == std::string::npos ? 0 : fin + 1);
    if (!linea_.empty() || enBlanco_) {
        for (; saltadas_ > 0; --saltadas_) salida_.Linea("");
        salida_.Linea(linea_);
    }
    linea_.clear();
    abierta_ = false;
}

void Lista::NuevaLinea() {
    Entregar();
    columna_ = 1;
}

void Lista::Terminar() { NuevaLinea(); }

void Lista::Posicion(int columna) {
    if (columna >= 1 && columna <= ancho_) columna_ = columna;
}

void Lista::Poner(std::string_view texto) {
    const auto desde = static_cast<std::size_t>(columna_ - 1);
    if (linea_.size() < desde + texto.size()) linea_.resize(desde + texto.size(), ' ');
    linea_.replace(desde, texto.size(), texto);
    abierta_ = true;
}

void Lista::Escribir(std::string_view texto, bool conHueco) {
    const auto ancho = static_cast<std::size_t>(ancho_);
    if (columna_ > 1 && static_cast<std::size_t>(columna_ - 1) + texto.size() > ancho) NuevaLinea();
    texto = texto.substr(0, ancho);
    Poner(texto);
    columna_ += static_cast<int>(texto.size()) + (conHueco && !texto.empty() ? 1 : 0);
}

void Lista::Saltar(int lineas) {
    NuevaLinea();
    saltadas_ = std::min(saltadas_ + std::clamp(lineas, 0, saltoMaximo), saltoMaximo);
}

void Lista::Raya(int columna, int largo) {
    Posicion(columna);
    const int queda = ancho_ - columna_ + 1;
    Escribir(std::string(static_cast<std::size_t>(std::clamp(largo, 0, std::max(queda, 0))), '-'), true);
}

void Lista::RayaEntera() {
    NuevaLinea();
    Raya(1, ancho_);
    NuevaLinea();
}

}  // namespace qor::abap
