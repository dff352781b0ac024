#pragma once

#include <string>
#include <string_view>
#include <vector>

// What a compiler of release 4.6C would say to a report, as far as it can be said without a data dictionary.
namespace qor::abap {

struct Falta {
    enum class Clase {
        LiteralAbierto,      // an apostrophe is not closed on its line
        SentenciaSinPunto,   // the text ends inside a statement, or a statement holds the beginning of the next one
        NoEsSentencia,       // no statement of the language begins or goes on like this; `nombre` is the word at which it fails
        PalabrasDeMas,       // a statement is complete and goes on; `nombre` is the first word too many
        OperandoAusente,     // an operand or a clause is missing, as in "A = ." or "LOOP AT T WHERE."
        NombreSinDeclarar,   // a data object that nothing declares
        NombreRepetido,      // declared twice; `otraLinea` is the first declaration
        NombreInvalido,      // not a name: characters, or a first character, that no name can have
        NombreLargo,         // over 30 characters, or over 8 for a parameter of the selection screen
        ComponenteAjeno,     // STRUCTURE-COMPONENT of a structure whose components are all known, and this one is none
        ComponenteRepetido,  // two components of one name; `otraLinea` is the first one
        RegistroVacio,       // BEGIN OF and END OF with nothing between them
        LargoInvalido,       // a length that is none: (0), (X), over 65535
        FueraDelCampo,       // a constant offset or length that leads out of the field
        FormaSinDefinir,     // PERFORM of a FORM that is not there
        FormaRepetida,       // `otraLinea` is the first one
        BloqueAbierto,       // IF, CASE, DO, WHILE, LOOP, SELECT, FORM, BEGIN OF without its end, or an end without its begin
        SQLNativo,           // EXEC SQL: no columns, a wrong number of commas, a missing condition, a host variable that is none
        ConstanteCambiada,   // a constant where a statement puts its result; `nombre` is the constant
        NoEsTabla            // LOOP AT, READ TABLE, APPEND, SORT or REFRESH of what is declared, and no internal table
    };

    Clase clase;
    int linea;          // of the text, from 1: where the word stands
    int columna;        // of that line, from 1
    int otraLinea = 0;  // see the classes; 0 for none
    std::string nombre = {};
    int sentencia = 0;  // line at which the statement begins
};

// All faults in the order of their lines. A statement with a lexical fault is not looked into any further, and of a statement only
// the first syntactic fault is told. Nothing is told of what can't be known: statements and additions of the language that reports
// don't have are passed over, but for components of known records in some of them, structures of the dictionary have any component,
// function modules any parameter.
std::vector<Falta> RevisarReporte(std::string_view reporte);

}  // namespace qor::abap
