#include "sap/templates.h"

#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"

namespace qor {

namespace {

LineasABAP LeerPlantilla(const std::filesystem::path& ruta) {
    try {
        const std::string texto = LeerArchivo(ruta);
        const auto lineas = PartirEnLineas(texto);
        return {lineas.begin(), lineas.end()};
    } catch (const FalloDeEjecucion&) {
        return {};
    }
}

}  // namespace

PlantillasRFC CargarPlantillas(const std::filesystem::path& directorio) {
    return {LeerPlantilla(directorio / "inf001.dat"), LeerPlantilla(directorio / "inf003.dat"),
            LeerPlantilla(directorio / "inf005.dat"), LeerPlantilla(directorio / "inf006.dat"),
            LeerPlantilla(directorio / "inf008.dat"), LeerPlantilla(directorio / "inf009.dat")};
}

LineasABAP Sustituir(LineasABAP lineas, std::string_view marca, std::string_view valor) {
    const std::string literal = EnLiteral(valor);
    for (auto& linea : lineas) linea = ReemplazarTodo(linea, marca, literal);
    return lineas;
}

std::string EnLiteral(std::string_view texto) {
    if (TieneControl(texto)) throw FalloDeEjecucion("a text with a control character can't be part of a query");
    return ReemplazarTodo(texto, "'", "''");
}

}  // namespace qor
