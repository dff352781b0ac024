#include "abap/values/decimal_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

#include "abap/short_dump.h"
#include "abap/values/arithmetic.h"
#include "abap/values/conversion.h"
#include "base/text.h"

namespace qor::abap {
namespace {

bool EsDigito(char c) { return c >= '0' && c <= '9'; }

std::string_view SinBlancosDelante(std::string_view texto) {
    const auto inicio = texto.find_first_not_of(' ');
    return inicio == std::string_view::npos ? std::string_view() : texto.substr(inicio);
}

std::string_view TomarDigitos(std::string_view& texto) {
    std::size_t cuenta = 0;
    while (cuenta < texto.size() && EsDigito(texto[cuenta])) ++cuenta;
    const auto digitos = texto.substr(0, cuenta);
    texto.remove_prefix(cuenta);
    return digitos;
}

// Takes the sign at one end of a text off it, with the blanks between the two.
bool QuitarSigno(std::string_view& texto, bool& negativo) {
    if (texto.empty()) return false;
    if (texto.front() == '-' || texto.front() == '+') {
        negativo = texto.front() == '-';
        texto = SinBlancosDelante(texto.substr(1));
        return true;
    }
    if (texto.back() == '-' || texto.back() == '+') {
        negativo = texto.back() == '-';
        texto.remove_suffix(1);
        texto = SinBlancosDetras(texto);
        return true;
    }
    return false;
}

}  // namespace

void FallarSinNumero(std::string_view texto) {
    throw Volcado("CONVT_NO_NUMBER", "\"" + std::string(SinBlancosDetras(texto)) + "\" is not a number");
}

std::optional<DecimalDeTexto> LeerDecimal(std::string_view texto) {
    texto = SinBlancosDelante(SinBlancosDetras(texto));
    DecimalDeTexto decimal;
    if (texto.empty()) return decimal;
    QuitarSigno(texto, decimal.negativo);
    decimal.enteros = TomarDigitos(texto);
    auto digitos = decimal.enteros.size();
    if (!texto.empty() && texto.front() == '.') {
        texto.remove_prefix(1);
        decimal.fraccion = TomarDigitos(texto);
        digitos += decimal.fraccion.size();
    }
    if (digitos == 0 || !texto.empty()) return std::nullopt;
    decimal.enteros.remove_prefix(std::min(decimal.enteros.find_first_not_of('0'), decimal.enteros.size()));
    return decimal;
}

std::optional<double> LeerFlotante(std::string_view texto) {
    texto = SinBlancosDelante(SinBlancosDetras(texto));
    if (texto.empty()) return 0;
    bool negativo = false;
    QuitarSigno(texto, negativo);
    if (texto.empty() || !(EsDigito(texto.front()) || texto.front() == '.')) return std::nullopt;
    double valor = 0;
    const auto fin = texto.data() + texto.size();
    const auto resultado = std::from_chars(texto.data(), fin, valor);
    if (resultado.ec != std::errc() || resultado.ptr != fin) return std::nullopt;
    return negativo ? -valor : valor;
}

bool LeerEnteroCorto(std::string_view texto, std::int64_t& valor) {
    const char* p = texto.data();
    const char* fin = p + texto.size();
    while (p < fin && (*p == ' ' || *p == '0')) {
        if (*p == '0') {
            while (p < fin && *p == '0') ++p;
            break;
        }
        ++p;
    }
    std::int64_t suma = 0;
    const char* primero = p;
    for (; p < fin && EsDigito(*p); ++p) {
        if (p - primero >= 18) return false;
        suma = suma * 10 + (*p - '0');
    }
    for (; p < fin; ++p) {
        if (*p != ' ') return false;
    }
    valor = suma;
    return true;
}

Numero NumeroDe(const DecimalDeTexto& decimal) {
    Numero numero;
    numero.clase = Calculo::Empaquetado;
    if (decimal.enteros.size() > maximoDeDigitos) FallarPorEmpaquetado();
    for (const char c : decimal.enteros) numero.digitos = numero.digitos * 10 + (c - '0');
    const auto lugares = std::min(decimal.fraccion.size(), maximoDeDigitos - decimal.enteros.size());
    for (const char c : decimal.fraccion.substr(0, lugares)) numero.digitos = numero.digitos * 10 + (c - '0');
    numero.escala = static_cast<std::uint8_t>(lugares);
    if (lugares < decimal.fraccion.size() && decimal.fraccion[lugares] >= '5') {
        ++numero.digitos;
        Ajustar(numero);
    }
    if (decimal.negativo) numero.digitos = -numero.digitos;
    return numero;
}

std::string CifrasDe(Entero128 digitos, int escala) {
    std::array<char, 48> cifras;
    auto inicio = cifras.size();
    const auto poner = [&](auto resto) {
        int puestas = 0;
        while (resto != 0 || puestas <= escala) {
            if (puestas == escala && escala > 0) cifras[--inicio] = '.';
            cifras[--inicio] = static_cast<char>('0' + static_cast<int>(resto % 10));
            resto /= 10;
            ++puestas;
        }
    };
    const auto absoluto = Absoluto(digitos);
    if (CabeEn64(absoluto)) {
        poner(static_cast<std::uint64_t>(absoluto));
    } else {
        poner(absoluto);
    }
    return std::string(cifras.data() + inicio, cifras.size() - inicio);
}

std::string TextoCientifico(double valor, std::size_t ancho, char coma, int decimales) {
    std::array<char, 64> texto;
    for (; decimales >= 0; --decimales) {
        const auto largo = std::snprintf(texto.data(), texto.size(), "%.*E", decimales, valor);
        const auto puesto = static_cast<std::size_t>(largo);
        if (puesto > ancho) continue;
        std::replace(texto.data(), texto.data() + puesto, '.', coma);
        return std::string(ancho - puesto, ' ') + std::string(texto.data(), puesto);
    }
    std::string corto(ancho, ' ');
    if (ancho > 0) corto[0] = '*';
    return corto;
}

}  // namespace qor::abap
