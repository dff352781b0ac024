// CALL FUNCTION.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "abap/compile/call_transaction.h"
#include "abap/compile/compiler.h"
#include "base/text.h"

namespace qor::abap {

namespace {

struct ParametroActual {
    std::string nombre;
    std::optional<Operando> operando;
    std::optional<OperandoDeTabla> tabla;
};

struct ExcepcionEsperada {
    std::string nombre;
    Operando numero;
};

struct LlamadaCompilada {
    Operando nombre;
    std::vector<ParametroActual> exporta;
    std::vector<ParametroActual> importa;
    std::vector<ParametroActual> cambia;
    std::vector<ParametroActual> tablas;
    std::vector<ExcepcionEsperada> excepciones;
};

class LlamarFuncion : public Instruccion {
public:
    explicit LlamarFuncion(LlamadaCompilada llamada) : l_(std::move(llamada)) {}

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        LlamadaAFuncion llamada;
        llamada.nombre = maquina.Resolver(l_.nombre).Texto();
        llamada.nombre.erase(llamada.nombre.find_last_not_of(' ') + 1);
        for (const auto& parametro : l_.exporta) Agregar(maquina, parametro, false, llamada.exporta);
        for (const auto& parametro : l_.importa) Agregar(maquina, parametro, true, llamada.importa);
        for (const auto& parametro : l_.cambia) Agregar(maquina, parametro, true, llamada.cambia);
        for (const auto& parametro : l_.tablas) AgregarTabla(maquina, parametro, llamada.tablas);
        const std::string excepcion = maquina.Alrededor().funciones.Llamar(llamada);
        maquina.PonerSubrc(excepcion.empty() ? 0 : NumeroDe(maquina, excepcion, llamada.nombre));
        return siguiente;
    }

private:
    static void Agregar(Maquina& maquina, const ParametroActual& parametro, bool destino,
                        std::vector<ParametroDeFuncion>& parametros) {
        if (parametro.tabla) return AgregarTabla(maquina, parametro, parametros);
        const Campo campo = destino ? maquina.Destino(*parametro.operando) : maquina.Resolver(*parametro.operando);
        parametros.push_back({parametro.nombre, campo, maquina.EstructuraDe(*parametro.operando), nullptr});
    }

    static void AgregarTabla(Maquina& maquina, const ParametroActual& parametro, std::vector<ParametroDeFuncion>& parametros) {
        const auto& suya = *parametro.tabla;
        TablaInterna& tabla = maquina.Tabla(suya);
        const bool conTipo = !suya.dinamica && suya.linea.estructura != nullptr;
        ParametroDeFuncion actual{parametro.nombre, {}, conTipo ? suya.linea.estructura : tabla.Linea().estructura, &tabla};
        if (suya.cabecera) actual.campo = maquina.Resolver(*suya.cabecera);
        parametros.push_back(std::move(actual));
    }

    int NumeroDe(Maquina& maquina, const std::string& excepcion, const std::string& funcion) const {
        const auto con = [this](std::string_view nombre) {
            return std::find_if(l_.excepciones.begin(), l_.excepciones.end(), [=](const auto& e) { return e.nombre == nombre; });
        };
        auto esperada = con(excepcion);
        if (esperada == l_.excepciones.end()) esperada = con("OTHERS");
        if (esperada == l_.excepciones.end()) {
            throw Volcado("RAISE_EXCEPTION", "The exception " + excepcion + " of " + funcion + " is not taken");
        }
        return static_cast<int>(maquina.Entero(esperada->numero));
    }

    LlamadaCompilada l_;
};

// ---- Reading ----

bool EsSeccion(const Lectura& l) {
    return l.EsAlguna({"EXPORTING"_c, "IMPORTING"_c, "CHANGING"_c, "TABLES"_c, "EXCEPTIONS"_c}) && !l.Es("="_c, 1);
}

// NAME =
std::string LeerNombreFormal(Lectura& l) {
    const Palabra& palabra = l.Tomada();
    if (palabra.EsLiteral() || !EsNombreDeDato(palabra.texto)) {
        throw FallaDeSentencia{palabra, std::string(palabra.texto) + " is no name of a parameter"};
    }
    l.Exige("="_c, "=");
    if (!l.Hay() || EsSeccion(l) || l.Es("="_c, 1)) l.Fallar("a value was expected for " + std::string(palabra.texto));
    return Mayusculas(palabra.texto);
}

// A table without header line, or its body, is a parameter as a whole.
void LeerActual(Compilador& c, Lectura& l, bool destino, std::vector<ParametroActual>& parametros) {
    ParametroActual parametro;
    parametro.nombre = LeerNombreFormal(l);
    const Palabra palabra = l.Actual();
    if (!palabra.EsLiteral() && !c.BuscarOperando(palabra)) parametro.tabla = c.BuscarTabla(palabra);
    if (parametro.tabla) {
        l.Avanzar();
    } else {
        parametro.operando = destino ? c.LeerDestino(l) : c.LeerOperando(l);
    }
    parametros.push_back(std::move(parametro));
}

void LeerSeccion(Compilador& c, Lectura& l, LlamadaCompilada& llamada) {
    const Clave seccion = l.Tomada().clave;
    while (l.Hay() && !EsSeccion(l)) {
        switch (seccion) {
            case "EXPORTING"_c: LeerActual(c, l, false, llamada.exporta); break;
            case "IMPORTING"_c: LeerActual(c, l, true, llamada.importa); break;
            case "CHANGING"_c: LeerActual(c, l, true, llamada.cambia); break;
            case "TABLES"_c: {
                ParametroActual parametro;
                parametro.nombre = LeerNombreFormal(l);
                parametro.tabla = c.LeerTabla(l);
                llamada.tablas.push_back(std::move(parametro));
                break;
            }
            default: {
                std::string nombre = LeerNombreFormal(l);
                llamada.excepciones.push_back({std::move(nombre), c.LeerOperando(l)});
                break;
            }
        }
    }
}

void LeerCALL_FUNCTION(Compilador& c, Lectura& l) {
    LlamadaCompilada llamada;
    llamada.nombre = c.LeerOperando(l);
    while (l.Hay()) {
        if (!EsSeccion(l)) l.NoSePractica();
        LeerSeccion(c, l, llamada);
    }
    c.Emitir<LlamarFuncion>(std::move(llamada));
}

}  // namespace

bool LeerDeLlamadas(Compilador& c, Lectura& l) {
    if (l.Primera().clave != "CALL"_c) return false;
    if (l.Toma("FUNCTION"_c)) return LeerCALL_FUNCTION(c, l), true;
    if (l.Toma("TRANSACTION"_c)) return LeerCALL_TRANSACTION(c, l), true;
    l.NoSePractica();
}

}  // namespace qor::abap
