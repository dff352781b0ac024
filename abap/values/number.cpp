#include "abap/values/number.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "abap/short_dump.h"
#include "abap/values/arithmetic.h"
#include "abap/values/conversion.h"
#include "abap/values/dates.h"
#include "abap/values/decimal_text.h"
#include "abap/values/packed.h"
#include "abap/values/value_text.h"

namespace qor::abap {
namespace {

Numero EnClase(const Numero& numero, Calculo clase) {
    if (numero.clase == clase) return numero;
    Numero otro;
    otro.clase = clase;
    if (clase == Calculo::Flotante) {
        otro.flotante = FlotanteDe(numero);
    } else if (clase == Calculo::Entero) {
        otro.digitos = Redondear(numero);
        if (otro.digitos < INT32_MIN || otro.digitos > INT32_MAX) FallarPorEntero();
    } else if (numero.clase == Calculo::Flotante) {
        return EmpaquetadoDe(numero.flotante, 31);
    } else {
        otro.digitos = numero.digitos;
    }
    return otro;
}

Numero Entero(Entero128 valor) {
    Numero numero;
    numero.digitos = valor;
    return numero;
}

Numero LeerTexto(std::string_view texto, Calculo clase) {
    if (clase == Calculo::Flotante) {
        const auto flotante = LeerFlotante(texto);
        if (!flotante) FallarSinNumero(texto);
        Numero numero;
        numero.clase = Calculo::Flotante;
        numero.flotante = *flotante;
        return numero;
    }
    std::int64_t corto = 0;
    if (clase == Calculo::Empaquetado && LeerEnteroCorto(texto, corto)) {
        Numero numero;
        numero.clase = Calculo::Empaquetado;
        numero.digitos = corto;
        return numero;
    }
    const auto decimal = LeerDecimal(texto);
    if (!decimal) FallarSinNumero(texto);
    if (clase == Calculo::Entero && decimal->enteros.size() > 10) FallarPorEntero();
    return EnClase(NumeroDe(*decimal), clase);
}

std::int64_t LeerBytes(const Campo& campo) {
    const auto cuantos = std::min<std::uint32_t>(campo.largo, 4);
    std::uint32_t valor = 0;
    for (auto i = campo.largo - cuantos; i < campo.largo; ++i) valor = valor << 8 | campo.datos[i];
    return cuantos == 4 ? std::int64_t(static_cast<std::int32_t>(valor)) : std::int64_t(valor);
}

void PonerBytes(std::int32_t valor, const Campo& destino) {
    auto resto = static_cast<std::uint32_t>(valor);
    for (auto i = destino.largo; i > 0; --i) {
        destino.datos[i - 1] = static_cast<std::uint8_t>(resto & 0xFFU);
        resto >>= 8;
    }
}

std::int32_t EnteroDe(const Numero& valor) {
    const auto redondo = Redondear(valor);
    if (redondo < INT32_MIN || redondo > INT32_MAX) FallarPorEntero();
    return static_cast<std::int32_t>(redondo);
}

void PonerEnEmpaquetado(const Numero& valor, const Campo& destino) {
    auto numero = valor.clase == Calculo::Flotante ? EmpaquetadoDe(valor.flotante, destino.decimales) : valor;
    const int faltan = int(destino.decimales) - numero.escala;
    if (faltan >= 0) {
        if (Absoluto(numero.digitos) >= potencias[std::max<int>(0, 38 - faltan)]) FallarPorEmpaquetado();
        numero.digitos *= potencias[faltan];
    } else {
        numero.digitos = QuitarLugares(numero.digitos, -faltan);
    }
    PonerEmpaquetado(numero.digitos, destino.datos, destino.largo);
}

void PonerEnDigitos(const Numero& valor, const Campo& destino) {
    const auto poner = [&destino](auto resto) {
        for (auto i = destino.largo; i > 0; --i) {
            destino.datos[i - 1] = static_cast<std::uint8_t>('0' + static_cast<int>(resto % 10));
            resto /= 10;
        }
    };
    const auto redondo = Absoluto(Redondear(valor));
    if (CabeEn64(redondo)) {
        poner(static_cast<std::uint64_t>(redondo));
    } else {
        poner(redondo);
    }
}

// Decimals that have no room are rounded off: the result of a calculation has as many as it needs.
void PonerEnCaracteres(const Numero& valor, const Campo& destino) {
    if (valor.clase == Calculo::Flotante) {
        PonerTexto(TextoCientifico(valor.flotante, destino.tipo == Tipo::Cadena ? 22 : destino.largo, '.'), destino);
        return;
    }
    auto numero = valor;
    auto cifras = CifrasDe(numero.digitos, numero.escala);
    while (destino.tipo != Tipo::Cadena && numero.escala > 0 && cifras.size() + (numero.digitos < 0 ? 1 : 0) > destino.largo) {
        numero.digitos = QuitarLugares(numero.digitos, 1);
        --numero.escala;
        cifras = CifrasDe(numero.digitos, numero.escala);
    }
    PonerCifras(cifras, numero.digitos < 0, destino);
}

}  // namespace

Numero LeerNumero(const Campo& campo, Calculo clase) {
    switch (campo.tipo) {
        case Tipo::I: {
            std::int32_t valor = 0;
            std::memcpy(&valor, campo.datos, sizeof valor);
            return EnClase(Entero(valor), clase);
        }
        case Tipo::F: {
            Numero numero;
            numero.clase = Calculo::Flotante;
            std::memcpy(&numero.flotante, campo.datos, sizeof numero.flotante);
            return EnClase(numero, clase);
        }
        case Tipo::P: {
            Numero numero;
            numero.clase = Calculo::Empaquetado;
            numero.digitos = LeerEmpaquetado(campo.datos, campo.largo);
            numero.escala = campo.decimales;
            return EnClase(numero, clase);
        }
        case Tipo::D: return EnClase(Entero(DiasDe(campo.Texto())), clase);
        case Tipo::T: return EnClase(Entero(SegundosDe(campo.Texto())), clase);
        case Tipo::X: return EnClase(Entero(LeerBytes(campo)), clase);
        default: return LeerTexto(campo.Texto(), clase);
    }
}

void PonerNumero(const Numero& valor, const Campo& destino) {
    ExigirEscribible(destino);
    switch (destino.tipo) {
        case Tipo::I: {
            const auto entero = EnteroDe(valor);
            std::memcpy(destino.datos, &entero, sizeof entero);
            break;
        }
        case Tipo::F: {
            const auto flotante = valor.clase == Calculo::Flotante ? valor.flotante : FlotanteDe(valor);
            std::memcpy(destino.datos, &flotante, sizeof flotante);
            break;
        }
        case Tipo::P: PonerEnEmpaquetado(valor, destino); break;
        case Tipo::N: PonerEnDigitos(valor, destino); break;
        case Tipo::D: std::memcpy(destino.datos, FechaDe(EnteroDe(valor)).data(), 8); break;
        case Tipo::T: std::memcpy(destino.datos, HoraDe(EnteroDe(valor)).data(), 6); break;
        case Tipo::X: PonerBytes(EnteroDe(valor), destino); break;
        default: PonerEnCaracteres(valor, destino); break;
    }
}

}  // namespace qor::abap
