// Arithmetic and conditions.
#include "abap/check/phrase.h"
#include "abap/keywords.h"

namespace qor::abap {

namespace {

// Brackets within brackets that are looked into.
constexpr int honduraMaxima = 100;

bool AbreLista(const Palabra& palabra) { return !palabra.EsLiteral() && palabra.texto.back() == '('; }

bool CierraLista(const Palabra& palabra) { return palabra.clave == ")"_c; }

bool EsOperacion(const Palabra& palabra) {
    switch (palabra.clave) {
        case "+"_c:
        case "-"_c:
        case "*"_c:
        case "/"_c:
        case "**"_c:
        case "DIV"_c:
        case "MOD"_c:
        case "BIT-AND"_c:
        case "BIT-OR"_c:
        case "BIT-XOR"_c: return true;
        default: return false;
    }
}

}  // namespace

// NAME( ARGUMENTS )
bool Frase::Funcion() {
    const Palabra& palabra = Actual();
    const auto nombre = palabra.texto.substr(0, palabra.texto.size() - 1);
    const bool metodo = EsDeObjeto(nombre);
    if (!metodo && !EsFuncion(ClaveDe(nombre))) return Falla(Falta::Clase::NoEsSentencia);
    Avanzar();
    if (!metodo && Hay() && !Es(")"_c) && !Es("="_c, 1)) return Expresion() && Exige(")"_c);
    int abiertos = 1;
    while (Hay() && abiertos > 0) {
        if (AbreLista(Actual())) ++abiertos;
        if (CierraLista(Actual())) --abiertos;
        Avanzar();
    }
    return abiertos == 0 || Falla(Falta::Clase::OperandoAusente);
}

bool Frase::Primario() {
    while (EsAlguna({"+"_c, "-"_c, "BIT-NOT"_c}) && Hay(1)) Avanzar();
    if (!Hay()) return Falla(Falta::Clase::OperandoAusente);
    if (Es("("_c)) {
        Avanzar();
        return Expresion() && Exige(")"_c);
    }
    return AbreLista(Actual()) ? Funcion() : Operando();
}

bool Frase::Expresion() {
    if (++hondura_ > honduraMaxima) return Rendirse();
    if (!Primario()) return false;
    while (Hay() && EsOperacion(Actual())) {
        Avanzar();
        if (!Primario()) return false;
    }
    --hondura_;
    return true;
}

// Whether the bracket here is one of arithmetic: behind its end a relation or an operator follows.
bool Frase::EsParentesisDeExpresion() const {
    std::size_t i = 1;
    for (int abiertos = 1; Hay(i) && abiertos > 0; ++i) {
        if (AbreLista(Mirar(i))) ++abiertos;
        if (CierraLista(Mirar(i))) --abiertos;
    }
    return Hay(i) && (EsComparacion(Mirar(i).clave) || EsOperacion(Mirar(i)) || EsAlguna({"BETWEEN"_c, "IN"_c, "IS"_c}, i));
}

// IN ( A, B ): brackets and commas may be glued to the values.
bool Frase::Lista() {
    bool cerrada = false;
    while (Hay() && !cerrada) {
        Palabra valor = Actual();
        Avanzar();
        if (valor.EsLiteral() || valor.clave == ","_c) continue;
        while (!valor.texto.empty() && valor.texto.front() == '(') valor.Acortar(1);
        cerrada = !valor.texto.empty() && valor.texto.back() == ')' && valor.texto.find('(') == std::string_view::npos;
        while (cerrada && !valor.texto.empty() && valor.texto.back() == ')') valor.texto.remove_suffix(1);
        if (valor.texto.empty() || EsNumero(valor.texto)) continue;
        const auto base = valor.texto.substr(0, valor.texto.find_first_of("-+(["));
        valor.base = ClaveDe(base);
        valor.largoBase = static_cast<std::uint32_t>(base.size());
        Revisar(valor);
    }
    return cerrada || Falla(Falta::Clase::OperandoAusente);
}

bool Frase::Relacion(ClaseDeCondicion clase) {
    const bool logica = clase == ClaseDeCondicion::Logica;
    const auto valor = [this, logica] { return logica ? Expresion() : Operando(); };
    if (!Hay()) return Falla(Falta::Clase::OperandoAusente);
    if (EsComparacion(Actual().clave)) {
        Avanzar();
        if (clase == ClaseDeCondicion::DeBase && EsAlguna({"("_c, "ALL"_c, "ANY"_c, "SOME"_c})) return Rendirse();
        return valor();
    }
    if (Toma("IS"_c)) {
        Toma("NOT"_c);
        if (EsAlguna({"INITIAL"_c, "NULL"_c, "ASSIGNED"_c, "BOUND"_c, "REQUESTED"_c, "SUPPLIED"_c})) return Algo();
        if (Toma("INSTANCE"_c, "OF"_c)) return Algo();
        return FallaAqui();
    }
    Toma("NOT"_c);
    if (Toma("BETWEEN"_c)) return valor() && Exige("AND"_c) && valor();
    if (Toma("IN"_c)) {
        if (!Hay()) return Falla(Falta::Clase::OperandoAusente);
        if (Actual().EsLiteral() || Actual().texto.front() != '(') return Operando();
        if (Es("SELECT"_c, 1)) return Rendirse();
        return Lista();
    }
    if (clase == ClaseDeCondicion::DeBase && Toma("LIKE"_c)) {
        if (!Operando()) return false;
        return !Toma("ESCAPE"_c) || Operando();
    }
    return FallaAqui();
}

bool Frase::Termino(ClaseDeCondicion clase, const Dato* linea) {
    while (Es("NOT"_c) && Hay(1) && !EsComparacion(Mirar(1).clave)) Avanzar();
    if (!Hay()) return Falla(Falta::Clase::OperandoAusente);
    const bool deBase = clase == ClaseDeCondicion::DeBase;
    if (deBase && Es("EXISTS"_c)) return Rendirse();
    if (deBase && Actual().texto.front() == '(' && Actual().texto.size() > 1) {
        // (ITAB): the condition is in a table.
        if (Actual().texto.back() != ')') return Falla(Falta::Clase::NoEsSentencia);
        return Algo();
    }
    if (Es("("_c) && (clase != ClaseDeCondicion::Logica || !EsParentesisDeExpresion())) {
        Avanzar();
        return Condicion(clase, linea) && Exige(")"_c);
    }
    if (clase == ClaseDeCondicion::Logica) {
        if (!Expresion()) return false;
    } else if (clase == ClaseDeCondicion::DeTabla) {
        if (!Componente(linea)) return false;
    } else {
        // A column, or an aggregate of one.
        const bool lista = AbreLista(Actual());
        if (!Componente(nullptr)) return false;
        while (lista && Hay() && !CierraLista(Actual())) Avanzar();
        if (lista && !Exige(")"_c)) return false;
    }
    return Relacion(clase);
}

bool Frase::Condicion(ClaseDeCondicion clase, const Dato* linea) {
    if (++hondura_ > honduraMaxima) return Rendirse();
    if (!Termino(clase, linea)) return false;
    while (EsAlguna({"AND"_c, "OR"_c})) {
        Avanzar();
        if (!Termino(clase, linea)) return false;
    }
    --hondura_;
    return true;
}

}  // namespace qor::abap
