#pragma once

#include <string_view>
#include <vector>

#include "model/specification.h"

// The rows of the program side as the report's forms are made of them.
namespace qor {

struct FilaLeida {
    enum class Clase { Cabeza, Pantalla, Campo };

    Clase clase;
    bool esBAPI;    // of an operation that is a BAPI
    int operacion;  // number of its operation, from 1; 0 in front of the first head
    int pantalla;   // row of the screen that it stands on, itself for a screen; -1 where there is none
};

// All rows in front of the first blank one.
std::vector<FilaLeida> LeerFilas(const Especificacion& especificacion);

// A step-loop, by the marks of its head.
struct StepLoop {
    int fila;
    int numero;  // of its form and its table, from 1
    FilaLeida leida;
    std::string_view archivo;
    bool pantallaNueva;       // each line calls the screen anew
    bool sigueEnLaPrimera;    // behind a new call of the screen; else in the second line
    std::string_view filas;   // per screen
    std::string_view claves;  // names with commas between them, and one in front

    // The names in `claves`, cut.
    std::vector<std::string_view> NombresDeClaves() const;
};

// Those whose marks can be read, in order.
std::vector<StepLoop> LeerStepLoops(const Especificacion& especificacion, const std::vector<FilaLeida>& filas);

}  // namespace qor
