#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qor {

// A number as a spreadsheet shows it: its first fifteen decimal digits, which is all that it keeps.
class DecimalDeCelda {
public:
    static constexpr int precision = 15;

    // `numero` has to be finite.
    explicit DecimalDeCelda(double numero);

    bool Negativo() const { return negativo_ && !EsCero(); }
    bool EsCero() const { return digitos_.empty(); }
    // Digits of the integer part.
    int LargoEntero() const { return EsCero() ? 0 : punto_; }
    // Digits behind the point, without zeros at the end.
    int Decimales() const;

    // Times ten to the power of n.
    void Desplazar(int n) { punto_ += EsCero() ? 0 : n; }
    // To `decimales` digits behind the point; a five goes away from zero.
    void Redondear(int decimales);

    // The number without its sign, with at least so many digits in front of the point and behind it.
    std::string Texto(int enteros, int decimales, char signo) const;

private:
    bool negativo_ = false;
    std::string digitos_;  // without zeros at both ends; the number is 0.digits times ten to the power of `punto_`
    int punto_ = 0;

    void Recortar();
};

// The number in plain digits with a point, without an exponent: "-0.125". Fifteen digits at most are those of the number.
std::string NumeroCompleto(double numero);

// The number that a whole text is, such as "1.5E-3". False for anything else, and for what is not finite.
bool LeerNumeroDeCelda(std::string_view texto, double& numero);

}  // namespace qor
