#include "abap/values/structure.h"

#include <algorithm>
#include <cstring>

#include "abap/values/conversion.h"

namespace qor::abap {
namespace {

std::uint32_t AlineacionDe(const TipoDeCampo& tipo) {
    switch (tipo.tipo) {
        case Tipo::I: return 4;
        case Tipo::F: return 8;
        case Tipo::Estructura: return tipo.estructura != nullptr ? tipo.estructura->alineacion : 1;
        default: return 1;
    }
}

std::uint32_t Alinear(std::uint32_t posicion, std::uint32_t alineacion) {
    return (posicion + alineacion - 1) / alineacion * alineacion;
}

}  // namespace

const Componente* Estructura::Buscar(std::string_view nombreDeComponente) const {
    const auto hallado = std::find_if(componentes.begin(), componentes.end(),
                                      [&](const Componente& componente) { return componente.nombre == nombreDeComponente; });
    return hallado == componentes.end() ? nullptr : &*hallado;
}

void Estructura::Agregar(std::string nombreDeComponente, const TipoDeCampo& tipo, bool clave) {
    const auto alineacionPropia = AlineacionDe(tipo);
    const auto desplazamiento = Alinear(largo, alineacionPropia);
    componentes.push_back({std::move(nombreDeComponente), desplazamiento, tipo, clave});
    largo = desplazamiento + tipo.largo;
    alineacion = std::max(alineacion, alineacionPropia);
}

void Estructura::Cerrar() { largo = Alinear(largo, alineacion); }

Campo CampoDeComponente(const Componente& componente, std::uint8_t* datos) {
    Campo campo;
    campo.datos = datos + componente.desplazamiento;
    campo.largo = componente.tipo.largo;
    campo.tipo = componente.tipo.tipo;
    campo.decimales = componente.tipo.decimales;
    return campo;
}

void PonerInicial(const Campo& campo, const Estructura* estructura) {
    ExigirEscribible(campo);
    switch (campo.tipo) {
        case Tipo::C: std::memset(campo.datos, ' ', campo.largo); break;
        case Tipo::N:
        case Tipo::D:
        case Tipo::T: std::memset(campo.datos, '0', campo.largo); break;
        case Tipo::I:
        case Tipo::F:
        case Tipo::X: std::memset(campo.datos, 0, campo.largo); break;
        case Tipo::P:
            if (campo.largo == 0) break;
            std::memset(campo.datos, 0, campo.largo);
            campo.datos[campo.largo - 1] = 0x0C;
            break;
        case Tipo::Cadena: campo.cadena->clear(); break;
        case Tipo::Estructura:
            std::memset(campo.datos, ' ', campo.largo);
            if (estructura == nullptr) break;
            for (const auto& componente : estructura->componentes) {
                if (componente.tipo.tipo == Tipo::C) continue;
                PonerInicial(CampoDeComponente(componente, campo.datos), componente.tipo.estructura);
            }
            break;
    }
}

bool EsInicial(const Campo& campo, const Estructura* estructura) {
    if (campo.tipo != Tipo::Estructura || estructura == nullptr) return EsInicial(campo);
    return std::all_of(estructura->componentes.begin(), estructura->componentes.end(), [&](const Componente& componente) {
        return EsInicial(CampoDeComponente(componente, campo.datos), componente.tipo.estructura);
    });
}

}  // namespace qor::abap
