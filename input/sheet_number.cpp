#include "input/sheet_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace qor {

DecimalDeCelda::DecimalDeCelda(double numero) : negativo_(std::signbit(numero)) {
    char texto[40];
    const char* const fin =
        std::to_chars(texto, texto + sizeof texto, std::fabs(numero), std::chars_format::scientific, precision - 1).ptr;
    digitos_ = texto[0];
    digitos_.append(texto + 2, precision - 1);
    const char* const exponente = texto + 2 + precision;  // its sign
    std::from_chars(exponente + 1, fin, punto_);
    punto_ = (*exponente == '-' ? -punto_ : punto_) + 1;
    Recortar();
}

void DecimalDeCelda::Recortar() {
    digitos_.erase(digitos_.find_last_not_of('0') + 1);
    if (digitos_.empty()) punto_ = 0;
}

int DecimalDeCelda::Decimales() const { return std::max(0, static_cast<int>(digitos_.size()) - punto_); }

void DecimalDeCelda::Redondear(int decimales) {
    const int quedan = punto_ + decimales;
    if (quedan >= static_cast<int>(digitos_.size())) return;
    if (quedan < 0) {
        digitos_.clear();
        return Recortar();
    }
    const auto corte = static_cast<std::size_t>(quedan);
    const bool subir = digitos_[corte] >= '5';
    digitos_.resize(corte);
    if (subir) {
        auto lugar = corte;
        while (lugar > 0 && digitos_[lugar - 1] == '9') digitos_[--lugar] = '0';
        if (lugar > 0) {
            ++digitos_[lugar - 1];
        } else {
            digitos_.insert(digitos_.begin(), '1');
            ++punto_;
        }
    }
    Recortar();
}

std::string DecimalDeCelda::Texto(int enteros, int decimales, char signo) const {
    const auto digito = [this](int lugar) {
        return lugar >= 0 && lugar < static_cast<int>(digitos_.size()) ? digitos_[static_cast<std::size_t>(lugar)] : '0';
    };
    std::string texto;
    const int delante = std::max(enteros, punto_);
    for (int i = -delante; i < 0; ++i) texto += digito(punto_ + i);
    const int detras = std::max(decimales, Decimales());
    if (detras > 0) texto += signo;
    for (int i = 0; i < detras; ++i) texto += digito(punto_ + i);
    return texto;
}

std::string NumeroCompleto(double numero) {
    const DecimalDeCelda decimal(numero);
    return (decimal.Negativo() ? "-" : "") + decimal.Texto(1, 0, '.');
}

bool LeerNumeroDeCelda(std::string_view texto, double& numero) {
    const auto leido = std::from_chars(texto.data(), texto.data() + texto.size(), numero);
    return leido.ec == std::errc() && leido.ptr == texto.data() + texto.size() && std::isfinite(numero);
}

}  // namespace qor
