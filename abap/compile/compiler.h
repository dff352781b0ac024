#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "abap/compile/reading.h"
#include "abap/compile/used_components.h"
#include "abap/execution.h"
#include "abap/machine/expression.h"
#include "abap/machine/program.h"
#include "abap/names.h"
#include "abap/statements.h"

namespace qor::abap {

// What a name stands for.
struct Nombrado {
    std::string nombre;
    std::optional<Operando> campo;         // a field, a structure, or the header line of a table
    std::optional<OperandoDeTabla> tabla;  // an internal table
    bool simbolo = false;                  // a field-symbol
};

// A type with a name.
struct TipoConNombre {
    TipoDeCampo tipo;
    bool tabla = false;        // of internal tables whose line it is
    std::uint32_t ocurre = 0;  // of these: the rows that OCCURS or INITIAL SIZE speaks of
};

struct Recorrido;

// An IF, CASE or loop that is open.
struct BloqueAbierto {
    Clave final = 0;
    Palabra palabra;
    bool bucle = false;
    bool principal = false;                // the main loop
    std::size_t siguiente = 0;             // of a loop: where the next pass begins
    std::unique_ptr<Instruccion> ultima;   // of a loop: runs behind it, however it is left
    std::vector<std::size_t*> alFinal;     // jumps to the end of the block
    std::size_t* siNo = nullptr;           // the jump to the next branch
    std::optional<Operando> caso;          // of CASE
    bool conRama = false;                  // of CASE: behind the first WHEN
    bool conOtros = false;                 // of CASE: behind WHEN OTHERS; of IF: behind ELSE
    std::shared_ptr<Recorrido> recorrido;  // of LOOP AT: for AT NEW and its kin
};

// Compiles a report. Functions that read one kind of statements are in files of their own; each reads its statement from the
// word behind its first one to the end, and emits instructions. A statement that can't be read throws FallaDeSentencia.
class Compilador : public Conocidos {
public:
    Compilador(std::string_view reporte, Diccionario& diccionario);

    Compilacion Compilar();

    bool EsMacro(Clave palabra) const override { return macros_.contains(palabra); }
    bool EsDato(Clave nombre) const override { return BuscarNombre(nombre) != nullptr; }

    // ---- Emitting ----

    template <class I, class... Argumentos>
    I& Emitir(Argumentos&&... argumentos) {
        auto instruccion = std::make_unique<I>(std::forward<Argumentos>(argumentos)...);
        I& ella = *instruccion;
        Emitir(std::unique_ptr<Instruccion>(std::move(instruccion)));
        return ella;
    }
    void Emitir(std::unique_ptr<Instruccion> instruccion);
    // A statement that does its work and goes on with the next one: `hacer` is called with the machine.
    template <class Hacer>
    void EmitirAccion(Hacer hacer) {
        class Accion : public Instruccion {
        public:
            explicit Accion(Hacer suyo) : hacer_(std::move(suyo)) {}
            std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
                hacer_(maquina);
                return siguiente;
            }

        private:
            Hacer hacer_;
        };
        Emitir(std::make_unique<Accion>(std::move(hacer)));
    }
    void EmitirVaciado(OperandoDeTabla tabla);             // all rows go
    void EmitirLimpieza(Operando campo);                   // its initial value
    std::size_t Aqui() { return Actual().codigo.size(); }  // the number of the next instruction
    Rutina& Actual() {
        if (rutina_ == nullptr) throw FallaDeSentencia{palabraDeSentencia_, "the statement stands outside of FORMs and events"};
        return *rutina_;
    }
    bool EnInicio() const { return rutina_ == programa_->inicio; }

    // ---- Operands ----

    Operando LeerOperando(Lectura& l);  // a name, a literal, a number
    Operando LeerDestino(Lectura& l);   // a name that gets a value
    Operando LeerCampo(Lectura& l);     // a name
    // The operand of a word; nothing where it is none or stands for a table without header line.
    std::optional<Operando> BuscarOperando(const Palabra& palabra);
    OperandoDeTabla LeerTabla(Lectura& l);
    OperandoDeTabla LeerRango(Lectura& l);  // a RANGES table or SELECT-OPTIONS
    std::optional<OperandoDeTabla> BuscarTabla(const Palabra& palabra);
    std::unique_ptr<Expresion> LeerExpresion(Lectura& l);
    std::unique_ptr<Condicion> LeerCondicion(Lectura& l);
    // The relation that stands there; nothing where none does.
    std::optional<Relacion> TomarRelacion(Lectura& l);
    Operando Literal(std::string_view texto);   // without apostrophes, as C
    Operando Numero(std::string_view digitos);  // I, or P where it does not fit
    Operando Espacio() { return Literal(" "); }
    // A component, for WHERE and its kin. `linea` must be a structure, or the word TABLE_LINE is asked for.
    Componente ComponenteDe(const Palabra& palabra, const TipoDeCampo& linea);
    Operando ComponenteDe(const Operando& estructura, const Componente& componente);

