#include "practice/bapi_parameters.h"

#include "bapi/catalogue.h"
#include "base/files.h"
#include "base/text.h"

namespace qor {

namespace {

ParametroDeBapi LeerParametro(std::string_view contenido) {
    std::string_view partes[4];
    for (auto& parte : partes) {
        parte = Recortar(AntesDe(contenido, ':'));
        contenido = DespuesDe(contenido, ':');
    }
    return {std::string(partes[0]), !partes[1].empty(), partes[2].empty() ? ' ' : partes[2][0], std::string(partes[3])};
}

}  // namespace

std::span<const ParametroDeBapi> CatalogoDeLlamadas::Parametros(std::string_view bapi) {
    const auto* entrada = Buscar(bapi);
    return entrada ? std::span<const ParametroDeBapi>(entrada->parametros) : std::span<const ParametroDeBapi>();
}

std::span<const std::string_view> CatalogoDeLlamadas::Documentacion(std::string_view bapi) {
    const auto* entrada = Buscar(bapi);
    return entrada ? std::span<const std::string_view>(entrada->documentacion) : std::span<const std::string_view>();
}

const CatalogoDeLlamadas::Entrada* CatalogoDeLlamadas::Buscar(std::string_view bapi) {
    if (!leido_) Leer();
    const auto lugar = entradas_.find(bapi);
    return lugar == entradas_.end() ? nullptr : &lugar->second;
}

void CatalogoDeLlamadas::Leer() {
    leido_ = true;
    Entrada* actual = nullptr;
    for (const auto linea : PartirEnLineas(texto_)) {
        const auto registro = LeerRegistro(linea);
        switch (registro.tipo) {
            case '1': actual = nullptr; break;
            case '2': {
                // A BAPI that stands there a second time, at another object, is the same function module.
                const auto [lugar, nueva] = entradas_.try_emplace(std::string(Recortar(registro.contenido)));
                actual = nueva ? &lugar->second : nullptr;
                break;
            }
            case '3':
                if (actual) actual->documentacion.push_back(registro.contenido);
                break;
            case '4':
                if (actual) actual->parametros.push_back(LeerParametro(registro.contenido));
                break;
            default: break;
        }
    }
}

}  // namespace qor
