#pragma once

#include <array>
#include <string>
#include <vector>

namespace qor {

// One step to undo: a row as it stood before the change.
struct RegistroDeshacer {
    char tabla = 'E';      // 'A' TablaArchivo, 'T' TablaTransaccion, 'E' nothing to undo
    char operacion = ' ';  // 'I' insertion, 'D' deletion, 'U' update, 'X' swap
    int linea = 0;         // line of the grid at that moment
    int primeraFila = 0;   // offset of the grid at that moment
    std::array<std::string, 5> valores;
};

// The ring of the last 1000 steps.
class PilaDeshacer {
public:
    static constexpr int lugares = 1001;

    void Guardar(RegistroDeshacer registro);
    // The last step, taken off; table 'E' when there is none.
    RegistroDeshacer Recuperar();
    void Reiniciar() { cabeza_ = cola_ = 0; }
    bool Vacia() const { return cabeza_ == cola_; }

private:
    std::vector<RegistroDeshacer> registros_;  // grows to `lugares` as it is used
    int cabeza_ = 0;                           // next place to write
    int cola_ = 0;                             // oldest step
};

}  // namespace qor
