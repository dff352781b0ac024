#include "editor/undo_command.h"

#include "base/text.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"

namespace qor {

namespace {

void DeshacerEnArchivo(Editor& editor, const RegistroDeshacer& registro) {
    const int linea = registro.linea;
    MostrarArchivoSinFocus(editor, registro.primeraFila);
    if (registro.operacion == 'I') {
        BorrarArchivo(editor, linea);
    } else {
        if (registro.operacion == 'D') AbrirFilaArchivo(editor, linea);
        CambiarCelda(editor, Columna::Text1, linea, registro.valores[0]);
        CambiarCelda(editor, Columna::Text2, linea, registro.valores[1]);
        const int fila = registro.primeraFila + linea;
        editor.especificacion.TablaArchivo[fila][2] = registro.valores[2];
        editor.especificacion.TablaArchivo[fila][3] = registro.valores[3];
        ColorearFila(editor, {Tabla::Archivo, fila});
    }
    EnfocarCelda(editor, {Columna::Text1, linea});
}

void DeshacerEnTransaccion(Editor& editor, const RegistroDeshacer& registro) {
    const int linea = registro.linea;
    MostrarTransaccionSinFocus(editor, registro.primeraFila);
    if (registro.operacion == 'I') {
        BorrarTransaccion(editor, linea);
    } else {
        if (registro.operacion == 'D') InsertarTransaccion(editor, linea);
        for (const Columna columna : {Columna::Text6, Columna::Text3, Columna::Text4, Columna::Text5}) {
            CambiarCelda(editor, columna, linea, registro.valores[ColumnaDeTabla(columna)]);
        }
        const int fila = registro.primeraFila + linea;
        editor.especificacion.TablaTransaccion[fila][4] = registro.valores[4];
        ColorearFila(editor, {Tabla::Transaccion, fila});
    }
    EnfocarCelda(editor, {Columna::Text6, linea});
}

}  // namespace

void Deshacer(Editor& editor) {
    const RegistroDeshacer registro = RecuperarDeshacer(editor);
    if (registro.tabla == 'E' || registro.operacion == 'X') return;
    editor.RegistrarCambios = false;
    editor.ventana.foco.reset();
    if (registro.tabla == 'A') {
        DeshacerEnArchivo(editor, registro);
    } else {
        DeshacerEnTransaccion(editor, registro);
    }
    editor.RegistrarCambios = true;
}

}  // namespace qor
