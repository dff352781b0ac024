#include "editor/cell_keys.h"

#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"
#include "editor/row_range.h"

namespace qor {

namespace {

void MoverVentana(Ventana& ventana, Tabla tabla, int paso) {
    if (tabla == Tabla::Archivo) {
        paso < 0 ? VentanaArchivoArriba(ventana) : VentanaArchivoAbajo(ventana);
    } else {
        paso < 0 ? VentanaTransaccionArriba(ventana) : VentanaTransaccionAbajo(ventana);
    }
}

// To a cell of the line above or below; at the end of the grid the grid scrolls instead.
void IrALinea(Ventana& ventana, Columna columna, int linea, int paso) {
    const int nueva = linea + paso;
    if (nueva >= 0 && nueva < LineasDe(columna)) return EnfocarCelda(ventana, {columna, nueva});
    DejarCelda(ventana);
    MoverVentana(ventana, TablaDe(columna), paso);
    EnfocarCelda(ventana, {columna, linea});
}

void IrPagina(Ventana& ventana, LugarDeCelda lugar, int paso) {
    for (int n = LineasDe(lugar.columna) - 1; n > 0; --n) {
        IrALinea(ventana, lugar.columna, lugar.linea, paso);
        lugar = *ventana.foco;
    }
}

void IrDeLado(Ventana& ventana, LugarDeCelda lugar, int paso) {
    const auto columnas = ColumnasDe(TablaDe(lugar.columna));
    const int nueva = static_cast<int>(NumeroDeColumna(lugar.columna)) + paso;
    if (nueva >= 0 && nueva < static_cast<int>(columnas.size())) {
        return EnfocarCelda(ventana, {columnas[static_cast<std::size_t>(nueva)], lugar.linea});
    }
    IrALinea(ventana, paso < 0 ? columnas.back() : columnas.front(), lugar.linea, paso);
}

void InsertarFila(Ventana& ventana, LugarDeCelda lugar) {
    TablaDe(lugar.columna) == Tabla::Archivo ? InsertarArchivo(ventana, lugar.linea) : InsertarTransaccion(ventana, lugar.linea);
}

void InsertarFilaEnBlanco(Ventana& ventana, LugarDeCelda lugar) {
    const bool deArchivo = TablaDe(lugar.columna) == Tabla::Archivo;
    deArchivo ? InsertarArchivoEnBlanco(ventana, lugar.linea) : InsertarTransaccionEnBlanco(ventana, lugar.linea);
}

void BorrarFila(Ventana& ventana, LugarDeCelda lugar) {
    const auto filas = FilasDelComando(ventana, lugar);
    if (filas.desde < filas.hasta) return BorrarFilas(ventana, lugar, filas);
    TablaDe(lugar.columna) == Tabla::Archivo ? BorrarArchivo(ventana, lugar.linea) : BorrarTransaccion(ventana, lugar.linea);
}

}  // namespace

void TeclaEnCelda(Ventana& ventana, LugarDeCelda lugar, Tecla tecla) {
    EntrarEnCelda(ventana, lugar);
    switch (tecla) {
        case Tecla::Arriba: return IrALinea(ventana, lugar.columna, lugar.linea, -1);
        case Tecla::Abajo: return IrALinea(ventana, lugar.columna, lugar.linea, 1);
        case Tecla::Izquierda: return IrDeLado(ventana, lugar, -1);
        case Tecla::Derecha: return IrDeLado(ventana, lugar, 1);
        case Tecla::RePag: return IrPagina(ventana, lugar, -1);
        case Tecla::AvPag: return IrPagina(ventana, lugar, 1);
        case Tecla::F5: return InsertarFila(ventana, lugar);
        case Tecla::F6: return BorrarFila(ventana, lugar);
        case Tecla::MarcarArriba: return ExtenderFilas(ventana, lugar, -1);
        case Tecla::MarcarAbajo: return ExtenderFilas(ventana, lugar, 1);
        case Tecla::MayusF5: return InsertarFilaEnBlanco(ventana, lugar);
    }
}

}  // namespace qor
