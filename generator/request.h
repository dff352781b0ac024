#pragma once

#include <string>

#include "base/messages.h"
#include "base/view.h"
#include "model/document.h"
#include "model/naming.h"

namespace qor {

// What the generator needs of a system while one is connected. Without a connection there is none.
class SistemaConectado {
public:
    virtual ~SistemaConectado() = default;

    // Offers to fill the missing widths of the file side.
    virtual void ObtenerAnchos() = 0;
    // Where the report is written: a temporary file of its own.
    virtual std::string ArchivoTemporal() = 0;
    // Offers to install the report in the system.
    virtual void OfrecerPublicacion(const std::string& archivo) = 0;
};

// A specification and its surroundings, as a run of the generator is asked for.
struct PedidoDeGeneracion {
    const Especificacion& especificacion;
    Opciones& opciones;  // TablaZ comes back cut
    const Preferencias& preferencias;
    const TextosIdioma& textos;
    Vista& vista;
    std::string RutaDocumento;
    std::string NombreDocumento;
    SistemaConectado* sistema = nullptr;

    static PedidoDeGeneracion De(Documento& documento, const Preferencias& preferencias, const TextosIdioma& textos, Vista& vista,
                                 SistemaConectado* sistema = nullptr) {
        return {documento.especificacion,  documento.opciones,          preferencias, textos, vista,
                documento.RutaDocumento(), documento.NombreDocumento(), sistema};
    }
};

}  // namespace qor
