#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "abap/values/structure.h"

// What the statements of a compiled program work on: names that were resolved to storage.
namespace qor::abap {

// Where a data object lies.
enum class Base : std::uint8_t {
    Literal,       // in the program; `campo` has its address
    Global,        // in the frame of the report
    Local,         // in the frame of the FORM that runs
    EnlaceGlobal,  // what a global field-symbol points to
    EnlaceLocal,   // what a formal parameter or a local field-symbol stands for
};

struct TrozoVariable;

// An elementary field or a structure.
struct Operando {
    Base base = Base::Literal;
    bool constante = false;  // a literal or a constant; no target
    bool dinamico = false;   // of an Enlace: type and length are those of what it stands for
    std::uint32_t lugar =
        0;  // in its frame: an offset in bytes, of a STRING its number; of an Enlace the offset from what it stands for
    std::uint32_t casilla = 0;                   // of an Enlace: its number in the frame
    Campo campo;                                 // type and length, without an address
    const Estructura* estructura = nullptr;      // where its components are known
    std::shared_ptr<const TrozoVariable> trozo;  // an offset and a length that only the run knows

    // Whether the type is known now.
    bool EsDe(Tipo tipo) const { return !dinamico && campo.tipo == tipo; }
};

// FIELD+OFFSET(LENGTH) where one of them is a field, or the length of the field isn't known.
struct TrozoVariable {
    std::optional<Operando> desplazamiento;
    std::optional<Operando> largo;
    std::uint32_t desplazamientoFijo = 0;
    std::optional<std::uint32_t> largoFijo;  // without: to the end of the field
};

// An internal table.
struct OperandoDeTabla {
    Base base = Base::Global;
    std::uint32_t casilla = 0;  // its number in its frame; of an Enlace the number of that
    TipoDeCampo linea;          // of an Enlace without a type: unknown, `dinamica`
    bool dinamica = false;
    std::uint32_t ocurre = 0;          // rows that OCCURS speaks of; 0 where it isn't known
    std::optional<Operando> cabecera;  // its header line
};

}  // namespace qor::abap
