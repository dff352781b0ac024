#include "abap/machine/expression.h"

#include <array>

#include "abap/values/conversion.h"
#include "abap/values/text_operations.h"

namespace qor::abap {

Calculo CalculoDe(const Campo& campo) {
    if (campo.tipo == Tipo::I) return Calculo::Entero;
    return campo.tipo == Tipo::F ? Calculo::Flotante : Calculo::Empaquetado;
}

Calculo CalculoDe(Maquina& maquina, const Expresion& expresion) {
    switch (expresion.clase) {
        case Expresion::Clase::Campo:
            return expresion.campo.dinamico ? CalculoDe(maquina.Resolver(expresion.campo)) : CalculoDe(expresion.campo.campo);
        case Expresion::Clase::Operacion: return Mayor(CalculoDe(maquina, *expresion.a), CalculoDe(maquina, *expresion.b));
        case Expresion::Clase::Negacion:
        case Expresion::Clase::Funcion: return CalculoDe(maquina, *expresion.a);
        case Expresion::Clase::LargoDeTexto: break;
    }
    return Calculo::Entero;
}

Numero Valor(Maquina& maquina, const Expresion& expresion, Calculo calculo) {
    switch (expresion.clase) {
        case Expresion::Clase::Campo: return LeerNumero(maquina.Resolver(expresion.campo), calculo);
        case Expresion::Clase::Operacion:
            return Calcular(expresion.operador, Valor(maquina, *expresion.a, calculo), Valor(maquina, *expresion.b, calculo));
        case Expresion::Clase::Negacion: return Negar(Valor(maquina, *expresion.a, calculo));
        case Expresion::Clase::Funcion: return Calcular(expresion.funcion, Valor(maquina, *expresion.a, calculo));
        case Expresion::Clase::LargoDeTexto: break;
    }
    std::int32_t largo = LargoDeTexto(maquina.Resolver(expresion.campo));
    Campo campo;
    campo.datos = reinterpret_cast<std::uint8_t*>(&largo);
    campo.largo = sizeof largo;
    campo.tipo = Tipo::I;
    return LeerNumero(campo, calculo);
}

void Asignar(Maquina& maquina, const Expresion& expresion, const Operando& operando) {
    const Campo destino = maquina.Destino(operando);
    if (expresion.EsCampo()) return Mover(maquina.Resolver(expresion.campo), destino);
    if (expresion.clase == Expresion::Clase::LargoDeTexto) {
        return PonerEntero(LargoDeTexto(maquina.Resolver(expresion.campo)), destino);
    }
    const Calculo calculo = Mayor(CalculoDe(maquina, expresion), CalculoDe(destino));
    PonerNumero(Valor(maquina, expresion, calculo), destino);
}

std::int64_t ValorEntero(Maquina& maquina, const Expresion& expresion) {
    if (expresion.EsCampo()) return maquina.Entero(expresion.campo);
    std::int32_t entero = 0;
    Campo destino;
    destino.datos = reinterpret_cast<std::uint8_t*>(&entero);
    destino.largo = sizeof entero;
    destino.tipo = Tipo::I;
    PonerNumero(Valor(maquina, expresion, CalculoDe(maquina, expresion)), destino);
    return entero;
}

namespace {

bool ValeOpcion(const Campo& valor, std::string_view opcion, const Campo& bajo, const Campo& alto) {
    std::int32_t fdpos = 0;
    struct Par {
        std::string_view opcion;
        Relacion relacion;
    };
    static constexpr std::array<Par, 8> pares{{{"EQ", Relacion::EQ},
                                               {"NE", Relacion::NE},
                                               {"LT", Relacion::LT},
                                               {"LE", Relacion::LE},
                                               {"GT", Relacion::GT},
                                               {"GE", Relacion::GE},
                                               {"CP", Relacion::CP},
                                               {"NP", Relacion::NP}}};
    for (const auto& par : pares) {
        if (opcion == par.opcion) return Vale(par.relacion, valor, bajo, fdpos);
    }
    const bool entre = Comparar(valor, bajo) >= 0 && Comparar(valor, alto) <= 0;
    if (opcion == "BT") return entre;
    if (opcion == "NB") return !entre;
    throw Volcado("RSQL_WRONG_RANGES_OPTION", "The option of a line of a RANGES table is none: " + std::string(opcion));
}

}  // namespace

PartesDeRango::PartesDeRango(const TablaInterna& rango) {
    constexpr std::array nombres = {"SIGN", "OPTION", "LOW", "HIGH"};
    const auto* linea = rango.Linea().estructura;
    for (std::size_t i = 0; i < nombres.size(); ++i) {
        partes_[i] = linea == nullptr ? nullptr : linea->Buscar(nombres[i]);
        if (partes_[i] == nullptr) throw Volcado("SAPSQL_IN_ITAB_ILLEGAL_SIGN", "The table behind IN is no table of ranges");
    }
}

bool EstaEnRango(const Campo& valor, const TablaInterna& rango) {
    const PartesDeRango partes(rango);
    bool incluye = false;
    bool hayInclusion = false;
    for (std::size_t i = 0; i < rango.Filas(); ++i) {
        std::uint8_t* fila = rango.Fila(i);
        const auto signo = partes.Signo(fila).Texto();
        const auto opcion = partes.Opcion(fila).Texto();
        const bool vale = ValeOpcion(valor, opcion, partes.Bajo(fila), partes.Alto(fila));
        if (signo == "E") {
            if (vale) return false;
        } else {
            hayInclusion = true;
            incluye = incluye || vale;
        }
    }
    return incluye || !hayInclusion;
}

}  // namespace qor::abap
