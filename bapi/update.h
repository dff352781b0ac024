#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "bapi/catalogue.h"
#include "sap/session.h"

// A new catalogue from the connected system: one call for each of its thousands of BAPIs, so a run can be stopped and continued
// another day. What was fetched lies in a file "yyyymmdd_hhmmss.bap" until then; the catalogue in use is replaced only by a
// complete one, in one atomic step.
namespace qor {

// How far a run has come, in per cent; called for every third row. The answer false stops the run.
using AvisoDeActualizacion = std::function<bool(int porcentaje)>;

enum class ResultadoActualizacion {
    Hecha,
    NoIniciada,  // not connected, or the user did not want it
    Detenida,    // the partial file stays for a later run
    Fallida      // the view has shown why; nothing is left behind
};

struct PedidoDeActualizacion {
    SesionSAP& sesion;
    const TextosIdioma& textos;
    Vista& vista;
    std::filesystem::path directorio;    // of the partial files and of the new catalogue; made where it is missing
    std::filesystem::path& ArchivoBAPI;  // becomes the new catalogue
    // Called when the questions are answered and the calls begin, and at the end.
    std::function<void(bool)> ConfigurarActualizacionEnProgreso;
    AvisoDeActualizacion aviso;
};

ResultadoActualizacion ActualizarCatalogo(const PedidoDeActualizacion& pedido);

// What to do where there is no connection.
Mensaje InstruccionesDeActualizacion(const TextosIdioma& textos);

}  // namespace qor
