#include "editor/cell_focus.h"

#include <utility>

#include "editor/cell_rules.h"
#include "editor/leaving_rules.h"

namespace qor {

namespace {

void ReglaDeSalida(Editor& editor, LugarDeCelda lugar) {
    if (lugar.columna == Columna::Text1) ReglaDeDuplicados(editor, lugar.linea);
    if (lugar.columna == Columna::Text5) ReglaDeValor(editor, lugar.linea);
}

}  // namespace

void EntrarEnCelda(Editor& editor, LugarDeCelda lugar) {
    if (editor.ventana.foco != lugar) {
        DejarCelda(editor);
        editor.ventana.foco = lugar;
    }
    const bool deArchivo = TablaDe(lugar.columna) == Tabla::Archivo;
    (deArchivo ? editor.archivo.LineaArchivo : editor.transaccion.LineaTransaccion) = FilaDe(editor, lugar);
}

void SalirDeCelda(Editor& editor, LugarDeCelda lugar) {
    if (editor.ventana.foco && editor.ventana.foco != lugar) return;
    editor.ventana.foco.reset();
    ReglaDeSalida(editor, lugar);
}

void EnfocarCelda(Editor& editor, LugarDeCelda lugar) {
    EntrarEnCelda(editor, lugar);
    editor.vista.Enfocar(NombreDeControl(lugar));
}

void DejarCelda(Editor& editor) {
    if (const auto lugar = std::exchange(editor.ventana.foco, std::nullopt)) ReglaDeSalida(editor, *lugar);
}

}  // namespace qor
