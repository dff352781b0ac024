#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <sstream>

#include "app/data_directory.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "sap/publish.h"
#include "sap/remote_reports.h"
#include "sap/widths.h"
#include "tests/support/scripted_service.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor {
namespace {

using pruebas::DirectorioTemporal;
using pruebas::Guion;
using pruebas::SesionConectada;
using pruebas::VentanaDePrueba;
using testing::ElementsAre;

constexpr const char* corredor = "Add RFC_ABAP_INSTALL_AND_RUN";

TEST(RemoteReports, ProgramsAreSoughtByAWholeLineOfConditions) {
    struct Caso {
        const char* usuario;
        bool porCreador;
        const char* programa;
        std::vector<std::string> condiciones;
    };
    const Caso casos[] = {
        {"", true, "ZLOAD", {"NAME LIKE 'ZLOAD' AND"}},
        {"", true, "Z+A*", {"NAME LIKE 'Z_A%' AND"}},
        {"SM*+", true, "", {"CNAM LIKE 'SM%_' AND", "( NAME LIKE 'Y%' OR NAME LIKE 'Z%' ) AND"}},
        {"SMITH", false, "ZLOAD", {"UNAM LIKE 'SMITH' AND", "NAME LIKE 'ZLOAD' AND"}},
        {"O'NEIL", true, "Z' OR '", {"CNAM LIKE 'O''NEIL' AND", "NAME LIKE 'Z'' OR ''' AND"}},
    };
    for (const auto& caso : casos) {
        const auto guion = std::make_shared<Guion>();
        SesionSAP sesion = SesionConectada(guion);
        guion->Responder({"ZLOAD", "END"});
        EXPECT_THAT(BuscarProgramas(sesion, caso.usuario, caso.porCreador, caso.programa), testing::Optional(ElementsAre("ZLOAD")));
        std::vector<std::string> esperada = {corredor, "MODE = F", "PROGRAM < inf003"};
        for (const auto& condicion : caso.condiciones) esperada.push_back("PROGRAM < " + condicion);
        esperada.insert(esperada.end(), {"PROGRAM < end", "Call"});
        EXPECT_EQ(guion->conversacion, esperada);
    }
}

TEST(RemoteReports, EveryListButTheContentsOfAnEntryGivesUpItsLastRow) {
    using Consulta = std::function<std::optional<FilasDeLista>(SesionSAP&)>;
    struct Caso {
        Consulta consulta;
        const char* reporte;
        std::size_t filas;
    };
    const Caso casos[] = {
        {[](SesionSAP& sesion) { return ListarColas(sesion, "%BDC"); }, "PROGRAM < inf005 %BDC", 1},
        {[](SesionSAP& sesion) { return ListarBAPIs(sesion); }, "PROGRAM < inf008", 1},
        {[](SesionSAP& sesion) { return LeerCola(sesion, "Q'1", "BDC"); }, "PROGRAM < inf006 Q''1 BDC Q''1", 2},
    };
    for (const auto& caso : casos) {
        const auto guion = std::make_shared<Guion>();
        SesionSAP sesion = SesionConectada(guion);
        guion->Responder({"first", "last"});
        const auto filas = caso.consulta(sesion);
        ASSERT_TRUE(filas);
        EXPECT_EQ(filas->size(), caso.filas);
        EXPECT_THAT(guion->TomarConversacion(), ElementsAre(corredor, "MODE = F", caso.reporte, "Call"));
        guion->Responder(std::vector<std::string>{});
        EXPECT_THAT(caso.consulta(sesion), testing::Optional(testing::IsEmpty()));
        guion->ultimoError = "no authorization";
        guion->Fallar();
        EXPECT_FALSE(caso.consulta(sesion));
        EXPECT_EQ(sesion.Motivo, "no authorization");
        guion->usable = false;
        guion->TomarConversacion();
        EXPECT_FALSE(caso.consulta(sesion));
        EXPECT_TRUE(guion->conversacion.empty());  // an unusable session is asked nothing
    }
}

// A control character could end the line that it stands in, so nothing with one is asked.
TEST(RemoteReports, NoQueryHoldsAControlCharacter) {
    VentanaDePrueba prueba;
    const DirectorioTemporal directorio;
    const std::string fuente = directorio.Escribir("load.abap", "REPORT A.");
    std::ostringstream archivo;
    using Consulta = std::function<bool(SesionSAP&, const std::string&)>;
    const std::pair<const char*, Consulta> casos[] = {
        {"a user", [](auto& s, auto& t) { return BuscarProgramas(s, t, true, "").has_value(); }},
        {"a program", [](auto& s, auto& t) { return BuscarProgramas(s, "", true, t).has_value(); }},
        {"a type", [](auto& s, auto& t) { return ListarColas(s, t).has_value(); }},
        {"an identifier", [](auto& s, auto& t) { return LeerCola(s, t, "BDC").has_value(); }},
        {"a function", [&](auto& s, auto& t) { return BajarBAPI(s, t, archivo); }},
        {"a name", [&](auto& s, auto& t) { return PublicarPrograma(s, fuente, t, prueba.textos, prueba.vista); }},
    };
    for (const auto& [que, consulta] : casos) {
        for (const char control : {'\0', '\t', '\n', '\r', '\x1F', '\x7F'}) {
            const auto guion = std::make_shared<Guion>();
            SesionSAP sesion = SesionConectada(guion);
            guion->Responder({"0"});
            EXPECT_FALSE(consulta(sesion, std::string("A") + control + "B")) << que;
            EXPECT_EQ(sesion.Motivo, "a text with a control character can't be part of a query") << que;
            EXPECT_TRUE(guion->conversacion.empty()) << que;
        }
    }
    const std::string blancos(26, ' ');
    const std::string linea = "A'B\x80" + blancos + "C'";
    EXPECT_THAT(ReporteDeAnchos({linea}), testing::IsSupersetOf({"ITAB-TABLE = 'A''B\x80'.", "ITAB-FIELD = 'C'''."}));
    const std::string conControl = "A   " + blancos + "B\tC";
    EXPECT_THAT(
        [&] {
            ReporteDeAnchos({"A", conControl});
        },
        testing::ThrowsMessage<FalloDeEjecucion>("line 2 of the field file holds a control character"));
}

// The query reports that ship with the program.
TEST(RemoteReports, TheShippedReportsFitTheReportRunner) {
    const auto plantillas = CargarPlantillas(DirectorioDeDatos());
    const std::pair<const LineasABAP*, std::vector<const char*>> casos[] = {
        {&plantillas.PlantillaSistema, {}},
        {&plantillas.PlantillaProgramas, {"<conditions>"}},
        {&plantillas.PlantillaColas, {"<datatype>"}},
        {&plantillas.PlantillaDatosCola, {"<qid>", "<datatype>"}},
        {&plantillas.PlantillaBAPIs, {}},
        {&plantillas.PlantillaBAPI, {"<function>"}}};
    for (const auto& [lineas, marcas] : casos) {
        ASSERT_FALSE(lineas->empty());
        // A heading of the list would come out as its first rows.
        EXPECT_TRUE(Contiene(lineas->front(), "NO STANDARD PAGE HEADING"));
        for (const auto& linea : *lineas) EXPECT_LE(linea.size(), 72U) << linea;
        for (const char* marca : marcas) {
            EXPECT_TRUE(std::any_of(lineas->begin(), lineas->end(), [&](const auto& linea) { return Contiene(linea, marca); }))
                << marca;
        }
    }
    for (const char* nombre : {"inf001.dat", "inf003.dat", "inf005.dat", "inf006.dat", "inf008.dat", "inf009.dat"}) {
        const std::string texto = LeerArchivo(DirectorioDeDatos() / nombre);
        EXPECT_EQ(std::count(texto.begin(), texto.end(), '\n'), std::count(texto.begin(), texto.end(), '\r')) << nombre;
    }
    EXPECT_TRUE(CargarPlantillas("/nowhere").PlantillaSistema.empty());
}

}  // namespace
}  // namespace qor
