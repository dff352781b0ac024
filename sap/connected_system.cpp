#include "sap/connected_system.h"

#include <utility>

#include "base/paths.h"
#include "sap/temporary_file.h"
#include "sap/widths.h"

namespace qor {

SistemaDeLaSesion::SistemaDeLaSesion(Documento& documento, SesionSAP& sesion, DialogoABAP FormABAP,
                                     std::function<void()> MostrarAnchos, const TextosIdioma& textos, Vista& vista)
    : documento_(documento),
      sesion_(sesion),
      FormABAP_(std::move(FormABAP)),
      MostrarAnchos_(std::move(MostrarAnchos)),
      textos_(textos),
      vista_(vista) {}

void SistemaDeLaSesion::ObtenerAnchos() {
    if (ButtonOnlineAnchos(documento_, sesion_, textos_, vista_)) MostrarAnchos_();
}

std::filesystem::path SistemaDeLaSesion::ArchivoTemporal() { return CrearTemporal(sesion_); }

void SistemaDeLaSesion::OfrecerPublicacion(const std::filesystem::path& archivo) {
    if (!sesion_.Conectado) return;  // lost since the run began
    qor::OfrecerPublicacion(sesion_, archivo, FormABAP_, textos_, vista_);
}

}  // namespace qor
