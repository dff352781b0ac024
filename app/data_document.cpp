#include "app/data_document.h"

#include <algorithm>

#include "base/paths.h"
#include "base/text.h"

namespace qor {

namespace fs = std::filesystem;

ClasesDeCampos LeerClases(const ContextoDeComando& contexto, const Documento& documento) {
    const fs::path ruta = documento.ruta;
    auto clases = ClasesDeCampos::DeDocumento(ruta);
    const auto& tabla = documento.especificacion.TablaArchivo;
    const auto fin = tabla.begin() + documento.especificacion.FilasArchivo();
    for (const auto& una : clases.Todas()) {
        const std::string& campo = una.first;
        const bool hay =
            std::any_of(tabla.begin(), fin, [&](const auto& fila) { return Mayusculas(Recortar(fila.campo)) == campo; });
        if (hay) continue;
        std::string texto = TextoDeRuta(ClasesDeCampos::ArchivoDe(ruta).filename());
        texto += ", line " + std::to_string(clases.LineasDe(campo).primera) + ": the document has no field " + campo + ".";
        contexto.vista.Advertir(MensajeLiteral(texto));
    }
    return clases;
}

std::vector<fs::path> ArchivosDelDocumento(const ContextoDeComando& contexto, const fs::path& documento,
                                           const ClasesDeCampos& clases) {
    std::vector<fs::path> archivos = {documento, ClasesDeCampos::ArchivoDe(documento),
                                      contexto.directorioDeAjustes / nombreDeAjustes};
    for (const auto& [campo, clase] : clases.Todas()) {
        if (!clase.lista.empty()) archivos.push_back(documento.parent_path() / RutaDelSistema(clase.lista));
    }
    return archivos;
}

void AgregarMaximo(Orden orden, std::uint64_t& maximo, const std::string& cuales) {
    constexpr std::uint64_t tope = 1'000'000'000'000;
    orden.Dato("--max-findings", maximo, "Tell at most N " + cuales + ", and count the others; by default 1000")
        .Segun([](const std::string& texto) {
            const bool esNumero = !texto.empty() && texto.size() < std::to_string(tope).size() &&
                                  texto.find_first_not_of("0123456789") == std::string::npos;
            return esNumero ? std::string() : "\"" + texto + "\" is no number from 0 to 999999999999";
        })
        .Tipo("N");
}

}  // namespace qor
