#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "abap/execution.h"
#include "abap/machine/list.h"
#include "abap/machine/program.h"
#include "abap/short_dump.h"

namespace qor::abap {

// What a formal parameter or a field-symbol stands for.
struct Enlace {
    Campo campo;
    const Estructura* estructura = nullptr;
    TablaInterna* tabla = nullptr;
    bool asignado = false;
};

// A loop that runs. Each kind of loop makes its own; it stays for the next run of the same loop.
struct EstadoDeBucle {
    virtual ~EstadoDeBucle() = default;
};

// The data objects of a run of a routine.
struct Marco {
    std::unique_ptr<std::uint8_t[]> datos;
    std::vector<std::string> cadenas;
    std::vector<TablaInterna> tablas;
    std::vector<Enlace> enlaces;
    std::vector<std::unique_ptr<EstadoDeBucle>> bucles;
    std::vector<std::vector<std::uint8_t>> copias;  // of parameters by value
    std::vector<std::unique_ptr<std::string>> copiasDeCadenas;
};

// An actual parameter.
struct Argumento {
    std::optional<Operando> operando;
    std::optional<OperandoDeTabla> tabla;
};

// EXIT outside of a FORM and a loop, STOP, MESSAGE E: they leave all routines. EXIT FROM SQL leaves those that EXEC SQL performs.
struct SaltoDeReporte {
    enum class Adonde { FinDeReporte, FinDeSeleccion, Mensaje, Abandono, Detenido, FinDeSQL } adonde;
};

// A program that runs.
class Maquina {
public:
    Maquina(std::shared_ptr<const Programa> programa, Entorno& entorno, std::int64_t limite);
    ~Maquina();
    Maquina(const Maquina&) = delete;
    Maquina& operator=(const Maquina&) = delete;

    void Iniciar();
    FinDeReporte Correr();
    void Ejecutar(const Rutina& rutina, Marco& marco);
    void Llamar(const Rutina& rutina, std::span<const Argumento> argumentos);
    // A FORM without parameters, from within a statement.
    void Llamar(const Rutina& rutina) { Llamar(rutina, {}); }

    // ---- Operands ----

    Campo Resolver(const Operando& operando);
    // The same as a target; throws MOVE_TO_LIT_NOTALLOWED where it can't be written.
    Campo Destino(const Operando& operando);
    // The structure of an operand, known now or by what it stands for; null where there is none.
    const Estructura* EstructuraDe(const Operando& operando);
    // Whether it is an offset and a length of a STRING, whose bytes may move.
    bool EsParteDeCadena(const Operando& operando);
    TablaInterna& Tabla(const OperandoDeTabla& operando);
    Campo Cabecera(const OperandoDeTabla& operando);  // throws where there is none
    Enlace& EnlaceDe(const Operando& operando);       // of a field-symbol
    std::int64_t Entero(const Operando& operando);

    // The state of the loop of a routine, by its depth.
    template <class Estado>
    Estado& Bucle(std::uint32_t nivel) {
        auto& estado = marco_->bucles[nivel];  // a level belongs to one loop, so the kind of its state stays
        if (!estado) estado = std::make_unique<Estado>();
        return static_cast<Estado&>(*estado);
    }

    // ---- System fields ----

    void PonerSubrc(int valor) { PonerEnteroSY(lugarSubrc_, valor); }
    int Subrc() const { return EnteroSY(lugarSubrc_); }
    void PonerTabix(std::size_t valor) { PonerEnteroSY(lugarTabix_, static_cast<std::int32_t>(valor)); }
    std::size_t Tabix() const { return static_cast<std::size_t>(EnteroSY(lugarTabix_)); }
    void PonerSY(std::string_view nombre, std::int64_t valor);
    void PonerSY(std::string_view nombre, std::string_view valor);
    Campo CampoSY(std::string_view nombre);
    std::int32_t Fdpos() const { return EnteroSY(lugarFdpos_); }
    void PonerFdpos(std::int32_t valor) { PonerEnteroSY(lugarFdpos_, valor); }

    // ---- The rest ----

    Entorno& Alrededor() { return entorno_; }
    Lista& Salida() { return lista_; }
    const Programa& Suyo() const { return *programa_; }
    void Progreso() { gastadas_ = cuenta_ - tramo_; }
    int Linea() const { return actual_ == nullptr ? 0 : actual_->linea; }
    // The main loop comes to a row; false where it is to be passed over. Throws SaltoDeReporte where the run is to end.
    bool EmpezarRegistro(std::size_t numero, std::size_t todos);
    void TerminarRegistros();
    std::size_t Registros() const { return registros_; }
    void PonerPerfil(Perfil* perfil) { perfil_ = perfil; }
    // A LOOP AT has come to a row, from 0.
    void MostrarFila(std::size_t fila) {
        if (perfil_ != nullptr) perfil_->Fila(Linea(), fila + 1);
    }

