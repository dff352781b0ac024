#include <gtest/gtest.h>

#include "bapi/catalogue.h"
#include "bapi/insertion.h"
#include "bapi/search.h"
#include "bapi/update.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "tests/support/practice_session.h"
#include "tests/support/scripted_service.h"

namespace qor::pruebas {
namespace {

const std::string catalogo =
    "BAPIDEFS\r\n0 46C\r\n1 Material\r\n2 BAPI_MAT_SAVE\r\n3 Saves <b>one</b> material.\r\n3 Needs&a commit.\r\n"
    "4 HEAD::I:BAPIMATHEAD\r\n5 MATERIAL\r\n5 SECTOR\r\n4 TESTRUN:X:I:BAPIE1-TEST\r\n4 RETURN::E:BAPIRET2\r\n5 TYPE\r\n"
    "4 TEXTS:X:T:BAPI_MAKT\r\n5 LANGU\r\n5 TEXT\r\n"
    "1 Order\r\n2 BAPI_ORDER\r\n3 Creates an order for a material.\r\n4 HEAD::I:BAPISDHD\r\n5 MATERIAL\r\n4 "
    "TEXTS::T:BAPI_MAKT\r\n5 LANGU\r\n"
    "2 BAPI_BAD\r\n4 HEAD::X:BAPISDHD\r\n";

struct PruebaDeBAPI : testing::Test {
    DirectorioTemporal directorio;
    VentanaDePrueba prueba;
    Ventana& ventana = prueba.ventana;

    std::string Escribir(const std::string& contenido, const char* nombre = "catalogue") {
        return RutaDelModelo(directorio.Escribir(nombre, contenido));
    }

