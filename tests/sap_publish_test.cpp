#include <gmock/gmock.h>

#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "generator/generate.h"
#include "practice/role.h"
#include "sap/connected_system.h"
#include "sap/publish.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/practice_session.h"
#include "tests/support/scripted_service.h"

namespace qor {
namespace {

using pruebas::Guion;
using pruebas::SesionConectada;
using pruebas::SesionDePractica;

// ---- The composed report ----

// Each line as the system keeps it: at most 72 characters, without the blanks behind them.
std::string ComoSeGuarda(std::string_view fuente) {
    std::string texto;
    for (const auto linea : PartirEnLineas(fuente)) texto.append(SinBlancosDetras(linea.substr(0, 72))).append("\n");
    return texto;
}

TEST(Publish, TheReportRebuildsEveryLine) {
    SesionDePractica practica;
    std::string fuente;
    for (const std::size_t largo : {0U, 1U, 36U, 37U, 61U, 62U, 71U, 72U, 73U, 90U}) {
        for (const std::size_t apostrofo : {0U, 35U, 36U, 61U, 71U, 72U, 200U}) {
            std::string linea;
            for (std::size_t i = 0; i < largo; ++i) linea += i % 9 == 4 ? ' ' : static_cast<char>('a' + i % 26);
            if (apostrofo < largo) linea[apostrofo] = '\'';
            fuente += linea + "\r\n'" + linea + "\r\n";
            EXPECT_EQ(ComponerPublicacion(linea + "\r\n'" + linea, "ZX").Recortado, largo + 1 > 72) << largo;
        }
    }
    fuente += std::string(72, '\'');
    const std::string nombre(40, 'Z');
    EXPECT_TRUE(EjecutarReporte(practica.sesion, ComponerPublicacion(fuente, nombre).lineas)) << practica.sesion.Motivo;
    EXPECT_EQ(practica.Programa(nombre), ComoSeGuarda(fuente));
}

// ---- The ways in ----

struct Publicacion : SesionDePractica {
    std::string propuesto = "not shown";
    std::string elegido = "ZLOAD";
    DialogoABAP FormABAP = [this](const std::string& NombreElegido) {
        propuesto = NombreElegido;
        return elegido;
    };

    using SesionDePractica::SesionDePractica;

