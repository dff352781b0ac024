#include "app/refusal_view.h"

namespace qor {

void VistaDeRechazo::Mostrar(const Mensaje& mensaje, Icono icono) {
    if (icono == Icono::Advertencia) {
        aviso_ = mensaje.Numero();
        negado_ = false;
    }
    VistaDelegada::Mostrar(mensaje, icono);
}

Respuesta VistaDeRechazo::Preguntar(const Mensaje& mensaje, Botones botones) {
    const Respuesta respuesta = VistaDelegada::Preguntar(mensaje, botones);
    negado_ = respuesta != Respuesta::Si && respuesta != Respuesta::Aceptar;
    return respuesta;
}

}  // namespace qor
