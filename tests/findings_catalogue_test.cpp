#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <regex>

#include "base/files.h"
#include "findings/catalogue.h"

namespace qor::pruebas {
namespace {

using Codigos = std::vector<std::pair<std::string, std::string>>;  // each with its severity

Codigos CodigosEn(const char* archivo, const char* patron) {
    const std::string texto = LeerArchivo(std::filesystem::path(QOR_TEST_SOURCE_DIR) / archivo);
    const std::regex busqueda(patron);
    Codigos codigos;
    for (std::sregex_iterator i(texto.begin(), texto.end(), busqueda), fin; i != fin; ++i) codigos.emplace_back((*i)[1], (*i)[2]);
    return codigos;
}

// The pages that explain findings have each code of the catalogue once, in its order and with its severity, and no other. In the
// help the code is the anchor to which F1 leads.
TEST(FindingsCatalogue, PagesExplainEachCodeOnce) {
    struct Pagina {
        const char* archivo;
        const char* patron;
        std::array<const char*, 3> gravedades;  // errors, warnings, notes
    };
    constexpr auto deAyuda = R"re(<h3 id="(Q\d+)">(?:\1: [^<]+</h3>\n<p><b>(\w+)\.</b> )?)re";
    constexpr auto deTabla = R"(\| (Q\d+) \|(?: (\w+) \|)?)";
    for (const auto& [archivo, patron, gravedades] : {
             Pagina{"data/help/en/findings.html", deAyuda, {"Error", "Warning", "Note"}},
             Pagina{"data/help/es/findings.html", deAyuda, {"Error", "Aviso", "Nota"}},
             Pagina{"docs/findings.md", deTabla, {"error", "warning", "note"}},
         }) {
        Codigos esperados;
        for (const auto& tipo : TiposDeHallazgo()) {
            esperados.emplace_back(CodigoDeHallazgo(tipo.codigo), gravedades.at(static_cast<std::size_t>(tipo.gravedad)));
        }
        EXPECT_THAT(CodigosEn(archivo, patron), testing::ElementsAreArray(esperados)) << archivo;
    }
}

}  // namespace
}  // namespace qor::pruebas
