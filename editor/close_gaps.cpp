#include "editor/close_gaps.h"

#include <utility>

#include "editor/grids.h"
#include "model/gaps.h"

namespace qor {

bool QuitarFilasEnBlanco(Ventana& ventana) {
    auto& documento = ventana.documento;
    auto tabla = SinFilasEnBlanco(documento.especificacion);
    if (tabla == documento.especificacion.TablaTransaccion) return false;
    documento.GuardarDeshacer({RegistroDeshacer::Paso::Cambio, 0, 0, documento.especificacion.TablaTransaccion});
    documento.especificacion.TablaTransaccion = std::move(tabla);
    MostrarTablaNueva(ventana);
    return true;
}

}  // namespace qor
