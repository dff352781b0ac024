#pragma once

#include <string>

#include "editor/editor.h"
#include "generator/request.h"
#include "sap/publish.h"
#include "sap/session.h"

namespace qor {

// What the generator asks of the system while the session is connected. Refers to the editor and the session, which outlive it.
class SistemaDeLaSesion : public SistemaConectado {
public:
    SistemaDeLaSesion(Editor& editor, SesionSAP& sesion, DialogoABAP FormABAP);

    void ObtenerAnchos() override;
    std::string ArchivoTemporal() override;
    void OfrecerPublicacion(const std::string& archivo) override;

private:
    Editor& editor_;
    SesionSAP& sesion_;
    DialogoABAP FormABAP_;
};

}  // namespace qor
