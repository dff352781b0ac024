#include "editor/editor.h"

#include <utility>

#include "base/text.h"

namespace qor {

bool Editor::HayDefiniciones() const { return !EstaEnBlanco(especificacion.VariablesGlobales); }

void GuardarDeshacer(Editor& editor, RegistroDeshacer registro) {
    editor.HayCambios = true;
    editor.deshacer.Guardar(std::move(registro));
    editor.UndoButton = true;
}

std::optional<RegistroDeshacer> RecuperarDeshacer(Editor& editor) {
    auto registro = editor.deshacer.Recuperar();
    editor.UndoButton = !editor.deshacer.Vacia();
    return registro;
}

void ReiniciarDeshacer(Editor& editor) {
    editor.deshacer.Reiniciar();
    editor.UndoButton = false;
}

}  // namespace qor
