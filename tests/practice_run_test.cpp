#include <gmock/gmock.h>

#include "abap/values/conversion.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "practice/journal.h"
#include "tests/support/failing_calls.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/qorgen_run.h"

namespace qor {
namespace {

using abap::Tipo;
using pruebas::DirectorioTemporal;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// ---- The journal ----

abap::Estructura Linea() {
    abap::Estructura linea;
    linea.nombre = "ZTAB";
    linea.Agregar("MANDT", {Tipo::C, 3});
    linea.Agregar("NUM", {Tipo::N, 5});
    linea.Agregar("TEXT", {Tipo::C, 10});
    linea.Agregar("COUNT", {Tipo::I, 4});
    linea.Agregar("AMOUNT", {Tipo::P, 5, 2});
    linea.Agregar("DAY", {Tipo::D, 8});
    linea.Agregar("RAW", {Tipo::X, 2});
    linea.Cerrar();
    return linea;
}

// A table of one line with values, and one of an initial line.
abap::TablaInterna Tabla(const abap::Estructura& linea) {
    abap::TablaInterna tabla({Tipo::Estructura, linea.largo, 0, &linea});
    for (int i = 0; i < 2; ++i) {
        tabla.Agregar();
        abap::PonerInicial(tabla.CampoDeFila(static_cast<std::size_t>(i)), &linea);
    }
    const auto poner = [&](const char* nombre, std::string_view texto) {
        abap::PonerTexto(texto, abap::CampoDeComponente(*linea.Buscar(nombre), tabla.Fila(0)));
    };
    poner("NUM", "42");
    poner("TEXT", "a\"\\\t\xe4\x80");
    poner("COUNT", "-7");
    poner("AMOUNT", "-12.5");
    poner("RAW", "0A");
    return tabla;
}

TEST(Journal, Events) {
    const auto linea = Linea();
    const auto tabla = Tabla(linea);
    const MensajeDicho bien{'S', "00", "355", "Transaction was processed"};
    const FilaDeBDC filas[] = {
        {"SAPLMGMM", "0060", true, "", ""}, {"", "", false, "RMMG1-MATNR", "A1"}, {"SAPLMGMM", "0070", true, "", ""}};
    const FilaDeBDC sinPantalla[] = {{"", "", false, "F", "v"}};
    abap::LlamadaAFuncion bapi;
    bapi.nombre = "BAPI_X";
    bapi.exporta = {{"HEAD", tabla.CampoDeFila(0), &linea, nullptr}, {"TEST", abap::CampoDe("  "), nullptr, nullptr}};
    auto deTabla = Tabla(linea);
    bapi.tablas = {{"RETURN", {}, &linea, &deTabla}};
    const std::vector<abap::ValorDeBase> fila = {"000", "00000", "x", std::int64_t{3}, "-12.50", "20260102", std::int64_t{10}};
    const DirectorioTemporal directorio;
    Diario diario(directorio / "j");
    diario.Transaccion(3, {"MM01", 'N', 'S', filas, 0, {&bien, 1}, {}});  // before the start, as INITIALIZATION can do it
    diario.Inicio("ZLOAD", {{"FILE", abap::CampoDe("c:\\data  "), nullptr}, {"OLD", abap::CampoDe(" "), nullptr}});
    diario.InsertaEnSesion(1, {"MM01", ' ', ' ', sinPantalla, 1001, {&bien, 1}, {}});
    diario.InsertaEnSesion(1, {"MM01", ' ', ' ', {}, 1001, {&bien, 1}, {}});
    diario.Bapi(2, {bapi, 0, false, {}});
    diario.Inserta(2, linea, fila);
    diario.Actualiza(2, "ZTAB", 0);
    diario.Mensaje(0, 'I', "Hello");
    diario.Volcado(4, {"CONVT_NO_NUMBER", "no", 212}, {"program", 17, 4});
    diario.Volcado(4, {"CONVT_NO_NUMBER", "no", 212}, {});
    diario.Terminar();
    EXPECT_EQ(LeerArchivo(directorio / "j"), LeerArchivo(QOR_TEST_SOURCE_DIR "/tests/expected/journal.jsonl"));
}

TEST(Journal, EndsWithAWholeLineWhereTheDiskIsFull) {
    const DirectorioTemporal directorio;
    Diario diario(directorio / "j");
    diario.Inicio("Z", {});
    const auto escribir = [&diario] {
        for (int i = 0; i < 50'000; ++i) diario.Confirma(static_cast<std::size_t>(i));
    };
    const pruebas::FalloProvocado fallo(LlamadaDeArchivo::Escribir, 2, ENOSPC);
    try {
        escribir();
        FAIL();
    } catch (const FalloDeArchivo& sinSitio) {
        EXPECT_EQ(sinSitio.Detalle(), "No space left on device: " + (directorio / "j").string());
    }
    EXPECT_THAT(LeerArchivo(directorio / "j"), AllOf(StartsWith(R"({"event":"start")"), EndsWith("}\n")));
}

// ---- The command ----

struct CorridaDePrueba : pruebas::QorgenDePrueba {
    int Correr(std::vector<std::string> argumentos) {
        argumentos.insert(argumentos.begin(), "run");
        return QorgenDePrueba::Correr(std::move(argumentos));
    }
    std::string Diario() const { return LeerArchivo(directorio / "j"); }
};

constexpr const char* comienzo =
    "REPORT ZLOAD.\r\n"
    "DATA: BEGIN OF ITAB OCCURS 0, MATNR(5), END OF ITAB.\r\n"
    "DATA: BEGIN OF BDC_TAB OCCURS 0.\r\n"
    "  INCLUDE STRUCTURE BDCDATA.\r\n"
    "DATA: END OF BDC_TAB.\r\n"
    "DATA N TYPE I.\r\n"
    "PARAMETERS FILE(128) DEFAULT 'c:\\x.txt' OBLIGATORY LOWER CASE.\r\n";
constexpr const char* lectura =
    "START-OF-SELECTION.\r\n"
    "  CALL FUNCTION 'WS_UPLOAD' EXPORTING FILENAME = FILE TABLES DATA_TAB = ITAB EXCEPTIONS OTHERS = 1.\r\n";
constexpr const char* bucle =
    "  LOOP AT ITAB.\r\n"
    "    REFRESH BDC_TAB. CLEAR BDC_TAB.\r\n"
    "    BDC_TAB-PROGRAM = 'SAPX'. BDC_TAB-DYNPRO = '0100'. BDC_TAB-DYNBEGIN = 'X'. APPEND BDC_TAB. CLEAR BDC_TAB.\r\n"
    "    BDC_TAB-FNAM = 'RM-MATNR'. BDC_TAB-FVAL = ITAB-MATNR. APPEND BDC_TAB.\r\n"
    "    CALL TRANSACTION 'MM01' USING BDC_TAB MODE 'N' UPDATE 'S'.\r\n"
    "    WRITE: / ITAB-MATNR, SY-SUBRC.\r\n"
    "  ENDLOOP.\r\n";

std::string Informe(const char* declaracion, const char* cuerpo) {
    return std::string(comienzo) + declaracion + "\r\n" + lectura + bucle + cuerpo + "\r\n";
}

#ifndef LEFT_OUT_Run_StatusListAndFailures
TEST(Run, StatusListAndFailures) {
    const struct {
        const char* que;
        std::string reporte;
        std::vector<std::string> argumentos;
        int estado;
        std::string salida;   // its beginning
        std::string errores;  // all of it; "*" stands for any
    } casos[] = {
        {"all posted",
         Informe("", ""),
         {"--file", "FILE=D/in.txt"},
         0,
         "A1             0\nB2             0\n2 records, 2 posted, 0 failed, 2 transactions called, 0 put into 0 sessions, 0 BAPI "
         "calls\n",
         ""},
        {"by the path", Informe("", ""), {"--file", "c:\\x.txt=D/in.txt"}, 0, "A1             0\n", ""},
        {"some records",
         Informe("", ""),
         {"--file", "FILE=D/in.txt", "--records", "2-9"},
         0,
         "B2             0\n1 records, 1 posted",
         ""},
        {"one fails",
         Informe("", ""),
         {"--file", "FILE=D/in.txt", "--fail", "2=No  way"},
         1,
         "A1             0\nB2         1.001\n2 records, 1 posted, 1 failed",
         "record 2, MM01, SAPX 0100: QP 001 No way\n"},
        {"a value list",
         Informe("", ""),
         {"--file", "FILE=D/in.txt", "--values", "D/v"},
         1,
         "A1             0\nB2         1.001\n2 records, 1 posted, 1 failed",
         "record 2, MM01, SAPX 0100, RM-MATNR: 00 058 Entry B2 does not exist\n"
         "  value \"B2\"\n  correct the value where it comes from, or add it to the value list of RM-MATNR in D/v\n"},
        {"no record", Informe("", ""), {"--file", "FILE=D/in.txt", "--records", "3-4"}, 1, "0 records, 0 posted, 0 failed", ""},
        {"no file",
         Informe("", ""),
         {"--file", "FILE=D/none"},
         1,
         "0 records",
         "file c:\\x.txt: No such file or directory: D/none\n"},
        {"a dump",
         Informe("", "  N = 'abc'."),
         {"--file", "FILE=D/in.txt"},
         1,
         "A1             0\nB2             0\n2 records, 2 posted, 0 failed",
         "record 0, line 18: CONVT_NO_NUMBER \"abc\" is not a number\n"},
        {"a message",
         Informe("", "  MESSAGE E001(ZZ) WITH 'a'."),
         {"--file", "FILE=D/in.txt"},
         1,
         "A1",
         "record 0, message E: ZZ 001 a\n"},
        {"a fault",
         Informe("FOO BAR.", "  NOPE = 1."),
         {"--file", "FILE=D/in.txt"},
         1,
         "",
         "line 8, column 1: *\nline 18, column 3: *\n"},
        {"an obligatory parameter", Informe("PARAMETERS P(3) OBLIGATORY.", ""), {}, 1, "", "0: The parameter P is obligatory *\n"},
        {"an unknown parameter", Informe("", ""), {"--param", "Q=1"}, 2, "", "--param: the report has no parameter Q\n*"},
        {"no value", Informe("", ""), {"--param", "FILE"}, 2, "", "--param: *"},
        {"records the other way", Informe("", ""), {"--records", "3-2"}, 2, "", "--records: *"},
        {"a record that is none", Informe("", ""), {"--fail", "x=1"}, 2, "", "--fail: *"},
        {"a recording that is none",
         Informe("", ""),
         {"--recording", "D/in.txt"},
         1,
         "",
         "*No recording and no session: D/in.txt\n"},
        {"a journal over the input", Informe("", ""), {"--file", "FILE=D/j"}, 2, "", "--journal: *"},
        {"statements without end",
         Informe("", "  DO. N = 1. ENDDO."),
         {"--file", "FILE=D/in.txt", "--limit", "100000"},
         1,
         "A1",
         "record 0, line 18: TIME_OUT *\n"},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.que);
        CorridaDePrueba qorgen;
        qorgen.directorio.Escribir("r.abap", caso.reporte);
        qorgen.directorio.Escribir("in.txt", "A1\r\nB2\r\n");
        qorgen.directorio.Escribir("v/RM-MATNR.txt", "A1\r\n");
        qorgen.directorio.Escribir("j", "mine");
        auto argumentos = caso.argumentos;
        argumentos.insert(argumentos.end(), {"--report", "D/r.abap", "--journal", "D/j"});
        EXPECT_EQ(qorgen.Correr(argumentos), caso.estado);
        EXPECT_THAT(qorgen.salida, caso.salida.empty() ? testing::Matcher<std::string>(IsEmpty()) : StartsWith(caso.salida));
        std::string errores;
        for (const char c : ReemplazarTodo(caso.errores, "D/", qorgen.directorio.Ruta().string() + "/")) {
            if (c == '*')
                errores += "(.|\n)*";
            else if (std::string_view("\\.+()[]{}|?^$").find(c) != std::string_view::npos)
                errores.append("\\").append(1, c);
            else
                errores += c;
        }
        EXPECT_THAT(qorgen.errores, testing::MatchesRegex(errores));
        // Without a list there was no run, and no journal.
        if (caso.salida.empty())
            EXPECT_EQ(qorgen.Diario(), "mine");
        else
            EXPECT_THAT(qorgen.Diario(), StartsWith(R"({"event":"start")"));
    }
}
#endif

TEST(Run, Parameters) {
    const struct {
        const char* declaracion;
        std::vector<std::string> argumentos;
        const char* parametros;  // behind FILE
    } casos[] = {
        {"PARAMETERS: A(3) DEFAULT 'xyz', B(3) LOWER CASE DEFAULT 'xyz'.", {}, R"("A":"XYZ","B":"xyz")"},
        {"PARAMETERS: PS_A(3), B(3) LOWER CASE.", {"--param", "a=abcd", "--param", "B=abcd"}, R"("PS_A":"ABC","B":"abc")"},
        {"PARAMETERS: NU(4) TYPE N, I TYPE I, D TYPE D, C AS CHECKBOX.",
         {"--param", "NU=7", "--param", "I=-7", "--param", "D=31.12.2026", "--param", "C=x"},
         R"("NU":"0007","I":-7,"D":"20261231","C":"X")"},
        {"PARAMETERS: NEWB RADIOBUTTON GROUP G DEFAULT 'X', OLDB RADIOBUTTON GROUP G.",
         {"--param", "OLDB=x"},
         R"("NEWB":"","OLDB":"X")"},
        {"PARAMETERS: FILE_1(20) LOWER CASE.", {"--file", "file_1=Some/where"}, R"("FILE_1":"Some/where")"},
        {"PARAMETERS: FILE_1(20) LOWER CASE DEFAULT 'c:\\y'.", {"--file", "FILE_1=Some/where"}, R"("FILE_1":"c:\\y")"},
        {"PARAMETERS: A(3) DEFAULT 'A'.\r\nINITIALIZATION.\r\n  A = 'I'.\r\nAT SELECTION-SCREEN.\r\n  A = 'S'.", {}, R"("A":"I")"},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.declaracion);
        CorridaDePrueba qorgen;
        qorgen.directorio.Escribir("r.abap", Informe(caso.declaracion, ""));
        qorgen.directorio.Escribir("in.txt", "A1\r\n");
        auto argumentos = caso.argumentos;
        argumentos.insert(argumentos.end(), {"--report", "D/r.abap", "--journal", "D/j", "--file", "FILE=D/in.txt"});
        EXPECT_EQ(qorgen.Correr(argumentos), 0) << qorgen.errores;
        EXPECT_THAT(qorgen.Diario(),
                    StartsWith(std::string(R"({"event":"start","report":"ZLOAD","parameters":{"FILE":"c:\\x.txt",)") +
                               caso.parametros + "}}\n"));
    }
}

// Which value, from which column of the file, and what is to be done.
TEST(Run, AFailedValueIsExplainedFromTheSpecification) {
    const std::string ejemplos = std::string(QOR_TEST_SOURCE_DIR) + "/examples/";
    CorridaDePrueba qorgen;
    qorgen.directorio.Escribir("w/KUNNR.txt", "1\n");
    qorgen.directorio.Escribir("w/MABNR.txt", "1\n");
    const std::string pedidos = ejemplos + "va01-one-file/orders.txt";
    EXPECT_EQ(qorgen.Correr({ejemplos + "va01-one-file/orders.qor", "--file", "FILE=" + pedidos, "--values", "D/w", "--records",
                             "2-2", "--system", "D/s"}),
              1);
    EXPECT_THAT(qorgen.errores, HasSubstr("field KUNNR, columns 34 to 43 of line 4 of the file " + pedidos));
    EXPECT_THAT(qorgen.errores, HasSubstr("in ZDATAERRORS as run 1. "));
    const std::string bapi = ejemplos + "bapi-sales-order/";
    qorgen.directorio.Escribir("b/MATERIAL.txt", "PUMP-0100\n");
    EXPECT_EQ(
        qorgen.Correr({bapi + "orders.qor", "--file", "FILE=" + bapi + "orders.txt", "--file", "SLOOP_1=" + bapi + "items.txt",
                       "--file", "SLOOP_2=" + bapi + "partners.txt", "--values", "D/b", "--records", "1-1"}),
        1);
    EXPECT_THAT(qorgen.errores,
                HasSubstr("record 1, BAPI_SALESORDER_CREATEFROMDAT2: QP 001 Entry SEAL-DN50 does not exist\n"
                          "  value \"SEAL-DN50\" of ORDER_ITEMS_IN-MATERIAL: field MATERIAL, columns 21 to 38 of line 2 of "));
    for (const char* ejemplo : {"va01-one-file", "va01"}) {
        const bool unico = ejemplo == std::string_view("va01-one-file");
        const std::string carpeta = ejemplos + ejemplo + "/";
        qorgen.directorio.Escribir("x/MABNR.txt", "PUMP-0100\n");
        EXPECT_EQ(qorgen.Correr({carpeta + "orders.qor", "--file", "FILE=" + carpeta + "orders.txt", "--file",
                                 "SLOOP_1=" + carpeta + "items.txt", "--values", "D/x", "--records", "1-1"}),
                  1);
        EXPECT_THAT(qorgen.errores, HasSubstr(unico ? "(2): 00 058 Entry SEAL-DN50 does not exist\n  value \"SEAL-DN50\": field "
                                                      "MATNR, columns 2 to 19 of line 3 of the file "
                                                    : "(2): 00 058 Entry SEAL-DN50 does not exist\n  value \"SEAL-DN50\": field "
                                                      "MATNR, columns 21 to 38 of line 2 of the file "));
    }
}

// A fault of the report and a short dump lead back to the cell that their line came from.
TEST(Run, FaultsAndDumpsNameTheirCell) {
    const std::string ejemplo = std::string(QOR_TEST_SOURCE_DIR) + "/examples/mm01/";
    const std::string documento = LeerArchivo(ejemplo + "materials.qor");
    const std::string codigo = "TRANSLATE #MAKTX TO UPPER CASE.";
    ASSERT_NE(documento.find(codigo), std::string::npos);
    CorridaDePrueba qorgen;
    const auto correr = [&](const char* otro) {
        qorgen.directorio.Escribir("m.qor", ReemplazarTodo(documento, codigo, otro));
        return qorgen.Correr({"D/m.qor", "--file", "FILE=" + ejemplo + "materials.txt", "--journal", "D/j"});
    };
    EXPECT_EQ(correr("NOPE = 1."), 1);
    EXPECT_THAT(qorgen.errores, HasSubstr(", file side, row 3, conversion, line 1: NOPE is not declared\n"));
    EXPECT_EQ(qorgen.salida, "");
    EXPECT_EQ(correr("SY-INDEX = #MAKTX."), 1);
    EXPECT_THAT(qorgen.errores, HasSubstr(", file side, row 3, conversion, line 1: CONVT_NO_NUMBER "));
    EXPECT_THAT(qorgen.errores, StartsWith("MARA-SPART: "));
    EXPECT_THAT(qorgen.Diario(), HasSubstr(R"("error":"CONVT_NO_NUMBER","line":)"));
    EXPECT_THAT(qorgen.Diario(), HasSubstr(R"("table":"file","row":3,"column":3,"text":)"));
    EXPECT_THAT(qorgen.salida, StartsWith("1 records, 0 posted, 1 failed"));
}

// A report writes into its folder, but neither over what the run reads nor outside of it.
TEST(Run, KeepsItsOwnFilesFromTheReport) {
    CorridaDePrueba qorgen;
    std::string reporte =
        "REPORT Z.\r\nDATA: BEGIN OF ITAB OCCURS 0, A(1), END OF ITAB.\r\nSTART-OF-SELECTION.\r\nAPPEND ITAB. LOOP AT ITAB. "
        "ENDLOOP.\r\n";
    for (const char* archivo : {"r.abap", "j", "s", "s-wal", "s-shm", "../x", "new"}) {
        reporte += "OPEN DATASET '" + std::string(archivo) + "' FOR OUTPUT IN TEXT MODE. WRITE: / SY-SUBRC.\r\n";
    }
    qorgen.directorio.Escribir("r.abap", reporte);
    EXPECT_EQ(qorgen.Correr({"--report", "D/r.abap", "--system", "D/s", "--journal", "D/j"}), 1);
    EXPECT_THAT(qorgen.salida,
                StartsWith("         8\n         8\n         8\n         8\n         8\n         8\n         0\n1 records"));
    EXPECT_THAT(qorgen.errores, HasSubstr("../x"));
}

// --expect tells in words what is not as in a stored journal, and looks at that one before anything runs.
TEST(Run, ComparesItsJournalWithAnExpectedOne) {
    const std::string inicio = R"({"event":"start","report":"ZLOAD","parameters":{"FILE":"c:\\x.txt"}})"
                               "\n";
    const std::string final = R"({"event":"end","records":2,"posted":2,"failed":0})"
                              "\n";
    const auto transaccion = [](const std::string& registro, const std::string& campos, const std::string& mensaje) {
        return R"({"event":"transaction","record":)" + registro +
               R"(,"tcode":"MM01","mode":"N","update":"S","screens":[{"program":"SAPX","dynpro":"0100","fields":[)" + campos +
               R"(]}],"subrc":0,"messages":[{"type":"S","id":"00","number":"355","text":")" + mensaje + "\"}]}\n";
    };
    const std::string bien = "Transaction was processed";
    const auto campo = [](const std::string& valor) { return R"(["RM-MATNR",")" + valor + "\"]"; };
    const std::string uno = transaccion("1", campo("A1"), bien);
    const std::string dos = transaccion("2", campo("B2"), bien);
    const struct {
        std::string esperado;
        std::vector<std::string> argumentos;
        int estado;
        std::string errores;
    } casos[] = {
        {inicio + uno + dos + final, {}, 0, "The journal is as in D/e.\n"},
        {inicio + uno + transaccion("2", campo("B9") + R"(,["F","v"])", "Done") + final,
         {"--journal", "D/j"},
         1,
         "record 2, event 1, transaction MM01, SAPX 0100, RM-MATNR: \"B2\" instead of \"B9\"\n"
         "record 2, event 1, transaction MM01, SAPX 0100, F: \"v\" is missing\n"
         "record 2, event 1, transaction MM01, message: \"S 00 355 Transaction was processed\" instead of \"S 00 355 Done\"\n"
         "1 event is not as in D/e.\n"},
        // A record too many or too few leaves the others alone.
        {inicio + transaccion("1", campo("A1"), bien) +
             R"({"event":"commit","record":1})"
             "\n" +
             transaccion("3", campo("C3"), bien) + final,
         {},
         1,
         "record 1, event 2, commit is missing\nrecord 2, event 1, transaction MM01 is not expected\n"
         "record 3, event 1, transaction MM01 is missing\n3 events are not as in D/e.\n"},
        {inicio + uno + dos + final,
         {"--fail", "2=No"},
         1,
         "record 2, MM01, SAPX 0100: QP 001 No\n"
         "record 2, event 1, transaction MM01, message: \"E QP 001 No\" instead of \"S 00 355 Transaction was processed\"\n"
         "end, posted: 1 instead of 2\nend, failed: 1 instead of 0\n2 events are not as in D/e.\n"},
        {inicio + uno + dos, {}, 1, "0: The expected journal can't be used; nothing was run.\n  The journal has no end: D/e\n"},
        {inicio + uno.substr(0, 99) + "\n" + final,
         {},
         1,
         "0: The expected journal can't be used; nothing was run.\n  Line 2 is no event of a journal: D/e\n"},
        {"", {}, 1, "0: The expected journal can't be used; nothing was run.\n  The file is no journal of a run: D/e\n"},
        {inicio + final, {"--journal", "D/e"}, 2, "--journal: D/e is read by the run\n"},
    };
    for (const auto& caso : casos) {
        CorridaDePrueba qorgen;
        qorgen.directorio.Escribir("r.abap", Informe("", ""));
        qorgen.directorio.Escribir("in.txt", "A1\r\nB2\r\n");
        qorgen.directorio.Escribir("e", caso.esperado);
        auto argumentos = caso.argumentos;
        argumentos.insert(argumentos.end(), {"--report", "D/r.abap", "--file", "FILE=D/in.txt", "--expect", "D/e"});
        EXPECT_EQ(qorgen.Correr(argumentos), caso.estado);
        const auto errores = ReemplazarTodo(qorgen.errores, qorgen.directorio.Ruta().string() + "/", "D/");
        EXPECT_THAT(errores, StartsWith(caso.errores));
        EXPECT_EQ(qorgen.salida.empty(), Contiene(errores, "nothing was run") || caso.estado == 2);
    }
    // Failures that are expected are none.
    CorridaDePrueba qorgen;
    qorgen.directorio.Escribir("r.abap", Informe("", ""));
    qorgen.directorio.Escribir("in.txt", "A1\r\nB2\r\n");
    const std::vector<std::string> comunes = {"--report", "D/r.abap", "--file", "FILE=D/in.txt", "--fail", "2"};
    const auto con = [&](const char* opcion) {
        auto argumentos = comunes;
        argumentos.insert(argumentos.end(), {opcion, "D/e"});
        return qorgen.Correr(argumentos);
    };
    EXPECT_EQ(con("--journal"), 1);
    EXPECT_EQ(con("--expect"), 0) << qorgen.errores;
}

// --limit counts from each record on.
TEST(Run, ProgressKeepsTheLimitAway) {
    CorridaDePrueba qorgen;
    qorgen.directorio.Escribir("r.abap",
                               "REPORT Z.\r\nDATA: BEGIN OF ITAB OCCURS 0, A TYPE I, END OF ITAB.\r\nSTART-OF-SELECTION.\r\n"
                               "DO 50 TIMES. APPEND ITAB. ENDDO.\r\nLOOP AT ITAB. DO 40 TIMES. ENDDO. ENDLOOP.\r\n");
    EXPECT_EQ(qorgen.Correr({"--report", "D/r.abap", "--limit", "200"}), 0) << qorgen.errores;
    EXPECT_THAT(qorgen.salida, HasSubstr("50 records, 50 posted"));
}

}  // namespace
}  // namespace qor
