#pragma once

#include <cstdint>

#include "abap/values/field.h"

// Calculation. One of I when all operands and the target are I, one of F when one of them is F, else one of P with 31 digits.
namespace qor::abap {

__extension__ typedef __int128 Entero128;  // NOLINT: the compiler wants to be told that this is meant

enum class Calculo : std::uint8_t { Entero, Empaquetado, Flotante };

// A value in a calculation. A packed one is `digitos` divided by ten to the `escala`.
struct Numero {
    Calculo clase = Calculo::Entero;
    std::uint8_t escala = 0;
    Entero128 digitos = 0;  // also of integers
    double flotante = 0;
};

// The value of a field in the kind of the calculation. D counts days, T seconds, X is a number without sign or, of four bytes, with
// it. Throws CONVT_NO_NUMBER.
Numero LeerNumero(const Campo& campo, Calculo clase);

// + - * / and D (DIV), M (MOD), ^ (**). Throws COMPUTE_INT_ZERODIVIDE, COMPUTE_BCD_ZERODIVIDE, COMPUTE_INT_PLUS_OVERFLOW and their
// kin, COMPUTE_BCD_OVERFLOW. Zero divided by zero is zero.
Numero Calcular(char operador, const Numero& a, const Numero& b);

enum class FuncionNumerica : std::uint8_t { Abs, Sign, Ceil, Floor, Trunc, Frac };
Numero Calcular(FuncionNumerica funcion, const Numero& valor);
Numero Negar(const Numero& valor);

// Into the target, rounded half away from zero. Throws the overflow of the target's type, MOVE_TO_LIT_NOTALLOWED.
void PonerNumero(const Numero& valor, const Campo& destino);

int CompararNumeros(const Numero& a, const Numero& b);

}  // namespace qor::abap
