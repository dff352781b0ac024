#include <gmock/gmock.h>

#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "model/cells.h"
#include "sap/widths.h"
#include "tests/support/left_out_on_windows.h"
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

// ---- In a system ----

const std::string anchosDelSistema = Linea("MARA", "MATNR", "", "000018") + "\r\n" + Linea("RMMG1", "MTART", "", "4") + "\r\n";

TEST(Widths, TheAnswerCompletesTheFile) {
    SesionDePractica practica({}, anchosDelSistema);
    Anchos anchos;
    const std::string antes = Linea("MARA", "MATNR", "MATNR", "999999") + "\r\nMARA\r\n" + Linea("bdcdata", "fnam", "") + "\r\n" +
                              Linea("BDCDATA", "FNAM", "'C'") + "\r\n" + Linea(std::string(30, 'T'), std::string(30, 'F'), "C");
    anchos.archivo = RutaDelModelo(anchos.directorio.Escribir("fields", antes));
    EXPECT_TRUE(ObtenerAnchos(practica.sesion, anchos.archivo));
    EXPECT_THAT(anchos.Lineas(), ElementsAre(Linea("MARA", "MATNR", "MATNR", "000018"), Linea("MARA", "", "", "000000"),
                                             Linea("bdcdata", "fnam", "", "000000"), Linea("BDCDATA", "FNAM", "'C'", "000132"),
                                             Linea(std::string(30, 'T'), std::string(30, 'F'), "C", "000000")));
    EXPECT_FALSE(ObtenerAnchos(practica.sesion, "/nowhere/fields"));
    // A short answer leaves the lines behind it out.
    const auto guion = std::make_shared<Guion>();
    SesionSAP sesion = SesionConectada(guion);
    guion->Responder({"000007"});
    EXPECT_TRUE(ObtenerAnchos(sesion, anchos.archivo));
    EXPECT_THAT(anchos.Lineas(), ElementsAre(Linea("MARA", "MATNR", "MATNR", "000007")));
}

#ifndef LEFT_OUT_Widths_OnLineTheWholeWayIsOneStep
TEST(Widths, OnLineTheWholeWayIsOneStep) {
    SesionDePractica practica({}, anchosDelSistema);
    auto& prueba = practica.prueba;
    prueba.Archivo({"MATNR", "OTHER", "MTART"});
    prueba.Transaccion({"TRANS|MM01", "||MARA-MATNR|MATNR", "||MARA-NOFIELD|OTHER", "||RMMG1-MTART|MTART"});
    EXPECT_TRUE(ButtonOnlineAnchos(prueba.documento, practica.sesion, prueba.textos, prueba.vista));
    EXPECT_EQ(prueba.vista.TomarAvisos(), "");
    EXPECT_THAT(prueba.FilasArchivo(), ElementsAre("MATNR|18", "OTHER", "MTART|4"));
    EXPECT_TRUE(std::filesystem::is_empty(practica.temporal));

    // The file of a failed look-up stays, as it was asked.
    std::filesystem::remove(practica.opciones.archivo);
    EXPECT_FALSE(ButtonOnlineAnchos(prueba.documento, practica.sesion, prueba.textos, prueba.vista));
    EXPECT_THAT(prueba.vista.TomarAvisos(), testing::StartsWith("<415>\r\nThe file of the practice system is gone\r\n"));
    EXPECT_TRUE(LeerArchivo(std::filesystem::directory_iterator(practica.temporal)->path())
                    .starts_with(Linea("MARA", "MATNR", "MATNR") + "\r\n"));
}
#endif

}  // namespace
}  // namespace qor
