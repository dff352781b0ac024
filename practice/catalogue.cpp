#include "practice/catalogue.h"

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

std::string_view FuncionDeCatalogo::Texto() const {
    constexpr std::size_t largoDeTexto = 74;
    const auto primera = documentacion.empty() ? std::string_view{} : documentacion.front();
    return primera.size() <= largoDeTexto ? primera : std::string_view{};
}

std::span<const std::string_view> FuncionDeCatalogo::LineasTrasElTexto() const {
    return std::span(documentacion).subspan(Texto().empty() ? 0 : 1);
}

void CatalogoDePractica::Leer() {
    if (leido_) return;
    leido_ = true;
    std::string_view objeto;
    std::vector<std::string_view>* campos = nullptr;
    bool empezados = false;
    for (const auto linea : PartirEnLineas(texto_)) {
        const auto registro = LeerRegistro(linea);
        const auto contenido = Recortar(registro.contenido);
        if (registro.tipo == '1') objeto = contenido;
        if (registro.tipo == '2') {
            porNombre_.try_emplace(contenido, funciones_.size());
            funciones_.push_back({objeto, contenido, {}, {}});
        }
        if (funciones_.empty()) continue;
        auto& funcion = funciones_.back();
        if (registro.tipo == '3') funcion.documentacion.push_back(registro.contenido);
        if (registro.tipo == '4') {
            funcion.parametros.push_back(LeerParametro(registro.contenido));
            const auto tipo = funcion.parametros.back().tipo;
            campos = tipo.find('-') == std::string_view::npos ? &estructuras_[tipo] : nullptr;
            if (campos == nullptr) continue;
            empezados = false;
        }
        if (registro.tipo != '5' || campos == nullptr) continue;
        // A parameter with fields tells the whole structure, in one release the same one.
        if (!std::exchange(empezados, true)) campos->clear();
        campos->push_back(contenido);
    }
}

const std::vector<FuncionDeCatalogo>& CatalogoDePractica::Funciones() {
    Leer();
    return funciones_;
}

const FuncionDeCatalogo* CatalogoDePractica::Buscar(std::string_view funcion) {
    Leer();
    const auto lugar = porNombre_.find(funcion);
    return lugar == porNombre_.end() ? nullptr : &funciones_[lugar->second];
}

std::span<const ParametroDeCatalogo> CatalogoDePractica::Parametros(std::string_view funcion) {
    const auto* conocida = Buscar(funcion);
    return conocida == nullptr ? std::span<const ParametroDeCatalogo>() : conocida->parametros;
}

const CatalogoDePractica::Estructuras& CatalogoDePractica::LasEstructuras() {
    Leer();
    return estructuras_;
}

const std::vector<std::string_view>* CatalogoDePractica::Campos(std::string_view estructura) {
    Leer();
    const auto lugar = estructuras_.find(estructura);
    return lugar == estructuras_.end() || lugar->second.empty() ? nullptr : &lugar->second;
}

}  // namespace qor
