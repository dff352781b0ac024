#pragma once

#include <optional>
#include <variant>
#include <vector>

#include "model/specification.h"

namespace qor {

// One step to undo: what was done, and what it was done to as it stood before.
struct RegistroDeshacer {
    enum class Paso { Insercion, Borrado, Cambio };

    Paso paso = Paso::Cambio;
    int linea = 0;        // line of the grid at that moment
    int primeraFila = 0;  // offset of the grid at that moment
    // The row; or the whole side, where it was changed as a whole.
    std::variant<FilaDeArchivo, FilaDeTransaccion, std::vector<FilaDeArchivo>, std::vector<FilaDeTransaccion>> antes;

    int FilaDeLaTabla() const { return primeraFila + linea; }
};

// The ring of the last 1000 steps.
class PilaDeshacer {
public:
    static constexpr int lugares = 1001;

    void Guardar(RegistroDeshacer registro);
    // The last step, taken off; nothing when there is none.
    std::optional<RegistroDeshacer> Recuperar();
    void Reiniciar() { cabeza_ = cola_ = 0; }
    bool Vacia() const { return cabeza_ == cola_; }

private:
    std::vector<RegistroDeshacer> registros_;  // grows to `lugares` as it is used
    int cabeza_ = 0;                           // next place to write
    int cola_ = 0;                             // oldest step
};

}  // namespace qor
