#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "abap/values/conversion.h"
#include "abap/values/field.h"

namespace qor::abap {

// Below 0, 0 or above 0. C or N with a number, C with N, and N with N compare as numbers, D and T with numbers too; all else as
// texts, the shorter one padded with blanks. A structure or a STRING counts as C; X with X compares bytes, X with characters its
// hexadecimal digits. Throws CONVT_NO_NUMBER.
inline int Comparar(const Campo& a, const Campo& b);

enum class Relacion : std::uint8_t { EQ, NE, LT, LE, GT, GE, CO, CN, CA, NA, CS, NS, CP, NP };

// Whether the relation holds. CO to NP set `fdpos` (SY-FDPOS) as the language has it; the others leave it.
inline bool Vale(Relacion relacion, const Campo& a, const Campo& b, std::int32_t& fdpos);

// CO to NP.
bool ValeEnTexto(Relacion relacion, const Campo& a, const Campo& b, std::int32_t& fdpos);

// How values of two types are compared.
enum class FormaDeComparar : std::uint8_t { Texto, Numero, Flotante, Bytes, TextoDeBytes };
FormaDeComparar FormaDe(Tipo a, Tipo b);

// The bytes by which two values that are equal are the same, for looking up equal values by hash: equal keys if and only if
// Comparar(valor, other) is 0, for a component of type `tipoDelComponente` compared with a value of `tipoDelValor`; `valor` is
// either of the two. Put behind what `clave` holds. False where that can't be said.
bool ClaveDeIgualdad(const Campo& valor, Tipo tipoDelComponente, Tipo tipoDelValor, std::string& clave);

// ---- The frequent comparisons, at their place of use ----

int CompararConvirtiendo(const Campo& a, const Campo& b);

// The sign of the difference between a text and blanks.
inline int CompararConBlancos(const std::uint8_t* texto, std::size_t largo) {
    std::size_t i = 0;
    for (std::uint64_t pieza = 0; i + sizeof pieza <= largo; i += sizeof pieza) {
        std::memcpy(&pieza, texto + i, sizeof pieza);
        if (pieza != ochoBlancos) break;
    }
    for (; i < largo; ++i) {
        if (texto[i] != ' ') return texto[i] < ' ' ? -1 : 1;
    }
    return 0;
}

inline int CompararTextos(const std::uint8_t* a, std::size_t largoA, const std::uint8_t* b, std::size_t largoB) {
    const auto comun = std::min(largoA, largoB);
    if (comun > 0) {
        if (*a != *b) return *a < *b ? -1 : 1;
        if (const int orden = std::memcmp(a, b, comun); orden != 0) return orden;
    }
    if (largoA > comun) return CompararConBlancos(a + comun, largoA - comun);
    return -CompararConBlancos(b + comun, largoB - comun);
}

inline int Comparar(const Campo& a, const Campo& b) {
    if (EsDelConjunto(a.tipo, tiposDeTexto) && EsDelConjunto(b.tipo, tiposDeTexto))
        return CompararTextos(a.datos, a.largo, b.datos, b.largo);
    return CompararConvirtiendo(a, b);
}

inline bool Vale(Relacion relacion, const Campo& a, const Campo& b, std::int32_t& fdpos) {
    switch (relacion) {
        case Relacion::EQ: return Comparar(a, b) == 0;
        case Relacion::NE: return Comparar(a, b) != 0;
        case Relacion::LT: return Comparar(a, b) < 0;
        case Relacion::LE: return Comparar(a, b) <= 0;
        case Relacion::GT: return Comparar(a, b) > 0;
        case Relacion::GE: return Comparar(a, b) >= 0;
        default: return ValeEnTexto(relacion, a, b, fdpos);
    }
}

}  // namespace qor::abap
