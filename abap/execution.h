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
struct Rutina;
struct Marco;

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

// A FORM that comes to its end, as it is seen from outside.
class FormaTerminada {
public:
    FormaTerminada(const Rutina& rutina, const Marco& marco, int linea) : rutina_(rutina), marco_(marco), linea_(linea) {}

    std::string_view Nombre() const;
    // The line of the report that called it.
    int Linea() const { return linea_; }
    // What a parameter stands for, TABLES first; without bytes where it is a table without header line.
    Campo Parametro(std::size_t i) const;

private:
    const Rutina& rutina_;
    const Marco& marco_;
    int linea_;
};

// Who looks on while a report runs, statement by statement. That takes time, so a run has one only where it was asked for.
class Perfil {
public:
    virtual ~Perfil() = default;

    // A statement that begins in that line runs.
    virtual void Sentencia(int linea) = 0;
    // The LOOP AT of that line comes to a row of its table, from 1.
    virtual void Fila(int linea, std::size_t fila) = 0;
    virtual void Vuelta(const FormaTerminada& forma) = 0;
};

// One run of a program. Data objects live as long as it does.
class Ejecucion {
public:
    // Data objects get their initial values. `limite`: statements without progress, see Progreso().
    Ejecucion(std::shared_ptr<const Programa> programa, Entorno& entorno, std::int64_t limite = 100'000'000);
    ~Ejecucion();
    Ejecucion(const Ejecucion&) = delete;
    Ejecucion& operator=(const Ejecucion&) = delete;

    // Who looks on from here on; null, as at first, for nobody.
    void PonerPerfil(Perfil* perfil);

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

    // How many rows the main loop has had in front of it, as far as it was entered.
    std::size_t FilasPrincipales() const;

    // The internal tables of step-loops (ITABSL_n with or without the prefix of the naming conventions), by their names.
    std::vector<std::pair<std::string, const TablaInterna*>> TablasDeGrupos();

private:
    std::unique_ptr<Maquina> maquina_;
};

}  // namespace qor::abap
