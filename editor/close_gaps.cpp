#include "editor/close_gaps.h"

#include <utility>

#include "editor/grids.h"

namespace qor {

namespace {

// The rows without the blank ones behind row 0.
std::vector<FilaDeTransaccion> SinHuecos(const Especificacion& especificacion) {
    std::vector<FilaDeTransaccion> tabla;
    tabla.push_back(especificacion.TablaTransaccion[0]);
    for (int r = 1; r < filasTabla; ++r) {
        if (!especificacion.FilaTransaccionVacia(r)) tabla.push_back(especificacion.TablaTransaccion[r]);
    }
    tabla.resize(filasTabla);
    return tabla;
}

}  // namespace

bool QuitarFilasEnBlanco(Editor& editor) {
    auto tabla = SinHuecos(editor.especificacion);
    if (tabla == editor.especificacion.TablaTransaccion) return false;
    editor.ventana.foco.reset();
    editor.especificacion.TablaTransaccion = std::move(tabla);
    ReiniciarDeshacer(editor);
    MostrarTransaccion(editor, 0);
    editor.HayCambios = true;
    return true;
}

}  // namespace qor
