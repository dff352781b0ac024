#include "generator/observation.h"

namespace qor {

void OyenteDeVista::Recibir(const Observacion& observacion) {
    if (observacion.mostrarFila) {
        const bool delArchivo = observacion.lugar.parte == Lugar::Parte::Archivo;
        vista_.MostrarFila(delArchivo ? Tabla::Archivo : Tabla::Transaccion, observacion.lugar.fila);
    }
    if (!observacion.control.empty()) vista_.Enfocar(observacion.control);
    Mensaje mensaje = observacion.mensaje;
    const Lugar& lugar = observacion.lugar;
    const bool deUnLado = lugar.parte == Lugar::Parte::Archivo || lugar.parte == Lugar::Parte::Programa;
    if (deUnLado && lugar.fila >= 0) mensaje.fila = {lugar.parte == Lugar::Parte::Archivo, lugar.fila};
    vista_.Mostrar(mensaje, observacion.icono);
}

}  // namespace qor
