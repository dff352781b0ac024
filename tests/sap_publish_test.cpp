#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "generator/generate.h"
#include "sap/connected_system.h"
#include "sap/publish.h"
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

// ---- The composed report ----

// Runs the statements that fill LINE, as the system would, and answers the rows appended.
std::vector<std::string> Ejecutar(const LineasABAP& lineas) {
    std::vector<std::string> filas;
    std::string campo(72, ' ');
    const auto literal = [](const std::string& linea) {
        const auto primera = linea.find('\'');
        return linea.substr(primera + 1, linea.rfind('\'') - primera - 1);
    };
    for (const auto& linea : lineas) {
        EXPECT_LE(linea.size(), 72U) << linea;
        if (linea == "APPEND LINE.") filas.push_back(campo);
        if (linea == "CLEAR: LINE.") campo.assign(72, ' ');
        if (linea.starts_with("LINE = ")) campo = (literal(linea) + std::string(72, ' ')).substr(0, 72);
        if (linea.starts_with("LINE(36) = ")) campo.replace(0, 36, literal(linea));
        if (linea.starts_with("LINE+36  = ")) campo.replace(36, 36, (literal(linea) + std::string(36, ' ')).substr(0, 36));
        if (linea.ends_with("(1) = ''''.")) campo.at(std::stoul(linea.substr(5))) = '\'';
    }
    return filas;
}

TEST(Publish, TheReportRebuildsEveryLine) {
    for (const std::size_t largo : {0U, 1U, 36U, 37U, 61U, 62U, 71U, 72U, 73U, 90U}) {
        for (const std::size_t apostrofo : {0U, 35U, 36U, 61U, 71U, 72U, 200U}) {
            std::string linea;
            for (std::size_t i = 0; i < largo; ++i) linea += i % 9 == 4 ? ' ' : static_cast<char>('a' + i % 26);
            if (apostrofo < largo) linea[apostrofo] = '\'';
            const auto reporte = ComponerPublicacion(linea + "\r\n'" + linea, "ZX");
            EXPECT_EQ(reporte.Recortado, largo + 1 > 72) << largo;
            const auto ancha = [](const std::string& texto) { return (texto + std::string(72, ' ')).substr(0, 72); };
            EXPECT_THAT(Ejecutar(reporte.lineas), ElementsAre(ancha(linea), ancha("'" + linea))) << largo << ", " << apostrofo;
        }
    }
}

TEST(Publish, TheStatementsForALine) {
    const std::string s61(61, 'x');
    const std::string s36(36, 'x');
    const std::pair<std::string, LineasABAP> casos[] = {
        {"\r\n", {"LINE = ''."}},
        {"WRITE 'It''s'.",
         {"LINE = 'WRITE  It  s .'.", "LINE+6(1) = ''''.", "LINE+9(1) = ''''.", "LINE+10(1) = ''''.", "LINE+12(1) = ''''."}},
        {s61, {"LINE = '" + s61 + "'."}},
        {s61 + "y", {"CLEAR: LINE.", "LINE(36) = '" + s36 + "'.", "LINE+36  = '" + std::string(25, 'x') + "y'."}},
        {std::string(71, ' ') + "''",
         {"CLEAR: LINE.", "LINE(36) = '" + std::string(36, ' ') + "'.", "LINE+36  = '" + std::string(36, ' ') + "'.",
          "LINE+71(1) = ''''."}},
    };
    for (const auto& [fuente, sentencias] : casos) {
        LineasABAP esperado = {"REPORT QORRFC.", "DATA: BEGIN OF LINE OCCURS 0,", "        DATA(72),", "      END OF LINE."};
        esperado.insert(esperado.end(), sentencias.begin(), sentencias.end());
        esperado.insert(esperado.end(), {"APPEND LINE.", "INSERT REPORT 'Z''LOAD' FROM LINE.", "WRITE: / SY-SUBRC."});
        EXPECT_EQ(ComponerPublicacion(fuente, "Z'LOAD").lineas, esperado);
    }
}

// ---- The ways in ----

