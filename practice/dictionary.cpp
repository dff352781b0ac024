#include "practice/dictionary.h"

#include <algorithm>

#include "base/code_page.h"
#include "base/files.h"
#include "base/text.h"

namespace qor {

namespace {

constexpr std::size_t columnasDeNombre = 30;
constexpr std::size_t columnaDeLargo = 91;
constexpr std::size_t columnasDeLargo = 6;

abap::TipoDeCampo Caracteres(std::uint32_t largo) {
    abap::TipoDeCampo tipo;
    tipo.largo = largo;
    return tipo;
}

std::string EnMayusculas(std::string_view texto) { return Mayusculas(Recortar(texto)); }

}  // namespace

DiccionarioDePractica::DiccionarioDePractica(BaseDePractica& base, std::string catalogo, Aviso aviso)
    : base_(base), catalogo_(std::move(catalogo)), aviso_(std::move(aviso)) {}

void DiccionarioDePractica::AgregarArchivo(const std::filesystem::path& archivo, bool obligatorio) {
    if (!obligatorio && !Existe(archivo)) return;
    const std::string texto = LeerArchivo(archivo);
    try {
        LeerDiccionario(entradas_, texto);
    } catch (const FalloDeArchivo&) {
        throw;
    } catch (const FalloDeEjecucion& fallo) {
        throw FalloDeArchivo(AUtf8(fallo.what()), archivo);
    }
}

void DiccionarioDePractica::AgregarAnchos(std::string_view texto) {
    for (const auto linea : PartirEnLineas(texto)) {
        const double largo = Numero(Tramo(linea, columnaDeLargo, columnasDeLargo));
        if (largo < 1) continue;
        const auto tabla = EnMayusculas(Tramo(linea, 1, columnasDeNombre));
        const auto campo = EnMayusculas(Tramo(linea, columnasDeNombre + 1, columnasDeNombre));
        anchos_[tabla][campo] = static_cast<std::uint32_t>(std::min(largo, 65535.0));
    }
}

std::optional<abap::TipoDeCampo> DiccionarioDePractica::BuscarConocido(std::string_view estructura, std::string_view componente) {
    // What the practice system has as a whole has no other fields.
    if (const auto* const tabla = base_.BuscarTabla(estructura)) {
        const auto* const columna = tabla->estructura.Buscar(componente);
        return columna == nullptr ? std::nullopt : std::optional(columna->tipo);
    }
    if (const auto entrada = entradas_.find(estructura); entrada != entradas_.end()) {
        if (const auto* const campo = entrada->second.Buscar(componente)) return campo->tipo;
    }
    if (const auto tabla = anchos_.find(estructura); tabla != anchos_.end()) {
        if (const auto campo = tabla->second.find(componente); campo != tabla->second.end()) return Caracteres(campo->second);
    }
    return std::nullopt;
}

DiccionarioDePractica::Hallada DiccionarioDePractica::Hallar(const abap::NombreUsado& nombre) {
    Hallada hallada;
    if (const auto* const tabla = base_.BuscarTabla(nombre.estructura)) {
        hallada.estructura = tabla->estructura;
        return hallada;
    }
    hallada.estructura.nombre = nombre.estructura;
    const auto agregar = [&](std::string_view campo) {
        const auto tipo = BuscarConocido(nombre.estructura, campo);
        if (!tipo) hallada.supuesta = true;
        hallada.estructura.Agregar(std::string(campo), tipo.value_or(Caracteres(largoSupuesto)));
    };
    const auto entrada = entradas_.find(nombre.estructura);
    const bool entera = entrada != entradas_.end() && entrada->second.clase != EntradaDeDiccionario::Clase::Campos &&
                        entrada->second.clase != EntradaDeDiccionario::Clase::Elemento;
    if (entera) {
        for (const auto& campo : entrada->second.campos) hallada.estructura.Agregar(campo.nombre, campo.tipo, campo.clave);
    } else if (const auto* const campos = catalogo_.Campos(nombre.estructura)) {
        for (const auto campo : *campos) agregar(campo);
    } else {
        for (const auto& campo : nombre.componentes) agregar(campo);
        if (nombre.componentes.empty()) hallada.supuesta = true;
    }
    hallada.estructura.Cerrar();
    return hallada;
}

const abap::Estructura& DiccionarioDePractica::BuscarEstructura(const abap::NombreUsado& nombre) {
    auto hallada = Hallar(nombre);
    if (hallada.supuesta) Avisar(nombre.estructura);
    // One that is asked for again is the same one, unless it has become another.
    std::string clave(nombre.estructura);
    for (const auto& campo : hallada.estructura.componentes) {
        clave += '\n' + campo.nombre + ' ' + std::to_string(static_cast<int>(campo.tipo.tipo)) + ' ' +
                 std::to_string(campo.tipo.largo) + ' ' + std::to_string(campo.tipo.decimales);
    }
    auto& lugar = estructuras_[clave];
    if (lugar == nullptr) lugar = std::make_unique<abap::Estructura>(std::move(hallada.estructura));
    return *lugar;
}

abap::TipoDeCampo DiccionarioDePractica::BuscarCampo(std::string_view estructura, std::string_view componente) {
    if (const auto tipo = BuscarConocido(estructura, componente)) return *tipo;
    Avisar(std::string(estructura) + "-" + std::string(componente));
    return Caracteres(largoSupuesto);
}

std::optional<abap::TipoDeCampo> DiccionarioDePractica::BuscarElemento(std::string_view nombre) {
    const auto guion = nombre.find('-');
    if (guion != std::string_view::npos) return BuscarConocido(nombre.substr(0, guion), nombre.substr(guion + 1));
    const auto entrada = entradas_.find(nombre);
    if (entrada == entradas_.end() || entrada->second.clase != EntradaDeDiccionario::Clase::Elemento) return std::nullopt;
    return entrada->second.campos.front().tipo;
}

bool DiccionarioDePractica::EsTabla(std::string_view nombre) { return base_.BuscarTabla(nombre) != nullptr; }

void DiccionarioDePractica::Avisar(std::string_view nombre) {
    if (!avisados_.emplace(nombre).second || !aviso_) return;
    aviso_(std::string(nombre) + ": length not known, taken as C " + std::to_string(largoSupuesto));
}

}  // namespace qor
