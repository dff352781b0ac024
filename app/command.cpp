#include "app/command.h"

#include "base/code_page.h"
#include "base/failure.h"
#include "editor/document_commands.h"

namespace qor {

std::string DeArgumento(const std::string& argumento) {
    auto texto = DesdeUtf8(argumento);
    if (!texto) throw FalloDeEjecucion("the argument " + argumento + " has a character outside windows-1252");
    return *texto;
}

bool AbrirDocumento(Editor& editor, const std::string& documento) {
    editor.AbrirDesdeComando = true;
    editor.ArchivoInicial = documento;
    return OpenOption(editor);
}

PedidoDeGeneracion PedidoDe(const ContextoDeComando& contexto, Editor& editor) {
    return {editor.especificacion, editor.opciones,      contexto.ajustes.preferencias, contexto.textos,
            contexto.vista,        editor.RutaDocumento, editor.NombreDocumento};
}

}  // namespace qor
