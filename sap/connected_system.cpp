#include "sap/connected_system.h"

#include <utility>

#include "sap/temporary_file.h"
#include "sap/widths.h"

namespace qor {

SistemaDeLaSesion::SistemaDeLaSesion(Editor& editor, SesionSAP& sesion, DialogoABAP FormABAP)
    : editor_(editor), sesion_(sesion), FormABAP_(std::move(FormABAP)) {}

void SistemaDeLaSesion::ObtenerAnchos() { ButtonOnlineAnchos(editor_, sesion_); }

std::string SistemaDeLaSesion::ArchivoTemporal() { return NombreTemporal(sesion_.DirectorioTemporal); }

void SistemaDeLaSesion::OfrecerPublicacion(const std::string& archivo) {
    qor::OfrecerPublicacion(sesion_, archivo, FormABAP_, editor_.textos, editor_.vista);
}

}  // namespace qor
