#include "editor/tables_step.h"

namespace qor {

RegistroDeshacer PasoDeTablas(const Ventana& ventana, LugarDeCelda lugar) {
    const auto& especificacion = ventana.documento.especificacion;
    const Tabla tabla = TablaDe(lugar.columna);
    const int primera = tabla == Tabla::Archivo ? ventana.archivo.PrimeraFilaArchivo : ventana.transaccion.PrimeraFilaTransaccion;
    return {RegistroDeshacer::Paso::Cambio, lugar.linea, primera,
            TablasDeAntes{lugar.columna, especificacion.TablaArchivo, especificacion.TablaTransaccion,
                          especificacion.VariablesGlobales}};
}

}  // namespace qor
