#include "abap/values/row_index.h"

#include <bit>

namespace qor::abap {
namespace {

constexpr std::size_t pocasFilas = 16;
constexpr std::size_t grande = 1U << 16;  // an index that is not kept for the next time

std::uint64_t Mezclar(std::string_view texto) {
    constexpr std::uint64_t factor = 0x9E3779B97F4A7C15U;
    std::uint64_t suma = texto.size() * factor;
    while (!texto.empty()) {
        std::uint64_t pieza = 0;
        const auto cuantos = std::min<std::size_t>(texto.size(), sizeof pieza);
        std::memcpy(&pieza, texto.data(), cuantos);
        texto.remove_prefix(cuantos);
        suma = (suma ^ pieza) * factor;
        suma ^= suma >> 32;
    }
    return suma;
}

}  // namespace

TablaInterna::Indice::Indice(std::span<const Igualdad> igualdades) {
    for (const auto& igualdad : igualdades) partes_.push_back({igualdad.componente, igualdad.valor.tipo});
}

bool TablaInterna::Indice::EsDe(std::span<const Igualdad> igualdades) const {
    return std::equal(
        partes_.begin(), partes_.end(), igualdades.begin(), igualdades.end(), [](const Parte& parte, const Igualdad& otra) {
            const auto& tipo = parte.componente.tipo;
            const auto& otroTipo = otra.componente.tipo;
            return parte.componente.desplazamiento == otra.componente.desplazamiento && tipo.tipo == otroTipo.tipo &&
                   tipo.largo == otroTipo.largo && tipo.decimales == otroTipo.decimales && parte.tipoDelValor == otra.valor.tipo;
        });
}

bool TablaInterna::Indice::Conviene(const TablaInterna& tabla) {
    if (imposible_ || tabla.Filas() >= nada) return false;
    return !ultimas_.empty() || (tabla.Filas() > pocasFilas && gastado_ >= tabla.Filas());
}

bool TablaInterna::Indice::CubetaDe(const std::uint8_t* fila, std::uint32_t& cubeta) {
    clave_.clear();
    for (const auto& parte : partes_) {
        const auto campo = CampoDeComponente(parte.componente, const_cast<std::uint8_t*>(fila));
        if (!ClaveDeIgualdad(campo, campo.tipo, parte.tipoDelValor, clave_)) return false;
        clave_ += '\0';
    }
    cubeta = Dispersar();
    return true;
}

bool TablaInterna::Indice::CubetaDe(std::span<const Igualdad> igualdades, std::uint32_t& cubeta) {
    clave_.clear();
    for (const auto& igualdad : igualdades) {
        if (!ClaveDeIgualdad(igualdad.valor, igualdad.componente.tipo.tipo, igualdad.valor.tipo, clave_)) return false;
        clave_ += '\0';
    }
    cubeta = Dispersar();
    return true;
}

std::uint32_t TablaInterna::Indice::Dispersar() const {
    return static_cast<std::uint32_t>(Mezclar(clave_) & (ultimas_.size() - 1));
}

void TablaInterna::Indice::Preparar(std::size_t filas) {
    ultimas_.assign(std::bit_ceil(std::max<std::size_t>(filas, pocasFilas)), nada);
    siguientes_.clear();
    siguientes_.reserve(filas);
    cubetaHallada_ = nada;
}

bool TablaInterna::Indice::Completar(const TablaInterna& tabla) {
    const auto filas = tabla.Filas();
    if (ultimas_.empty() || filas > 2 * ultimas_.size()) Preparar(filas);
    while (siguientes_.size() < filas) {
        const auto fila = static_cast<std::uint32_t>(siguientes_.size());
        std::uint32_t cubeta = 0;
        if (!CubetaDe(tabla.Fila(fila), cubeta)) {
            Soltar();
            imposible_ = true;
            return false;
        }
        auto& ultima = ultimas_[cubeta];
        if (ultima == nada) {
            siguientes_.push_back(fila);
        } else {
            siguientes_.push_back(siguientes_[ultima]);
            siguientes_[ultima] = fila;
        }
        ultima = fila;
    }
    return true;
}

bool TablaInterna::Indice::Buscar(const TablaInterna& tabla, std::span<const Igualdad> igualdades, std::size_t desde,
                                  std::size_t& fila) {
    std::uint32_t cubeta = 0;
    if (!CubetaDe(igualdades, cubeta)) return false;
    fila = tabla.Filas();
    const auto ultima = ultimas_[cubeta];
    if (ultima == nada || ultima < desde) return true;
    // A loop goes on behind its last row, which hangs in the same ring.
    auto actual = siguientes_[ultima];
    std::uint32_t anterior = 0;
    if (desde > 0 &&
        ((desde == hallada_ && cubeta == cubetaHallada_) || (CubetaDe(tabla.Fila(desde - 1), anterior) && anterior == cubeta))) {
        actual = siguientes_[desde - 1];
    }
    for (;; actual = siguientes_[actual]) {
        if (actual >= desde && tabla.Cumple(actual, igualdades)) {
            fila = actual;
            hallada_ = fila + 1;
            cubetaHallada_ = cubeta;
            return true;
        }
        if (actual == ultima) return true;
    }
}

void TablaInterna::Indice::Soltar() {
    if (siguientes_.size() >= grande) {
        ultimas_ = {};
        siguientes_ = {};
    }
    ultimas_.clear();
    siguientes_.clear();
    gastado_ = 0;
    imposible_ = false;
    cubetaHallada_ = nada;
}

}  // namespace qor::abap
