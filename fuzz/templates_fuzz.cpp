// Any bytes as a template file and, behind bytes FF, as the texts that are put into its queries, into the look-up of widths and
// into the name of a program: no text leaves the literal that it stands in, or ends its line.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "fuzz/require.h"
#include "sap/publish.h"
#include "sap/remote_reports.h"
#include "sap/widths.h"

namespace {

using namespace qor;

constexpr const char* neutro = "A";
constexpr const char* senal = "\x02";  // stands for a placeholder while its place is looked at

// A statement's line as the system reads it: the code, with a dot for each literal, and the texts of the literals.
struct Lectura {
    std::string codigo;
    std::vector<std::string> literales;
    bool abierto = false;  // the last literal has no end
};

Lectura Leer(std::string_view linea) {
    Lectura lectura;
    for (std::size_t i = 0; i < linea.size(); ++i) {
        if (linea[i] != '\'') {
            (lectura.abierto ? lectura.literales.back() : lectura.codigo) += linea[i];
        } else if (!lectura.abierto) {
            lectura.codigo += '.';
            lectura.literales.emplace_back();
            lectura.abierto = true;
        } else if (i + 1 < linea.size() && linea[i + 1] == '\'') {
            lectura.literales.back() += linea[++i];
        } else {
            lectura.abierto = false;
        }
    }
    return lectura;
}

bool MismoCodigo(std::string_view una, std::string_view otra) {
    const auto a = Leer(una);
    const auto b = Leer(otra);
    return a.codigo == b.codigo && a.literales.size() == b.literales.size() && a.abierto == b.abierto;
}

void ExigirLineas(const LineasABAP& reporte) {
    for (const auto& linea : reporte) Exigir(linea.find_first_of("\r\n") == std::string::npos, "a line stays one line");
}

// Makes the report, unless one of the texts holds a control character; then it must refuse.
template <typename Componer>
LineasABAP Pedir(Componer componer, std::initializer_list<std::string_view> textos) {
    const bool seNiega = std::any_of(textos.begin(), textos.end(), TieneControl);
    try {
        auto reporte = componer();
        Exigir(!seNiega, "a control character is refused");
        ExigirLineas(reporte);
        return reporte;
    } catch (const FalloDeEjecucion&) {
        Exigir(seNiega, "a query without control characters is made");
        return {};
    }
}

// Where the placeholders of a template's line stand inside of literals, the code is the same whatever is put there.
void ExigirPlantilla(const LineasABAP& plantilla, const std::vector<const char*>& marcas, const LineasABAP& reporte,
                     const LineasABAP& conNeutro) {
    if (reporte.empty()) return;
    Exigir(reporte.size() == plantilla.size() && conNeutro.size() == plantilla.size(), "every line of the template is there");
    for (std::size_t i = 0; i < plantilla.size(); ++i) {
        std::string senalada = plantilla[i];
        for (const char* const marca : marcas) senalada = ReemplazarTodo(senalada, marca, senal);
        if (senalada == plantilla[i]) {
            Exigir(Contiene(plantilla[i], senal) || reporte[i] == plantilla[i], "a line without a placeholder stays");
        } else if (!Contiene(Leer(senalada).codigo, senal)) {
            Exigir(MismoCodigo(reporte[i], conNeutro[i]), "a text stays inside its literal");
        }
    }
}

// The lines of a search: code with one literal, whose text is the pattern.
void ExigirCondicion(const std::string& linea, const char* codigo, std::string_view texto) {
    const auto lectura = Leer(linea);
    const auto patron = ReemplazarTodo(ReemplazarTodo(texto, "*", "%"), "+", "_");
    Exigir(lectura.codigo == codigo && !lectura.abierto && lectura.literales.size() == 1 && lectura.literales[0] == patron,
           "a condition asks for the text as it is");
}

void Buscar(const std::string& usuario, const std::string& programa) {
    const PlantillasRFC plantillas{{}, {"<conditions>"}, {}, {}, {}, {}};
    const auto reporte = Pedir([&] { return ReporteDeProgramas(plantillas, usuario, false, programa); }, {usuario, programa});
    if (reporte.empty()) return;
    if (!usuario.empty()) ExigirCondicion(reporte.front(), "UNAM LIKE . AND", usuario);
    if (!programa.empty()) ExigirCondicion(reporte.back(), "NAME LIKE . AND", programa);
}

void PedirAnchos(std::string_view texto) {
    const auto linea = std::string(texto.substr(0, texto.find_first_of("\r\n")));
    const auto tabla = Recortar(Tramo(linea, 1, 30));
    const auto campo = Recortar(Tramo(linea, 31, 30));
    const auto reporte = Pedir([&] { return ReporteDeAnchos({linea}); }, {tabla, campo});
    if (reporte.empty()) return;
    for (const auto& [orden, codigo, valor] :
         {std::tuple{std::size_t{6}, "ITAB-TABLE = ..", tabla}, std::tuple{std::size_t{7}, "ITAB-FIELD = ..", campo}}) {
        const auto lectura = Leer(reporte[orden]);
        Exigir(lectura.codigo == codigo && lectura.literales.size() == 1 && lectura.literales[0] == valor,
               "the look-up asks for the field as it is");
    }
}

void Publicar(const std::string& nombre) {
    const auto reporte = Pedir([&] { return ComponerPublicacion("REPORT A.", nombre).lineas; }, {nombre});
    if (reporte.empty()) return;
    const auto lectura = Leer(reporte[reporte.size() - 2]);
    Exigir(lectura.codigo == "INSERT REPORT . FROM LINE." && lectura.literales.size() == 1 && lectura.literales[0] == nombre,
           "a program is installed under its name");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t cantidad) {
    std::string_view resto(reinterpret_cast<const char*>(datos), cantidad);
    const auto tomar = [&resto] {
        const std::string parte(AntesDe(resto, '\xFF'));
        resto = DespuesDe(resto, '\xFF');
        return parte;
    };
    const std::string plantilla = tomar();
    const std::string uno = tomar();
    const std::string otro = tomar();

    const auto partes = PartirEnLineas(plantilla);
    const LineasABAP lineas(partes.begin(), partes.end());
    const PlantillasRFC plantillas{lineas, lineas, lineas, lineas, lineas, lineas};
    ExigirPlantilla(lineas, {"<datatype>"}, Pedir([&] { return ReporteDeColas(plantillas, uno); }, {uno}),
                    ReporteDeColas(plantillas, neutro));
    ExigirPlantilla(lineas, {"<function>"}, Pedir([&] { return ReporteDeBAPI(plantillas, uno); }, {uno}),
                    ReporteDeBAPI(plantillas, neutro));
    ExigirPlantilla(lineas, {"<qid>", "<datatype>"}, Pedir([&] { return ReporteDeCola(plantillas, uno, otro); }, {uno, otro}),
                    ReporteDeCola(plantillas, neutro, neutro));
    Buscar(uno, otro);
    PedirAnchos(uno);
    Publicar(uno);
    return 0;
}