    std::vector<ParametroDePantalla>& Parametros() { return parametros_; }
    Marco& Global() { return global_; }

private:
    friend class Ejecucion;

    static std::int32_t Leer32(const std::uint8_t* donde) {
        std::int32_t valor = 0;
        std::memcpy(&valor, donde, sizeof valor);
        return valor;
    }
    std::int32_t EnteroSY(std::uint32_t lugar) const { return Leer32(global_.datos.get() + lugar); }
    void PonerEnteroSY(std::uint32_t lugar, std::int32_t valor) { std::memcpy(global_.datos.get() + lugar, &valor, sizeof valor); }
    void Atender();
    void PonerTramo();
    template <bool conPerfil>
    void Recorrer(const Rutina& rutina);
    void GuardarGlobales(const Rutina& rutina, Marco& marco);
    void SoltarSimbolos(const Rutina& rutina, const Marco& marco);
    void DevolverGlobales(const Rutina& rutina, Marco& marco);
    void PrepararMarco(Marco& marco, const DisenoDeMarco& diseno);
    std::unique_ptr<Marco> TomarMarco(const Rutina& rutina);
    void Enlazar(Marco& marco, const Rutina& rutina, std::span<const Argumento> argumentos);
    void EnlazarTabla(Marco& marco, const ParametroFormal& formal, const Argumento& argumento);
    void EnlazarCampo(Marco& marco, const ParametroFormal& formal, const Argumento& argumento);
    Campo ResolverTrozo(const Campo& campo, const TrozoVariable& trozo);
    const Enlace& Seguir(const Operando& operando) const;

    std::shared_ptr<const Programa> programa_;
    Entorno& entorno_;
    Marco global_;
    Marco* marco_ = &global_;                                  // of the routine that runs
    std::vector<std::vector<std::unique_ptr<Marco>>> libres_;  // frames to use again, by routine
    Lista lista_;
    std::vector<ParametroDePantalla> parametros_;
    std::int64_t limite_ = 0;
    std::int64_t gastadas_ = 0;  // statements without progress, up to the beginning of the present stretch
    std::int64_t tramo_ = 0;     // statements of the present stretch,
    std::int64_t cuenta_ = 0;    // and those of it that are still to come
    std::size_t registros_ = 0;  // rows of the main loop
    Perfil* perfil_ = nullptr;
    const Instruccion* actual_ = nullptr;
    int hondura_ = 0;
    bool enRegistro_ = false;
    std::uint32_t lugarSubrc_ = 0;
    std::uint32_t lugarTabix_ = 0;
    std::uint32_t lugarFdpos_ = 0;
};

// ---- What nearly each statement asks ----

inline const Enlace& Maquina::Seguir(const Operando& operando) const {
    const Marco& marco = operando.base == Base::EnlaceGlobal ? global_ : *marco_;
    const Enlace& enlace = marco.enlaces[operando.casilla];
    if (!enlace.asignado) throw Volcado("GETWA_NOT_ASSIGNED", "A field-symbol is used that nothing was assigned to");
    return enlace;
}

inline Campo Maquina::Resolver(const Operando& operando) {
    Campo campo = operando.campo;
    switch (operando.base) {
        case Base::Literal: break;
        case Base::Global:
        case Base::Local: {
            Marco& marco = operando.base == Base::Global ? global_ : *marco_;
            if (campo.tipo == Tipo::Cadena)
                campo.cadena = &marco.cadenas[operando.lugar];
            else
                campo.datos = marco.datos.get() + operando.lugar;
            break;
        }
        case Base::EnlaceGlobal:
        case Base::EnlaceLocal: {
            const Enlace& enlace = Seguir(operando);
            if (operando.dinamico) {
                campo = enlace.campo;
            } else {
                campo.datos = enlace.campo.datos + operando.lugar;
                campo.soloLectura = enlace.campo.soloLectura;
            }
            break;
        }
    }
    return operando.trozo ? ResolverTrozo(campo, *operando.trozo) : campo;
}

inline Campo Maquina::Destino(const Operando& operando) {
    const Campo campo = Resolver(operando);
    if (campo.soloLectura) throw Volcado("MOVE_TO_LIT_NOTALLOWED", "A literal or a constant was to be overwritten");
    return campo;
}

}  // namespace qor::abap
