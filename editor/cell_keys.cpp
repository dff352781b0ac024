#include "editor/cell_keys.h"

#include <array>
#include <span>

#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"

namespace qor {

namespace {

constexpr std::array columnasArchivo = {Columna::Text1, Columna::Text2};
constexpr std::array columnasTransaccion = {Columna::Text6, Columna::Text3, Columna::Text4, Columna::Text5};

std::span<const Columna> ColumnasDe(Tabla tabla) {
    if (tabla == Tabla::Archivo) return columnasArchivo;
    return columnasTransaccion;
}

void MoverVentana(Editor& editor, Tabla tabla, int paso) {
    if (tabla == Tabla::Archivo) {
        paso < 0 ? VentanaArchivoArriba(editor) : VentanaArchivoAbajo(editor);
    } else {
        paso < 0 ? VentanaTransaccionArriba(editor) : VentanaTransaccionAbajo(editor);
    }
}

// To a cell of the line above or below; at the end of the grid the grid scrolls instead.
void IrALinea(Editor& editor, Columna columna, int linea, int paso) {
    const int nueva = linea + paso;
    if (nueva >= 0 && nueva < LineasDe(columna)) return EnfocarCelda(editor, {columna, nueva});
    DejarCelda(editor);
    MoverVentana(editor, TablaDe(columna), paso);
    EnfocarCelda(editor, {columna, linea});
}

void IrPagina(Editor& editor, LugarDeCelda lugar, int paso) {
    for (int n = LineasDe(lugar.columna) - 1; n > 0; --n) {
        IrALinea(editor, lugar.columna, lugar.linea, paso);
        lugar = *editor.ventana.foco;
    }
}

void IrDeLado(Editor& editor, LugarDeCelda lugar, int paso) {
    const auto columnas = ColumnasDe(TablaDe(lugar.columna));
    const int nueva = static_cast<int>(NumeroDeColumna(lugar.columna)) + paso;
    if (nueva >= 0 && nueva < static_cast<int>(columnas.size())) {
        return EnfocarCelda(editor, {columnas[static_cast<std::size_t>(nueva)], lugar.linea});
    }
    IrALinea(editor, paso < 0 ? columnas.back() : columnas.front(), lugar.linea, paso);
}

void InsertarFila(Editor& editor, LugarDeCelda lugar) {
    TablaDe(lugar.columna) == Tabla::Archivo ? InsertarArchivo(editor, lugar.linea) : InsertarTransaccion(editor, lugar.linea);
}

void BorrarFila(Editor& editor, LugarDeCelda lugar) {
    TablaDe(lugar.columna) == Tabla::Archivo ? BorrarArchivo(editor, lugar.linea) : BorrarTransaccion(editor, lugar.linea);
}

}  // namespace

void TeclaEnCelda(Editor& editor, LugarDeCelda lugar, Tecla tecla) {
    EntrarEnCelda(editor, lugar);
    switch (tecla) {
        case Tecla::Arriba: return IrALinea(editor, lugar.columna, lugar.linea, -1);
        case Tecla::Abajo: return IrALinea(editor, lugar.columna, lugar.linea, 1);
        case Tecla::Izquierda: return IrDeLado(editor, lugar, -1);
        case Tecla::Derecha: return IrDeLado(editor, lugar, 1);
        case Tecla::RePag: return IrPagina(editor, lugar, -1);
        case Tecla::AvPag: return IrPagina(editor, lugar, 1);
        case Tecla::F5: return InsertarFila(editor, lugar);
        case Tecla::F6: return BorrarFila(editor, lugar);
    }
}

}  // namespace qor