    // ---- Types and storage ----

    Nombrado* BuscarNombre(Clave clave) const;
    // The type behind TYPE or LIKE; `tabla` tells that it is one of internal tables.
    TipoConNombre LeerTipo(Lectura& l, bool como);
    Nombrado& Declarar(const Palabra& palabra, std::string_view nombre);
    Operando NuevoCampo(const TipoDeCampo& tipo, bool global);
    OperandoDeTabla NuevaTabla(const TipoDeCampo& linea, std::string_view nombre, bool conCabecera, bool global);
    void PonerValorInicial(const Operando& campo, const Operando& valor);
    const Estructura& BuscarEnDiccionario(std::string_view nombre);
    Estructura& NuevaEstructura(std::string nombre);
    Diccionario& SuDiccionario() { return diccionario_; }
    Programa& Suyo() { return *programa_; }

    // ---- Routines and blocks ----

    Rutina& PedirForma(const Palabra& nombre);
    // A loop: `siguiente` is the instruction that begins each pass, `salida` its jump behind the loop.
    BloqueAbierto& AbrirBucle(const Palabra& palabra, Clave final, std::size_t siguiente, std::size_t* salida,
                              std::unique_ptr<Instruccion> ultima);
    std::uint32_t NuevoNivel();  // of a loop's state
    BloqueAbierto& AbrirBloque(const Palabra& palabra, Clave final, std::size_t* siNo);
    BloqueAbierto* BucleActual();
    BloqueAbierto* BucleDe(Clave final);  // the innermost one that this statement ends
    bool EsTablaPrincipal(std::string_view nombre) const;
    bool EnBuclePrincipal() const;
    void HayBuclePrincipal() { programa_->hayBuclePrincipal = true; }
    // The text up to a word that ends it, of another language; the statement of that word is passed over.
    TextoAjeno TextoHasta(std::string_view palabra) { return lector_->Saltar(palabra); }
    // A part of the report that a check of it as a text would take for something else: it sees that character instead.
    void Ocultar(std::string_view parte, char con) { ocultas_.emplace_back(parte, con); }
    void Faltar(const Palabra& palabra, std::string texto);

private:
    void LeerTodo(std::string_view texto);
    void Leer(const Sentencia& sentencia);
    void LeerPorPalabra(Lectura& l);
    void LlamarMacro(const Sentencia& sentencia);
    void LeerREPORT(Lectura& l);
    void LeerDEFINE(Lectura& l);
    void EmpezarEvento(Rutina*& rutina, std::string_view nombre);
    void EmpezarRutina(Rutina& rutina, bool esForma);
    void TerminarRutina();
    void CerrarBloque(const Palabra& palabra);
    void Revisar();
    void RevisarLlamadas();
    Rutina& NuevaRutina(std::string nombre);
    std::vector<FaltaDePrograma> TomarFaltas();

    // declarations.cpp
    void LeerDatos(Lectura& l);  // DATA, CONSTANTS, STATICS, TYPES
    void LeerCuerpoDeDato(Lectura& l, Clave sentencia, const Palabra& palabra);
    TipoConNombre LeerTipoDeDato(Lectura& l, const Declarado& declarado, bool& conCabecera);
    std::optional<std::uint32_t> LargoDeclarado(std::string_view texto) const;
    void LeerINCLUDE(Lectura& l);
    void AbrirRegistro(Lectura& l, Clave sentencia);
    void CerrarRegistro(Lectura& l, Clave sentencia);
    void AgregarComponente(const Palabra& palabra, std::string_view nombre, const TipoDeCampo& tipo);
    void LeerTABLES(Lectura& l);
    void LeerRANGES(Lectura& l);
    void LeerFIELD_SYMBOLS(Lectura& l);
    // screen.cpp
    void LeerPARAMETERS(Lectura& l);
    void LeerSELECT_OPTIONS(Lectura& l);
    void MarcarBotones();
    void PonerDEFAULT(Lectura& l, const ParametroCompilado& parametro);
    OperandoDeTabla NuevoRango(std::string_view nombre, const TipoDeCampo& tipo, bool global);
    // control.cpp
    void LeerIF(Lectura& l);
    void LeerELSEIF(Lectura& l);
    void LeerELSE(Lectura& l);
    void LeerCASE(Lectura& l);
    void LeerWHEN(Lectura& l);
    void LeerDO(Lectura& l);
    void LeerWHILE(Lectura& l);
    void LeerCHECK(Lectura& l);
    void LeerEXIT(Lectura& l);
    void LeerCONTINUE(Lectura& l);
    void LeerSTOP(Lectura& l);
    void LeerLEAVE(Lectura& l);
    // forms.cpp
    void LeerFORM(Lectura& l);
    void LeerFormal(Lectura& l, Rutina& rutina, bool tabla, bool cambia);
    void LeerPERFORM(Lectura& l);
    void LeerLOCAL(Lectura& l);
    void LeerAT(Lectura& l);
    // assignments.cpp
    void LeerAsignacion(Lectura& l);
    void LeerMOVE(Lectura& l);
    void LeerCuenta(Lectura& l, char operador, Clave enlace);
    void LeerMOVE_CORRESPONDING(Lectura& l);
    void LeerCLEAR(Lectura& l);
    void LeerASSIGN(Lectura& l);
    void AsignarSimbolo(const Operando& simbolo, const Operando& campo);
    void LeerUNASSIGN(Lectura& l);

