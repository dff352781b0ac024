#include "practice/catalogue_structures.h"

#include <algorithm>

#include "bapi/catalogue.h"
#include "base/files.h"
#include "base/text.h"

namespace qor {

namespace {

// NAME:OPTIONAL:KIND:TYPE
ParametroDeCatalogo LeerParametro(std::string_view contenido) {
    std::string_view partes[4];
    for (auto& parte : partes) {
        parte = Recortar(AntesDe(contenido, ':'));
        contenido = DespuesDe(contenido, ':');
    }
    return {partes[0], !partes[1].empty(), partes[2].empty() ? 'I' : partes[2].front(), partes[3]};
}

}  // namespace

void EstructurasDeCatalogo::Leer() {
    if (leido_) return;
    leido_ = true;
    std::string_view objeto;
    std::vector<std::string_view>* campos = nullptr;
    bool conTexto = false;
    for (const auto linea : PartirEnLineas(texto_)) {
        const auto registro = LeerRegistro(linea);
        const auto contenido = Recortar(registro.contenido);
        if (registro.tipo == '1') objeto = contenido;
        if (registro.tipo == '2') {
            funciones_.push_back({objeto, contenido, {}, {}});
            conTexto = false;
        }
        if (funciones_.empty()) continue;
        auto& funcion = funciones_.back();
        if (registro.tipo == '3' && !conTexto) {
            funcion.texto = contenido;
            conTexto = true;
        }
        if (registro.tipo == '4') {
            funcion.parametros.push_back(LeerParametro(registro.contenido));
            campos = &estructuras_[funcion.parametros.back().tipo];
            // Each parameter tells the whole structure, in one release the same one.
            campos->clear();
        }
        if (registro.tipo == '5' && campos != nullptr) campos->push_back(contenido);
    }
    std::erase_if(estructuras_, [](const auto& estructura) { return estructura.second.empty(); });
}

const std::vector<FuncionDeCatalogo>& EstructurasDeCatalogo::Funciones() {
    Leer();
    return funciones_;
}

const EstructurasDeCatalogo::Estructuras& EstructurasDeCatalogo::LasEstructuras() {
    Leer();
    return estructuras_;
}

const std::vector<std::string_view>* EstructurasDeCatalogo::Campos(std::string_view estructura) {
    Leer();
    const auto lugar = estructuras_.find(estructura);
    return lugar == estructuras_.end() ? nullptr : &lugar->second;
}

}  // namespace qor
