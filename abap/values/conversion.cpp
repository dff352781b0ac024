#include "abap/values/conversion.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

#include "abap/short_dump.h"
#include "abap/values/arithmetic.h"
#include "abap/values/decimal_text.h"
#include "abap/values/number.h"
#include "abap/values/packed.h"
#include "abap/values/value_text.h"
#include "base/text.h"

namespace qor::abap {
namespace {

constexpr unsigned textos = tiposDeTexto | Conjunto(Tipo::Cadena);
constexpr unsigned numeros = Conjunto(Tipo::I) | Conjunto(Tipo::P) | Conjunto(Tipo::F);
constexpr unsigned fechas = Conjunto(Tipo::D) | Conjunto(Tipo::T);

// The digits of a text, right-justified behind zeros; those in front are cut.
void PonerDigitos(std::string_view texto, const Campo& destino) {
    std::uint32_t lugar = destino.largo;
    for (auto i = texto.size(); i > 0 && lugar > 0; --i) {
        const char c = texto[i - 1];
        if (c >= '0' && c <= '9') destino.datos[--lugar] = static_cast<std::uint8_t>(c);
    }
    std::memset(destino.datos, '0', lugar);
}

bool SeSolapan(const Campo& origen, const Campo& destino) {
    return origen.tipo != Tipo::Cadena && origen.datos < destino.datos + destino.largo &&
           destino.datos < origen.datos + origen.largo;
}

void PonerBytes(const Campo& origen, const Campo& destino) {
    const auto cuantos = std::min(origen.largo, destino.largo);
    std::memmove(destino.datos, origen.datos, cuantos);
    std::memset(destino.datos + cuantos, 0, destino.largo - cuantos);
}

[[noreturn]] void FallarSinRegla() { throw Volcado("MOVE_NOT_SUPPORTED", "There is no rule for a move between a date and a time"); }

void MoverACadena(const Campo& origen, std::string& destino) {
    switch (origen.tipo) {
        case Tipo::Cadena: destino = *origen.cadena; break;
        case Tipo::N:
        case Tipo::D:
        case Tipo::T: destino.assign(origen.Texto()); break;
        case Tipo::X: destino = Hexadecimal(origen); break;
        case Tipo::C:
        case Tipo::Estructura: destino.assign(SinBlancosDetras(origen.Texto())); break;
        default: {
            Campo campo;
            campo.cadena = &destino;
            campo.tipo = Tipo::Cadena;
            PonerNumero(LeerNumero(origen, origen.tipo == Tipo::F ? Calculo::Flotante : Calculo::Empaquetado), campo);
        }
    }
}

// A packed number keeps its decimals: what has no room for them does not fit.
void PonerNumeroEnTexto(const Campo& origen, const Campo& destino) {
    const auto numero = LeerNumero(origen, origen.tipo == Tipo::F ? Calculo::Flotante : Calculo::Empaquetado);
    if (origen.tipo == Tipo::F) {
        PonerNumero(numero, destino);
    } else {
        PonerCifras(CifrasDe(numero.digitos, numero.escala), numero.digitos < 0, destino);
    }
}

Calculo ClaseDe(Tipo origen, Tipo destino) {
    if (origen == Tipo::F) return Calculo::Flotante;
    if (EsDelConjunto(origen, tiposDeCaracteres | Conjunto(Tipo::Cadena)) && destino == Tipo::F) return Calculo::Flotante;
    return Calculo::Empaquetado;
}

}  // namespace

void ExigirEscribible(const Campo& campo) {
    if (campo.soloLectura) throw Volcado("MOVE_TO_LIT_NOTALLOWED", "A literal or a constant was to be written");
}

void MoverConvirtiendo(const Campo& origen, const Campo& destino) {
    ExigirEscribible(destino);
    if (destino.tipo == Tipo::Cadena) {
        MoverACadena(origen, *destino.cadena);
        return;
    }
    if (origen.tipo == destino.tipo && origen.largo == destino.largo && origen.decimales == destino.decimales) {
        std::memmove(destino.datos, origen.datos, destino.largo);
        return;
    }
    const auto aTexto = EsDelConjunto(destino.tipo, tiposDeTexto);
    if (EsDelConjunto(origen.tipo, tiposDeCaracteres | textos)) {
        const auto texto = origen.Texto();
        if (destino.tipo == Tipo::N) {
            if (SeSolapan(origen, destino)) {
                PonerDigitos(std::string(texto), destino);
            } else {
                PonerDigitos(texto, destino);
            }
            return;
        }
        if (EsDelConjunto(destino.tipo, fechas) && EsDelConjunto(origen.tipo, fechas)) FallarSinRegla();
        if (aTexto || EsDelConjunto(destino.tipo, fechas)) {
            CopiarCaracteres(reinterpret_cast<const std::uint8_t*>(texto.data()), static_cast<std::uint32_t>(texto.size()),
                             destino);
            return;
        }
        if (destino.tipo == Tipo::X && EsDelConjunto(origen.tipo, textos)) {
            PonerHexadecimal(texto, destino);
            return;
        }
    } else if (origen.tipo == Tipo::X && destino.tipo == Tipo::X) {
        PonerBytes(origen, destino);
        return;
    } else if (aTexto) {
        if (origen.tipo == Tipo::X) {
            PonerTexto(Hexadecimal(origen), destino);
        } else {
            PonerNumeroEnTexto(origen, destino);
        }
        return;
    }
    PonerNumero(LeerNumero(origen, ClaseDe(origen.tipo, destino.tipo)), destino);
}

void PonerTexto(std::string_view texto, const Campo& destino) {
    if (destino.tipo == Tipo::Cadena) {
        ExigirEscribible(destino);
        destino.cadena->assign(texto);
    } else {
        Mover(CampoDe(texto.empty() ? std::string_view(" ") : texto), destino);
    }
}

void PonerEntero(std::int64_t valor, const Campo& destino) {
    Numero numero;
    numero.digitos = valor;
    PonerNumero(numero, destino);
}

bool EsInicial(const Campo& campo) {
    const auto soloDe = [&campo](char c) {
        const auto texto = campo.Texto();
        return std::all_of(texto.begin(), texto.end(), [c](char otro) { return otro == c; });
    };
    switch (campo.tipo) {
        case Tipo::C:
        case Tipo::Estructura: return soloDe(' ');
        case Tipo::N:
        case Tipo::D:
        case Tipo::T: return soloDe('0');
        case Tipo::P: return LeerEmpaquetado(campo.datos, campo.largo) == 0;
        case Tipo::F: return LeerNumero(campo, Calculo::Flotante).flotante == 0;
        case Tipo::Cadena: return campo.cadena->empty();
        default: return soloDe('\0');
    }
}

std::string TextoPlano(const Campo& campo) {
    if (campo.tipo == Tipo::X) return Hexadecimal(campo);
    if (campo.tipo == Tipo::F) {
        std::array<char, 400> cifras;
        const auto flotante = LeerNumero(campo, Calculo::Flotante).flotante;
        const auto fin = std::to_chars(cifras.data(), cifras.data() + cifras.size(), flotante, std::chars_format::fixed).ptr;
        return std::string(cifras.data(), fin);
    }
    if (!EsDelConjunto(campo.tipo, numeros)) return std::string(SinBlancosDetras(campo.Texto()));
    const auto numero = LeerNumero(campo, Calculo::Empaquetado);
    return (numero.digitos < 0 ? "-" : "") + CifrasDe(numero.digitos, numero.escala);
}

std::string_view TextoDeOperando(const Campo& campo, std::string& resto) {
    if (EsDelConjunto(campo.tipo, tiposDeCaracteres | textos)) return campo.Texto();
    MoverACadena(campo, resto);
    return resto;
}

}  // namespace qor::abap
