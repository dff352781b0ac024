#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "abap/key.h"
#include "abap/machine/operand.h"

namespace qor::abap {

class Maquina;

// One step of a routine. A statement is one instruction or a few.
class Instruccion {
public:
    Instruccion() = default;
    Instruccion(const Instruccion&) = delete;
    Instruccion& operator=(const Instruccion&) = delete;
    virtual ~Instruccion() = default;

    // Does its work and answers the number of the instruction that comes next: `siguiente`, or where it jumps to.
    virtual std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const = 0;

    int linea = 0;         // of the report, where its statement begins
    bool primera = false;  // of its statement
};

// Where a routine ends: the number of an instruction that is none.
constexpr std::size_t finDeRutina = ~std::size_t{0};

// The data objects of the report or of a FORM, as they are when it begins.
struct DisenoDeMarco {
    std::vector<std::uint8_t> datos;   // their initial bytes
    std::vector<std::string> cadenas;  // of the STRINGs
    std::vector<TipoDeCampo> tablas;   // of the internal tables: their lines
    std::vector<bool> vigiladas;       // which of the tables tell what no loop has met
    std::uint32_t enlaces = 0;         // formal parameters and field-symbols
    std::uint32_t bucles = 0;          // loops that keep a state
};

struct ParametroFormal {
    std::string nombre;
    std::uint32_t casilla = 0;
    bool tabla = false;        // TABLES
    bool porValor = false;     // VALUE( )
    bool devuelve = false;     // CHANGING VALUE( )
    std::uint32_t minimo = 0;  // bytes that its structure needs
};

// A FORM or an event.
struct Rutina {
    std::string nombre;
    int linea = 0;
    std::vector<std::unique_ptr<Instruccion>> codigo;
    DisenoDeMarco marco;
    std::vector<ParametroFormal> formales;  // TABLES first, then USING and CHANGING
    std::size_t tablas = 0;                 // how many of them are TABLES
    std::vector<Operando> guardados;        // LOCAL: global fields that get their values back behind it
    std::size_t numero = 0;
};

// A global data object that can be asked for by name.
struct VariableGlobal {
    std::string nombre;
    Operando operando;
    bool parametro = false;  // of the selection screen
};

struct ParametroCompilado {
    std::string nombre;
    Operando operando;
    std::optional<OperandoDeTabla> rango;
    bool conMinusculas = false;
    bool obligatorio = false;
    bool casilla = false;
    std::string grupo;
    int linea = 0;
    std::optional<Operando> desde;  // of a SELECT-OPTIONS: its DEFAULT
    std::optional<Operando> hasta;
};

struct GrupoVigilado {
    std::string nombre;
    std::uint32_t tabla = 0;
};

// The system fields, the first structure of the global frame.
const Estructura& EstructuraSY();

// A compiled report. It is not changed by running.
class Programa {
public:
    DisenoDeMarco global;
    std::deque<Rutina> rutinas;
    Rutina* inicializacion = nullptr;
    std::vector<Rutina*> pantallas;  // AT SELECTION-SCREEN without ON, in their order
    Rutina* inicio = nullptr;        // START-OF-SELECTION
    Rutina* fin = nullptr;           // END-OF-SELECTION
    std::vector<ParametroCompilado> parametros;
    std::vector<std::pair<Operando, Operando>> defectos;  // of parameters: fields that only the start knows
    std::vector<VariableGlobal> variables;
    std::vector<GrupoVigilado> grupos;
    std::string nombre;           // of REPORT
    int anchoDeLista = 255;       // LINE-SIZE
    std::string claseDeMensajes;  // MESSAGE-ID of REPORT
    bool hayBuclePrincipal = false;

    // What operands point to.
    std::deque<std::string> textos;
    std::deque<Estructura> estructuras;
};

}  // namespace qor::abap