    struct ValorDeComponente {
        std::uint32_t lugar = 0;
        TipoDeCampo tipo;
        Operando valor;
    };
    struct RegistroAbierto {
        Palabra palabra;
        Clave sentencia = 0;
        std::string nombre;
        Estructura* estructura = nullptr;
        bool tabla = false;
        std::uint32_t ocurre = 0;
        std::vector<ValorDeComponente> valores;
    };
    struct LlamadaPendiente {
        Palabra palabra;
        Rutina* rutina = nullptr;
        std::size_t tablas = 0;
        std::size_t parametros = 0;
        bool contar = false;
    };
    struct Macro {
        std::string texto;
        int linea = 0;
    };

    std::string_view reporte_;
    Diccionario& diccionario_;
    std::shared_ptr<Programa> programa_;
    ComponentesUsados usados_;
    std::unordered_map<Clave, Nombrado> globales_;
    std::unordered_map<Clave, Nombrado> locales_;
    std::unordered_map<Clave, TipoConNombre> tipos_;
    std::unordered_map<Clave, TipoConNombre> tiposLocales_;
    std::unordered_map<Clave, Rutina*> formas_;
    std::unordered_map<Clave, Macro> macros_;
    std::vector<RegistroAbierto> registros_;
    std::vector<BloqueAbierto> bloques_;
    std::vector<LlamadaPendiente> llamadas_;
    Rutina* rutina_ = nullptr;
    bool enForma_ = false;
    bool sinBloques_ = false;  // the beginning of one could not be read
    Palabra palabraDeSentencia_;
    int lineaDeSentencia_ = 0;
    bool empiezaSentencia_ = false;
    int lineaDeMacro_ = 0;  // where the macro is called whose text is read; 0 outside
    int honduraDeMacros_ = 0;
    LectorDeSentencias* lector_ = nullptr;
    std::deque<std::string> textosDeMacros_;
    std::vector<std::pair<std::string_view, char>> ocultas_;
    std::vector<FaltaDePrograma> faltas_;
};

// ---- Statements in files of their own; true where the statement was one of theirs ----

bool LeerDeTablas(
    Compilador& c,
    Lectura& l);  // APPEND, INSERT, READ TABLE, MODIFY, DELETE, LOOP, AT NEW ..., SORT, COLLECT, DESCRIBE, REFRESH, FREE
bool LeerDeTextos(Compilador& c, Lectura& l);     // CONCATENATE, SPLIT, CONDENSE, TRANSLATE, REPLACE, SEARCH, SHIFT, OVERLAY
bool LeerDeListas(Compilador& c, Lectura& l);     // WRITE, SKIP, ULINE, NEW-LINE, POSITION, SET BLANK LINES, MESSAGE, ...
bool LeerDeBase(Compilador& c, Lectura& l);       // SELECT, INSERT, UPDATE, MODIFY, DELETE of tables, COMMIT, ROLLBACK, EXEC SQL
bool LeerDeArchivos(Compilador& c, Lectura& l);   // OPEN, READ, TRANSFER, CLOSE, DELETE DATASET
bool LeerDeLlamadas(Compilador& c, Lectura& l);   // CALL FUNCTION, CALL TRANSACTION
bool LeerDeProgramas(Compilador& c, Lectura& l);  // INSERT REPORT

}  // namespace qor::abap
