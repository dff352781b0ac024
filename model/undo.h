#pragma once

#include <array>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "model/columns.h"
#include "model/specification.h"

namespace qor {

// Both sides and the declarations, for a change of many rows; `columna` had the focus.
struct TablasDeAntes {
    Columna columna = Columna::CampoDeArchivo;
    std::vector<FilaDeArchivo> archivo;
    std::vector<FilaDeTransaccion> programa;
    std::string VariablesGlobales;
};

// Two rows of the program side that changed places, the upper one first.
using FilasCambiadas = std::array<FilaDeTransaccion, 2>;

// One step to undo: what was done, and what it was done to as it stood before.
struct RegistroDeshacer {
    enum class Paso { Insercion, Borrado, Cambio };

    Paso paso = Paso::Cambio;
    int linea = 0;        // line of the grid at that moment
    int primeraFila = 0;  // offset of the grid at that moment
    std::variant<FilaDeArchivo, FilaDeTransaccion, FilasCambiadas, TablasDeAntes> antes;

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
