#include "findings/program_rows.h"

#include "base/failure.h"
#include "base/text.h"
#include "model/cells.h"

namespace qor {

std::vector<FilaLeida> LeerFilas(const Especificacion& especificacion) {
    using Clase = FilaLeida::Clase;
    std::vector<FilaLeida> filas;
    FilaLeida actual{Clase::Campo, false, 0, -1};
    const int cantidad = especificacion.FilasTransaccion();
    for (int r = 0; r < cantidad; ++r) {
        const auto& fila = especificacion.TablaTransaccion[r];
        if (fila.EsCabezaTransaccion() || fila.EsCabezaBAPI()) {
            actual = {Clase::Cabeza, fila.EsCabezaBAPI(), actual.operacion + 1, -1};
        } else if (!fila.programa.empty()) {
            actual.clase = Clase::Pantalla;
            actual.pantalla = r;
        } else {
            actual.clase = Clase::Campo;
        }
        filas.push_back(actual);
    }
    return filas;
}

std::vector<std::string_view> StepLoop::NombresDeClaves() const {
    std::vector<std::string_view> nombres;
    for (std::string_view resto = claves; !resto.empty(); resto = DespuesDe(resto, ',')) {
        const auto nombre = Recortar(AntesDe(resto, ','));
        if (!nombre.empty()) nombres.push_back(nombre);
    }
    return nombres;
}

std::vector<StepLoop> LeerStepLoops(const Especificacion& especificacion, const std::vector<FilaLeida>& filas) {
    std::vector<StepLoop> stepLoops;
    for (std::size_t r = 0; r < filas.size(); ++r) {
        const std::string& nota = especificacion.TablaTransaccion[r].nota;
        if (nota.empty()) continue;
        try {
            if (!EsCabezaStepLoop(nota)) continue;
            stepLoops.push_back({static_cast<int>(r), static_cast<int>(stepLoops.size()) + 1, filas[r], ValorDeMarca(nota, 2),
                                 Numero(ValorDeMarca(nota, 3)) == 1, Numero(ValorDeMarca(nota, 5)) == 1, ValorDeMarca(nota, 6),
                                 ValorDeMarca(nota, 7)});
        } catch (const FalloDeEjecucion&) {
            continue;
        }
    }
    return stepLoops;
}

}  // namespace qor
