#include "bapi/catalogue.h"

#include <chrono>
#include <ctime>
#include <filesystem>

#include "base/clock.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"

namespace qor {

namespace {

// Adds one record to the catalogue.
void Agregar(CatalogoBAPI& catalogo, const RegistroBAPI& registro) {
    switch (registro.tipo) {
        case '0': catalogo.VersionSAP = Recortar(registro.contenido); break;
        case '1': catalogo.nodos.push_back({false, std::string(Recortar(registro.contenido)), 0}); break;
        case '2':
            if (catalogo.nodos.empty()) throw FalloDeEjecucion("a BAPI in front of any business object");
            catalogo.nodos.push_back({true, std::string(Recortar(registro.contenido)), catalogo.DescripcionesBAPI.size()});
            catalogo.DescripcionesBAPI.emplace_back();
            break;
        case '3':
            if (catalogo.DescripcionesBAPI.empty()) throw FalloDeEjecucion("documentation in front of any BAPI");
            catalogo.DescripcionesBAPI.back().append("\r\n").append(registro.contenido);
            break;
        default: break;  // parameters and fields are read at an insertion
    }
}

std::string FechaDeArchivo(const std::filesystem::path& ruta) {
    std::error_code error;
    const auto hora = std::filesystem::last_write_time(ruta, error);
    if (error) return {};
    const auto sistema = std::chrono::file_clock::to_sys(hora);
    const std::time_t instante = std::chrono::system_clock::to_time_t(std::chrono::time_point_cast<std::chrono::seconds>(sistema));
    std::tm local{};
    ::localtime_r(&instante, &local);
    return FechaYHora(local);
}

}  // namespace

const NodoBAPI* CatalogoBAPI::Buscar(std::string_view nombre) const {
    for (const auto& nodo : nodos) {
        if (nodo.esBAPI && nodo.texto == nombre) return &nodo;
    }
    return nullptr;
}

std::optional<Mensaje> AvisoDeVersion(const TextosIdioma& textos, const std::string& VersionSAP,
                                      const std::string& VersionSistema) {
    if (VersionSAP.empty() || VersionSistema.empty() || VersionSAP == VersionSistema) return std::nullopt;
    return Componer(textos, {252, " ", VersionSAP, 253, " ", VersionSistema, ". ", 254});
}

RegistroBAPI LeerRegistro(std::string_view linea) {
    if (linea.empty()) return {};
    return {linea[0], TramoDesde(linea, 3)};
}

std::optional<CatalogoBAPI> LeerCatalogo(std::string_view texto) {
    const auto lineas = PartirEnLineas(texto);
    if (lineas.empty()) throw FalloDeEjecucion("the catalogue is empty");
    if (Mayusculas(Recortar(lineas[0])) != cabezaDeCatalogo) return std::nullopt;
    CatalogoBAPI catalogo;
    for (std::size_t i = 1; i < lineas.size(); ++i) Agregar(catalogo, LeerRegistro(lineas[i]));
    return catalogo;
}

std::optional<CatalogoBAPI> RecuperarDatosBAPIs(const std::filesystem::path& ArchivoBAPI, const TextosIdioma& textos,
                                                Vista& vista) {
    try {
        auto catalogo = LeerCatalogo(LeerArchivo(ArchivoBAPI, limiteDeCatalogo));
        if (catalogo) {
            catalogo->FechaGeneracion = FechaDeArchivo(ArchivoBAPI);
        } else {
            vista.Advertir(SobreArchivo(Componer(textos, {440}), ArchivoBAPI));
        }
        return catalogo;
    } catch (const FalloDeEjecucion& fallo) {
        vista.Advertir(ConDetalle(Componer(textos, {382, " ", TextoDeRuta(ArchivoBAPI)}), fallo, ArchivoBAPI));
        return std::nullopt;
    }
}

std::string QuitarMarcas(std::string_view texto) {
    std::string resultado;
    bool enMarca = false;
    for (const char c : texto) {
        if (c == '&') {
            resultado += "\r\n";
        } else if (c == '<') {
            enMarca = true;
        } else if (c == '>') {
            enMarca = false;
        } else if (!enMarca) {
            resultado += c;
        }
    }
    return resultado;
}

}  // namespace qor
