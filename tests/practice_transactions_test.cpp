#include <gmock/gmock.h>

#include "practice/bapi_calls.h"
#include "practice/conversion_exits.h"
#include "practice/messages.h"
#include "practice/recording_reader.h"
#include "practice/transactions.h"
#include "tests/support/practice_fixture.h"
#include "tests/support/temporary_directory.h"

namespace qor {
namespace {

using pruebas::AgregarFila;
using pruebas::FalloFijo;
using pruebas::FilasDe;
using pruebas::HacerEstructura;
using pruebas::HacerTabla;
using pruebas::LlamadaDePrueba;
using pruebas::OyenteQueApunta;
using ::testing::ElementsAre;

constexpr std::string_view grabacion =
    "perform bdc_dynpro      using 'SAPLMGMM' '0060'.\n"
    "perform bdc_field       using 'RMMG1-MATNR'\n  'QR-1000'.\n"
    "perform bdc_field       using 'RMMG1-MTART'\n  'HAWA'.\n"
    "perform bdc_dynpro      using 'SAPLMGMM' '0070'.\n"
    "perform bdc_field       using 'MSICHTAUSW-KZSEL(01)'\n  'X'.\n"
    "perform bdc_dynpro      using 'SAPLMGMM' '0060'.\n"
    "perform bdc_field       using 'MARA-DATE'\n  '01.01.2001'.\n"
    "perform bdc_transaction using 'MM01'.\n"
    "perform bdc_dynpro      using 'SAPMF02K' '0100'.\n"
    "perform bdc_transaction using 'XK01'.\n";

abap::Estructura EstructuraBDC() {
    return HacerEstructura("BDCDATA",
                           {{"PROGRAM", 40}, {"DYNPRO", 4, abap::Tipo::N}, {"DYNBEGIN", 1}, {"FNAM", 132}, {"FVAL", 132}});
}

std::optional<abap::TipoDeCampo> TipoConocido(std::string_view campo) {
    if (campo == "RMMG1-MATNR") return abap::TipoDeCampo{abap::Tipo::C, 4, 0, nullptr};
    if (campo == "MARA-DATE") return abap::TipoDeCampo{abap::Tipo::D, 8, 0, nullptr};
    if (campo == "KONP-KBETR") return abap::TipoDeCampo{abap::Tipo::P, 6, 2, nullptr};
    return std::nullopt;
}

struct FilaDePrueba {
    std::string_view programa, dynpro, abre, campo, valor;
};
FilaDePrueba Pantalla(std::string_view dynpro, std::string_view programa = "SAPLMGMM") { return {programa, dynpro, "X", "", ""}; }
FilaDePrueba Campo(std::string_view nombre, std::string_view valor) { return {"", "", "", nombre, valor}; }

class Practica {
public:
    Practica() { grabaciones.Agregar(grabacion); }

    std::string Probar(const char* codigo, const std::vector<FilaDePrueba>& filas) {
        auto tabla = HacerTabla(estructura);
        for (const auto& fila : filas) AgregarFila(tabla, {fila.programa, fila.dynpro, fila.abre, fila.campo, fila.valor});
        ultima = transacciones.Llamar(codigo, tabla, 'N', 'S');
        return oyente.dichos.back();
    }

