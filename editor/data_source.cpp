#include "editor/data_source.h"

#include <utility>

namespace qor {

namespace {

PedidoDeGeneracion PedidoDe(Editor& editor, const Preferencias& preferencias) {
    return {editor.especificacion, editor.opciones,      preferencias,          editor.textos,
            editor.vista,          editor.RutaDocumento, editor.NombreDocumento};
}

void ConCambios(Editor& editor, bool hecho) {
    if (hecho) editor.HayCambios = true;
}

}  // namespace

std::optional<DialogoDeOrigen> AbrirOrigen(Editor& editor, const Preferencias& preferencias) {
    // The declarations are those of a report with the user's own source.
    const bool antes = std::exchange(editor.especificacion.OrigenUsuario, true);
    DialogoDeOrigen dialogo;
    try {
        dialogo.estructuras = ImprimirEstructuras(PedidoDe(editor, preferencias));
    } catch (...) {
        editor.especificacion.OrigenUsuario = antes;
        throw;
    }
    editor.especificacion.OrigenUsuario = antes;
    if (dialogo.estructuras.texto.empty()) return std::nullopt;
    dialogo.ComboItabs = dialogo.estructuras.tablas.front();
    return dialogo;
}

void CambiarOtroOrigen(Editor& editor, bool encendido) {
    if (editor.especificacion.OrigenUsuario == encendido) return;
    editor.especificacion.OrigenUsuario = encendido;
    editor.HayCambios = true;
}

bool HabilitadoEnOrigen(const Editor& editor, std::string_view control) {
    return editor.especificacion.OrigenUsuario || control == "CheckOtroOrigen" || control == "OKButton" || control == "Ayuda";
}

void CambiarTextoDeOrigen(Editor& editor, std::string Especificacion::*texto, const std::string& nuevo) {
    if (editor.especificacion.*texto == nuevo) return;
    editor.especificacion.*texto = nuevo;
    editor.HayCambios = true;
}

void ClicModeloArchivo(Editor& editor, const Preferencias& preferencias, const DialogoDeOrigen& dialogo, FuenteDeModelo fuente) {
    ConCambios(editor, ModeloArchivo(PedidoDe(editor, preferencias), TextosDe(editor.especificacion), dialogo.ComboItabs, fuente));
}

void ClicModeloOpenSQL(Editor& editor, const Preferencias& preferencias, const DialogoDeOrigen& dialogo) {
    ConCambios(editor, ModeloOpenSQL(PedidoDe(editor, preferencias), TextosDe(editor.especificacion), dialogo.ComboItabs,
                                     dialogo.estructuras.texto));
}

void ClicModeloSQLNativo(Editor& editor, const Preferencias& preferencias, const DialogoDeOrigen& dialogo) {
    ConCambios(editor, ModeloSQLNativo(PedidoDe(editor, preferencias), TextosDe(editor.especificacion), dialogo.ComboItabs,
                                       dialogo.estructuras.texto));
}

void EliminarDeOrigen(Editor& editor, const std::string& eleccion) {
    const auto& especificacion = editor.especificacion;
    const auto largo = [&] {
        return especificacion.OrigenVariables.size() + especificacion.OrigenForms.size() + especificacion.OrigenSource.size();
    };
    const auto antes = largo();
    EliminarTextos(TextosDe(editor.especificacion), eleccion);
    ConCambios(editor, largo() != antes);
}

std::string TextoDePreview(Editor& editor, const Preferencias& preferencias) {
    return ImprimirEstructuras(PedidoDe(editor, preferencias)).texto;
}

}  // namespace qor
