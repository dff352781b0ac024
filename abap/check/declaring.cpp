#include <algorithm>
#include <utility>

#include "abap/check/rules.h"

namespace qor::abap {

namespace {

constexpr std::size_t maximoDeNombre = 30;
constexpr std::size_t maximoDeParametro = 8;
constexpr int maximoDeLargo = 65535;
constexpr int maximoDePaquete = 16;
constexpr std::size_t maximoDeIncluidos = 1000000;  // components

using Clase = Falta::Clase;

// A name that a statement declares.
void RevisarNombreNuevo(Frase& f, const Palabra& palabra, std::string_view nombre, std::size_t maximo) {
    auto& informe = f.Entorno().informe;
    if (!EsNombreDeDato(nombre)) {
        informe.Agregar(Clase::NombreInvalido, palabra, nombre);
    } else if (nombre.size() > maximo) {
        informe.Agregar(Clase::NombreLargo, palabra, nombre);
    }
}

// The length behind a name; 0 for one that is none.
int LeerLargo(Frase& f, const Palabra& palabra, const Declarado& d) {
    auto& contexto = f.Entorno();
    int largo = 0;
    if (EsEntero(d.largo)) {
        largo = ValorEntero(d.largo);
        if (largo <= maximoDeLargo && largo > 0) return largo;
    } else if (const Dato* constante = contexto.datos.Buscar(ClaveDe(d.largo));
               constante != nullptr && constante->constante && constante->registro == sinRegistro) {
        return largoDesconocido;
    }
    contexto.informe.Agregar(Clase::LargoInvalido, palabra, palabra.texto);
    return 0;
}

// The length in brackets behind a declared name, if there is one; `largo` is 0 where it isn't known.
bool LeerLargoDeDato(Frase& f, const Palabra& palabra, const Declarado& d, Dato& dato, int& largo) {
    if (!d.tieneLargo) return true;
    if (!d.cerrado) return f.Falla(Clase::LargoInvalido, palabra);
    largo = LeerLargo(f, palabra, d);
    dato.largo = largo == 0 ? largoDesconocido : largo;
    return true;
}

// What a variable or a type that is declared here says of another one that is like it.
void Copiar(Dato& dato, const Dato& otro) {
    dato.tipo = otro.tipo;
    dato.largo = otro.largo;
    dato.registro = otro.registro;
    dato.abierto = otro.abierto;
}

void Abrir(Dato& dato) {
    dato.tipo = '?';
    dato.largo = largoDesconocido;
    dato.registro = sinRegistro;
    dato.abierto = true;
}

void PonerTipo(Dato& dato, char tipo, int largo) {
    dato.tipo = tipo;
    dato.largo = largo;
    dato.registro = sinRegistro;
    dato.abierto = false;
}

// The types that have a name of their own; false for all others.
bool PonerTipoPropio(Dato& dato, Clave nombre, int largo) {
    switch (nombre) {
        case "C"_c: PonerTipo(dato, 'C', largo == 0 ? 1 : largo); return true;
        case "N"_c: PonerTipo(dato, 'N', largo == 0 ? 1 : largo); return true;
        case "X"_c: PonerTipo(dato, 'X', largo == 0 ? 1 : largo); return true;
        case "D"_c: PonerTipo(dato, 'D', 8); return true;
        case "T"_c: PonerTipo(dato, 'T', 6); return true;
        case "P"_c: PonerTipo(dato, 'P', largoDesconocido); return true;
        case "I"_c: PonerTipo(dato, 'I', largoDesconocido); return true;
        case "F"_c: PonerTipo(dato, 'F', largoDesconocido); return true;
        case "STRING"_c: PonerTipo(dato, 'g', largoDesconocido); return true;
        case "XSTRING"_c: PonerTipo(dato, 'y', largoDesconocido); return true;
        default: return false;
    }
}

// The name behind LIKE or TYPE.
bool CopiarDe(Frase& f, Dato& dato, bool esTipo, int largo) {
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    const Palabra& palabra = f.Actual();
    if (palabra.EsLiteral()) return f.Falla(Clase::NoEsSentencia);
    f.Avanzar();
    if (esTipo && PonerTipoPropio(dato, palabra.clave, largo)) return true;
    const auto& datos = f.Entorno().datos;
    const Dato* otro = esTipo ? datos.BuscarTipo(palabra.base) : datos.Buscar(palabra.base);
    if (otro == nullptr || otro->linea == 0) {
        Abrir(dato);
        return true;
    }
    const auto r = LeerReferencia(palabra);
    if (r && r->tieneComponente) {
        bool ajeno = false;
        const Dato* componente = BuscarComponentes(datos, *otro, r->componentes, ajeno);
        if (ajeno && otro->registro != sinRegistro) f.Decir(Clase::ComponenteAjeno, palabra, palabra.texto);
        otro = componente;
    }
    if (otro == nullptr) {
        Abrir(dato);
    } else {
        Copiar(dato, *otro);
        dato.anidada = otro->anidada || (dato.tabla && otro->tabla);
        dato.tabla = dato.tabla || otro->tabla;
    }
    return true;
}

bool EsClaseDeTabla(const Frase& f) {
    if (f.Es("TABLE"_c)) return true;
    return f.EsAlguna({"STANDARD"_c, "SORTED"_c, "HASHED"_c, "ANY"_c, "INDEX"_c}) && f.Es("TABLE"_c, 1);
}

// [STANDARD] TABLE OF ... WITH KEY ... and what else such a type has.
bool LeerTipoDeTabla(Frase& f, Dato& dato, bool esTipo) {
    while (!f.Toma("TABLE"_c)) f.Avanzar();
    Abrir(dato);
    dato.tabla = true;
    if (f.Toma("OF"_c)) {
        if (f.Toma("REF"_c, "TO"_c)) return f.Algo() && f.Resto();
        f.Toma("LINE"_c, "OF"_c);
        if (!CopiarDe(f, dato, esTipo, 0)) return false;
    }
    return f.Resto();
}

bool LeerTipo(Frase& f, Dato& dato, bool esTipo, int largo) {
    if (EsClaseDeTabla(f)) return LeerTipoDeTabla(f, dato, esTipo);
    if (f.Toma("REF"_c, "TO"_c)) {
        Abrir(dato);
        dato.tipo = 'r';
        return f.Algo();
    }
    if (f.Toma("RANGE"_c, "OF"_c)) {
        Abrir(dato);
        dato.tabla = true;
        return f.Algo() && f.Resto();
    }
    const bool linea = f.Toma("LINE"_c, "OF"_c);
    if (!CopiarDe(f, dato, esTipo, largo)) return false;
    if (linea) dato.tabla = dato.anidada;
    return true;
}

bool LeerValor(Frase& f) {
    if (f.Toma("IS"_c, "INITIAL"_c)) return true;
    return f.Operando();
}

// What stands behind the name of a variable, constant or type.
bool LeerClausulas(Frase& f, Dato& dato, const Palabra& palabra, int largo) {
    bool conValor = false;
    while (f.Hay()) {
        if (f.Toma("TYPE"_c)) {
            if (!LeerTipo(f, dato, true, largo)) return false;
        } else if (f.Toma("LIKE"_c)) {
            if (!LeerTipo(f, dato, false, largo)) return false;
        } else if (f.Toma("VALUE"_c)) {
            conValor = true;
            if (!LeerValor(f)) return false;
        } else if (f.Toma("OCCURS"_c)) {
            dato.anidada = dato.anidada || dato.tabla;
            dato.tabla = true;
            if (!f.Operando()) return false;
        } else if (f.Toma("WITH"_c, "HEADER"_c)) {
            if (!f.Exige("LINE"_c)) return false;
        } else if (f.Toma("DECIMALS"_c)) {
            if (!f.Operando()) return false;
        } else if (f.Toma("LENGTH"_c)) {
            dato.largo = largoDesconocido;
            if (!f.Operando()) return false;
        } else if (!f.Toma("READ-ONLY"_c) && !f.Toma("NON-UNICODE"_c)) {
            return f.Falla(Clase::PalabrasDeMas);
        }
    }
    if (dato.tipo == 'P' && largo > maximoDePaquete) f.Entorno().informe.Agregar(Clase::LargoInvalido, palabra);
    if (dato.constante && !conValor) return f.Falla(Clase::OperandoAusente);
    return true;
}

void AgregarComponente(Contexto& contexto, RegistroEnObra& obra, const Palabra& palabra, const Dato& dato) {
    if (const Dato* primero = obra.registro.componentes.Agregar(dato)) {
        contexto.informe.Agregar(Clase::ComponenteRepetido, palabra, dato.nombre, primero->linea);
    }
}

// The first declaration of the name, where it is taken, stands in the same scope.
void AgregarDato(Contexto& contexto, const Palabra& palabra, const Dato& dato, Clave sentencia) {
    const Dato* primero = sentencia == "TYPES"_c ? contexto.datos.AgregarTipo(dato) : contexto.datos.Agregar(dato);
    if (primero == nullptr || contexto.enPantalla) return;
    contexto.informe.Agregar(Clase::NombreRepetido, palabra, dato.nombre, primero->linea);
}

Dato NuevoDato(const Palabra& palabra, std::string_view nombre) {
    Dato dato;
    dato.clave = ClaveDe(nombre);
    dato.nombre = nombre;
    dato.linea = palabra.linea;
    return dato;
}

// A finished record becomes a component of the one around it, or a dato.
void TerminarRegistro(Contexto& contexto, bool abrir) {
    RegistroEnObra obra = std::move(contexto.enObra.back());
    contexto.enObra.pop_back();
    Dato dato = NuevoDato(obra.nombre, obra.nombre.texto);
    dato.tipo = 'u';
    dato.tabla = obra.tabla;
    dato.constante = obra.sentencia == "CONSTANTS"_c;
    obra.registro.abierto = obra.registro.abierto || abrir;
    dato.largo = obra.registro.Largo();
    dato.registro = contexto.datos.AgregarRegistro(std::move(obra.registro));
    const int sentencia = contexto.informe.CambiarSentencia(obra.linea);
    if (contexto.enObra.empty()) {
        AgregarDato(contexto, obra.nombre, dato, obra.sentencia);
    } else {
        AgregarComponente(contexto, contexto.enObra.back(), obra.nombre, dato);
    }
    contexto.informe.CambiarSentencia(sentencia);
}

bool LeerBEGIN(Frase& f) {
    auto& contexto = f.Entorno();
    if (f.Toma("COMMON"_c, "PART"_c)) return f.Resto();
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    RegistroEnObra obra;
    obra.nombre = f.Actual();
    obra.sentencia = f.Primera().clave;
    obra.linea = contexto.informe.Sentencia();
    f.Avanzar();
    RevisarNombreNuevo(f, obra.nombre, obra.nombre.texto, maximoDeNombre);
    obra.tabla = f.Es("OCCURS"_c);
    contexto.enObra.push_back(std::move(obra));
    if (f.Toma("OCCURS"_c) && !f.Operando()) return false;
    if (f.Toma("WITH"_c, "HEADER"_c) && !f.Exige("LINE"_c)) return false;
    if (f.Toma("VALID"_c, "BETWEEN"_c)) return f.Resto();
    return f.Fin();
}

bool LeerEND(Frase& f, const Palabra& end) {
    auto& contexto = f.Entorno();
    if (f.Toma("COMMON"_c, "PART"_c)) return f.Resto();
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    const Palabra nombre = f.Actual();
    f.Avanzar();
    auto& enObra = contexto.enObra;
    const auto es = [&nombre](const RegistroEnObra& obra) { return obra.nombre.clave == nombre.clave; };
    if (std::none_of(enObra.begin(), enObra.end(), es)) {
        contexto.informe.Agregar(Clase::BloqueAbierto, end, nombre.texto);
        return f.Resto();
    }
    while (!es(enObra.back())) {
        contexto.informe.AgregarDe(enObra.back().linea, Clase::BloqueAbierto, enObra.back().nombre);
        TerminarRegistro(contexto, true);
    }
    const auto& obra = enObra.back();
    if (obra.registro.componentes.Datos().empty() && !obra.hayInclusion)
        contexto.informe.Agregar(Clase::RegistroVacio, obra.nombre);
    TerminarRegistro(contexto, false);
    return f.Toma("VALID"_c, "BETWEEN"_c) ? f.Resto() : f.Fin();
}

}  // namespace

void CerrarRegistros(Contexto& contexto) {
    while (!contexto.enObra.empty()) {
        const auto& obra = contexto.enObra.back();
        contexto.informe.AgregarDe(obra.linea, Clase::BloqueAbierto, obra.nombre);
        TerminarRegistro(contexto, true);
    }
}

bool LeerDatos(Frase& f) {
    auto& contexto = f.Entorno();
    const Clave sentencia = f.Primera().clave;
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    if (f.Es("BEGIN"_c) && f.Es("OF"_c, 1)) {
        f.Avanzar(2);
        return LeerBEGIN(f);
    }
    if (f.Es("END"_c) && f.Es("OF"_c, 1)) {
        const Palabra& end = f.Actual();
        f.Avanzar(2);
        return LeerEND(f, end);
    }
    const Palabra palabra = f.Actual();
    if (palabra.EsLiteral()) return f.Falla(Clase::NoEsSentencia);
    f.Avanzar();
    const Declarado d = LeerDeclarado(palabra.texto);
    RevisarNombreNuevo(f, palabra, d.nombre, maximoDeNombre);
    Dato dato = NuevoDato(palabra, d.nombre);
    dato.constante = sentencia == "CONSTANTS"_c;
    int largo = 0;
    bool bien = LeerLargoDeDato(f, palabra, d, dato, largo);
    bien = bien && LeerClausulas(f, dato, palabra, largo);
    if (!bien) Abrir(dato);
    if (contexto.enObra.empty()) {
        AgregarDato(contexto, palabra, dato, sentencia);
    } else {
        auto& obra = contexto.enObra.back();
        const bool partido = !EsNombreDeForma(d.nombre) || d.nombre.find('-') != std::string_view::npos;
        obra.registro.abierto = obra.registro.abierto || !bien || partido;
        AgregarComponente(contexto, obra, palabra, dato);
    }
    return bien;
}

bool LeerTABLES(Frase& f) {
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    const Palabra palabra = f.Actual();
    f.Avanzar();
    auto nombre = palabra.texto;
    if (nombre.front() == '*') nombre.remove_prefix(1);
    RevisarNombreNuevo(f, palabra, nombre, maximoDeNombre);
    Dato dato = DatoAbierto(palabra.clave, palabra.texto, palabra.linea);
    if (const Dato* primero = f.Entorno().datos.AgregarGlobal(dato)) {
        f.Entorno().informe.Agregar(Clase::NombreRepetido, palabra, palabra.texto, primero->linea);
    }
    return f.Fin();
}

namespace {

bool LeerClausulaDeParametro(Frase& f, Dato& dato, int largo) {
    if (f.Toma("TYPE"_c)) return LeerTipo(f, dato, true, largo);
    if (f.Toma("LIKE"_c))
        return f.Es("("_c) || (f.Hay() && f.Actual().texto.front() == '(') ? f.Algo() : LeerTipo(f, dato, false, largo);
    if (f.Toma("DEFAULT"_c)) return f.Operando();
    if (f.Toma("LOWER"_c)) return f.Exige("CASE"_c);
    if (f.Toma("VALUE"_c)) return f.Exige("CHECK"_c);
    if (f.Toma("AS"_c)) {
        if (f.Toma("SEARCH"_c)) return f.Exige("PATTERN"_c);
        if (f.Toma("LISTBOX"_c)) return true;
        return f.Exige("CHECKBOX"_c);
    }
    if (f.Toma("RADIOBUTTON"_c)) return f.Exige("GROUP"_c) && f.Algo();
    if (f.Toma("MEMORY"_c) || f.Toma("MODIF"_c)) return f.Exige("ID"_c) && f.Algo();
    if (f.Toma("MATCHCODE"_c)) return f.Exige("OBJECT"_c) && f.Algo();
    if (f.Toma("FOR"_c)) return (f.Toma("NODE"_c) || f.Exige("TABLE"_c)) && f.Algo();
    if (f.Toma("VISIBLE"_c)) return f.Exige("LENGTH"_c) && f.Algo();
    if (f.Toma("USER-COMMAND"_c) || f.Toma("DECIMALS"_c) || f.Toma("LENGTH"_c)) return f.Algo();
    if (f.Toma("VALUE-REQUEST"_c) || f.Toma("HELP-REQUEST"_c)) return !f.Toma("FOR"_c) || f.Algo();
    if (f.Toma("OBLIGATORY"_c) || f.Toma("NO-DISPLAY"_c)) return true;
    return f.Falla(Clase::PalabrasDeMas);
}

}  // namespace

bool LeerPARAMETERS(Frase& f) {
    auto& contexto = f.Entorno();
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    const Palabra palabra = f.Actual();
    if (palabra.EsLiteral()) return f.Falla(Clase::NoEsSentencia);
    f.Avanzar();
    const Declarado d = LeerDeclarado(palabra.texto);
    RevisarNombreNuevo(f, palabra, d.nombre, maximoDeParametro);
    Dato dato = NuevoDato(palabra, d.nombre);
    int largo = 0;
    bool bien = LeerLargoDeDato(f, palabra, d, dato, largo);
    while (bien && f.Hay()) bien = LeerClausulaDeParametro(f, dato, largo);
    if (!bien) Abrir(dato);
    if (const Dato* primero = contexto.datos.AgregarGlobal(dato)) {
        contexto.informe.Agregar(Clase::NombreRepetido, palabra, d.nombre, primero->linea);
    }
    return bien;
}

namespace {

// A table of SIGN, OPTION, LOW and HIGH, like the one behind FOR.
void DeclararRango(Frase& f, const Palabra& palabra, const Dato* valor) {
    auto& contexto = f.Entorno();
    Registro registro;
    for (const auto& [nombre, largo] : {std::pair{"SIGN", 1}, std::pair{"OPTION", 2}, std::pair{"LOW", 0}, std::pair{"HIGH", 0}}) {
        Dato componente = NuevoDato(palabra, nombre);
        componente.largo = largo;
        if (largo == 0) {
            Abrir(componente);
            if (valor != nullptr) Copiar(componente, *valor);
        }
        registro.componentes.Agregar(componente);
    }
    Dato dato = NuevoDato(palabra, palabra.texto);
    dato.tipo = 'u';
    dato.tabla = true;
    dato.largo = largoDesconocido;
    dato.registro = contexto.datos.AgregarRegistro(std::move(registro));
    AgregarDato(contexto, palabra, dato, f.Primera().clave);
}

// `comoLIKE`: the field may be one of the dictionary.
bool LeerNombreYFOR(Frase& f, std::size_t maximo, bool comoLIKE) {
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    const Palabra palabra = f.Actual();
    f.Avanzar();
    RevisarNombreNuevo(f, palabra, palabra.texto, maximo);
    const Dato* valor = nullptr;
    const bool bien = f.Exige("FOR"_c) && (f.Hay() || f.Falla(Clase::OperandoAusente));
    const auto delDiccionario = [&f] {
        return f.Actual().texto.find('-') != std::string_view::npos && f.Entorno().datos.Buscar(f.Actual().base) == nullptr;
    };
    if (bien && f.Actual().texto.front() != '(' && !(comoLIKE && delDiccionario())) valor = f.Revisar(f.Actual());
    DeclararRango(f, palabra, valor);
    return bien && f.Algo();
}

}  // namespace

bool LeerSELECT_OPTIONS(Frase& f) { return LeerNombreYFOR(f, maximoDeParametro, false) && f.Resto(); }

bool LeerRANGES(Frase& f) {
    if (!LeerNombreYFOR(f, maximoDeNombre, true)) return false;
    if (f.Toma("OCCURS"_c) && !f.Operando()) return false;
    return f.Fin();
}

// Some of its forms declare the words that they show.
bool LeerPantalla(Frase& f) {
    for (const auto& palabra : f.Palabras().subspan(1)) {
        if (palabra.tipo != Palabra::Tipo::Nombre || palabra.texto.size() > maximoDeNombre || !EsNombreDeDato(palabra.texto))
            continue;
        auto& datos = f.Entorno().datos;
        if (datos.Buscar(palabra.clave) == nullptr) datos.AgregarGlobal(DatoAbierto(palabra.clave, palabra.texto, 0));
    }
    return f.Hay() || f.Falla(Clase::OperandoAusente);
}

bool LeerINCLUDE(Frase& f) {
    auto& contexto = f.Entorno();
    const bool esTipo = f.Es("TYPE"_c);
    if (!f.EsAlguna({"STRUCTURE"_c, "TYPE"_c}) || !f.Hay(1)) {
        // Text of another program.
        if (!f.Algo()) return false;
        contexto.incierto = true;
        return f.Resto();
    }
    f.Avanzar();
    const Palabra& palabra = f.Actual();
    if (contexto.enObra.empty()) return f.Falla(Clase::NoEsSentencia, f.Primera());
    auto& obra = contexto.enObra.back();
    obra.hayInclusion = true;
    Dato dato;
    if (!CopiarDe(f, dato, esTipo, 0)) return false;
    const bool conSufijo = f.Hay();
    if (f.Toma("AS"_c) && !f.Algo()) return false;
    if (f.Toma("RENAMING"_c) && !(f.Exige("WITH"_c, "SUFFIX"_c) && f.Algo())) return false;
    if (dato.registro != sinRegistro) contexto.incluidos += contexto.datos.De(dato.registro).componentes.Datos().size();
    if (dato.registro == sinRegistro || conSufijo || contexto.incluidos > maximoDeIncluidos) {
        obra.registro.abierto = true;
    } else {
        const Registro& incluido = contexto.datos.De(dato.registro);
        obra.registro.abierto = obra.registro.abierto || incluido.abierto;
        for (const auto& componente : incluido.componentes.Datos()) AgregarComponente(contexto, obra, palabra, componente);
    }
    return f.Fin();
}

}  // namespace qor::abap