    std::string Fuente(std::string_view texto = "REPORT A.\r\n") {
        return RutaDelModelo(directorio.Escribir("load.v2.abap", texto));
    }
    void Generada(const std::string& archivo) { ButtonOnlinePublish(sesion, archivo, FormABAP, prueba.textos, prueba.vista); }
    void Local() { ButtonOnlinePublishLocal(sesion, FormABAP, prueba.textos, prueba.vista); }
    void Oferta(const std::string& archivo) { OfrecerPublicacion(sesion, archivo, FormABAP, prueba.textos, prueba.vista); }
    std::string Avisos() { return prueba.vista.TomarAvisos(); }
};

TEST(Publish, TheAnswerOfTheSystemDecides) {
    Publicacion publicacion;
    publicacion.Generada(publicacion.Fuente("A."));
    EXPECT_EQ(publicacion.Avisos(), "<410>");
    const std::string larga(73, 'x');
    publicacion.Generada(publicacion.Fuente(larga));
    EXPECT_EQ(publicacion.Avisos(), "<419> <410>");
    EXPECT_EQ(publicacion.Programa("ZLOAD"), larga.substr(1) + "\n");
    publicacion.elegido = std::string(41, 'Z');  // the system takes no such name
    publicacion.Generada(publicacion.Fuente(larga));
    EXPECT_EQ(publicacion.Avisos(), "<411>");
    publicacion.Generada("/nowhere/load.abap");
    EXPECT_THAT(publicacion.Avisos(), testing::StartsWith("<411>\r\n"));
    // Odd answers: no row, and a call that failed, which alone has an error to tell.
    for (const bool falla : {false, true}) {
        const auto guion = std::make_shared<Guion>();
        publicacion.sesion = SesionConectada(guion);
        guion->ultimoError = "bad luck";
        if (!falla) guion->Responder({});
        publicacion.Generada(publicacion.Fuente());
        EXPECT_EQ(publicacion.Avisos(), falla ? "<411>\r\nbad luck" : "<411>");
    }
}

TEST(Publish, GuardsStandInFrontOfEveryWay) {
    for (const auto& [rol, aviso] : {std::pair{"P", "<416> <417>"}, {"", "<418>"}}) {
        Publicacion publicacion;
        publicacion.OtroPrograma([rol = rol](BaseDePractica& base) { return PonerRolDeSistema(base, rol), true; });
        publicacion.Entrar();
        publicacion.Generada("");
        EXPECT_EQ(publicacion.Avisos(), "");  // nothing was generated: nothing at all
        publicacion.Generada(publicacion.Fuente());
        publicacion.Local();
        publicacion.Oferta(publicacion.Fuente());
        EXPECT_EQ(publicacion.Avisos(), std::string(aviso) + " " + aviso + " " + aviso);
        EXPECT_EQ(publicacion.propuesto, "not shown");
        EXPECT_EQ(publicacion.Programa("ZLOAD"), "");
    }
}

TEST(Publish, ALocalProgramProposesItsOwnName) {
    Publicacion publicacion;
    publicacion.Local();  // the file dialog is cancelled
    EXPECT_EQ(publicacion.propuesto, "not shown");
    publicacion.prueba.vista.archivos = {publicacion.Fuente()};
    publicacion.Local();
    EXPECT_EQ(publicacion.propuesto, "load.v2");
    EXPECT_EQ(publicacion.Avisos(), "<410>");
    EXPECT_EQ(publicacion.Programa("ZLOAD"), "REPORT A.\n");

    publicacion.prueba.vista.archivos = {publicacion.Fuente()};
    publicacion.elegido = "";
    publicacion.Local();
    EXPECT_EQ(publicacion.Avisos(), "");
}

#ifndef LEFT_OUT_Publish_OkAsksTheSystemAboutTheName
TEST(Publish, OkAsksTheSystemAboutTheName) {
    Publicacion publicacion;
    publicacion.PonerPrograma("ZTAKEN");
    auto& prueba = publicacion.prueba;
    for (const auto& [nombre, respuesta, cierra, elegido, avisos] : {std::tuple{" ZLOAD", Respuesta::Si, false, "", "<412>"},
                                                                     {"YLOAD ", Respuesta::Si, true, "YLOAD", ""},
                                                                     {"ZTAKEN", Respuesta::Si, true, "ZTAKEN", "<414>"},
                                                                     {"ZTAKEN", Respuesta::No, false, "", "<414>"}}) {
        prueba.vista.respuestas = {respuesta};
        const auto cierre = AceptarNombreABAP(publicacion.sesion, nombre, prueba.textos, prueba.vista);
        EXPECT_EQ(cierre.cerrar, cierra) << nombre;
        EXPECT_EQ(cierre.NombreElegido, elegido);
        EXPECT_EQ(publicacion.Avisos(), avisos);
    }
    std::filesystem::remove(publicacion.opciones.archivo);
    EXPECT_TRUE(AceptarNombreABAP(publicacion.sesion, "ZLOAD", prueba.textos, prueba.vista).cerrar);
    EXPECT_THAT(publicacion.Avisos(), testing::StartsWith("<413>\r\nThe file of the practice system is gone"));
}
#endif

#ifndef LEFT_OUT_Publish_AConnectedGenerationEndsInTheSystem
// A connected generation: the widths are fetched, the report goes into a file of a moment, and from there into the system.
TEST(Publish, AConnectedGenerationEndsInTheSystem) {
    Publicacion publicacion("", "RMMG1                         MATNR" + std::string(55, ' ') + "000018\r\n");
    auto& prueba = publicacion.prueba;
    prueba.Archivo({"MATNR"});
    prueba.Transaccion({"TRANS|MM02", "SAPLMGMM|0060", "||RMMG1-MATNR|MATNR", "||BDC_OKCODE|'/00'"});
    prueba.vista.respuestas = {Respuesta::Si, Respuesta::Si};
    SistemaDeLaSesion sistema(
        prueba.documento, publicacion.sesion, publicacion.FormABAP, [] {}, prueba.textos, prueba.vista);
    const Preferencias preferencias;
    EstadoDelGenerador estado;
    EXPECT_TRUE(Generar(PedidoDeGeneracion::De(prueba.documento, preferencias, prueba.textos, prueba.vista, &sistema), estado));
    EXPECT_EQ(prueba.FilaArchivo(0), "MATNR|18");
    EXPECT_EQ(publicacion.Avisos(), "<246> <323> <409> <410>");
    EXPECT_TRUE(estado.ProgramaTemporal);
    const auto ruta = estado.UltimoPrograma;
    EXPECT_EQ(ruta.parent_path(), publicacion.temporal);
    EXPECT_THAT(ruta.filename().string(), testing::MatchesRegex("........_......_......\\.tmp"));
    EXPECT_EQ(std::filesystem::status(ruta).permissions(), std::filesystem::perms(0600));
    EXPECT_EQ(publicacion.Programa("ZLOAD"), ComoSeGuarda(LeerArchivo(ruta)));
    Logoff_Click(publicacion.sesion);
    sistema.OfrecerPublicacion(estado.UltimoPrograma);
    EXPECT_EQ(publicacion.Avisos(), "");  // the connection was lost meanwhile
}
#endif

}  // namespace
}  // namespace qor
