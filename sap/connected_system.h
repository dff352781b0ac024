#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "generator/request.h"
#include "model/document.h"
#include "sap/publish.h"
#include "sap/session.h"

namespace qor {

// What the generator asks of the system while the session is connected. What it refers to outlives it.
class SistemaDeLaSesion : public SistemaConectado {
public:
    // `MostrarAnchos` shows the file side anew when widths were read.
    SistemaDeLaSesion(Documento& documento, SesionSAP& sesion, DialogoABAP FormABAP, std::function<void()> MostrarAnchos,
                      const TextosIdioma& textos, Vista& vista);

    void ObtenerAnchos() override;
    std::filesystem::path ArchivoTemporal() override;
    void OfrecerPublicacion(const std::filesystem::path& archivo) override;

private:
    Documento& documento_;
    SesionSAP& sesion_;
    DialogoABAP FormABAP_;
    std::function<void()> MostrarAnchos_;
    const TextosIdioma& textos_;
    Vista& vista_;
};

}  // namespace qor
