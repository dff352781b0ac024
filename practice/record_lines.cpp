#include "practice/record_lines.h"

#include <algorithm>

#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"

namespace qor {

namespace {

constexpr std::size_t maximoDeMiradas = 50'000'000;

}  // namespace

std::string LineasDeRegistros::Archivo(int grupo) const {
    return archivo_ ? archivo_(diseno_.ArchivoUnico() ? 0 : grupo) : std::string();
}

std::size_t LineasDeRegistros::Buscar(std::size_t registro, int grupo, int filaDeArchivo, std::string_view valor) {
    if (registro == 0) return 0;
    if (grupo == 0 && !diseno_.ArchivoUnico()) return registro;
    const auto principal = LineaPrincipal(registro);
    if (grupo == 0 || principal == 0) return principal;
    const auto& deLosPrincipales = Leer(Archivo(0));
    if (diseno_.ArchivoUnico()) return BuscarDetras(deLosPrincipales, principal, grupo, filaDeArchivo, valor);
    return BuscarPorClaves(deLosPrincipales.lineas[principal - 1], grupo, filaDeArchivo, valor);
}

LineasDeRegistros::Archivado& LineasDeRegistros::Leer(const std::string& archivo) {
    const auto leido = leidos_.find(archivo);
    if (leido != leidos_.end()) return leido->second;
    auto& nuevo = leidos_[archivo];
    try {
        if (!archivo.empty()) nuevo.texto = LeerArchivo(archivo);
    } catch (const FalloDeEjecucion&) {
        return nuevo;
    }
    nuevo.lineas = PartirEnLineas(nuevo.texto);
    const auto identificador = diseno_.Identificador(0);
    for (std::size_t i = 0; i < nuevo.lineas.size() && !identificador.empty(); ++i) {
        if (TieneIdentificador(nuevo.lineas[i], identificador)) nuevo.principales.push_back(i + 1);
    }
    return nuevo;
}

std::size_t LineasDeRegistros::LineaPrincipal(std::size_t registro) {
    const auto& archivo = Leer(Archivo(0));
    if (!diseno_.ArchivoUnico()) return registro <= archivo.lineas.size() ? registro : 0;
    return registro <= archivo.principales.size() ? archivo.principales[registro - 1] : 0;
}

// In the one file the lines of a group stand behind their main record.
std::size_t LineasDeRegistros::BuscarDetras(const Archivado& unico, std::size_t principal, int grupo, int filaDeArchivo,
                                            std::string_view valor) const {
    for (std::size_t i = principal; i < unico.lineas.size() && !TieneIdentificador(unico.lineas[i], diseno_.Identificador(0));
         ++i) {
        const auto linea = unico.lineas[i];
        if (TieneIdentificador(linea, diseno_.Identificador(grupo)) && diseno_.ValorEn(linea, filaDeArchivo, grupo) == valor)
            return i + 1;
    }
    return 0;
}

std::size_t LineasDeRegistros::BuscarPorClaves(std::string_view principal, int grupo, int filaDeArchivo, std::string_view valor) {
    const auto claves = diseno_.Claves(grupo);
    const auto& lineas = Leer(Archivo(grupo)).lineas;
    if (claves.empty() || miradas_ > maximoDeMiradas) return 0;
    for (std::size_t i = 0; i < lineas.size(); ++i) {
        ++miradas_;
        const bool suya = std::all_of(claves.begin(), claves.end(), [&](int clave) {
            return diseno_.ValorEn(lineas[i], clave, grupo) == diseno_.ValorEn(principal, clave, 0);
        });
        if (suya && diseno_.ValorEn(lineas[i], filaDeArchivo, grupo) == valor) return i + 1;
    }
    return 0;
}

}  // namespace qor
