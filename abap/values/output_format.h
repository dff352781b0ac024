#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "abap/values/field.h"

// How WRITE shows a value, in a list and in WRITE ... TO.
namespace qor::abap {

struct FormatoDeSalida {
    bool sinCero = false;          // NO-ZERO
    bool sinSigno = false;         // NO-SIGN
    bool sinGrupos = false;        // NO-GROUPING
    std::optional<int> decimales;  // DECIMALS n
    enum class Ajuste : std::uint8_t { Ninguno, Izquierda, Centro, Derecha } ajuste = Ajuste::Ninguno;
    std::string mascara;  // USING EDIT MASK, or DD/MM/YYYY and its kin
};

// The width that a value takes in a list without a length: characters their length, I 11, P 2n or one more with decimals, D 10, T
// 8, F 22, X 2n; a STRING its length.
int AnchoDeSalida(const Campo& campo);

// The value in that width.
std::string TextoDeSalida(const Campo& campo, int ancho, const FormatoDeSalida& formato);

// WRITE ... TO.
void EscribirEn(const Campo& campo, const Campo& destino, const FormatoDeSalida& formato);

}  // namespace qor::abap
