#include "app/command.h"

#include "base/code_page.h"
#include "base/failure.h"
#include "base/text.h"
#include "model/document_file.h"

namespace qor {

std::string DeArgumento(const std::string& argumento) {
    auto texto = DesdeUtf8(argumento);
    if (!texto) throw FalloDeEjecucion("the argument " + argumento + " has a character outside windows-1252");
    return *texto;
}

bool DocumentoDeComando::Abrir(const ContextoDeComando& contexto, const std::filesystem::path& ruta) {
    if (EstaEnBlanco(ruta.string())) return false;
    if (!AbrirDocumento(documento, ruta, contexto.textos, contexto.vista)) return false;
    lineas.MostrarDocumento(documento.especificacion, contexto.textos, contexto.vista);
    return true;
}

bool DocumentoDeComando::Guardar(const ContextoDeComando& contexto) {
    return GuardarDocumento(documento, contexto.textos, contexto.vista);
}

PedidoDeGeneracion DocumentoDeComando::Pedido(const ContextoDeComando& contexto) {
    return PedidoDeGeneracion::De(documento, contexto.ajustes.preferencias, contexto.textos, contexto.vista);
}

}  // namespace qor
