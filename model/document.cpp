#include "model/document.h"

#include <utility>

#include "base/paths.h"
#include "base/text.h"

namespace qor {

void Documento::GuardarDeshacer(RegistroDeshacer registro) {
    deshacer.Guardar(std::move(registro));
    Cambiar();
}

bool Documento::HayDefiniciones() const { return !EstaEnBlanco(especificacion.VariablesGlobales); }

std::string Documento::RutaDocumento() const { return TextoDeRuta(ruta); }

std::string Documento::NombreDocumento() const { return NombreDeRuta(RutaDocumento()); }

}  // namespace qor
