#pragma once

#include "abap/values/field.h"

namespace qor::abap {

// The type of a part of a field, by its own type: what is left of a date or a time are digits.
constexpr Tipo TipoDeParte(Tipo tipo) {
    switch (tipo) {
        case Tipo::D:
        case Tipo::T: return Tipo::N;
        case Tipo::Estructura:
        case Tipo::Cadena: return Tipo::C;
        default: return tipo;
    }
}

}  // namespace qor::abap
