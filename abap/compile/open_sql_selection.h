#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "abap/compile/database_conditions.h"

namespace qor::abap {

// A SELECT that is compiled.
struct Seleccion {
    struct Columna {
        ColumnaPedida pedida;
        TipoDeCampo tipo;    // of its value
        std::string nombre;  // under which a component gets it; empty where none can
    };

    TablaDeBase tabla;
    bool todas = false;             // * : the row as it lies in the table's structure
    std::vector<Columna> columnas;  // also then
    bool unica = false;             // SINGLE
    bool distinta = false;
    bool delCliente = true;
    bool soloCuenta = false;  // COUNT( * ) and nothing else
    std::vector<std::string> grupo;
    std::vector<OrdenPedido> orden;
    std::optional<Operando> limite;  // UP TO n ROWS
    std::optional<Donde> donde;
    std::optional<Entradas> entradas;  // FOR ALL ENTRIES IN

    // Where the values go: one of them, or nowhere.
    std::optional<Operando> area;
    std::vector<Operando> lista;
    std::optional<OperandoDeTabla> enTabla;
    bool agregar = false;          // APPENDING
    bool correspondiente = false;  // by the names of the components

    bool SoloAgregados() const;
    // Without ENDSELECT.
    bool EsDeUnaVez() const { return unica || enTabla || (SoloAgregados() && grupo.empty()); }
};

// Emits what a SELECT does; one of several rows opens its loop.
void EmitirSeleccion(Compilador& c, const Palabra& palabra, Seleccion seleccion);

bool LeerSELECT(Compilador& c, Lectura& l);

// EXEC SQL up to ENDEXEC.
bool LeerEXEC(Compilador& c, Lectura& l);

}  // namespace qor::abap
