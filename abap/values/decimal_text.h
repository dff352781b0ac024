#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "abap/values/number.h"

// Numbers as texts hold them, digits of any length.
namespace qor::abap {

// A number that a text spells. The parts are pieces of the text; in front of `enteros` stand no zeros.
struct DecimalDeTexto {
    bool negativo = false;
    std::string_view enteros;
    std::string_view fraccion;
};

// Blanks, a sign in front or behind, digits with one point; only blanks are zero. Nothing for any other text.
std::optional<DecimalDeTexto> LeerDecimal(std::string_view texto);

// The same with an exponent.
std::optional<double> LeerFlotante(std::string_view texto);

// A text without surprises: digits, and blanks around them, that make a number of at most 18 digits.
bool LeerEnteroCorto(std::string_view texto, std::int64_t& valor);

// A packed number of 31 digits at most, its fraction rounded where it has more. Throws the overflow.
Numero NumeroDe(const DecimalDeTexto& decimal);

// Digits without sign, with a "." in front of the last `escala` ones.
std::string CifrasDe(Entero128 digitos, int escala);

// As the language has it without a format: 1.2340000000000000E+01, right-justified in `ancho` places, with fewer digits where they
// don't fit, "*" in the first place where nothing does. `decimales` of the mantissa at most.
std::string TextoCientifico(double valor, std::size_t ancho, char coma, int decimales = 16);

[[noreturn]] void FallarSinNumero(std::string_view texto);

}  // namespace qor::abap
