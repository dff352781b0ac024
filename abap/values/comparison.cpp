#include "abap/values/comparison.h"

#include <array>
#include <charconv>

#include "abap/short_dump.h"
#include "abap/values/decimal_text.h"
#include "abap/values/number.h"
#include "abap/values/packed.h"
#include "abap/values/value_text.h"
#include "base/text.h"

namespace qor::abap {
namespace {

constexpr unsigned comoC = tiposDeTexto | Conjunto(Tipo::Cadena);
constexpr unsigned conDigitos = comoC | Conjunto(Tipo::N);  // texts that may be numbers
constexpr unsigned numericos = Conjunto(Tipo::I) | Conjunto(Tipo::P) | Conjunto(Tipo::F);

template <typename Valor>
int Orden(Valor a, Valor b) {
    return a < b ? -1 : b < a ? 1 : 0;
}

// Whole numbers of up to 18 digits, which nearly all are.
bool LeerCorto(const Campo& campo, std::int64_t& valor) {
    if (campo.tipo == Tipo::I) {
        std::int32_t entero = 0;
        std::memcpy(&entero, campo.datos, sizeof entero);
        valor = entero;
        return true;
    }
    if (EsDelConjunto(campo.tipo, conDigitos)) return LeerEnteroCorto(campo.Texto(), valor);
    if (campo.tipo == Tipo::P) {
        if (campo.decimales > 0 || campo.largo > 9) return false;
        valor = static_cast<std::int64_t>(LeerEmpaquetado(campo.datos, campo.largo));
        return true;
    }
    if (campo.tipo == Tipo::F) return false;
    valor = static_cast<std::int64_t>(LeerNumero(campo, Calculo::Entero).digitos);
    return true;
}

// A number of any length, its text in `cifras` where the field is none.
DecimalDeTexto LeerLargo(const Campo& campo, std::string& cifras) {
    if (EsDelConjunto(campo.tipo, conDigitos)) {
        const auto decimal = LeerDecimal(campo.Texto());
        if (!decimal) FallarSinNumero(campo.Texto());
        return *decimal;
    }
    cifras = TextoPlano(campo);
    return *LeerDecimal(cifras);
}

std::string_view SinCerosDetras(std::string_view texto) {
    const auto ultimo = texto.find_last_not_of('0');
    return texto.substr(0, ultimo == std::string_view::npos ? 0 : ultimo + 1);
}

int CompararLargos(DecimalDeTexto a, DecimalDeTexto b) {
    a.fraccion = SinCerosDetras(a.fraccion);
    b.fraccion = SinCerosDetras(b.fraccion);
    const auto negativo = [](const DecimalDeTexto& x) { return x.negativo && !(x.enteros.empty() && x.fraccion.empty()); };
    if (negativo(a) != negativo(b)) return negativo(a) ? -1 : 1;
    int orden = Orden(a.enteros.size(), b.enteros.size());
    if (orden == 0) orden = a.enteros.compare(b.enteros);
    if (orden == 0) orden = a.fraccion.compare(b.fraccion);
    return negativo(a) ? -orden : orden;
}

int CompararComoNumeros(const Campo& a, const Campo& b) {
    std::int64_t x = 0;
    std::int64_t y = 0;
    if (LeerCorto(a, x) && LeerCorto(b, y)) return Orden(x, y);
    if (!EsDelConjunto(a.tipo, conDigitos) && !EsDelConjunto(b.tipo, conDigitos)) {
        return CompararNumeros(LeerNumero(a, Calculo::Empaquetado), LeerNumero(b, Calculo::Empaquetado));
    }
    std::string cifrasA;
    std::string cifrasB;
    return CompararLargos(LeerLargo(a, cifrasA), LeerLargo(b, cifrasB));
}

int CompararComoFlotantes(const Campo& a, const Campo& b) {
    return CompararNumeros(LeerNumero(a, Calculo::Flotante), LeerNumero(b, Calculo::Flotante));
}

int CompararBytes(const Campo& a, const Campo& b) {
    for (std::uint32_t i = 0; i < std::max(a.largo, b.largo); ++i) {
        const int x = i < a.largo ? a.datos[i] : 0;
        const int y = i < b.largo ? b.datos[i] : 0;
        if (x != y) return x - y;
    }
    return 0;
}

int CompararVistas(std::string_view a, std::string_view b) {
    return CompararTextos(reinterpret_cast<const std::uint8_t*>(a.data()), a.size(),
                          reinterpret_cast<const std::uint8_t*>(b.data()), b.size());
}

int CompararTextosDeBytes(const Campo& a, const Campo& b) {
    const auto textoDe = [](const Campo& campo) { return campo.tipo == Tipo::X ? Hexadecimal(campo) : std::string(campo.Texto()); };
    return CompararVistas(textoDe(a), textoDe(b));
}

void AgregarClaveDeNumero(const Campo& valor, std::string& clave) {
    std::int64_t corto = 0;
    if (LeerCorto(valor, corto)) {
        std::array<char, 24> cifras;
        const auto fin = std::to_chars(cifras.data(), cifras.data() + cifras.size(), corto).ptr;
        clave.append(cifras.data(), fin);
        return;
    }
    std::string cifras;
    auto decimal = LeerLargo(valor, cifras);
    decimal.fraccion = SinCerosDetras(decimal.fraccion);
    const bool cero = decimal.enteros.empty() && decimal.fraccion.empty();
    if (decimal.negativo && !cero) clave += '-';
    if (decimal.enteros.empty()) {
        clave += '0';
    } else {
        clave += decimal.enteros;
    }
    if (!decimal.fraccion.empty()) (clave += '.') += decimal.fraccion;
}

}  // namespace

FormaDeComparar FormaDe(Tipo a, Tipo b) {
    if (a == Tipo::X && b == Tipo::X) return FormaDeComparar::Bytes;
    const bool hayNumero = EsDelConjunto(a, numericos) || EsDelConjunto(b, numericos);
    if (hayNumero) return a == Tipo::F || b == Tipo::F ? FormaDeComparar::Flotante : FormaDeComparar::Numero;
    if (a == Tipo::X || b == Tipo::X) return FormaDeComparar::TextoDeBytes;
    const bool hayDigitos = a == Tipo::N || b == Tipo::N;
    return hayDigitos && EsDelConjunto(a, conDigitos) && EsDelConjunto(b, conDigitos) ? FormaDeComparar::Numero
                                                                                      : FormaDeComparar::Texto;
}

int CompararConvirtiendo(const Campo& a, const Campo& b) {
    switch (FormaDe(a.tipo, b.tipo)) {
        case FormaDeComparar::Texto: return CompararVistas(a.Texto(), b.Texto());
        case FormaDeComparar::Numero: return CompararComoNumeros(a, b);
        case FormaDeComparar::Flotante: return CompararComoFlotantes(a, b);
        case FormaDeComparar::Bytes: return CompararBytes(a, b);
        case FormaDeComparar::TextoDeBytes: return CompararTextosDeBytes(a, b);
    }
    return 0;
}

bool ClaveDeIgualdad(const Campo& valor, Tipo tipoDelComponente, Tipo tipoDelValor, std::string& clave) {
    switch (FormaDe(tipoDelComponente, tipoDelValor)) {
        case FormaDeComparar::Texto: clave += SinBlancosDetras(valor.Texto()); return true;
        case FormaDeComparar::Numero:
            try {
                AgregarClaveDeNumero(valor, clave);
                return true;
            } catch (const Volcado&) {
                return false;  // the comparison tells
            }
        case FormaDeComparar::Bytes: {
            auto bytes = valor.Texto();
            while (!bytes.empty() && bytes.back() == '\0') bytes.remove_suffix(1);
            clave += bytes;
            return true;
        }
        default: return false;
    }
}

}  // namespace qor::abap