struct Publicacion {
    std::shared_ptr<Guion> guion = std::make_shared<Guion>();
    SesionSAP sesion = SesionConectada(guion);
    VentanaDePrueba prueba;
    DirectorioTemporal directorio;
    std::string propuesto = "not shown";
    std::string elegido = "ZLOAD";
    DialogoABAP FormABAP = [this](const std::string& NombreElegido) {
        propuesto = NombreElegido;
        return elegido;
    };

    std::string Fuente(std::string_view texto = "REPORT A.\r\n") {
        return RutaDelModelo(directorio.Escribir("load.v2.abap", texto));
    }
    void Generada(const std::string& archivo) { ButtonOnlinePublish(sesion, archivo, FormABAP, prueba.textos, prueba.vista); }
    void Local() { ButtonOnlinePublishLocal(sesion, "", FormABAP, prueba.textos, prueba.vista); }
    void Oferta(const std::string& archivo) { OfrecerPublicacion(sesion, archivo, FormABAP, prueba.textos, prueba.vista); }
    std::string Avisos() { return prueba.vista.TomarAvisos(); }
};

TEST(Publish, TheAnswerOfTheSystemDecides) {
    struct Caso {
        std::optional<std::vector<std::string>> filas;
        std::string fuente;
        std::string avisos;
    };
    const std::string larga(73, 'x');
    const Caso casos[] = {{{{"     0 "}}, "A.", "<410>"},
                          {{{"0", "more"}}, larga, "<419> <410>"},
                          {{{"4"}}, larga, "<411>"},
                          {{{}}, "A.", "<411>"},
                          {std::nullopt, "A.", "<411>\r\nbad luck"}};
    for (const auto& caso : casos) {
        Publicacion publicacion;
        publicacion.guion->ultimoError = "bad luck";
        if (caso.filas) publicacion.guion->Responder(*caso.filas);
        publicacion.Generada(publicacion.Fuente(caso.fuente));
        EXPECT_EQ(publicacion.Avisos(), caso.avisos);  // only a call that failed has an error to tell
    }
    Publicacion sinArchivo;
    sinArchivo.Generada("/nowhere/load.abap");
    EXPECT_TRUE(sinArchivo.Avisos().starts_with("<411>\r\n"));
    EXPECT_TRUE(sinArchivo.guion->conversacion.empty());
}

TEST(Publish, GuardsStandInFrontOfEveryWay) {
    for (const char* rol : {"P", ""}) {
        Publicacion publicacion;
        publicacion.sesion.RolSistema = rol;
        const std::string aviso = rol[0] == 'P' ? "<416> <417>" : "<418>";
        publicacion.Generada("");
        EXPECT_EQ(publicacion.Avisos(), "");  // nothing was generated: nothing at all
        publicacion.Generada("x");
        publicacion.Local();
        publicacion.Oferta("x");
        EXPECT_EQ(publicacion.Avisos(), aviso + " " + aviso + " " + aviso);
        EXPECT_EQ(publicacion.propuesto, "not shown");
        EXPECT_TRUE(publicacion.guion->conversacion.empty());
    }
}

TEST(Publish, ALocalProgramProposesItsOwnName) {
    Publicacion publicacion;
    publicacion.Local();  // the file dialog is cancelled
    EXPECT_EQ(publicacion.propuesto, "not shown");
    publicacion.prueba.vista.archivos = {publicacion.Fuente()};
    publicacion.guion->Responder({"0"});
    publicacion.Local();
    EXPECT_EQ(publicacion.propuesto, "load.v2");
    EXPECT_EQ(publicacion.Avisos(), "<410>");
    EXPECT_THAT(publicacion.guion->conversacion, testing::Contains("PROGRAM < INSERT REPORT 'ZLOAD' FROM LINE."));

    publicacion.prueba.vista.archivos = {publicacion.Fuente()};
    publicacion.elegido = "";
    publicacion.Local();
    EXPECT_EQ(publicacion.Avisos(), "");
}

