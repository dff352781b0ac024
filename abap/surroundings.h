#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "abap/values/internal_table.h"
#include "abap/values/structure.h"

// What a running report asks of the system around it. The language knows these interfaces and nothing of who fills them in. Texts
// are windows-1252; names are in upper case. Any of them may throw Volcado, which ends the report.
namespace qor::abap {

// ---- Dictionary ----

// A structure as a report uses it, in the order of the text: what is told where nobody knows it.
struct NombreUsado {
    std::string_view estructura;
    std::span<const std::string> componentes;
};

class Diccionario {
public:
    virtual ~Diccionario() = default;

    // The components of a structure or table. What nobody knows has the components that the report uses. Never null; it stays.
    virtual const Estructura& BuscarEstructura(const NombreUsado& nombre) = 0;
    // TABLE-FIELD. What nobody knows is C of 255.
    virtual TipoDeCampo BuscarCampo(std::string_view estructura, std::string_view componente) = 0;
    // The same as long as it is known.
    virtual std::optional<TipoDeCampo> BuscarElemento(std::string_view nombre) = 0;
    // Whether it is a table of the database, which has rows.
    virtual bool EsTabla(std::string_view nombre) = 0;
};

// ---- Database ----

// A value of a row: nothing (NULL), I and X of up to 8 bytes as a number, F, all else as a text without the blanks behind it; P as
// its decimal text, such as "-12.50".
using ValorDeBase = std::variant<std::monostate, std::int64_t, double, std::string>;

// A condition on rows. Values stand in the order in which the condition names them.
struct CondicionDeBase {
    enum class Clase { Y, O, No, Compara, Entre, En, Como, EsNulo };

    Clase clase = Clase::Y;
    std::vector<CondicionDeBase> partes;  // of Y, O, No
    std::string columna;                  // of the others
    std::string operador;                 // of Compara: = <> < <= > >=
    std::string otraColumna;              // of Compara, instead of a value
    std::vector<ValorDeBase> valores;     // one; two of Entre; any number of En
    char escape = 0;                      // of Como; % and _ are its patterns
};

struct ColumnaPedida {
    std::string columna;  // "*" of COUNT( * )
    std::string funcion;  // MAX, MIN, AVG, SUM, COUNT; empty for the column itself
    bool distinta = false;
};

struct OrdenPedido {
    std::string columna;
    bool descendente = false;
};

// A SELECT. Without an order rows come by the key, where the table has one, else as they were loaded.
struct ConsultaDeBase {
    std::string tabla;
    std::vector<ColumnaPedida> columnas;  // none: all of them, in the order of the table
    CondicionDeBase donde;                // Y without parts: all rows
    std::vector<std::string> grupo;
    std::vector<OrdenPedido> orden;
    std::int64_t limite = 0;  // 0: none
    bool distinta = false;
    bool delCliente = true;  // the rows of the client of the logon alone, where the table has one
};

struct AsignacionDeBase {
    std::string columna;
    ValorDeBase valor;
    char operacion = '=';  // or + and -: added to what the column holds
};

// Rows that were found at once, when the statement began.
class FilasDeBase {
public:
    virtual ~FilasDeBase() = default;
    // The next row; false behind the last one.
    virtual bool Siguiente(std::vector<ValorDeBase>& fila) = 0;
};

class BaseDeDatos {
public:
    virtual ~BaseDeDatos() = default;

    virtual std::unique_ptr<FilasDeBase> Seleccionar(const ConsultaDeBase& consulta) = 0;
    // Rows have the columns of the table in its order, the client too, which is filled in here. Nothing is done and false answered
    // where the key is taken.
    virtual bool Insertar(const Estructura& tabla, std::span<const ValorDeBase> fila) = 0;
    // How many rows were changed.
    virtual std::int64_t Actualizar(const std::string& tabla, std::span<const AsignacionDeBase> cambios,
                                    const CondicionDeBase& donde) = 0;
    virtual std::int64_t ActualizarFila(const Estructura& tabla, std::span<const ValorDeBase> fila) = 0;  // by its key
    virtual std::int64_t Borrar(const std::string& tabla, const CondicionDeBase& donde) = 0;
    virtual std::int64_t BorrarFila(const Estructura& tabla, std::span<const ValorDeBase> fila) = 0;  // by its key

