#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "model/cells.h"
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

std::string Linea(std::string tabla, std::string campo, std::string valor, const std::string& largo = "") {
    for (auto* columna : {&tabla, &campo, &valor}) columna->resize(30, ' ');
    return tabla + campo + valor + largo;
}

struct Anchos {
    VentanaDePrueba prueba;
    DirectorioTemporal directorio;
    std::string archivo = RutaDelModelo(directorio / "fields");

    bool Generar() { return GenerarInfoCampos(prueba.ventana.documento, archivo, false, prueba.textos, prueba.vista); }
    std::vector<std::string> Lineas() const {
        const std::string texto = LeerArchivo(RutaDelSistema(archivo));
        const auto lineas = PartirEnLineas(texto);
        return {lineas.begin(), lineas.end()};
    }
    std::string Avisos() { return prueba.vista.TomarAvisos(); }
};

TEST(Widths, TheFileAsksForEveryMappedField) {
    Anchos anchos;
    anchos.prueba.ventana.documento.especificacion.VariablesGlobales =
        "DATA: HEADER LIKE BAPISDHD1,\r\nDATA: ITEM LIKE BAPIITEM.\r\nDATA: DOC LIKE  BAPIVBELN-VBELN .\r\nDATA: TEST LIKE "
        "BAPIFLAG-A-B,";
    anchos.prueba.Transaccion({"||EARLY-A|X", "TRANS|MM01", "SAPLMGMM|0060", "||RMMG1-MATNR|MATNR", "||NOREF|Y",
                               "||MARC-DISPO(03)|'CONST'", "||VBAP-MATNR;COND|Z", "BAPI|BAPI_X", "||HEADER-DOC_TYPE|AUART",
                               "||ITEM-QTY (+)|QTY", "||UNKNOWN-F|F", "||DOC|DOCNO", "||TEST|FLAG", "TRANS|VA01", "||HEADER-A|A"});
    auto& tabla = anchos.prueba.ventana.documento.especificacion.TablaTransaccion;
    tabla[20] = {"", "", "BEHIND-A GAP OF BLANK ROWS THAT IS TOO LONG", "", ""};
    tabla[1000] = {"", "", "LAST-ROW", std::string(40, 'V'), ""};
    EXPECT_TRUE(anchos.Generar());
    EXPECT_EQ(anchos.Avisos(), "<327>");
    EXPECT_THAT(anchos.Lineas(),
                ElementsAre(Linea("EARLY", "A", "X"), Linea("RMMG1", "MATNR", "MATNR"), Linea("MARC", "DISPO", "'CONST'"),
                            Linea("VBAP", "MATNR;COND", "Z"), Linea("BAPISDHD1", "DOC_TYPE", "AUART"),
                            Linea("BAPIITEM", "QTY ", "QTY"), Linea("", "F", "F"), Linea("BAPIVBELN", "VBELN ", "DOCNO"),
                            Linea("BAPIFLAG", "A-B", "FLAG"), Linea("HEADER", "A", "A"),
                            Linea("BEHIND", "A GAP OF BLANK ROWS THAT IS TO", ""), Linea("LAST", "ROW", std::string(30, 'V'))));
}

TEST(Widths, AScalarParameterWithoutAFieldStopsTheFile) {
    for (const char* definiciones : {"", "DATA: DOC LIKE BAPIDOC.", "DATA: DOCX LIKE A-B."}) {
        Anchos anchos;
        anchos.prueba.ventana.documento.especificacion.VariablesGlobales = definiciones;
        anchos.prueba.Transaccion({"TRANS|MM01", "||A-B|X", "BAPI|BAPI_X", "||DOC|D", "||A-B|X"});
        EXPECT_FALSE(anchos.Generar());
        EXPECT_EQ(anchos.Avisos(), "<328>");
        EXPECT_THAT(anchos.Lineas(), ElementsAre(Linea("A", "B", "X")));  // the lines written so far
    }
    Anchos sinLugar;
    sinLugar.archivo = RutaDelModelo(sinLugar.directorio.Ruta());
    EXPECT_FALSE(sinLugar.Generar());
    EXPECT_EQ(sinLugar.Avisos(), "<328>");
}