    ResultadoInsercion Elegir(const std::string& nombre, bool definicion = false, std::optional<bool> todos = true) {
        return ElegirBAPI(
            prueba.documento, Escribir(catalogo), nombre, definicion,
            prueba.documento.especificacion.PrimeraPosicionLibreTransaccion(), [&] { return todos; }, prueba.textos, prueba.vista);
    }
};

TEST_F(PruebaDeBAPI, CatalogueIsATreeInFileOrder) {
    const auto cargado = RecuperarDatosBAPIs(Escribir(catalogo), prueba.textos, prueba.vista);
    ASSERT_TRUE(cargado);
    EXPECT_EQ(cargado->VersionSAP, "46C");
    std::string arbol;
    for (const auto& nodo : cargado->nodos) arbol += (nodo.esBAPI ? " " : "/") + nodo.texto;
    EXPECT_EQ(arbol, "/Material BAPI_MAT_SAVE/Order BAPI_ORDER BAPI_BAD");
    EXPECT_EQ(QuitarMarcas(cargado->DescripcionesBAPI[0]), "\r\nSaves one material.\r\nNeeds\r\na commit.");
}

TEST_F(PruebaDeBAPI, BrokenCataloguesAreRefused) {
    EXPECT_FALSE(RecuperarDatosBAPIs(Escribir("OTHER\r\n"), prueba.textos, prueba.vista));
    for (const char* malo : {"", "BAPIDEFS\r\n2 BAPI_X\r\n", "BAPIDEFS\r\n1 Material\r\n3 text\r\n"}) {
        EXPECT_FALSE(RecuperarDatosBAPIs(Escribir(malo), prueba.textos, prueba.vista)) << malo;
    }
    EXPECT_TRUE(RecuperarDatosBAPIs(Escribir(" bapidefs \n"), prueba.textos, prueba.vista));
    const std::string nombre = RutaDelModelo(directorio / "catalogue");
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<440> <382> " + nombre + " <382> " + nombre + " <382> " + nombre);
}

TEST_F(PruebaDeBAPI, SearchStopsAtEachHit) {
    const auto cargado = RecuperarDatosBAPIs(Escribir(catalogo), prueba.textos, prueba.vista);
    BusquedaBAPI busqueda(*cargado);
    const auto hallazgos = [&](const char* texto, ModoDeBusqueda modo) {
        busqueda.Empezar(texto, modo);
        std::string nombres;
        while (const auto nodo = busqueda.Siguiente()) nombres += cargado->nodos[*nodo].texto + " ";
        return nombres;
    };
    EXPECT_EQ(hallazgos("MAT", ModoDeBusqueda::SubCadena), "Material BAPI_MAT_SAVE ");
    EXPECT_EQ(hallazgos("MATERIAL COMMIT", ModoDeBusqueda::Palabras), "BAPI_MAT_SAVE ");
    EXPECT_EQ(hallazgos("MATERIAL", ModoDeBusqueda::Palabras), "BAPI_MAT_SAVE BAPI_ORDER ");
    EXPECT_EQ(hallazgos("  ", ModoDeBusqueda::SubCadena), "");
    std::string muchas;
    for (int i = 0; i < 120; ++i) muchas += "W" + std::to_string(i) + " ";
    EXPECT_EQ(SepararBuscar(muchas).size(), 100u);
    EXPECT_EQ(SepararBuscar(muchas).back(), "W119");
}

TEST_F(PruebaDeBAPI, InsertionWritesRowsDeclarationsAndCall) {
    ASSERT_EQ(Elegir("BAPI_MAT_SAVE"), ResultadoInsercion::Hecho);
    EXPECT_EQ(
        prueba.FilasTransaccion(),
        (std::vector<std::string>{"BAPI|BAPI_MAT_SAVE", "||HEAD-MATERIAL|MATERIAL", "||HEAD-SECTOR|SECTOR", "||TESTRUN|TESTRUN",
                                  "||TEXTS-LANGU(+)|LANGU|!1 1!2!30!4!50!61!7", "||TEXTS-TEXT(+)|TEXT"}));
    const std::string rayas = "*" + std::string(69, '-') + "*\r\n";
    EXPECT_EQ(ventana.documento.especificacion.VariablesGlobales,
              rayas + "*   BAPI_MAT_SAVE STRUCTURES" + std::string(42, ' ') + "*\r\n" + rayas +
                  "\r\n"
                  "DATA: HEAD LIKE BAPIMATHEAD.\r\nDATA: TESTRUN LIKE BAPIE1-TEST.\r\n"
                  "DATA: RETURN LIKE BAPIRET2.\r\n"
                  "DATA: TEXTS LIKE BAPI_MAKT\r\n      OCCURS 0 WITH HEADER LINE.\r\n");
    EXPECT_EQ(ventana.documento.especificacion.TablaBAPIs[0].llamada,
              "CALL FUNCTION 'BAPI_MAT_SAVE'\r\n     EXPORTING\r\n       HEAD = HEAD\r\n       TESTRUN = TESTRUN\r\n"
              "     IMPORTING\r\n       RETURN = RETURN\r\n     TABLES\r\n       TEXTS = TEXTS.");
    EXPECT_TRUE(ventana.documento.HayCambios() && !ventana.documento.deshacer.Vacia());
}

TEST_F(PruebaDeBAPI, SecondInsertionGivesRowsOnly) {
    Elegir("BAPI_MAT_SAVE");
    const auto antes = ventana.documento.especificacion.VariablesGlobales;
    EXPECT_EQ(Elegir("BAPI_MAT_SAVE"), ResultadoInsercion::Cancelado);  // the question is not answered
    prueba.vista.respuestas = {Respuesta::Si};
    EXPECT_EQ(Elegir("BAPI_MAT_SAVE"), ResultadoInsercion::Hecho);
    EXPECT_EQ(ventana.documento.especificacion.VariablesGlobales, antes);
    EXPECT_EQ(prueba.FilaTransaccion(7), "||HEAD-MATERIAL|MATERIAL");
    EXPECT_EQ(prueba.FilaTransaccion(10), "||TEXTS-LANGU(+)|LANGU1|!1 1!2!30!4!50!61!7");
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<383> <383>");
}

TEST_F(PruebaDeBAPI, VariablesAreSharedByTypeAndNumberedByName) {
    Elegir("BAPI_MAT_SAVE");
    ASSERT_EQ(Elegir("BAPI_ORDER"), ResultadoInsercion::Hecho);
    EXPECT_TRUE(Contiene(ventana.documento.especificacion.VariablesGlobales, "DATA: HEAD1 LIKE BAPISDHD."));
    EXPECT_EQ(ventana.documento.especificacion.TablaBAPIs[1].llamada,
              "CALL FUNCTION 'BAPI_ORDER'\r\n     EXPORTING\r\n       HEAD = HEAD1\r\n     TABLES\r\n       TEXTS = TEXTS.");
    EXPECT_EQ(prueba.FilaTransaccion(7), "||HEAD1-MATERIAL|MATERIAL");
}

TEST_F(PruebaDeBAPI, MandatoryOnlyDefinitionOnlyAndRefusals) {
    EXPECT_EQ(Elegir("BAPI_MAT_SAVE", false, std::nullopt), ResultadoInsercion::Cancelado);
    EXPECT_TRUE(prueba.FilasTransaccion().empty() && ventana.documento.especificacion.TablaBAPIs[0].nombre.empty());

    EXPECT_EQ(Elegir("BAPI_MAT_SAVE", false, false), ResultadoInsercion::Hecho);
    EXPECT_EQ(prueba.FilasTransaccion(),
              (std::vector<std::string>{"BAPI|BAPI_MAT_SAVE", "||HEAD-MATERIAL|MATERIAL", "||HEAD-SECTOR|SECTOR"}));
    EXPECT_TRUE(Contiene(ventana.documento.especificacion.TablaBAPIs[0].llamada, "TEXTS = TEXTS."));

    EXPECT_EQ(Elegir("BAPI_ORDER", true), ResultadoInsercion::Hecho);
    EXPECT_EQ(prueba.FilasTransaccion().size(), 3u);
    EXPECT_EQ(Elegir("BAPI_ORDER", true), ResultadoInsercion::Detenido);
    EXPECT_EQ(Elegir("BAPI_BAD"), ResultadoInsercion::Detenido);
    // A parameter that the call text doesn't pass.
    ventana.documento.especificacion.TablaBAPIs[0].llamada = "CALL FUNCTION 'BAPI_MAT_SAVE'.";
    prueba.vista.respuestas = {Respuesta::Si};
    EXPECT_EQ(Elegir("BAPI_MAT_SAVE"), ResultadoInsercion::Detenido);
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<389> <401> <383> <394>");
}

// Catalogues that no system writes end in a message, and never in silence or a loop.
TEST_F(PruebaDeBAPI, OddParametersEndTheInsertion) {
    const struct {
        const char* parametro;
        const char* variables;
        const char* avisos;
    } casos[] = {
        {"4 Z-Y::I:S", "DATA: Z,", "<382>"},  // no number behind the "-" makes the name free
        {"4 ::I:S", "", "<394>"},
        {"4 A::I", "", ""},
    };
    for (const auto& caso : casos) {
        VentanaDePrueba otra;
        otra.ventana.documento.especificacion.VariablesGlobales = caso.variables;
        const auto archivo = Escribir("BAPIDEFS\r\n1 M\r\n2 BAPI_ODD\r\n" + std::string(caso.parametro) + "\r\n");
        ElegirBAPI(
            otra.documento, archivo, "BAPI_ODD", false, 0, [] { return std::optional(true); }, otra.textos, otra.vista);
        EXPECT_EQ(otra.vista.TomarAvisos(), caso.avisos) << caso.parametro;
        EXPECT_FALSE(Contiene(otra.ventana.documento.especificacion.VariablesGlobales, "DATA:  LIKE")) << caso.parametro;
    }
}

TEST_F(PruebaDeBAPI, RowsEndAtRow1000) {
    prueba.LlenarTransaccion(997);
    ASSERT_EQ(Elegir("BAPI_MAT_SAVE"), ResultadoInsercion::Hecho);
    EXPECT_EQ(prueba.FilaTransaccion(1000), "||HEAD-SECTOR|SECTOR");
    EXPECT_EQ(prueba.FilaTransaccion(1001), "");
    EXPECT_TRUE(Contiene(ventana.documento.especificacion.TablaBAPIs[0].llamada, "TEXTS = TEXTS."));
}

// An update from a practice system: the list first, then one call for each BAPI.
struct PruebaDeActualizacion : PruebaDeBAPI {
    static constexpr const char* suyo =
        "BAPIDEFS\r\n0 46C\r\n1 A\r\n2 BAPI_A1\r\n3 a1\r\n4 P::I:T-F\r\n1 B\r\n2 BAPI_B1\r\n3 b1\r\n2 BAPI_B2\r\n3 b2\r\n";
    SesionDePractica practica{suyo};
    std::filesystem::path ArchivoBAPI = Escribir(catalogo);
    int detenerEn = -1;  // notice at which the user stops
    int avisos = 0;