    // A SELECT of the database's own language, with "?" for each host variable.
    virtual std::unique_ptr<FilasDeBase> SeleccionarNativo(const std::string& texto, std::span<const ValorDeBase> valores) = 0;

    // COMMIT WORK and ROLLBACK WORK.
    virtual void Confirmar() = 0;
    virtual void Deshacer() = 0;
};

// ---- Files of the application server ----

class Archivos {
public:
    virtual ~Archivos() = default;

    enum class Modo { Leer, Escribir, Anadir };
    // False where it can't be opened. A file that is open already is opened anew.
    virtual bool Abrir(std::string_view nombre, Modo modo, bool texto) = 0;
    // The next line without its end; in binary mode the next `largo` bytes. False at the end. Throws DATASET_NOT_OPEN.
    virtual bool Leer(std::string_view nombre, std::string& linea, std::size_t largo) = 0;
    virtual void Escribir(std::string_view nombre, std::string_view linea) = 0;
    virtual void Cerrar(std::string_view nombre) = 0;
    virtual bool Borrar(std::string_view nombre) = 0;
};

// ---- Programs of the system ----

class Programas {
public:
    virtual ~Programas() = default;

    // INSERT REPORT: a program of that name, in the place of one that is there. Lines without blanks behind them. False where the
    // system does not take it.
    virtual bool Insertar(std::string_view nombre, std::span<const std::string> lineas) = 0;
};

// ---- Function modules, transactions ----

struct ParametroDeFuncion {
    std::string nombre;                      // the formal one
    Campo campo;                             // of a table its header line, or no bytes
    const Estructura* estructura = nullptr;  // of the field, or of the table's line
    TablaInterna* tabla = nullptr;           // of TABLES
};

struct LlamadaAFuncion {
    std::string nombre;
    std::vector<ParametroDeFuncion> exporta;  // to the function
    std::vector<ParametroDeFuncion> importa;  // from it
    std::vector<ParametroDeFuncion> cambia;
    std::vector<ParametroDeFuncion> tablas;
};

class Funciones {
public:
    virtual ~Funciones() = default;

    // Runs a function module. The name of the exception that it raised, or nothing. Throws CALL_FUNCTION_NOT_FOUND.
    virtual std::string Llamar(const LlamadaAFuncion& llamada) = 0;
};

// A row of BDCMSGCOLL.
struct MensajeDeTransaccion {
    std::string programa;
    std::string dynpro;
    char tipo = 'S';
    std::string id;
    std::string numero;
    std::string variables[4];
    std::string campo;
};

struct ResultadoDeTransaccion {
    int subrc = 0;
    std::vector<MensajeDeTransaccion> mensajes;
};

class Transacciones {
public:
    virtual ~Transacciones() = default;

    // Rows of BDCDATA.
    virtual ResultadoDeTransaccion Llamar(std::string_view transaccion, const TablaInterna& filas, char modo,
                                          char actualizacion) = 0;
};

// ---- Output, time, course ----

class SalidaDeLista {
public:
    virtual ~SalidaDeLista() = default;
    virtual void Linea(std::string_view linea) = 0;  // without blanks behind it
};

struct Momento {
    std::string fecha;  // YYYYMMDD
    std::string hora;   // HHMMSS
};

// What the system wants to know of the course of a report.
class Seguimiento {
public:
    virtual ~Seguimiento() = default;

    // The main loop is about to work on its row `numero`, from 1. False: the row is to be passed over.
    virtual bool Registro(std::size_t numero) = 0;
    // The main loop has worked on all its rows.
    virtual void FinDeRegistros() = 0;
    // MESSAGE; the type is A, E, I, S, W or X.
    virtual void Mensaje(char tipo, std::string_view id, std::string_view numero, std::span<const std::string> variables) = 0;
    // Asked now and then while the report runs. True ends it cleanly.
    virtual bool Detener() = 0;
};

struct Entorno {
    Diccionario& diccionario;
    BaseDeDatos& base;
    Archivos& archivos;
    Funciones& funciones;
    Transacciones& transacciones;
    Programas& programas;
    SalidaDeLista& lista;
    Seguimiento& seguimiento;
    Momento momento;
    std::string usuario = "PRACTICE";
    std::string cliente = "000";
    std::string sistema = "PRA";
    std::string idioma = "E";
};

}  // namespace qor::abap
