#include "generator/observation.h"

namespace qor {

void OyenteDeVista::Recibir(const Observacion& observacion) {
    if (observacion.mostrarFila) {
        const bool delArchivo = observacion.lugar.parte == Lugar::Parte::Archivo;
        vista_.MostrarFila(delArchivo ? Tabla::Archivo : Tabla::Transaccion, observacion.lugar.fila);
    }
    if (!observacion.control.empty()) vista_.Enfocar(observacion.control);
    vista_.Mostrar(observacion.mensaje, observacion.icono);
}

}  // namespace qor
