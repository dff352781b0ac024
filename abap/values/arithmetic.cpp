#include "abap/values/arithmetic.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "abap/short_dump.h"
#include "abap/values/decimal_text.h"

namespace qor::abap {
namespace {

[[noreturn]] void Fallar(const char* nombre, const char* texto) { throw Volcado(nombre, texto); }

Numero ComoEmpaquetado(const Numero& numero) {
    Numero otro = numero;
    otro.clase = Calculo::Empaquetado;
    return otro;
}

double ComoFlotante(const Numero& numero) { return numero.clase == Calculo::Flotante ? numero.flotante : FlotanteDe(numero); }

Numero EnteroDe(Entero128 valor, const char* nombre) {
    if (valor < INT32_MIN || valor > INT32_MAX) Fallar(nombre, "A calculation of integers leaves the range of type I");
    Numero numero;
    numero.digitos = valor;
    return numero;
}

Numero Empaquetado(Entero128 digitos, int escala) {
    Numero numero;
    numero.clase = Calculo::Empaquetado;
    numero.digitos = digitos;
    numero.escala = static_cast<std::uint8_t>(escala);
    Ajustar(numero);
    return numero;
}

Numero Flotante(double valor) {
    if (!std::isfinite(valor)) Fallar("COMPUTE_FLOAT_TIMES_OVERFLOW", "A calculation leaves the range of type F");
    Numero numero;
    numero.clase = Calculo::Flotante;
    numero.flotante = valor;
    return numero;
}

// The quotient that leaves a remainder of zero or above.
Entero128 Cociente(Entero128 a, Entero128 b) {
    const auto cociente = a / b;
    if (a % b >= 0) return cociente;
    return b > 0 ? cociente - 1 : cociente + 1;
}

Entero128 DividirRedondeando(Entero128 a, Entero128 b) {
    const auto resto = Absoluto(a % b);
    const auto cociente = a / b;
    if (resto < Absoluto(b) - resto) return cociente;
    return (a < 0) == (b < 0) ? cociente + 1 : cociente - 1;
}

double Potencia(double base, double exponente) {
    if (base == 0 && exponente < 0) Fallar("COMPUTE_POW_RANGE", "Zero to a negative power");
    if (base < 0 && exponente != std::floor(exponente)) Fallar("COMPUTE_POW_DOMAIN", "A root of a negative number");
    return std::pow(base, exponente);
}

Entero128 PotenciaEntera(Entero128 base, Entero128 exponente) {
    if (exponente < 0)
        return static_cast<Entero128>(std::round(Potencia(static_cast<double>(base), static_cast<double>(exponente))));
    Entero128 producto = 1;
    for (; exponente > 0; --exponente) {
        producto *= base;
        if (producto == 0 || base == 1) break;
        if (base == -1) return exponente % 2 == 0 ? -producto : producto;
        if (producto > INT32_MAX || producto < INT32_MIN) break;
    }
    return producto;
}

Numero CalcularEnteros(char operador, Entero128 a, Entero128 b) {
    switch (operador) {
        case '+': return EnteroDe(a + b, "COMPUTE_INT_PLUS_OVERFLOW");
        case '-': return EnteroDe(a - b, "COMPUTE_INT_MINUS_OVERFLOW");
        case '*': return EnteroDe(a * b, "COMPUTE_INT_TIMES_OVERFLOW");
        case '^': return EnteroDe(PotenciaEntera(a, b), "COMPUTE_INT_TIMES_OVERFLOW");
        default: break;
    }
    if (b == 0) {
        if (a == 0) return {};
        Fallar("COMPUTE_INT_ZERODIVIDE", "Division by zero");
    }
    if (operador == 'D') return EnteroDe(Cociente(a, b), "COMPUTE_INT_DIV_OVERFLOW");
    if (operador == 'M') return EnteroDe(a - Cociente(a, b) * b, "COMPUTE_INT_DIV_OVERFLOW");
    return EnteroDe(DividirRedondeando(a, b), "COMPUTE_INT_DIV_OVERFLOW");
}

// Brings two packed numbers to one scale, the finer one where 36 digits allow.
int Igualar(Numero& a, Numero& b) {
    int escala = std::max<int>(a.escala, b.escala);
    for (const auto* numero : {&a, &b}) escala = std::min(escala, numero->escala + 36 - CuentaDeDigitos(numero->digitos));
    for (auto* numero : {&a, &b}) {
        if (numero->escala > escala) {
            numero->digitos = QuitarLugares(numero->digitos, numero->escala - escala);
        } else {
            numero->digitos *= potencias[escala - numero->escala];
        }
        numero->escala = static_cast<std::uint8_t>(escala);
    }
    return escala;
}

// A product of more than 38 digits, as a text, cut to what a packed number can hold.
Numero MultiplicarLargos(const Numero& a, const Numero& b) {
    constexpr Entero128 base = 10'000'000'000'000'000;  // 16 digits
    const auto x = Absoluto(a.digitos);
    const auto y = Absoluto(b.digitos);
    std::array<Entero128, 4> partes = {(x % base) * (y % base), (x / base) * (y % base) + (x % base) * (y / base),
                                       (x / base) * (y / base), 0};
    for (std::size_t i = 0; i + 1 < partes.size(); ++i) {
        partes[i + 1] += partes[i] / base;
        partes[i] %= base;
    }
    std::string cifras;
    for (auto parte = partes.rbegin(); parte != partes.rend(); ++parte) {
        const auto texto = CifrasDe(*parte, 0);
        cifras += std::string(16 - texto.size(), '0') + texto;
    }
    const auto coma = cifras.size() - std::size_t(a.escala) - b.escala;
    DecimalDeTexto decimal;
    decimal.negativo = (a.digitos < 0) != (b.digitos < 0);
    decimal.enteros = std::string_view(cifras).substr(0, coma);
    decimal.enteros.remove_prefix(std::min(decimal.enteros.find_first_not_of('0'), decimal.enteros.size()));
    decimal.fraccion = std::string_view(cifras).substr(coma);
    return NumeroDe(decimal);
}

Numero Multiplicar(const Numero& a, const Numero& b) {
    Entero128 producto = 0;
    if (__builtin_mul_overflow(a.digitos, b.digitos, &producto) || CuentaDeDigitos(producto) > 38) return MultiplicarLargos(a, b);
    return Empaquetado(producto, a.escala + b.escala);
}

// Digit by digit, up to 31 of them.
Numero Dividir(const Numero& a, const Numero& b) {
    const auto divisor = Absoluto(b.digitos);
    auto cociente = Absoluto(a.digitos) / divisor;
    auto resto = Absoluto(a.digitos) % divisor;
    int escala = int(a.escala) - b.escala;
    const auto lleno = potencias[maximoDeDigitos - 1];
    while (escala < 0 || (resto != 0 && escala < static_cast<int>(maximoDeDigitos) && cociente < lleno)) {
        if (cociente >= lleno) FallarPorEmpaquetado();
        cociente = cociente * 10 + resto * 10 / divisor;
        resto = resto * 10 % divisor;
        ++escala;
    }
    if (resto >= divisor - resto) ++cociente;
    return Empaquetado((a.digitos < 0) == (b.digitos < 0) ? cociente : -cociente, escala);
}

Numero ElevarEmpaquetado(const Numero& a, const Numero& b) {
    const auto exponente = Redondear(b);
    if (exponente < 0 || exponente > 200 || CompararNumeros(b, Empaquetado(exponente, 0)) != 0) {
        return EmpaquetadoDe(Potencia(FlotanteDe(a), FlotanteDe(b)), 14);
    }
    auto producto = Empaquetado(1, 0);
    for (Entero128 i = 0; i < exponente; ++i) producto = Multiplicar(producto, a);
    return producto;
}

Numero CalcularEmpaquetados(char operador, Numero a, Numero b) {
    if (operador == '*') return Multiplicar(a, b);
    if (operador == '^') return ElevarEmpaquetado(a, b);
    if (b.digitos == 0 && operador != '+' && operador != '-') {
        if (a.digitos == 0) return Empaquetado(0, 0);
        Fallar("COMPUTE_BCD_ZERODIVIDE", "Division by zero");
    }
    if (operador == '/') return Dividir(a, b);
    const auto escala = Igualar(a, b);
    if (operador == '+') return Empaquetado(a.digitos + b.digitos, escala);
    if (operador == '-') return Empaquetado(a.digitos - b.digitos, escala);
    if (b.digitos == 0) FallarPorEmpaquetado();  // too small beside the other
    const auto cociente = Cociente(a.digitos, b.digitos);
    if (operador == 'D') return Empaquetado(cociente, 0);
    return Empaquetado(a.digitos - cociente * b.digitos, escala);
}

Numero CalcularFlotantes(char operador, double a, double b) {
    switch (operador) {
        case '+': return Flotante(a + b);
        case '-': return Flotante(a - b);
        case '*': return Flotante(a * b);
        case '^': return Flotante(Potencia(a, b));
        default: break;
    }
    if (b == 0) {
        if (a == 0) return Flotante(0);
        Fallar("COMPUTE_FLOAT_ZERODIVIDE", "Division by zero");
    }
    if (operador == '/') return Flotante(a / b);
    auto resto = std::fmod(a, b);
    if (resto < 0) resto += std::fabs(b);
    return Flotante(operador == 'M' ? resto : std::round((a - resto) / b));
}

}  // namespace

void FallarPorEmpaquetado() { Fallar("COMPUTE_BCD_OVERFLOW", "A packed number has too many digits"); }
void FallarPorEntero() { Fallar("CONVT_OVERFLOW", "A value leaves the range of type I"); }

int CuentaDeDigitos(Entero128 valor) {
    valor = Absoluto(valor);
    int cuenta = 0;
    while (cuenta < 39 && valor >= potencias[cuenta]) {
        if (++cuenta == 39) break;
    }
    return cuenta;
}

Entero128 QuitarLugares(Entero128 valor, int lugares) {
    if (lugares <= 0) return valor;
    if (lugares > 38) return 0;
    const auto divisor = potencias[lugares];
    if (lugares <= 18 && CabeEn64(valor)) {
        const auto corto = static_cast<std::int64_t>(valor);
        const auto divisorCorto = static_cast<std::int64_t>(divisor);
        const auto cociente = corto / divisorCorto;
        if (std::abs(corto % divisorCorto) < divisorCorto / 2) return cociente;
        return valor < 0 ? cociente - 1 : cociente + 1;
    }
    const auto cociente = valor / divisor;
    if (Absoluto(valor % divisor) < divisor / 2) return cociente;
    return valor < 0 ? cociente - 1 : cociente + 1;
}

void Ajustar(Numero& numero) {
    constexpr int maximo = maximoDeDigitos;
    while (numero.escala > maximo || Absoluto(numero.digitos) >= potencias[maximoDeDigitos]) {
        const auto sobran = std::max(CuentaDeDigitos(numero.digitos) - maximo, numero.escala - maximo);
        if (sobran > numero.escala) FallarPorEmpaquetado();
        numero.digitos = QuitarLugares(numero.digitos, sobran);
        numero.escala = static_cast<std::uint8_t>(numero.escala - sobran);
    }
}

Entero128 Redondear(const Numero& numero) {
    if (numero.clase != Calculo::Flotante) return QuitarLugares(numero.digitos, numero.escala);
    const auto redondo = std::round(numero.flotante);
    if (!(std::fabs(redondo) < 1e31)) FallarPorEmpaquetado();
    return static_cast<Entero128>(redondo);
}

double FlotanteDe(const Numero& numero) {
    return static_cast<double>(static_cast<long double>(numero.digitos) / static_cast<long double>(potencias[numero.escala]));
}

Numero EmpaquetadoDe(double valor, int decimales) {
    if (!(std::fabs(valor) < 1e31)) FallarPorEmpaquetado();
    std::array<char, 128> texto;
    const auto largo = std::snprintf(texto.data(), texto.size(), "%.60f", valor);
    const auto decimal = LeerDecimal(std::string_view(texto.data(), static_cast<std::size_t>(largo)));
    auto numero = NumeroDe(*decimal);
    if (numero.escala > decimales) {
        numero.digitos = QuitarLugares(numero.digitos, numero.escala - decimales);
        numero.escala = static_cast<std::uint8_t>(decimales);
    }
    return numero;
}

Numero Calcular(char operador, const Numero& a, const Numero& b) {
    if (a.clase == Calculo::Entero && b.clase == Calculo::Entero) return CalcularEnteros(operador, a.digitos, b.digitos);
    if (a.clase == Calculo::Flotante || b.clase == Calculo::Flotante) {
        return CalcularFlotantes(operador, ComoFlotante(a), ComoFlotante(b));
    }
    return CalcularEmpaquetados(operador, ComoEmpaquetado(a), ComoEmpaquetado(b));
}

Numero Calcular(FuncionNumerica funcion, const Numero& valor) {
    if (valor.clase == Calculo::Flotante) {
        const auto x = valor.flotante;
        switch (funcion) {
            case FuncionNumerica::Abs: return Flotante(std::fabs(x));
            case FuncionNumerica::Sign: return Flotante(x > 0 ? 1 : x < 0 ? -1 : 0);
            case FuncionNumerica::Ceil: return Flotante(std::ceil(x));
            case FuncionNumerica::Floor: return Flotante(std::floor(x));
            case FuncionNumerica::Trunc: return Flotante(std::trunc(x));
            case FuncionNumerica::Frac: return Flotante(x - std::trunc(x));
        }
    }
    Numero resultado = valor;
    const auto unidad = potencias[valor.escala];
    const auto entera = valor.digitos / unidad;
    const auto fraccion = valor.digitos % unidad;
    if (funcion == FuncionNumerica::Abs) {
        resultado.digitos = Absoluto(valor.digitos);
        return valor.clase == Calculo::Entero ? EnteroDe(resultado.digitos, "COMPUTE_INT_ABS_OVERFLOW") : resultado;
    }
    if (funcion == FuncionNumerica::Frac) {
        resultado.digitos = fraccion;
        return resultado;
    }
    resultado.escala = 0;
    switch (funcion) {
        case FuncionNumerica::Sign: resultado.digitos = valor.digitos > 0 ? 1 : valor.digitos < 0 ? -1 : 0; break;
        case FuncionNumerica::Ceil: resultado.digitos = entera + (fraccion > 0 ? 1 : 0); break;
        case FuncionNumerica::Floor: resultado.digitos = entera - (fraccion < 0 ? 1 : 0); break;
        default: resultado.digitos = entera; break;
    }
    return resultado;
}

Numero Negar(const Numero& valor) {
    Numero resultado = valor;
    resultado.digitos = -valor.digitos;
    resultado.flotante = -valor.flotante;
    return valor.clase == Calculo::Entero ? EnteroDe(resultado.digitos, "COMPUTE_INT_MINUS_OVERFLOW") : resultado;
}

int CompararNumeros(const Numero& a, const Numero& b) {
    if (a.clase == Calculo::Flotante || b.clase == Calculo::Flotante) {
        const auto x = ComoFlotante(a);
        const auto y = ComoFlotante(b);
        return x < y ? -1 : x > y ? 1 : 0;
    }
    if (a.escala == b.escala) return a.digitos < b.digitos ? -1 : a.digitos > b.digitos ? 1 : 0;
    const auto enteraA = a.digitos / potencias[a.escala];
    const auto enteraB = b.digitos / potencias[b.escala];
    if (enteraA != enteraB) return enteraA < enteraB ? -1 : 1;
    const auto fraccionA = a.digitos % potencias[a.escala] * potencias[maximoDeDigitos - a.escala];
    const auto fraccionB = b.digitos % potencias[b.escala] * potencias[maximoDeDigitos - b.escala];
    return fraccionA < fraccionB ? -1 : fraccionA > fraccionB ? 1 : 0;
}

}  // namespace qor::abap
