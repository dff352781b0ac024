#include "editor/row_range.h"

#include <algorithm>

#include "editor/cell_focus.h"
#include "editor/cell_keys.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"
#include "editor/row_block.h"
#include "editor/tables_step.h"

namespace qor {

namespace {

template <typename Filas>
void Quitar(Filas& tabla, int desde, int hasta) {
    tabla.erase(tabla.begin() + desde, tabla.begin() + hasta + 1);
    tabla.resize(filasTabla);
}

}  // namespace

void ExtenderFilas(Ventana& ventana, LugarDeCelda lugar, int paso) {
    const auto antes = ventana.filasMarcadas;
    const int ancla = antes && antes->tabla == TablaDe(lugar.columna) ? antes->ancla : FilaDe(ventana, lugar);
    TeclaEnCelda(ventana, lugar, paso < 0 ? Tecla::Arriba : Tecla::Abajo);
    ventana.filasMarcadas = FilasMarcadas{TablaDe(lugar.columna), ancla, FilaDe(ventana, *ventana.foco)};
}

void EntrarEnMarcada(Ventana& ventana, LugarDeCelda lugar) {
    const auto marcadas = ventana.filasMarcadas;
    EntrarEnCelda(ventana, lugar);
    ventana.filasMarcadas = marcadas;
}

TramoDeFilas FilasDelComando(const Ventana& ventana, LugarDeCelda lugar) {
    const auto& marcadas = ventana.filasMarcadas;
    const Tabla tabla = TablaDe(lugar.columna);
    const int fila = FilaDe(ventana, lugar);
    if (!marcadas || marcadas->tabla != tabla) return {tabla, fila, fila};
    return {tabla, std::min(marcadas->ancla, marcadas->ultima), std::max(marcadas->ancla, marcadas->ultima)};
}

void BorrarFilas(Ventana& ventana, LugarDeCelda lugar, TramoDeFilas filas) {
    auto& especificacion = ventana.documento.especificacion;
    ventana.documento.GuardarDeshacer(PasoDeTablas(ventana, lugar));
    if (filas.tabla == Tabla::Archivo) {
        Quitar(especificacion.TablaArchivo, filas.desde, filas.hasta);
        MostrarArchivoSinFocus(ventana, std::min(ventana.archivo.PrimeraFilaArchivo, filas.desde));
    } else {
        Quitar(especificacion.TablaTransaccion, filas.desde, filas.hasta);
        MostrarTransaccionSinFocus(ventana, std::min(ventana.transaccion.PrimeraFilaTransaccion, filas.desde));
    }
    // No cell is left by this: the rows under the cells are others now.
    ventana.foco.reset();
    const int primera =
        filas.tabla == Tabla::Archivo ? ventana.archivo.PrimeraFilaArchivo : ventana.transaccion.PrimeraFilaTransaccion;
    EnfocarCelda(ventana, {lugar.columna, filas.desde - primera});
}

std::string CopiarFilas(const Ventana& ventana, LugarDeCelda lugar) {
    const auto filas = FilasDelComando(ventana, lugar);
    return CopiarFilas(ventana, filas.tabla, filas.desde, filas.hasta);
}

}  // namespace qor
