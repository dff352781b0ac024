#pragma once

#include <array>
#include <cstddef>

#include "abap/values/number.h"

// What reading, calculating and writing of packed numbers have in common.
namespace qor::abap {

inline constexpr std::size_t maximoDeDigitos = 31;

// Ten to the 0 to 38.
inline constexpr std::array<Entero128, 39> potencias = [] {
    std::array<Entero128, 39> tabla{};
    Entero128 potencia = 1;
    for (std::size_t i = 0; i < tabla.size(); ++i) {
        tabla[i] = potencia;
        if (i + 1 < tabla.size()) potencia *= 10;
    }
    return tabla;
}();

constexpr Entero128 Absoluto(Entero128 valor) { return valor < 0 ? -valor : valor; }
constexpr bool CabeEn64(Entero128 valor) { return valor >= INT64_MIN && valor <= INT64_MAX; }
int CuentaDeDigitos(Entero128 valor);

// The value divided by ten to the `lugares`, rounded half away from zero.
Entero128 QuitarLugares(Entero128 valor, int lugares);

// Brings a packed number down to 31 digits, 31 of them decimals at most, by rounding decimals. Throws COMPUTE_BCD_OVERFLOW.
void Ajustar(Numero& numero);

// The whole number nearest to it.
Entero128 Redondear(const Numero& numero);

// Of a packed number or an integer.
double FlotanteDe(const Numero& numero);
// A packed number with up to `decimales` decimals, rounded half away from zero.
Numero EmpaquetadoDe(double valor, int decimales);

[[noreturn]] void FallarPorEmpaquetado();  // COMPUTE_BCD_OVERFLOW
[[noreturn]] void FallarPorEntero();       // CONVT_OVERFLOW

}  // namespace qor::abap