    ResultadoActualizacion Actualizar(SesionSAP& sesion, std::initializer_list<Respuesta> respuestas = {Respuesta::Si}) {
        prueba.vista.respuestas.assign(respuestas);
        return ActualizarCatalogo({sesion, prueba.textos, prueba.vista, directorio.Ruta(), ArchivoBAPI, [](bool) {},
                                   [&](int) { return avisos++ != detenerEn; }});
    }

    std::vector<std::string> Archivos() const {
        std::vector<std::string> nombres;
        for (const auto& entrada : std::filesystem::directory_iterator(directorio.Ruta())) {
            nombres.push_back(entrada.path().extension() == ".bap" ? "partial" : entrada.path().filename().string());
        }
        std::sort(nombres.begin(), nombres.end());
        return nombres;
    }
};

TEST_F(PruebaDeActualizacion, StoppedRunGoesOnAtItsLastBAPI) {
    const auto anterior = ArchivoBAPI;
    detenerEn = 0;  // behind "2 BAPI_A1"
    EXPECT_EQ(Actualizar(practica.sesion), ResultadoActualizacion::Detenida);
    EXPECT_EQ(Archivos(), (std::vector<std::string>{"catalogue", "partial"}));
    EXPECT_EQ(ArchivoBAPI, anterior);
    for (const auto& entrada : std::filesystem::directory_iterator(directorio.Ruta())) {
        // The last BAPI may be incomplete; what stands in front of it is kept as it is.
        if (entrada.path().extension() == ".bap") {
            directorio.Escribir(entrada.path().filename().string(),
                                "BAPIDEFS\r\n0 46C\r\n1 0\r\n2 BAPI_0\r\n3 kept\r\n1 A\r\n2 BAPI_A1\r\n3 a");
        }
    }
    EXPECT_EQ(Actualizar(practica.sesion, {Respuesta::Si, Respuesta::Si}), ResultadoActualizacion::Hecha);
    EXPECT_EQ(ArchivoBAPI.filename(), "BAPI46C");
    EXPECT_EQ(LeerArchivo(ArchivoBAPI), ReemplazarTodo(suyo, "1 A", "1 0\r\n2 BAPI_0\r\n3 kept\r\n1 A"));
    EXPECT_EQ(Archivos().size(), 2u);
}

TEST_F(PruebaDeActualizacion, FailuresLeaveTheCatalogueInUse) {
    const auto anterior = ArchivoBAPI;
    const auto guion = std::make_shared<Guion>();
    SesionSAP conFallos = SesionConectada(guion);
    for (const int fallaEn : {0, 1, 2}) {
        guion->llamadas.clear();
        if (fallaEn > 0) guion->Responder({"0 46C", "1 A", "2 BAPI_A1", "2 BAPI_A2", "END"});
        if (fallaEn > 1) guion->Responder({"3 a1", "END"});
        guion->Fallar();
        EXPECT_EQ(Actualizar(conFallos), ResultadoActualizacion::Fallida) << fallaEn;
        EXPECT_EQ(Archivos(), (std::vector<std::string>{"catalogue"})) << fallaEn;
        EXPECT_EQ(ArchivoBAPI, anterior);
    }
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<255> <441> <255> <441> <255> <441>");

    // A partial file whose last BAPI the system no longer has, and one of another release. Then a system without BAPIs.
    Escribir("BAPIDEFS\r\n0 46C\r\n1 Z\r\n2 BAPI_GONE\r\n", "20050301_101010.bap");
    EXPECT_EQ(Actualizar(practica.sesion, {Respuesta::Si, Respuesta::Si}), ResultadoActualizacion::Fallida);
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<255> <256> 2005-03-01. <257> <258>");
    Escribir("BAPIDEFS\r\n0 31H\r\n", "20050301_101010.bap");
    SesionDePractica vacia;
    EXPECT_EQ(Actualizar(vacia.sesion), ResultadoActualizacion::Fallida);
    EXPECT_EQ(prueba.vista.TomarAvisos(),
              "<255> <441>\r\nThe practice system has no BAPIs, since there is no catalogue that could fill it.");
    EXPECT_EQ(Archivos(), (std::vector<std::string>{"catalogue"}));
    EXPECT_EQ(LeerArchivo(anterior), catalogo);
}

}  // namespace
}  // namespace qor::pruebas
