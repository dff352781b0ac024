#pragma once

#include <filesystem>
#include <optional>
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
    virtual std::filesystem::path ArchivoTemporal() = 0;
    // Offers to install the report in the system.
    virtual void OfrecerPublicacion(const std::filesystem::path& archivo) = 0;
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

    // The output file, where it is given with the request and not by Programa.
    std::optional<std::filesystem::path> salida = std::nullopt;
    // On the desktop, the document's directory, empty for a document that was never saved: a relative Programa is taken from there,
    // one that leads out of it is asked about once, and the user is told where the report is. Without it, Programa is an ordinary
    // path.
    std::optional<std::filesystem::path> directorioDelDocumento = std::nullopt;
    // Where the document keeps its last report; without it nothing is known of one.
    std::optional<ReporteEscrito>* reporte = nullptr;

    static PedidoDeGeneracion De(Documento& documento, const Preferencias& preferencias, const TextosIdioma& textos, Vista& vista,
                                 SistemaConectado* sistema = nullptr) {
        return {documento.especificacion,  documento.opciones,          preferencias, textos,       vista,
                documento.RutaDocumento(), documento.NombreDocumento(), sistema,      std::nullopt, std::nullopt,
                &documento.reporte};
    }
};

}  // namespace qor
