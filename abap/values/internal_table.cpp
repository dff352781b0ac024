#include "abap/values/internal_table.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

#include "abap/values/comparison.h"
#include "abap/values/row_index.h"

namespace qor::abap {
namespace {

constexpr std::size_t primerBloque = 2048;  // bytes
constexpr std::size_t mayorBloque = 1U << 20;
constexpr std::size_t guardado = 256U * 1024;  // that an empty table keeps
constexpr std::size_t mayoresIndices = 8;

std::size_t AnchoDe(const TipoDeCampo& linea) { return linea.tipo == Tipo::Cadena ? sizeof(std::string) : linea.largo; }

}  // namespace

TablaInterna::TablaInterna(TipoDeCampo linea) : linea_(linea) {
    paso_ = AnchoDe(linea_) + 1;
    if (linea_.tipo == Tipo::Cadena) paso_ = (paso_ + alignof(std::string) - 1) / alignof(std::string) * alignof(std::string);
}

TablaInterna::TablaInterna(TablaInterna&& otra) noexcept : TablaInterna(otra.linea_) { *this = std::move(otra); }

TablaInterna& TablaInterna::operator=(TablaInterna&& otra) noexcept {
    std::swap(linea_, otra.linea_);
    std::swap(paso_, otra.paso_);
    filas_.swap(otra.filas_);
    bloques_.swap(otra.bloques_);
    libres_.swap(otra.libres_);
    std::swap(bloque_, otra.bloque_);
    std::swap(usadas_, otra.usadas_);
    indices_.swap(otra.indices_);
    std::swap(vigilada_, otra.vigilada_);
    std::swap(agregadas_, otra.agregadas_);
    std::swap(encontradas_, otra.encontradas_);
    return *this;
}

TablaInterna::~TablaInterna() {
    if (linea_.tipo == Tipo::Cadena) std::for_each(filas_.begin(), filas_.end(), [this](std::uint8_t* fila) { Terminar(fila); });
}

Campo TablaInterna::CampoDeFila(std::size_t i) const {
    Campo campo;
    campo.tipo = linea_.tipo;
    campo.largo = linea_.largo;
    campo.decimales = linea_.decimales;
    if (linea_.tipo == Tipo::Cadena) {
        campo.largo = 0;
        campo.cadena = reinterpret_cast<std::string*>(filas_[i]);
    } else {
        campo.datos = filas_[i];
    }
    return campo;
}

void TablaInterna::Iniciar(std::uint8_t* fila) {
    if (linea_.tipo == Tipo::Cadena) new (fila) std::string();
    if (!vigilada_) return;
    fila[AnchoDe(linea_)] = 0;
    ++agregadas_;
}

void TablaInterna::Terminar(std::uint8_t* fila) {
    if (linea_.tipo == Tipo::Cadena) std::destroy_at(reinterpret_cast<std::string*>(fila));
}

std::uint8_t* TablaInterna::Nueva() {
    std::uint8_t* fila = nullptr;
    if (!libres_.empty()) {
        fila = libres_.back();
        libres_.pop_back();
    } else {
        if (bloque_ < bloques_.size() && usadas_ == bloques_[bloque_].capacidad) {
            ++bloque_;
            usadas_ = 0;
        }
        if (bloque_ == bloques_.size()) {
            const auto bytes = bloques_.empty() ? primerBloque : std::min(2 * bloques_.back().capacidad * paso_, mayorBloque);
            const auto capacidad = std::max<std::size_t>(1, bytes / paso_);
            bloques_.push_back({std::unique_ptr<std::uint8_t[]>(new std::uint8_t[capacidad * paso_]), capacidad});
        }
        fila = bloques_[bloque_].memoria.get() + usadas_++ * paso_;
    }
    Iniciar(fila);
    return fila;
}

std::uint8_t* TablaInterna::Agregar() {
    if (filas_.size() == filas_.capacity() && filas_.size() > mayorBloque) filas_.reserve(filas_.size() + filas_.size() / 4);
    auto* fila = Nueva();
    filas_.push_back(fila);
    return fila;
}

std::uint8_t* TablaInterna::Insertar(std::size_t i) {
    Cambia();
    auto* fila = Nueva();
    filas_.insert(filas_.begin() + static_cast<std::ptrdiff_t>(i), fila);
    pasadas_.Inserta(i);
    return fila;
}

void TablaInterna::Borrar(std::size_t i) {
    Cambia();
    Terminar(filas_[i]);
    libres_.push_back(filas_[i]);
    filas_.erase(filas_.begin() + static_cast<std::ptrdiff_t>(i));
    pasadas_.Borra(i);
}

void TablaInterna::Vaciar() {
    Cambia();
    if (linea_.tipo == Tipo::Cadena) std::for_each(filas_.begin(), filas_.end(), [this](std::uint8_t* fila) { Terminar(fila); });
    filas_.clear();
    libres_.clear();
    bloque_ = 0;
    usadas_ = 0;
    if (simbolos_) return;  // some of them may still stand for rows that were here
    std::size_t bytes = 0;
    std::size_t quedan = 0;
    for (; quedan < bloques_.size(); ++quedan) {
        bytes += bloques_[quedan].capacidad * (paso_ + sizeof(std::uint8_t*));
        if (bytes > guardado) break;
    }
    if (quedan == bloques_.size()) return;
    bloques_.resize(quedan);
    filas_.shrink_to_fit();
    libres_.shrink_to_fit();
}

bool TablaInterna::Cumple(std::size_t i, std::span<const Igualdad> igualdades) const {
    return std::all_of(igualdades.begin(), igualdades.end(), [this, i](const Igualdad& igualdad) {
        if (linea_.tipo == Tipo::Cadena) return Comparar(CampoDeFila(i), igualdad.valor) == 0;
        return Comparar(CampoDeComponente(igualdad.componente, filas_[i]), igualdad.valor) == 0;
    });
}

std::size_t TablaInterna::BuscarUnaPorUna(std::span<const Igualdad> igualdades, std::size_t desde) const {
    while (desde < Filas() && !Cumple(desde, igualdades)) ++desde;
    return std::min(desde, Filas());
}

TablaInterna::Indice& TablaInterna::IndiceDe(std::span<const Igualdad> igualdades) {
    const auto hallado =
        std::find_if(indices_.begin(), indices_.end(), [&](const auto& indice) { return indice->EsDe(igualdades); });
    if (hallado != indices_.end()) return **hallado;
    if (indices_.size() == mayoresIndices) indices_.erase(indices_.begin());
    indices_.push_back(std::make_unique<Indice>(igualdades));
    return *indices_.back();
}

std::size_t TablaInterna::BuscarIguales(std::span<const Igualdad> igualdades, std::size_t desde) {
    if (desde >= Filas() || igualdades.empty() || linea_.tipo == Tipo::Cadena) return BuscarUnaPorUna(igualdades, desde);
    auto& indice = IndiceDe(igualdades);
    std::size_t fila = 0;
    if (indice.Conviene(*this) && indice.Completar(*this) && indice.Buscar(*this, igualdades, desde, fila)) return fila;
    fila = BuscarUnaPorUna(igualdades, desde);
    indice.Contar(fila - desde + 1);
    return fila;
}

void TablaInterna::SoltarIndices() {
    for (const auto& indice : indices_) indice->Soltar();
}

void TablaInterna::Vigilar() {
    if (vigilada_) return;
    vigilada_ = true;
    agregadas_ = filas_.size();
    for (auto* fila : filas_) fila[AnchoDe(linea_)] = 0;
}

void TablaInterna::Encontrar(std::size_t i) {
    if (!vigilada_) return;
    auto& marca = filas_[i][AnchoDe(linea_)];
    if (marca != 0) return;
    marca = 1;
    ++encontradas_;
}

}  // namespace qor::abap