TEST(Widths, LengthsFillEmptyWidthsOnly) {
    Anchos anchos;
    anchos.prueba.Archivo({"MATNR", "MBRSH|9", "MAKTX| ", " MATNR2", "QTY", "", "BEHIND"});
    anchos.archivo = RutaDelModelo(anchos.directorio.Escribir(
        "fields", Linea("A", "B", "MATNR", "000018") + "\n" + Linea("A", "B", "MATNR", "000040") + "\r\n" +
                      Linea("A", "B", "MBRSH", "000001") + "\r" + Linea("A", "B", "MAKTX", "40    text") + "\n" +
                      Linea("A", "B", "MATNR2", "0") + "\n\nshort\n" + Linea("A", "B", "QTY", "-5") + "\n" +
                      Linea("A", "B", "QTY") + "\n" + Linea("A", "B", "", "7") + "\n" + Linea("A", "B", "BEHIND", "7")));
    EXPECT_TRUE(ImportInfo(anchos.prueba.documento, anchos.archivo, anchos.prueba.textos, anchos.prueba.vista));
    EXPECT_THAT(anchos.prueba.FilasArchivo(), ElementsAre("MATNR|18", "MBRSH|9", "MAKTX|40", "MATNR2", "QTY", "", "BEHIND"));
    EXPECT_TRUE(anchos.prueba.documento.HayCambios() && anchos.prueba.documento.deshacer.Vacia());
    EXPECT_FALSE(ImportInfo(anchos.prueba.documento, "/nowhere/fields", anchos.prueba.textos, anchos.prueba.vista));
    EXPECT_EQ(anchos.Avisos(), "<328>");
}

TEST(Widths, TheAnswerCompletesTheFile) {
    Anchos anchos;
    const auto guion = std::make_shared<Guion>();
    SesionSAP sesion = SesionConectada(guion);
    const std::string antes = Linea("MARA", "MATNR", "MATNR", "999999") + "\r\nMARA\r\n" + Linea("A", "B", "C");
    anchos.archivo = RutaDelModelo(anchos.directorio.Escribir("fields", antes));
    EXPECT_FALSE(ObtenerAnchos(sesion, anchos.archivo));
    EXPECT_EQ(LeerArchivo(RutaDelSistema(anchos.archivo)), antes);  // a failed call leaves it
    guion->Responder({"000018", "000000"});
    EXPECT_TRUE(ObtenerAnchos(sesion, anchos.archivo));
    EXPECT_THAT(anchos.Lineas(), ElementsAre(Linea("MARA", "MATNR", "MATNR", "000018"), Linea("MARA", "", "", "000000")));
    EXPECT_FALSE(ObtenerAnchos(sesion, "/nowhere/fields"));
}

TEST(Widths, OnLineTheWholeWayIsOneStep) {
    Anchos anchos;
    const auto guion = std::make_shared<Guion>();
    SesionSAP sesion = SesionConectada(guion);
    sesion.DirectorioTemporal = RutaDelModelo(anchos.directorio.Ruta());
    anchos.prueba.Archivo({"MATNR", "OTHER"});
    anchos.prueba.Transaccion({"TRANS|MM01", "||MARA-MATNR|MATNR", "||MARA-NOFIELD|OTHER"});
    guion->ultimoError = "no authorization";
    ButtonOnlineAnchos(anchos.prueba.documento, sesion, anchos.prueba.textos, anchos.prueba.vista);
    EXPECT_EQ(anchos.Avisos(), "<415>\r\nno authorization");
    EXPECT_FALSE(std::filesystem::is_empty(anchos.directorio.Ruta()));  // the file of a failed look-up stays
    std::filesystem::remove(*std::filesystem::directory_iterator(anchos.directorio.Ruta()));

    guion->Responder({"000018", "000000"});
    ButtonOnlineAnchos(anchos.prueba.documento, sesion, anchos.prueba.textos, anchos.prueba.vista);
    EXPECT_EQ(anchos.Avisos(), "");
    EXPECT_THAT(anchos.prueba.FilasArchivo(), ElementsAre("MATNR|18", "OTHER"));
    EXPECT_TRUE(std::filesystem::is_empty(anchos.directorio.Ruta()));
}

}  // namespace
}  // namespace qor
