#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "abap/surroundings.h"

namespace qor::abap {

// ---- From a report to a program ----

class Programa;
class Maquina;

// Why a report does not compile.
struct FaltaDePrograma {
    int linea = 0;      // of the report, from 1
    int columna = 0;    // of the line, from 1
    std::string texto;  // what is wrong and what was expected; windows-1252
};

struct Compilacion {
    std::shared_ptr<const Programa> programa;  // null where there are faults
    std::vector<FaltaDePrograma> faltas;       // in the order of their lines
};

// Compiles a report once: names are resolved to storage, types asked of the dictionary. A statement that is not known is a fault,
// with its line.
Compilacion Compilar(std::string_view reporte, Diccionario& diccionario);

// ---- Running it ----

// A parameter of the selection screen.
struct ParametroDePantalla {
    std::string nombre;             // upper case
    Campo campo;                    // of a SELECT-OPTIONS the header line of its table
    TablaInterna* rango = nullptr;  // of a SELECT-OPTIONS
    bool conMinusculas = false;     // LOWER CASE
    bool obligatorio = false;
    bool casilla = false;  // AS CHECKBOX
    std::string grupo;     // of a radio button
    int linea = 0;         // of the report
};

enum class FinDeReporte {
    Normal,      // it ran to its end
    Mensaje,     // a MESSAGE of type E ended it
    Abandonado,  // a MESSAGE of type A, which takes back what is not committed
    Detenido,    // Seguimiento::Detener said so
};

// One run of a program. Data objects live as long as it does.
class Ejecucion {
public:
    // Data objects get their initial values. `limite`: statements without progress, see Progreso().
    Ejecucion(std::shared_ptr<const Programa> programa, Entorno& entorno, std::int64_t limite = 100'000'000);
    ~Ejecucion();
    Ejecucion(const Ejecucion&) = delete;
    Ejecucion& operator=(const Ejecucion&) = delete;

    // The event INITIALIZATION. Throws Volcado, as all that runs.
    void Iniciar();

    // In the order of their declaration, to be filled between Iniciar() and Correr().
    std::vector<ParametroDePantalla>& Parametros();

    // A global data object that is no table and no structure; without bytes where there is none of that name (upper case).
    Campo BuscarVariable(std::string_view nombre);
    // The names of all of them, in the order of their declaration, PARAMETERS left out.
    std::vector<std::string> Variables();

    // AT SELECTION-SCREEN once, START-OF-SELECTION, END-OF-SELECTION. The list is handed out line by line, also in front of a
    // Volcado.
    FinDeReporte Correr();

    // Something happened that a report without an end would not do; the count of statements begins anew. A record does that by
    // itself.
    void Progreso();

    // The line of the report whose statement runs, or ran last.
    int Linea() const;

    // The internal tables of step-loops (ITABSL_n with or without the prefix of the naming conventions), by their names.
    std::vector<std::pair<std::string, const TablaInterna*>> TablasDeGrupos();

private:
    std::unique_ptr<Maquina> maquina_;
};

}  // namespace qor::abap
