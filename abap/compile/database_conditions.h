#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "abap/compile/compiler.h"
#include "abap/surroundings.h"

// The tables that Open SQL names, and its conditions.
namespace qor::abap {

struct TablaDeBase {
    std::string nombre;
    std::string alias;  // AS; else empty
    const Estructura* estructura = nullptr;
    bool conocida = false;  // the dictionary has it; else any column is one of its
};

struct ColumnaDeBase {
    std::string nombre;
    TipoDeCampo tipo;
};

TablaDeBase LeerTablaDeBase(Compilador& c, Lectura& l);
// A column of the table, perhaps with its name in front: TABLE~COLUMN.
std::optional<ColumnaDeBase> BuscarColumna(Compilador& c, const TablaDeBase& tabla, const Palabra& palabra);
ColumnaDeBase ExigirColumna(Compilador& c, const TablaDeBase& tabla, const Palabra& palabra);

// A word whose text is another one at the same place.
// An operand that is one word.
Operando LeerPalabra(Compilador& c, const Palabra& palabra);
Operando LeerDestinoDe(Compilador& c, const Palabra& palabra);
// The words of ( A, B ), whose brackets and commas may be glued to them.
std::vector<Palabra> LeerLista(Lectura& l);

// The table of FOR ALL ENTRIES IN.
struct Entradas {
    std::string nombre;
    OperandoDeTabla tabla;
};

// A host variable of a condition.
struct ValorDeDonde {
    Operando operando;
    std::optional<Componente> deEntrada;  // of the row of FOR ALL ENTRIES instead
};

// A condition with its values still in fields.
struct Donde {
    enum class Clase : std::uint8_t { Y, O, No, Compara, Columna, Entre, En, Rango, Como, EsNulo };

    Clase clase = Clase::Y;
    std::vector<Donde> partes;  // of Y, O, No
    ColumnaDeBase columna;
    std::string operador;     // of Compara and Columna
    std::string otraColumna;  // of Columna
    std::vector<ValorDeDonde> valores;
    std::optional<OperandoDeTabla> rango;
    std::optional<Operando> escape;  // of Como
};

Donde LeerDonde(Compilador& c, Lectura& l, const TablaDeBase& tabla, const Entradas* entradas);

// The condition with the values of now; `entrada` is the row of FOR ALL ENTRIES.
CondicionDeBase Evaluar(Maquina& maquina, const Donde& donde, const std::uint8_t* entrada = nullptr);

}  // namespace qor::abap