TEST(Publish, OkAsksTheSystemAboutTheName) {
    struct Caso {
        const char* nombre;
        std::optional<std::vector<std::string>> programas;
        Respuesta respuesta;
        bool cierra;
        const char* elegido;
        const char* avisos;
    };
    const Caso casos[] = {
        {"LOAD", {{"END"}}, Respuesta::Si, false, "", "<412>"},
        {" ZLOAD", {{"END"}}, Respuesta::Si, false, "", "<412>"},
        {"ZLOAD", std::nullopt, Respuesta::Si, true, "", "<413>"},
        {"YLOAD ", {{"END"}}, Respuesta::Si, true, "YLOAD", ""},
        {"ZLOAD", {{"ZLOAD", "END"}}, Respuesta::Si, true, "ZLOAD", "<414>"},
        {"ZLOAD", {{"ZLOAD", "END"}}, Respuesta::No, false, "", "<414>"},
    };
    for (const auto& caso : casos) {
        Publicacion publicacion;
        publicacion.prueba.vista.respuestas = {caso.respuesta};
        if (caso.programas) publicacion.guion->Responder(*caso.programas);
        const auto cierre = AceptarNombreABAP(publicacion.sesion, caso.nombre, publicacion.prueba.textos, publicacion.prueba.vista);
        EXPECT_EQ(cierre.cerrar, caso.cierra) << caso.nombre;
        EXPECT_EQ(cierre.NombreElegido, caso.elegido);
        EXPECT_EQ(publicacion.Avisos(), caso.avisos);
    }
}

// A connected generation: the widths are fetched, the report goes into a file of a moment, and from there into the system.
TEST(Publish, AConnectedGenerationEndsInTheSystem) {
    Publicacion publicacion;
    auto& prueba = publicacion.prueba;
    publicacion.sesion.DirectorioTemporal = RutaDelModelo(publicacion.directorio.Ruta());
    prueba.Archivo({"MATNR"});
    prueba.Transaccion({"TRANS|MM02", "SAPLMGMM|0060", "||RMMG1-MATNR|MATNR", "||BDC_OKCODE|'/00'"});
    prueba.vista.respuestas = {Respuesta::Si, Respuesta::Si};
    publicacion.guion->Responder({"000018"});
    publicacion.guion->Responder({"0"});
    SistemaDeLaSesion sistema(
        prueba.documento, publicacion.sesion, publicacion.FormABAP, [] {}, prueba.textos, prueba.vista);
    const Preferencias preferencias;
    EstadoDelGenerador estado;
    EXPECT_TRUE(Generar(PedidoDeGeneracion::De(prueba.documento, preferencias, prueba.textos, prueba.vista, &sistema), estado));
    EXPECT_EQ(prueba.FilaArchivo(0), "MATNR|18");
    EXPECT_EQ(publicacion.Avisos(), "<246> <323> <409> <410>");
    EXPECT_TRUE(estado.ProgramaTemporal);
    const auto ruta = estado.UltimoPrograma;
    EXPECT_EQ(ruta.parent_path(), publicacion.directorio.Ruta());
    EXPECT_THAT(ruta.filename().string(), testing::MatchesRegex("........_......_......\\.tmp"));
    EXPECT_EQ(std::filesystem::status(ruta).permissions(), std::filesystem::perms(0600));
    // The lines of the report are those that were sent.
    LineasABAP enviado;
    for (const auto& linea : publicacion.guion->conversacion) {
        if (linea.starts_with("PROGRAM < ")) enviado.push_back(linea.substr(10));
    }
    std::vector<std::string> fuente;
    const std::string texto = LeerArchivo(ruta);
    for (const auto linea : PartirEnLineas(texto)) fuente.push_back((std::string(linea) + std::string(72, ' ')).substr(0, 72));
    EXPECT_EQ(Ejecutar(enviado), fuente);
    publicacion.sesion.Conectado = false;
    sistema.OfrecerPublicacion(estado.UltimoPrograma);
    EXPECT_EQ(publicacion.Avisos(), "");  // the connection was lost meanwhile
}

}  // namespace
}  // namespace qor
