#include "editor/undo_command.h"

#include "base/text.h"
#include "editor/cell_focus.h"
#include "editor/cell_rules.h"
#include "editor/grids.h"

namespace qor {

namespace {

void DeshacerEnArchivo(Editor& editor, const RegistroDeshacer& registro, const FilaDeArchivo& antes) {
    const int linea = registro.linea;
    MostrarArchivoSinFocus(editor, registro.primeraFila);
    if (registro.paso == RegistroDeshacer::Paso::Insercion) {
        BorrarArchivo(editor, linea);
    } else {
        if (registro.paso == RegistroDeshacer::Paso::Borrado) AbrirFilaArchivo(editor, linea);
        CambiarCelda(editor, Columna::Text1, linea, antes.campo);
        CambiarCelda(editor, Columna::Text2, linea, antes.ancho);
        auto& fila = editor.especificacion.TablaArchivo[registro.FilaDeLaTabla()];
        fila.nota = antes.nota;
        fila.conversion = antes.conversion;
        ColorearFila(editor, {Tabla::Archivo, registro.FilaDeLaTabla()});
    }
    EnfocarCelda(editor, {Columna::Text1, linea});
}

void DeshacerEnTransaccion(Editor& editor, const RegistroDeshacer& registro, const FilaDeTransaccion& antes) {
    const int linea = registro.linea;
    MostrarTransaccionSinFocus(editor, registro.primeraFila);
    if (registro.paso == RegistroDeshacer::Paso::Insercion) {
        BorrarTransaccion(editor, linea);
    } else {
        if (registro.paso == RegistroDeshacer::Paso::Borrado) InsertarTransaccion(editor, linea);
        for (const Columna columna : {Columna::Text6, Columna::Text3, Columna::Text4, Columna::Text5}) {
            CambiarCelda(editor, columna, linea, antes.*ColumnaDeTransaccion(columna));
        }
        editor.especificacion.TablaTransaccion[registro.FilaDeLaTabla()].nota = antes.nota;
        ColorearFila(editor, {Tabla::Transaccion, registro.FilaDeLaTabla()});
    }
    EnfocarCelda(editor, {Columna::Text6, linea});
}

}  // namespace

void Deshacer(Editor& editor) {
    const auto registro = RecuperarDeshacer(editor);
    if (!registro) return;
    editor.RegistrarCambios = false;
    editor.ventana.foco.reset();
    if (const auto* const archivo = std::get_if<FilaDeArchivo>(&registro->fila)) {
        DeshacerEnArchivo(editor, *registro, *archivo);
    } else {
        DeshacerEnTransaccion(editor, *registro, std::get<FilaDeTransaccion>(registro->fila));
    }
    editor.RegistrarCambios = true;
}

}  // namespace qor
