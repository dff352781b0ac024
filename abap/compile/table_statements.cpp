#include "abap/compile/table_statements.h"

#include <algorithm>

#include "abap/values/field_part.h"
#include "abap/values/table_rows.h"

namespace qor::abap {

Operando CabeceraDe(const Lectura& l, const OperandoDeTabla& tabla) {
    if (!tabla.cabecera) l.Fallar("the table has no header line, a work area was expected");
    return *tabla.cabecera;
}

bool HayTabla(Compilador& c, const Lectura& l, std::size_t n) { return l.Hay(n) && c.BuscarTabla(l.Mirar(n)).has_value(); }

Componente LeerParte(Compilador& c, Lectura& l, const OperandoDeTabla& tabla) {
    const Palabra palabra = l.Tomada();
    const auto referencia = LeerReferencia(palabra);
    if (!referencia || palabra.EsLiteral()) throw FallaDeSentencia{palabra, "a component of the line was expected"};
    if (tabla.dinamica && tabla.linea.estructura == nullptr)
        throw FallaDeSentencia{palabra, "nothing is known of the lines of the table"};
    Palabra nombre = palabra;
    nombre.texto = palabra.texto.substr(0, palabra.texto.find_first_of("+(["));
    Componente componente = c.ComponenteDe(nombre, tabla.linea);
    if (!referencia->tieneDesplazamiento && !referencia->tieneLargo) return componente;
    const bool fijo = (!referencia->tieneDesplazamiento || EsEntero(referencia->desplazamiento)) &&
                      (!referencia->tieneLargo || EsEntero(referencia->largo));
    auto& tipo = componente.tipo;
    if (!fijo || tipo.tipo == Tipo::I || tipo.tipo == Tipo::P || tipo.tipo == Tipo::F)
        throw FallaDeSentencia{palabra, "this part of a component is not known here"};
    const auto desde = referencia->tieneDesplazamiento ? static_cast<std::uint32_t>(ValorEntero(referencia->desplazamiento)) : 0;
    if (desde >= tipo.largo) throw FallaDeSentencia{palabra, "the offset leads out of the component"};
    const auto largo = referencia->tieneLargo ? static_cast<std::uint32_t>(ValorEntero(referencia->largo)) : tipo.largo - desde;
    if (largo == 0 || desde + largo > tipo.largo) throw FallaDeSentencia{palabra, "offset and length lead out of the component"};
    componente.desplazamiento += desde;
    tipo.largo = largo;
    tipo.tipo = TipoDeParte(tipo.tipo);
    tipo.estructura = nullptr;
    return componente;
}

std::vector<Componente> LeerPartes(Compilador& c, Lectura& l, const OperandoDeTabla& tabla, std::initializer_list<Clave> hasta) {
    std::vector<Componente> componentes;
    do {
        componentes.push_back(LeerParte(c, l, tabla));
    } while (l.Hay() && !l.EsAlguna(hasta));
    return componentes;
}

std::optional<std::vector<Componente>> ClaveConocida(const OperandoDeTabla& tabla) {
    if (tabla.dinamica) return {};
    return ClaveEstandar(tabla.linea);
}

std::size_t FilaDe(std::int64_t indice) {
    if (indice >= 1) return static_cast<std::size_t>(indice - 1);
    throw Volcado("TABLE_INVALID_INDEX", "A row of an internal table has a number from 1 on, not " + std::to_string(indice));
}

std::pair<std::size_t, std::size_t> Tramo::En(Maquina& maquina, std::size_t filas, bool conFalta) const {
    const auto leer = [&](const Operando& operando) {
        const auto valor = maquina.Entero(operando);
        if (conFalta) FilaDe(valor);
        return static_cast<std::size_t>(std::max<std::int64_t>(valor, 0));
    };
    const std::size_t primera = desde ? std::max<std::size_t>(leer(*desde), 1) - 1 : 0;
    const std::size_t fin = hasta ? leer(*hasta) : filas;
    return {primera, std::min(fin, filas)};
}

Operando LeerSimbolo(Compilador& c, Lectura& l) {
    const Palabra& palabra = l.Tomada();
    const Nombrado* nombrado = c.BuscarNombre(palabra.clave);
    if (nombrado == nullptr || !nombrado->simbolo)
        throw FallaDeSentencia{palabra, std::string(palabra.texto) + " is no field-symbol"};
    return *nombrado->campo;
}

void Apuntar(Maquina& maquina, const Operando& simbolo, TablaInterna& tabla, std::size_t fila) {
    if (!simbolo.dinamico && tabla.Linea().largo < simbolo.campo.largo) {
        throw Volcado("ASSIGN_TYPE_CONFLICT", "The line of the table is shorter than the structure of the field-symbol");
    }
    tabla.PonerSimbolos();
    Enlace& enlace = maquina.EnlaceDe(simbolo);
    enlace.campo = tabla.CampoDeFila(fila);
    enlace.estructura = tabla.Linea().estructura;
    enlace.tabla = nullptr;
    enlace.asignado = true;
}

}  // namespace qor::abap
