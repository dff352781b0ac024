#include "app/rehearsal_rows.h"

#include <algorithm>

#include "base/text.h"
#include "model/cells.h"

namespace qor {

FilasDeEnsayo::FilasDeEnsayo(const Especificacion& especificacion, const OrigenesDelReporte& origenes, bool deArchivo)
    : especificacion_(especificacion),
      origenes_(origenes),
      deArchivo_(deArchivo),
      filas_(especificacion.FilasTransaccion()),
      operaciones_(ActualizarOperaciones(especificacion, 0)),
      cabezasDeGrupo_(CabezasStepLoop(especificacion)) {
    const int campos = especificacion.FilasArchivo();
    for (int fila = 0; fila < campos; ++fila) {
        camposDeArchivo_.emplace(Recortar(especificacion.TablaArchivo[static_cast<std::size_t>(fila)].campo), fila);
    }
}

std::string_view FilasDeEnsayo::Codigo(int cabeza) const { return Recortar(AntesDe(Fila(cabeza).dynpro, ';')); }

int FilasDeEnsayo::CabezaDeFuncion(std::string_view funcion) const {
    int cabeza = -1;
    for (int fila = 0; fila < filas_; ++fila) {
        if (!Fila(fila).EsCabezaBAPI() || Codigo(fila) != funcion) continue;
        if (cabeza >= 0) return -1;
        cabeza = fila;
    }
    return cabeza;
}

int FilasDeEnsayo::FinDeOperacion(int cabeza) const {
    int fin = cabeza + 1;
    while (fin < filas_ && !EsCabeza(fin)) ++fin;
    return fin;
}

int FilasDeEnsayo::CabezaDeGrupo(int grupo) const {
    return grupo >= 1 && static_cast<std::size_t>(grupo) <= cabezasDeGrupo_.size()
               ? cabezasDeGrupo_[static_cast<std::size_t>(grupo) - 1]
               : -1;
}

void FilasDeEnsayo::PonerProcedencia(CampoEnviado& campo, int fila, std::size_t registro, std::size_t linea) const {
    campo.celda = Lugar::EnPrograma(fila, 3);
    const auto celda = Recortar(Fila(fila).valor);
    if (celda.empty() || celda.front() == '\'' || EsVariable(celda) || !camposDeArchivo_.contains(celda)) return;
    campo.campoDeArchivo = celda;
    campo.grupo = operaciones_.OperacionFila(fila);
    if (deArchivo_) campo.deRegistro = campo.grupo == 0 ? registro : linea;
}

Frase FilasDeEnsayo::NoSeCumple(std::string_view celda) {
    return {"The condition %1 is not met.", {std::string(Recortar(DespuesDe(celda, ';')))}};
}

}  // namespace qor
