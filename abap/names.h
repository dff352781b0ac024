#pragma once

#include <optional>
#include <string_view>

#include "abap/lexer.h"

namespace qor::abap {

// A name as it stands in a statement: NAME-COMPONENT-COMPONENT+OFFSET(LENGTH).
struct Referencia {
    std::string_view nombre;
    std::string_view componentes;     // behind the first "-"; empty without
    std::string_view desplazamiento;  // digits or a name; empty without
    std::string_view largo;           // digits, a name or "*"; empty without
    bool tieneComponente = false;
    bool tieneDesplazamiento = false;
    bool tieneLargo = false;
    bool esCuerpo = false;  // NAME[]
};

// The parts of a word; nothing where brackets and signs don't stand as in a name.
std::optional<Referencia> LeerReferencia(const Palabra& palabra);

// A name that is declared, and the length in brackets behind it.
struct Declarado {
    std::string_view nombre;
    std::string_view largo;
    bool tieneLargo = false;
    bool cerrado = true;  // the bracket is closed at the end of the word
};

Declarado LeerDeclarado(std::string_view palabra);

bool EsNumero(std::string_view texto);    // digits, perhaps behind a sign
bool EsEntero(std::string_view texto);    // digits
int ValorEntero(std::string_view texto);  // at most 999999

// Whether a data object, a component or a parameter can have this name, but for its length.
bool EsNombreDeDato(std::string_view nombre);

// Whether a FORM can have it.
bool EsNombreDeForma(std::string_view nombre);

// OBJECT->COMPONENT or CLASS=>COMPONENT.
bool EsDeObjeto(std::string_view palabra);

// <NAME>, perhaps with what may stand behind a name.
bool EsSimboloDeCampo(std::string_view palabra);

}  // namespace qor::abap
