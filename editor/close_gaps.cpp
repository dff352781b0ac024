#include "editor/close_gaps.h"

#include <utility>

#include "editor/grids.h"
#include "editor/tables_step.h"
#include "model/gaps.h"

namespace qor {

bool QuitarFilasEnBlanco(Ventana& ventana) {
    auto& documento = ventana.documento;
    auto& especificacion = documento.especificacion;
    auto archivo = ArchivoSinHuecos(especificacion);
    auto programa = SinFilasEnBlanco(especificacion, 0);
    if (archivo == especificacion.TablaArchivo && programa == especificacion.TablaTransaccion) return false;
    documento.GuardarDeshacer(PasoDeTablas(ventana, {Columna::Programa, 0}));
    especificacion.TablaArchivo = std::move(archivo);
    especificacion.TablaTransaccion = std::move(programa);
    MostrarArchivoSinFocus(ventana, 0);
    MostrarTablaNueva(ventana);
    return true;
}

void RemoveBlankOption(Ventana& ventana) {
    if (!QuitarFilasEnBlanco(ventana)) ventana.vista.Informar(Componer(ventana.textos, {443}));
}

bool OfrecerQuitarHuecos(Ventana& ventana) {
    const auto huecos = BuscarHuecos(ventana.documento.especificacion, 0);
    if (huecos.empty()) return true;
    const Lugar& primero = huecos.front();
    const int lado = primero.parte == Lugar::Parte::Archivo ? 445 : 446;
    const auto pregunta = Componer(ventana.textos, {373, "\r\r", 444, " ", std::to_string(primero.fila + 1), " ", lado, " ", 447});
    if (ventana.vista.Preguntar(pregunta, Botones::SiNo) != Respuesta::Si) return false;
    return QuitarFilasEnBlanco(ventana);
}

}  // namespace qor
