#include "app/refusal_view.h"

namespace qor {

void VistaDeRechazo::Mostrar(const Mensaje& mensaje, Icono icono) {
    if (icono == Icono::Advertencia) {
        aviso_ = mensaje.Numero();
        negado_ = false;
    }
    vista_.Mostrar(mensaje, icono);
}

Respuesta VistaDeRechazo::Preguntar(const Mensaje& mensaje, Botones botones) {
    const Respuesta respuesta = vista_.Preguntar(mensaje, botones);
    negado_ = respuesta != Respuesta::Si && respuesta != Respuesta::Aceptar;
    return respuesta;
}

}  // namespace qor
