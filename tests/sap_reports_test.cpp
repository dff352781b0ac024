#include <gmock/gmock.h>

#include <functional>
#include <sstream>

#include "app/data_directory.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "sap/publish.h"
#include "sap/queue_choice.h"
#include "sap/widths.h"
#include "tests/support/practice_session.h"
#include "tests/support/scripted_service.h"

namespace qor {
namespace {

using pruebas::DirectorioTemporal;
using pruebas::Guion;
using pruebas::SesionConectada;
using pruebas::SesionDePractica;
using pruebas::VentanaDePrueba;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

// ---- What the shipped reports answer: the report runner takes lines of 72 characters, and so also with long names ----

TEST(RemoteReports, ProgramsAreSoughtByUserAndName) {
    SesionDePractica practica;
    const std::string larguisimo(40, 'Z');
    for (const auto& nombre : {std::string("YLOAD"), std::string("ZLOAD"), std::string("ZXA1"), std::string("ALOAD"), larguisimo}) {
        practica.PonerPrograma(nombre);
    }
    practica.OtroPrograma([](BaseDePractica& base) {
        base.LaConexion().Ejecutar(
            "UPDATE _qor_programs SET date = '20260102', creator = iif(name LIKE '%LOAD', 'SM_TH', 'O''NEIL_56789')");
        return true;
    });
    for (const auto& [usuario, programa, hallados] : {std::tuple{"", "", "|YLOAD|ZLOAD|ZXA1|" + larguisimo},
                                                      {"", "ZLOAD", "|ZLOAD"},
                                                      {"", "+LO*", "|ALOAD|YLOAD|ZLOAD"},
                                                      {"SM*+", "", "|YLOAD|ZLOAD"},
                                                      {"O'NEIL_56789", larguisimo.c_str(), "|" + larguisimo},
                                                      {"O'NEIL*", "ZLOAD", ""},
                                                      {"", "Z' OR NAME LIKE '*", ""}}) {
        for (const bool porCreador : {true, false}) {
            const auto filas = BuscarProgramas(practica.sesion, usuario, porCreador, programa);
            ASSERT_TRUE(filas) << practica.sesion.Motivo;
            std::string nombres;
            for (const auto& fila : *filas) nombres += "|" + std::string(Recortar(Tramo(fila, 1, 40)));
            EXPECT_EQ(nombres, hallados) << usuario << ", " << programa;
        }
    }
    EXPECT_THAT(BuscarProgramas(practica.sesion, "", true, "ZXA1"),
                Optional(ElementsAre("ZXA1" + std::string(37, ' ') + "O'NEIL_56789 02.01.2026")));
    // Who made a program and who changed it last are told apart.
    EXPECT_THAT(ReporteDeProgramas(practica.sesion.plantillas, "A", true, "Z"), testing::Contains("CNAM LIKE 'A' AND"));
    EXPECT_THAT(ReporteDeProgramas(practica.sesion.plantillas, "A", false, "Z"), testing::Contains("UNAM LIKE 'A' AND"));
}

TEST(RemoteReports, EntriesOfTheQueueAreListedAndRead) {
    SesionDePractica practica;
    auto& sesion = practica.sesion;
    EXPECT_THAT(ListarColas(sesion, "BDC"), Optional(IsEmpty()));
    const auto grabacion = practica.PonerGrabacion("zmm.txt", "bdc_dynpro 'P' '0100'\nbdc_transaction 'MM02'\n");
    const std::string s132(132, 'x');
    const auto segunda = practica.PonerSesion("SECOND", {{"SAPLMGMM", "0060", true, "", ""}, {"", "0000", false, s132, s132}});
    const auto primera = practica.PonerSesion("FIRST", {});
    EXPECT_THAT(ListarColas(sesion, "BDC"), Optional(ElementsAre("FIRST       " + primera + "PRACTICE    20260102030405000",
                                                                 "SECOND      " + segunda + "PRACTICE    20260102030405000")));
    EXPECT_THAT(ListarColas(sesion, "%BDC"), Optional(ElementsAre(testing::StartsWith("ZMM         " + grabacion))));
    const auto filas = LeerCola(sesion, segunda, "BDC");
    ASSERT_TRUE(filas);
    ASSERT_EQ(filas->size(), 20U);
    EXPECT_EQ(filas->at(10), "1 SAPLMGMM" + std::string(32, ' ') + "0060X");
    EXPECT_EQ(filas->at(15), "1" + std::string(41, ' ') + "0000 " + std::string(17, 'x'));
    EXPECT_EQ(filas->at(19), "5 " + std::string(61, 'x'));
    const std::string registros = RegistrosDeCola(*filas);
    EXPECT_EQ(registros.size(), 4 * 311U);
    EXPECT_TRUE(registros.ends_with("0000 " + s132 + s132 + "\r\n"));
    EXPECT_EQ(RegistrosDeCola({"", "0 no tag", "9 nor this", "5"}), std::string(61, ' ') + "\r\n");
    EXPECT_THAT(LeerCola(sesion, grabacion, "BDC"), Optional(IsEmpty()));
    EXPECT_THAT(LeerCola(sesion, "Q'1", "BDC"), Optional(IsEmpty()));
    std::ostringstream bapi;
    EXPECT_TRUE(BajarBAPI(sesion, "BAPI_' OR '", bapi) && bapi.str().empty());
}

// ---- What is asked ----

// A control character could end the line that it stands in, so nothing with one is asked; and nothing of an unusable session.
TEST(RemoteReports, WhatCanNotBeAskedIsNotAsked) {
    VentanaDePrueba prueba;
    const DirectorioTemporal directorio;
    const std::string fuente = directorio.Escribir("load.abap", "REPORT A.").string();
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
        const auto guion = std::make_shared<Guion>();
        SesionSAP sesion = SesionConectada(guion);
        guion->usable = false;
        guion->Responder({"0"});
        EXPECT_FALSE(consulta(sesion, "A")) << que;
        EXPECT_TRUE(guion->conversacion.empty()) << que;
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

TEST(RemoteReports, TheShippedReportsHaveNoHeadings) {
    for (const char* nombre : {"inf001.dat", "inf003.dat", "inf005.dat", "inf006.dat", "inf008.dat", "inf009.dat"}) {
        const std::string texto = LeerArchivo(DirectorioDeDatos() / nombre);
        EXPECT_EQ(std::count(texto.begin(), texto.end(), '\n'), std::count(texto.begin(), texto.end(), '\r')) << nombre;
        // A heading of the list would come out as its first rows.
        EXPECT_TRUE(Contiene(AntesDe(texto, '\r'), "NO STANDARD PAGE HEADING")) << nombre;
    }
    EXPECT_TRUE(CargarPlantillas("/nowhere").PlantillaSistema.empty());
}

}  // namespace
}  // namespace qor