    struct ConListas : pruebas::DirectorioTemporal {
        ConListas() {
            Escribir("values/mtart.txt", "HAWA  \r\nROH\r\n");
            Escribir("values/MARA-WAERS.TXT", "EUR\n");
            Escribir("values/waers.txt", "USD\n");
        }
    } carpeta;
    abap::Estructura estructura = EstructuraBDC();
    OyenteQueApunta oyente;
    FalloFijo fallos;
    Grabaciones grabaciones;
    ListasDeValores listas{carpeta / "values", [this](const std::string& nombre, const std::string&) { oyente.Aviso(nombre); }};
    ProbadorDeTransacciones probador{grabaciones, listas, TipoConocido};
    TransaccionesDePractica transacciones{probador, fallos, oyente, [this] { ++confirmadas; }};
    int confirmadas = 0;
    abap::ResultadoDeTransaccion ultima;
};

TEST(PracticeTransactions, FailAtTheFirstThingThatIsWrong) {
    struct Caso {
        const char* codigo;
        std::vector<FilaDePrueba> filas;
        const char* dicho;
    };
    const auto a = Pantalla("0060");
    const Caso casos[] = {
        {"MM01", {}, "call MM01 0 rows||||: E 00 344 No batch input data for screen"},
        {"MM01", {Campo("NONE", "")}, "call MM01 1 rows||||: E 00 344 No batch input data for screen 0000"},
        {"MM01",
         {a, {"SAPLMGMM", "0070", "X", "F", ""}},
         "call MM01 2 rows|SAPLMGMM|0070||: E 00 344 No batch input data for screen SAPLMGMM 0070"},
        {"MM01", {a, Campo("", "v")}, "call MM01 2 rows|SAPLMGMM|0060||: E 00 344 No batch input data for screen SAPLMGMM 0060"},
        {"MM01", {a, Pantalla("0080")}, "call MM01 2 rows|SAPLMGMM|0080||: E 00 344 No batch input data for screen SAPLMGMM 0080"},
        {"MM01",
         {a, Campo("RMMG1-X(03)", "v")},
         "call MM01 2 rows|SAPLMGMM|0060|RMMG1-X(03)|v: E 00 349 Field RMMG1-X(03) does not exist in the screen SAPLMGMM 0060"},
        {"MM01",
         {a, Campo("MSICHTAUSW-KZSEL(01)", "")},
         "call MM01 2 rows|SAPLMGMM|0060|MSICHTAUSW-KZSEL(01)|: E 00 349 Field MSICHTAUSW-KZSEL(01) does not exist in the screen "
         "SAPLMGMM 0060"},
        {"MM01", {Pantalla("0070"), Campo("MSICHTAUSW-KZSEL(17)", "X")}, "call MM01 2 rows: S 00 355 Transaction was processed"},
        // A field that two recordings of one screen share out is on that screen; each field goes through all its checks.
        {"MM01",
         {a, Campo("MARA-DATE", "31.12.2001"), Campo("RMMG1-MTART", "ROHX"), Campo("NONE", "")},
         "call MM01 4 rows|SAPLMGMM|0060|RMMG1-MTART|ROHX: E 00 058 Entry ROHX does not exist"},
        {"MM01",
         {a, Campo("RMMG1-MATNR", "12345"), Campo("NONE", "")},
         "call MM01 3 rows|SAPLMGMM|0060|RMMG1-MATNR|12345: E 00 352 Formatting error in the field RMMG1-MATNR"},
        {"mm01",
         {a, Campo("RMMG1-MATNR", "/"), Campo("RMMG1-MTART", ""), Campo("BDC_OKCODE", "/00"), Campo("BDC_CURSOR", "NONE")},
         "call mm01 5 rows: S 00 355 Transaction was processed"},
        // Without a recording screens and fields are taken as they come, and values still checked.
        {"ZZ",
         {Pantalla("1"), Campo("KONP-KBETR", "-123456789012.3")},
         "call ZZ 2 rows|SAPLMGMM|0001|KONP-KBETR|-123456789012.3: E 00 352 Formatting error in the field KONP-KBETR"},
        {"ZZ",
         {Pantalla("1"), Campo("KONP-KBETR", "-1234567890.12"), Campo("MARA-WAERS(2)", "EUR")},
         "call ZZ 3 rows: S 00 355 Transaction was processed"},
        {"ZZ",
         {Pantalla("1"), Campo("MARA-WAERS(2)", "USD")},
         "call ZZ 2 rows|SAPLMGMM|0001|MARA-WAERS(2)|USD: E 00 058 Entry USD does not exist"},
        {"ZZ",
         {Pantalla("1"), Campo("T-MTART", " ROH")},
         "call ZZ 2 rows|SAPLMGMM|0001|T-MTART| ROH: E 00 058 Entry ROH does not exist"},
    };
    Practica practica;
    // Twice: the second time all names have been met.
    for (int vuelta = 0; vuelta < 2; ++vuelta) {
        for (const auto& caso : casos) {
            EXPECT_EQ(practica.Probar(caso.codigo, caso.filas), caso.dicho);
            const bool fallo = std::string_view(caso.dicho).find(": E ") != std::string_view::npos;
            EXPECT_EQ(practica.ultima.subrc, fallo ? 1001 : 0);
            ASSERT_EQ(practica.ultima.mensajes.size(), 1U);
        }
    }
    EXPECT_EQ(practica.confirmadas, static_cast<int>(2 * std::size(casos)));
}

TEST(PracticeTransactions, FailWhereTheyWereAskedTo) {
    Practica practica;
    practica.fallos.pedido = FalloPedido{'A', std::string(48, 'a') + "b  c" + std::string(200, 'd')};
    const auto uno = Pantalla("0060");
    EXPECT_EQ(practica.Probar("MM01", {uno, Pantalla("0070"), Campo("NONE", "")}),
              "call MM01 3 rows|SAPLMGMM|0070||: E QP 001 " + std::string(48, 'a') + "b c" + std::string(148, 'd'));
    EXPECT_THAT(practica.ultima.mensajes[0].variables,
                ElementsAre(std::string(48, 'a') + "b", " c" + std::string(48, 'd'), std::string(50, 'd'), std::string(50, 'd')));
    // What is wrong before the last screen comes first.
    EXPECT_THAT(practica.Probar("MM01", {uno, Campo("NONE", ""), Pantalla("0070")}), ::testing::HasSubstr("00 349"));
    EXPECT_THAT(practica.Probar("MM01", {uno, Pantalla("0099")}), ::testing::HasSubstr("00 344"));
}

std::string Registro(std::string programa, std::string dynpro, char clase, std::string campo, const std::string& valor) {
    programa.resize(40, ' ');
    campo.resize(132, ' ');
    return programa + dynpro + clase + campo + valor + "\r\n";
}

std::string Leidas(const std::string& texto) {
    std::string filas;
    LeerGrabacion(texto, [&](const TransaccionLeida& transaccion) {
        filas += "/" + transaccion.codigo;
        for (const auto& fila : transaccion.filas) {
            filas += (fila.abre ? " X " : " ") + fila.programa + fila.dynpro + fila.campo + "=" + fila.valor;
        }
    });
    return filas;
}

TEST(Recordings, HaveTheSameRowsInBothForms) {
    const std::string subpantalla = "SAPLMGMM" + std::string(32, ' ') + "2004TABFRA1";
    const std::string comoTexto =
        "perform bdc_dynpro using 'saplmgmm' '0060'.\nperform bdc_field using 'rmmg1-matnr'\n 'Part a'.\n"
        "perform bdc_field using 'BDC_SUBSCR'\n 'SAPLMGMM" +
        std::string(32, ' ') +
        "'\n & '2004TABFRA1'.\n"
        "perform bdc_field using 'EMPTY'\n ''.\nperform bdc_transaction using 'mm01'.\n"
        "perform bdc_dynpro using 'P' '0100'.\nperform bdc_transaction using 'MM02'.\n";
    const std::string comoSesion = Registro("", "0000", 'M', "GROUP", "") + Registro("", "0000", 'T', "mm01", "") +
                                   Registro("saplmgmm", "0060", 'X', "", "") + Registro("", "0000", ' ', "rmmg1-matnr", "Part a") +
                                   Registro("", "0000", ' ', "BDC_SUBSCR", subpantalla) + Registro("", "0000", ' ', "EMPTY", "") +
                                   Registro("", "0000", 'T', "MM02", "") + Registro("P", "0100", 'X', "", "");
    const std::string filas = "/MM01 X SAPLMGMM0060= RMMG1-MATNR=Part a BDC_SUBSCR=" + subpantalla + " EMPTY=/MM02 X P0100=";
    EXPECT_EQ(Leidas(comoTexto), filas);
    EXPECT_EQ(Leidas(comoSesion), filas);
}

TEST(Recordings, AreOfAnyLength) {
    std::string sesion = Registro("", "0000", 'M', "GROUP", "");
    for (int i = 0; i < 900; ++i) {
        sesion += Registro("", "0000", 'T', "VA0" + std::to_string(i % 3), "") + Registro("SAPMV45A", "0101", 'X', "", "") +
                  Registro("", "0000", ' ', "F" + std::to_string(i) + "(02)", "v");
    }
    std::string larga = "perform bdc_dynpro using 'P' '10'.\n";
    for (int i = 0; i < 3000; ++i) larga += "perform bdc_field using 'G" + std::to_string(i) + "'\n 'v'.\n";
    Grabaciones grabaciones;
    EXPECT_EQ(grabaciones.Agregar(sesion), 900);
    EXPECT_EQ(grabaciones.Agregar(larga + "perform bdc_transaction using 'LONG'.\n"), 1);
    EXPECT_EQ(grabaciones.Agregar("no recording\n"), 0);
    ASSERT_TRUE(grabaciones.Buscar("va02") && grabaciones.Buscar("LONG") && !grabaciones.Buscar("VA03"));
    const auto* const pantalla = grabaciones.Buscar("va02")->Buscar("SAPMV45A", "0101");
    EXPECT_TRUE(pantalla && pantalla->contains("F899") && !pantalla->contains("F898"));
    EXPECT_EQ(grabaciones.Buscar("LONG")->Buscar("P", "0010")->size(), 3000U);
}

TEST(PracticeBapis, AnswerInReturn) {
    const auto bapiret2 = HacerEstructura("BAPIRET2", {{"TYPE", 1}, {"ID", 20}, {"NUMBER", 3, abap::Tipo::N}, {"MESSAGE", 40}});
    const auto bapireturn = HacerEstructura("BAPIRETURN", {{"TYPE", 1}, {"CODE", 5}, {"MESSAGE", 40}});
    const auto cabeza = HacerEstructura("BAPIHEAD", {{"MATERIAL", 4}, {"MTART", 4}, {"COUNT", 3, abap::Tipo::N}});
    CatalogoDePractica catalogo(
        "BAPIDEFS\n1 Thing\n2 BAPI_X\n4 HEAD::I:BAPIHEAD\n4 HEADX:X:I:BAPIHEADX\n4 RETURN::T:BAPIRET2\n4 ITEMS::T:BAPIHEAD\n"
        "4 NUMBER::E:BAPIHEAD-MATERIAL\n");
    Practica practica;
    LlamadasDeBapi bapis(catalogo, practica.listas, practica.fallos, practica.oyente);

    struct Caso {
        std::string_view head;
        int items;
        std::optional<FalloPedido> pedido;
        const char* respuesta;
    };
    const Caso casos[] = {
        {"A1  HAWA000", 1, {}, "S00                  355Transaction was processed"},
        {"        000", 1, {}, "EQP                  001Parameter HEAD is missing or initial"},
        {"A1      001", 0, {}, "EQP                  001Parameter ITEMS is missing or initial"},
        {"A1  ROHX000", 1, FalloPedido{'A', "later"}, "EQP                  001Entry ROHX does not exist"},
        {"A1  ROH 000", 1, FalloPedido{'A', "a  text"}, "AQP                  001a  text"},
    };
    for (const auto& caso : casos) {
        practica.fallos.pedido = caso.pedido;
        auto items = HacerTabla(cabeza);
        for (int i = 0; i < caso.items; ++i) AgregarFila(items, {"A1", "ROH"});
        auto respuestas = HacerTabla(bapiret2);
        AgregarFila(respuestas, {"E"});
        AgregarFila(respuestas, {"E"});
        LlamadaDePrueba prueba("BAPI_X");
        prueba.Exporta("HEAD", caso.head).Exporta("HEADX", "X   X   000").Importa("NUMBER", "old");
        for (auto& parametro : prueba.llamada.exporta) {
            parametro.campo.tipo = abap::Tipo::Estructura;
            parametro.estructura = &cabeza;
        }
        prueba.ConTabla("ITEMS", items).ConTabla("RETURN", respuestas);
        bapis.Llamar(prueba.llamada);
        std::string esperada = caso.respuesta;
        esperada.resize(64, ' ');
        EXPECT_THAT(FilasDe(respuestas), ElementsAre(esperada));
        EXPECT_EQ(prueba.Valor("NUMBER"), "   ");
    }
    EXPECT_EQ(practica.oyente.dichos.back(), "BAPI_X failed: a  text");

    // What the catalogue does not have is checked by nothing, and a structure takes what it has names for.
    practica.fallos.pedido.reset();
    LlamadaDePrueba otra("BAPI_Y");
    otra.Importa("RETURN", std::string(46, '?'), &bapireturn);
    bapis.Llamar(otra.llamada);
    EXPECT_EQ(otra.Valor("RETURN"), "S00355Transaction was processed               ");
    EXPECT_EQ(practica.oyente.dichos.back(), "BAPI_Y: Transaction was processed");
}

TEST(PracticeValueLists, TellWhatTheyCannotRead) {
    pruebas::DirectorioTemporal carpeta;
    carpeta.Escribir("v/A-B.txt/inside", "");
    std::vector<std::string> avisos;
    ListasDeValores listas(carpeta / "v", [&](const std::string& nombre, const std::string& motivo) {
        avisos.push_back(nombre.substr(nombre.size() - 7) + ": " + motivo);
    });
    EXPECT_EQ(listas.Buscar("A-B"), nullptr);
    EXPECT_EQ(listas.Buscar("a-b(1)"), nullptr);
    EXPECT_THAT(avisos, ElementsAre("A-B.txt: Not a regular file"));
    ListasDeValores ninguna(carpeta / "none", [&](const std::string&, const std::string&) { ADD_FAILURE(); });
    EXPECT_FALSE(ninguna.HayAlguna());
}

TEST(PracticeConversionExits, KnowDigits) {
    struct Caso {
        const char* valor;
        const char* entra;
        const char* sale;
    };
    const Caso casos[] = {
        {" 42 ", "000042", "42"}, {"A4", "A4", "A4"}, {"", "", ""}, {"000", "000000", "0"}, {"00000042", "42", "42"}};
    for (const auto& caso : casos) {
        EXPECT_EQ(PonerCerosDelante(caso.valor, 6), caso.entra) << caso.valor;
        EXPECT_EQ(QuitarCerosDelante(caso.valor), caso.sale) << caso.valor;
    }
}

}  // namespace
}  // namespace qor
