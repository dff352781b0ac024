#include "abap/check/rules.h"

namespace qor::abap {

namespace {

constexpr std::size_t maximoDeForma = 30;

using Clase = Falta::Clase;

// The type of a formal parameter. Without one of this report anything may be passed.
bool LeerTipoDeParametro(Frase& f, Dato& dato) {
    const bool esTipo = f.Es("TYPE"_c);
    f.Avanzar();
    if (f.Toma("REF"_c, "TO"_c)) return f.Algo();
    f.Toma("LINE"_c, "OF"_c);
    if (f.EsAlguna({"STANDARD"_c, "SORTED"_c, "HASHED"_c, "INDEX"_c, "ANY"_c}) && f.Es("TABLE"_c, 1)) f.Avanzar();
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    const Palabra& palabra = f.Actual();
    f.Avanzar();
    const auto& datos = f.Entorno().datos;
    const Dato* otro = esTipo ? datos.BuscarTipo(palabra.clave) : datos.Buscar(palabra.clave);
    if (otro == nullptr || otro->linea == 0) return true;
    dato.tipo = otro->tipo;
    dato.largo = otro->largo;
    dato.registro = otro->registro;
    dato.abierto = otro->abierto;
    return true;
}

bool EsSeccionDeFORM(const Frase& f) { return f.EsAlguna({"TABLES"_c, "USING"_c, "CHANGING"_c, "RAISING"_c}); }

bool LeerParametro(Frase& f, Ambito& parametros) {
    auto& contexto = f.Entorno();
    Palabra palabra = f.Actual();
    if (palabra.EsLiteral()) return f.Falla(Clase::NoEsSentencia);
    f.Avanzar();
    auto nombre = palabra.texto;
    if (palabra.base == "VALUE"_c && nombre.ends_with(')')) {
        nombre.remove_prefix(palabra.largoBase + 1);
        nombre.remove_suffix(1);
    }
    if (!EsNombreDeDato(nombre)) {
        contexto.informe.Agregar(Clase::NombreInvalido, palabra, nombre);
    } else if (nombre.size() > maximoDeForma) {
        contexto.informe.Agregar(Clase::NombreLargo, palabra, nombre);
    }
    Dato dato = DatoAbierto(ClaveDe(nombre), nombre, palabra.linea);
    dato.formal = true;
    bool bien = true;
    if (f.EsAlguna({"TYPE"_c, "LIKE"_c, "STRUCTURE"_c}) && f.Hay(1)) bien = LeerTipoDeParametro(f, dato);
    if (const Dato* primero = parametros.Agregar(dato)) {
        contexto.informe.Agregar(Clase::NombreRepetido, palabra, nombre, primero->linea);
    }
    return bien;
}

bool LeerParametros(Frase& f, Ambito& parametros, Forma& forma) {
    while (f.Hay()) {
        const bool tablas = f.Es("TABLES"_c);
        if (f.Toma("RAISING"_c)) return f.Resto();
        if (!EsSeccionDeFORM(f)) return f.Falla(Clase::PalabrasDeMas);
        f.Avanzar();
        int cuantos = 0;
        while (f.Hay() && (cuantos == 0 || !EsSeccionDeFORM(f))) {
            if (!LeerParametro(f, parametros)) return false;
            ++cuantos;
        }
        if (cuantos == 0) return f.Falla(Clase::OperandoAusente);
        (tablas ? forma.tablas : forma.parametros) += cuantos;
    }
    return true;
}

bool EsSeccionDePERFORM(Frase& f) {
    // The last word can only be a dato of that name.
    if (f.EsAlguna({"TABLES"_c, "USING"_c, "CHANGING"_c})) {
        return f.Hay(1) || f.Entorno().datos.Buscar(f.Actual().clave) == nullptr;
    }
    if (f.Es("IN"_c) && f.Es("PROGRAM"_c, 1)) return true;
    if (f.Es("IF"_c) && f.Es("FOUND"_c, 1)) return true;
    return f.Es("ON"_c) && f.EsAlguna({"COMMIT"_c, "ROLLBACK"_c}, 1);
}

bool LeerSeccionesDePERFORM(Frase& f, Llamada& llamada, bool& propia) {
    while (f.Hay()) {
        if (f.Toma("IN"_c, "PROGRAM"_c)) {
            propia = false;
            if (f.Hay() && !EsSeccionDePERFORM(f)) f.Avanzar();
        } else if (f.Toma("IF"_c, "FOUND"_c)) {
            propia = false;
        } else if (f.Es("ON"_c) && EsSeccionDePERFORM(f)) {
            f.Avanzar(2);
            if (f.Toma("LEVEL"_c) && !f.Operando()) return false;
        } else if (EsSeccionDePERFORM(f)) {
            const bool tablas = f.Es("TABLES"_c);
            f.Avanzar();
            int cuantos = 0;
            while (f.Hay() && !EsSeccionDePERFORM(f)) {
                if (!f.Operando()) return false;
                ++cuantos;
            }
            if (cuantos == 0) return f.Falla(Clase::OperandoAusente);
            (tablas ? llamada.tablas : llamada.parametros) += cuantos;
        } else {
            return f.Falla(Clase::PalabrasDeMas);
        }
    }
    return true;
}

}  // namespace

bool LeerFORM(Frase& f) {
    auto& contexto = f.Entorno();
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    Forma forma;
    forma.nombre = f.Actual();
    f.Avanzar();
    const auto nombre = forma.nombre.texto;
    if (!EsNombreDeForma(nombre)) {
        contexto.informe.Agregar(Clase::NombreInvalido, forma.nombre);
    } else if (nombre.size() > maximoDeForma) {
        contexto.informe.Agregar(Clase::NombreLargo, forma.nombre);
    }
    // The types of the parameters are those outside.
    Ambito parametros;
    forma.conocida = LeerParametros(f, parametros, forma);
    contexto.datos.EntrarEnForma();
    for (const auto& parametro : parametros.Datos()) contexto.datos.Agregar(parametro);
    const auto [lugar, nueva] = contexto.formas.try_emplace(forma.nombre.clave, forma);
    if (!nueva) contexto.informe.Agregar(Clase::FormaRepetida, forma.nombre, nombre, lugar->second.nombre.linea);
    return forma.conocida;
}

bool LeerPERFORM(Frase& f) {
    auto& contexto = f.Entorno();
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    Llamada llamada;
    llamada.nombre = f.Actual();
    llamada.sentencia = contexto.informe.Sentencia();
    if (llamada.nombre.EsLiteral()) return f.Falla(Clase::NoEsSentencia);
    if (f.Es("OF"_c, 1)) return f.Rendirse();  // one of several, by a number
    f.Avanzar();
    bool propia = llamada.nombre.texto.find('(') == std::string_view::npos;
    llamada.ultima = f.Ultima();
    llamada.contada = LeerSeccionesDePERFORM(f, llamada, propia);
    if (propia && llamada.contada && !contexto.informe.EstaMuda()) contexto.llamadas.push_back(llamada);
    return llamada.contada;
}

void PedirForma(Contexto& contexto, const Palabra& nombre) {
    if (contexto.informe.EstaMuda()) return;
    Llamada llamada;
    llamada.nombre = nombre;
    llamada.sentencia = contexto.informe.Sentencia();
    contexto.llamadas.push_back(llamada);
}

void RevisarLlamadas(Contexto& contexto) {
    std::unordered_set<Clave> largas;
    for (const auto& llamada : contexto.llamadas) {
        contexto.informe.EmpezarSentencia(llamada.sentencia, false);
        const auto forma = contexto.formas.find(llamada.nombre.clave);
        if (forma == contexto.formas.end()) {
            if (contexto.incierto || contexto.perdidas.contains(llamada.nombre.clave)) continue;
            const bool larga = llamada.nombre.texto.size() > maximoDeForma;
            if (larga && !largas.insert(llamada.nombre.clave).second) continue;
            contexto.informe.Agregar(larga ? Clase::NombreLargo : Clase::FormaSinDefinir, llamada.nombre);
        } else if (llamada.contada && forma->second.conocida) {
            const int tablas = llamada.tablas - forma->second.tablas;
            const int parametros = llamada.parametros - forma->second.parametros;
            if (tablas < 0 || parametros < 0) {
                contexto.informe.Agregar(Clase::OperandoAusente, llamada.ultima);
            } else if (tablas > 0 || parametros > 0) {
                contexto.informe.Agregar(Clase::PalabrasDeMas, llamada.ultima);
            }
        }
    }
}

namespace {

bool EsSeccionDeFuncion(const Frase& f) {
    return f.EsAlguna({"EXPORTING"_c, "IMPORTING"_c, "CHANGING"_c, "TABLES"_c, "EXCEPTIONS"_c, "RECEIVING"_c}) && !f.Es("="_c, 1);
}

// NAME = OPERAND
bool LeerActual(Frase& f, bool excepcion) {
    const Palabra& formal = f.Actual();
    if (formal.EsLiteral()) return f.Falla(Clase::NoEsSentencia);
    f.Avanzar();
    if (!f.Es("="_c)) {
        if (excepcion) return true;
        return f.FallaAqui();
    }
    const Palabra& igual = f.Actual();
    f.Avanzar();
    if (f.Es("="_c, 1) || EsSeccionDeFuncion(f)) return f.Falla(Clase::OperandoAusente, igual);
    return f.Operando();
}

bool LeerSeccionesDeFuncion(Frase& f) {
    while (f.Hay()) {
        if (!EsSeccionDeFuncion(f)) return f.Falla(Clase::PalabrasDeMas);
        const bool excepciones = f.Es("EXCEPTIONS"_c);
        f.Avanzar();
        while (f.Hay() && !EsSeccionDeFuncion(f)) {
            if (!f.Es("="_c, 1) && !excepciones && f.Hay(1)) return f.Falla(Clase::NoEsSentencia, f.Mirar(1));
            if (!LeerActual(f, excepciones)) return false;
            if (excepciones && f.Toma("MESSAGE"_c) && !f.Operando()) return false;
        }
    }
    return true;
}

bool LeerCALL_FUNCTION(Frase& f) {
    if (!f.Operando()) return false;
    while (f.Hay() && !EsSeccionDeFuncion(f)) {
        if (f.EsAlguna({"STARTING"_c, "PARAMETER-TABLE"_c, "EXCEPTION-TABLE"_c})) return f.Rendirse();
        if (f.Toma("DESTINATION"_c)) {
            if (f.Toma("IN"_c)) return f.Rendirse();
            if (!f.Operando()) return false;
        } else if (f.Toma("IN"_c)) {
            if (!f.Toma("UPDATE"_c) && !f.Exige("BACKGROUND"_c)) return false;
            if (f.Es("UNIT"_c)) return f.Rendirse();
            if (!f.Exige("TASK"_c)) return false;
        } else if (f.Toma("AS"_c)) {
            if (!f.Exige("SEPARATE"_c, "UNIT"_c)) return false;
        } else {
            return f.Falla(Clase::PalabrasDeMas);
        }
    }
    return LeerSeccionesDeFuncion(f);
}

bool LeerCALL_TRANSACTION(Frase& f) {
    if (!f.Operando()) return false;
    while (f.Hay()) {
        bool bien = true;
        if (f.Toma("USING"_c)) {
            bien = f.Variable();
        } else if (f.Toma("MODE"_c) || f.Toma("UPDATE"_c)) {
            bien = f.Operando();
        } else if (f.Toma("MESSAGES"_c)) {
            bien = f.Exige("INTO"_c) && f.Variable();
        } else if (f.Toma("OPTIONS"_c)) {
            bien = f.Exige("FROM"_c) && f.Variable();
        } else if (f.Toma("AND"_c)) {
            bien = f.Exige("SKIP"_c) && f.Exige("FIRST"_c, "SCREEN"_c);
        } else if (f.Toma("WITH"_c) || f.Toma("WITHOUT"_c)) {
            bien = f.Exige("AUTHORITY-CHECK"_c);
        } else {
            bien = f.Falla(Clase::PalabrasDeMas);
        }
        if (!bien) return false;
    }
    return true;
}

}  // namespace

bool LeerCALL(Frase& f) {
    if (f.Toma("FUNCTION"_c)) return LeerCALL_FUNCTION(f);
    if (f.Toma("TRANSACTION"_c)) return LeerCALL_TRANSACTION(f);
    return f.Algo() && f.Resto();
}

}  // namespace qor::abap
