#include "editor/definitions.h"

#include <algorithm>

namespace qor {

namespace {

constexpr int definicionesGlobales = 0;

std::string& TextoDeEntrada(Editor& editor, int indice) {
    auto& especificacion = editor.especificacion;
    return indice == definicionesGlobales ? especificacion.VariablesGlobales : especificacion.TablaBAPIs[indice - 1].llamada;
}

bool Confirma(Editor& editor, const Mensaje& pregunta) { return editor.vista.Preguntar(pregunta, Botones::SiNo) == Respuesta::Si; }

void QuitarBAPI(Editor& editor, int fila) {
    auto& tabla = editor.especificacion.TablaBAPIs;
    std::move(tabla.begin() + fila + 1, tabla.end(), tabla.begin() + fila);
    tabla.back() = {};
    editor.HayCambios = true;
}

}  // namespace

DialogoDeDefiniciones AbrirDefiniciones(const Editor& editor) {
    const auto& especificacion = editor.especificacion;
    DialogoDeDefiniciones dialogo{{editor.textos.Texto(163)}, definicionesGlobales, especificacion.VariablesGlobales};
    for (int r = 0; r < especificacion.FilasBAPIs(); ++r) {
        dialogo.ListaDefiniciones.push_back(editor.textos.Texto(164) + ": " + especificacion.TablaBAPIs[r].nombre);
    }
    return dialogo;
}

void SeleccionarDefinicion(const Editor& editor, DialogoDeDefiniciones& dialogo, int indice) {
    const auto& especificacion = editor.especificacion;
    dialogo.seleccion = indice;
    dialogo.Vars =
        indice == definicionesGlobales ? especificacion.VariablesGlobales : especificacion.TablaBAPIs[indice - 1].llamada;
}

void CambiarVars(Editor& editor, DialogoDeDefiniciones& dialogo, const std::string& texto) {
    dialogo.Vars = texto;
    std::string& guardado = TextoDeEntrada(editor, dialogo.seleccion);
    if (guardado == texto) return;
    guardado = texto;
    editor.HayCambios = true;
}

void Limpiar(Editor& editor, DialogoDeDefiniciones& dialogo) {
    if (dialogo.seleccion == definicionesGlobales) {
        if (Confirma(editor, Componer(editor.textos, {366}))) CambiarVars(editor, dialogo, "");
        return;
    }
    if (!Confirma(editor, Componer(editor.textos, {387, "\r", 388}))) return;
    QuitarBAPI(editor, dialogo.seleccion - 1);
    dialogo = AbrirDefiniciones(editor);
}

}  // namespace qor
