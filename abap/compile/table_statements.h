#pragma once

#include <optional>
#include <vector>

#include "abap/compile/compiler.h"

// The statements on internal tables, each read from behind its first word. They are called where the first word fits; those that
// answer bool answer false, with nothing read, where the statement is one of the database or of files.
namespace qor::abap {

// tables.cpp
void CompilarAPPEND(Compilador& c, Lectura& l);
bool CompilarINSERT(Compilador& c, Lectura& l);
void CompilarCOLLECT(Compilador& c, Lectura& l);
void CompilarREFRESH(Compilador& c, Lectura& l);
void CompilarFREE(Compilador& c, Lectura& l);

// describe.cpp
void CompilarDESCRIBE(Compilador& c, Lectura& l);

// table_reading.cpp
bool CompilarREAD(Compilador& c, Lectura& l);

// table_changes.cpp
bool CompilarMODIFY(Compilador& c, Lectura& l);
bool CompilarDELETE(Compilador& c, Lectura& l);
void CompilarSORT(Compilador& c, Lectura& l);

// loops.cpp
void CompilarLOOP(Compilador& c, Lectura& l);
bool CompilarAT(Compilador& c, Lectura& l);
void CompilarSUM(Compilador& c, Lectura& l);

// ---- What they share ----

// The header line of a table, where the statement names no area of its own.
Operando CabeceraDe(const Lectura& l, const OperandoDeTabla& tabla);

// Whether the word that comes next stands for an internal table.
bool HayTabla(Compilador& c, const Lectura& l, std::size_t n = 0);

// A component, or with an offset and a length a part of it.
Componente LeerParte(Compilador& c, Lectura& l, const OperandoDeTabla& tabla);

// Components up to one of the words that can follow them.
std::vector<Componente> LeerPartes(Compilador& c, Lectura& l, const OperandoDeTabla& tabla, std::initializer_list<Clave> hasta);

// What a field-symbol stands for becomes a row.
Operando LeerSimbolo(Compilador& c, Lectura& l);
void Apuntar(Maquina& maquina, const Operando& simbolo, TablaInterna& tabla, std::size_t fila);

// The standard key where the line is known; else it is asked of the table that runs.
std::optional<std::vector<Componente>> ClaveConocida(const OperandoDeTabla& tabla);

// A row number of a report, from 0. Throws TABLE_INVALID_INDEX for one below 1.
std::size_t FilaDe(std::int64_t indice);

// FROM n and TO m of a statement, where they stand.
struct Tramo {
    std::optional<Operando> desde;
    std::optional<Operando> hasta;

    // The first row, and the one behind the last one. Numbers below 1 are TABLE_INVALID_INDEX where they must not be.
    std::pair<std::size_t, std::size_t> En(Maquina& maquina, std::size_t filas, bool conFalta) const;
};

}  // namespace qor::abap
