#include <algorithm>

#include "abap/compile/compiler.h"
#include "abap/values/conversion.h"
#include "base/text.h"

// The selection screen: PARAMETERS, SELECT-OPTIONS, and RANGES, which look like them.
namespace qor::abap {

namespace {

constexpr std::size_t largoDeNombre = 8;

}  // namespace

// The default as the screen would take it: upper case where it has to be, and cut.
void Compilador::PonerDEFAULT(Lectura& l, const ParametroCompilado& parametro) {
    const Operando valor = LeerOperando(l);
    if (!valor.constante || valor.trozo) {
        // A field, such as SY-DATUM: it is moved when the report starts.
        programa_->defectos.emplace_back(parametro.operando, valor);
        return;
    }
    const Tipo tipo = valor.campo.tipo;
    if (tipo != Tipo::C || parametro.conMinusculas || valor.base != Base::Literal)
        return PonerValorInicial(parametro.operando, valor);
    PonerValorInicial(parametro.operando, Literal(Mayusculas(valor.campo.Texto())));
}

// A group of radio buttons has one that is chosen: the first one, where no DEFAULT says another.
void Compilador::MarcarBotones() {
    const auto marcado = [this](const ParametroCompilado& boton) { return programa_->global.datos[boton.operando.lugar] != ' '; };
    for (const auto& boton : programa_->parametros) {
        if (boton.grupo.empty()) continue;
        const auto conMarca = [&](const ParametroCompilado& otro) { return otro.grupo == boton.grupo && marcado(otro); };
        const auto& todos = programa_->parametros;
        if (std::none_of(todos.begin(), todos.end(), conMarca)) PonerValorInicial(boton.operando, Literal("X"));
    }
}

void Compilador::LeerPARAMETERS(Lectura& l) {
    const Palabra palabra = l.Tomada();
    const Declarado declarado = LeerDeclarado(palabra.texto);
    if (declarado.nombre.size() > largoDeNombre)
        throw FallaDeSentencia{palabra, "the name of a parameter has at most 8 characters"};
    bool conCabecera = false;
    ParametroCompilado parametro;
    parametro.linea = lineaDeSentencia_;
    std::optional<std::size_t> defecto;
    TipoConNombre tipo = LeerTipoDeDato(l, declarado, conCabecera);
    if (tipo.tabla) throw FallaDeSentencia{palabra, "a parameter is no table"};
    while (l.Hay()) {
        if (l.Toma("DEFAULT"_c)) {
            defecto = l.Lugar();
            l.Avanzar();
        } else if (l.Toma("OBLIGATORY"_c)) {
            parametro.obligatorio = true;
        } else if (l.Toma("LOWER"_c, "CASE"_c)) {
            parametro.conMinusculas = true;
        } else if (l.Toma("AS"_c, "CHECKBOX"_c)) {
            parametro.casilla = true;
        } else if (l.Toma("RADIOBUTTON"_c, "GROUP"_c)) {
            parametro.grupo = Mayusculas(l.Tomada().texto);
        } else if (l.Toma("MEMORY"_c, "ID"_c) || l.Toma("MODIF"_c, "ID"_c) || l.Toma("MATCHCODE"_c, "OBJECT"_c)) {
            l.Avanzar();  // what belongs to a screen
        } else if (l.Toma("NO-DISPLAY"_c) || l.Toma("VALUE"_c, "CHECK"_c)) {
            continue;
        } else if (l.EsAlguna({"TYPE"_c, "LIKE"_c})) {
            tipo = LeerTipoDeDato(l, declarado, conCabecera);
        } else {
            l.NoSePractica();
        }
    }
    Nombrado& nombrado = Declarar(palabra, declarado.nombre);
    nombrado.campo = NuevoCampo(tipo.tipo, true);
    parametro.nombre = nombrado.nombre;
    parametro.operando = *nombrado.campo;
    if (defecto) {
        l.Volver(*defecto);
        PonerDEFAULT(l, parametro);
    }
    programa_->variables.push_back({nombrado.nombre, *nombrado.campo, true});
    programa_->parametros.push_back(std::move(parametro));
}

OperandoDeTabla Compilador::NuevoRango(std::string_view nombre, const TipoDeCampo& tipo, bool global) {
    if (tipo.tipo == Tipo::Cadena) throw FallaDeSentencia{palabraDeSentencia_, "ranges of STRING are not known here"};
    Estructura& linea = NuevaEstructura(std::string(nombre));
    linea.Agregar("SIGN", {Tipo::C, 1});
    linea.Agregar("OPTION", {Tipo::C, 2});
    linea.Agregar("LOW", tipo);
    linea.Agregar("HIGH", tipo);
    linea.Cerrar();
    return NuevaTabla({Tipo::Estructura, linea.largo, 0, &linea}, nombre, true, global);
}

void Compilador::LeerRANGES(Lectura& l) {
    const Palabra palabra = l.Tomada();
    l.Exige("FOR"_c, "FOR");
    const TipoDeCampo tipo = LeerTipo(l, true).tipo;
    if (l.Toma("OCCURS"_c)) l.Avanzar();
    l.Fin();
    Nombrado& nombrado = Declarar(palabra, palabra.texto);
    nombrado.tabla = NuevoRango(nombrado.nombre, tipo, !enForma_);
    nombrado.campo = nombrado.tabla->cabecera;
}

void Compilador::LeerSELECT_OPTIONS(Lectura& l) {
    const Palabra palabra = l.Tomada();
    if (palabra.texto.size() > largoDeNombre) throw FallaDeSentencia{palabra, "the name of a selection has at most 8 characters"};
    l.Exige("FOR"_c, "FOR");
    const TipoDeCampo tipo = LeerTipo(l, true).tipo;
    ParametroCompilado parametro;
    parametro.linea = lineaDeSentencia_;
    while (l.Hay()) {
        if (l.Toma("DEFAULT"_c)) {
            parametro.desde = LeerOperando(l);
            if (l.Toma("TO"_c)) parametro.hasta = LeerOperando(l);
        } else if (l.Toma("OBLIGATORY"_c)) {
            parametro.obligatorio = true;
        } else if (l.Toma("LOWER"_c, "CASE"_c)) {
            parametro.conMinusculas = true;
        } else if (l.Toma("MEMORY"_c, "ID"_c) || l.Toma("MODIF"_c, "ID"_c) || l.Toma("MATCHCODE"_c, "OBJECT"_c)) {
            l.Avanzar();
        } else if (!l.Toma("NO-EXTENSION"_c) && !l.Toma("NO"_c, "INTERVALS"_c) && !l.Toma("NO-DISPLAY"_c)) {
            l.NoSePractica();
        }
    }
    Nombrado& nombrado = Declarar(palabra, palabra.texto);
    nombrado.tabla = NuevoRango(nombrado.nombre, tipo, true);
    nombrado.campo = nombrado.tabla->cabecera;
    parametro.nombre = nombrado.nombre;
    parametro.operando = *nombrado.campo;
    parametro.rango = nombrado.tabla;
    programa_->parametros.push_back(std::move(parametro));
}

}  // namespace qor::abap
