#include "model/suggested_name.h"

#include "base/file_request.h"
#include "base/paths.h"
#include "base/words.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

std::string_view PrimeraLinea(std::string_view texto) { return texto.substr(0, texto.find_first_of("\r\n")); }

fs::path SinFinal(const Documento& documento, const TextosIdioma& textos) {
    if (documento.ruta.has_stem()) return documento.ruta.stem();
    const auto& opciones = documento.opciones;
    for (const std::string& texto : {QuitarExtension(NombreDeRuta(opciones.Programa)),
                                     std::string(PrimeraLinea(opciones.Description)), textos.Palabra(palabra::NombreSinTitulo)}) {
        if (auto nombre = ComoNombreDeArchivo(texto); !nombre.empty()) return nombre;
    }
    return {};
}

}  // namespace

fs::path NombreSugerido(const Documento& documento, std::string_view final, const TextosIdioma& textos) {
    fs::path nombre = SinFinal(documento, textos);
    nombre += final;
    return nombre;
}

}  // namespace qor
