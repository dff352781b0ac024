// What reports ask of their surroundings: the database, files, function modules, transactions.
#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "abap/execution.h"
#include "abap/short_dump.h"
#include "abap/values/conversion.h"
#include "tests/support/cases_in_file.h"
#include "tests/support/recording_surroundings.h"

namespace qor::abap {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Variables = std::vector<std::pair<const char*, std::string>>;

// Declarations that all reports here have.
constexpr const char* cabeza = R"(REPORT ZTEST.
TABLES ZT.
DATA: PROGID(4) TYPE N VALUE '0042', MAXNUM(4) TYPE N, TEXT(10), SHORT(2), N TYPE I, P1 TYPE P DECIMALS 2, F TYPE F,
      RC TYPE I, CNT TYPE I, OUT(60), S TYPE STRING.
DATA: BEGIN OF ITAB OCCURS 0, BATCH(6), LINE(4), END OF ITAB.
DATA: BEGIN OF RAW OCCURS 0. INCLUDE STRUCTURE ZT. DATA END OF RAW.
DATA BEGIN OF MESS OCCURS 0. INCLUDE STRUCTURE BDCMSGCOLL. DATA END OF MESS.
RANGES R FOR ZT-BATCH.
START-OF-SELECTION.
)";

class Reporte {
public:
    AlrededoresDePrueba alrededores;

    // Runs the statements; afterwards RC and CNT have SY-SUBRC and SY-DBCNT as they were behind them.
    void Correr(const std::string& sentencias, const std::string& formas = "") {
        texto_ = cabeza + sentencias + "\nRC = SY-SUBRC. CNT = SY-DBCNT.\n" + formas;
        const auto compilacion = Compilar(texto_, alrededores.diccionario);
        for (const auto& falta : compilacion.faltas) ADD_FAILURE() << sentencias << "\n" << falta.linea << ": " << falta.texto;
        if (!compilacion.programa) return;
        ejecucion_ = std::make_unique<Ejecucion>(compilacion.programa, alrededores.entorno);
        ejecucion_->Iniciar();
        ejecucion_->Correr();
    }

    std::string Valor(const char* nombre) {
        const Campo campo = ejecucion_ ? ejecucion_->BuscarVariable(nombre) : Campo{};
        return campo.datos == nullptr ? "(none)" : TextoPlano(campo);
    }

    void Exigir(const Variables& variables) {
        for (const auto& [nombre, valor] : variables) EXPECT_EQ(Valor(nombre), valor) << texto_ << nombre;
    }

private:
    std::string texto_;
    std::unique_ptr<Ejecucion> ejecucion_;
};

std::vector<ValorDeBase> FilaZT(const char* lote, const char* linea) {
    return {"000", "0042", lote, "", "-1.50", std::int64_t{3}, linea};
}

constexpr const char* todasLasColumnas = "SELECT MANDT PROGID BATCH FLAG AMOUNT LENGTH LINE FROM ZT";

TEST(OpenSQL, AsksTheDatabase) {
    struct Caso {
        const char* sentencias;
        std::vector<std::string> pedidos;
        FilasDePrueba respuesta;
        Variables variables;
    };
    const std::string todas = todasLasColumnas;
    const Caso casos[] = {
        // The error table as reports use it.
        {"SELECT MAX( BATCH ) INTO MAXNUM FROM ZT WHERE PROGID = PROGID.",
         {"SELECT MAX(BATCH) FROM ZT WHERE PROGID = '0042'"},
         {{"0007"}},
         {{"MAXNUM", "0007"}, {"RC", "0"}, {"CNT", "1"}}},
        {"MAXNUM = 9. SELECT MAX( BATCH ) INTO MAXNUM FROM ZT.",
         {"SELECT MAX(BATCH) FROM ZT"},
         {{ValorDeBase{}}},
         {{"MAXNUM", "0000"}, {"RC", "0"}}},
        {"ZT-LINE = 'kept'. SELECT SINGLE * FROM ZT WHERE PROGID = PROGID AND BATCH = 0. TEXT = ZT-LINE.",
         {todas + " WHERE (PROGID = '0042' AND BATCH = '0000') LIMIT 1"},
         {},
         {{"TEXT", "kept"}, {"RC", "4"}, {"CNT", "0"}}},
        {"SELECT * FROM ZT WHERE BATCH = '3' AND FLAG = SPACE ORDER BY BATCH LINE DESCENDING.\n"
         "CONCATENATE OUT ZT-BATCH ZT-LINE INTO OUT. N = N + ZT-LENGTH. P1 = P1 + ZT-AMOUNT. ENDSELECT.",
         {todas + " WHERE (BATCH = '0003' AND FLAG = '') ORDER BATCH ORDER LINE DOWN"},
         {FilaZT("0001", "a"), FilaZT("0002", "b")},
         {{"OUT", "0001a0002b"}, {"N", "6"}, {"P1", "-3.00"}, {"RC", "0"}, {"CNT", "2"}}},
        {"SELECT * FROM ZT UP TO 5 ROWS. EXIT. ENDSELECT. TEXT = ZT-LINE.",
         {todas + " LIMIT 5"},
         {FilaZT("0001", "a"), FilaZT("0002", "b")},
         {{"TEXT", "a"}, {"CNT", "1"}}},
        {"SELECT * FROM ZT. ENDSELECT.", {todas}, {}, {{"RC", "4"}, {"CNT", "0"}}},
        // Where values go.
        {"SELECT BATCH AMOUNT LENGTH INTO (TEXT, OUT, SHORT) FROM ZT. ENDSELECT.",
         {"SELECT BATCH AMOUNT LENGTH FROM ZT"},
         {{"0001", "-1.50", std::int64_t{300}}},
         {{"TEXT", "0001"}, {"OUT", std::string(55, ' ') + "1.50-"}, {"SHORT", "*0"}}},
        {"SELECT LINE BATCH FROM ZT INTO ITAB WHERE BATCH IN ('1', 2). ENDSELECT. OUT = ITAB.",
         {"SELECT LINE BATCH FROM ZT WHERE BATCH IN ('0001', '0002')"},
         {{"abcdefgh", "0001"}},
         {{"OUT", "abcdef0001"}}},
        {"ITAB-LINE = 'stay'. SELECT BATCH FLAG INTO CORRESPONDING FIELDS OF ITAB FROM ZT. ENDSELECT. OUT = ITAB.",
         {"SELECT BATCH FLAG FROM ZT"},
         {{"0001", "X"}},
         {{"OUT", "0001  stay"}}},
        {"SELECT BATCH SUM( AMOUNT ) AS LINE COUNT( DISTINCT FLAG ) FROM ZT BYPASSING BUFFER CLIENT SPECIFIED\n"
         "INTO CORRESPONDING FIELDS OF ITAB GROUP BY BATCH. ENDSELECT. OUT = ITAB.",
         {"SELECT BATCH SUM(AMOUNT) COUNT(DISTINCT FLAG) FROM ZT GROUP BATCH ALL CLIENTS"},
         {{"0001", "1.50", std::int64_t{1}}},
         {{"OUT", "0001  1.50"}}},
        {"SELECT COUNT( * ) FROM ZT.", {"SELECT COUNT(*) FROM ZT"}, {{std::int64_t{0}}}, {{"RC", "4"}, {"CNT", "0"}}},
        {"SELECT COUNT(*) MIN( LENGTH ) AVG( LENGTH ) INTO (N, P1, F) FROM ZT.",
         {"SELECT COUNT(*) MIN(LENGTH) AVG(LENGTH) FROM ZT"},
         {{std::int64_t{0}, ValorDeBase{}, 2.5}},
         {{"N", "0"}, {"P1", "0.00"}, {"RC", "0"}, {"CNT", "1"}}},
        // Conditions.
        {"SELECT SINGLE BATCH INTO MAXNUM FROM ZT WHERE NOT ( BATCH GE 3 OR LENGTH < '7' ) AND ZT~LINE <> ZT~FLAG.",
         {"SELECT BATCH FROM ZT WHERE (NOT ((BATCH >= '0003' OR LENGTH < 7)) AND LINE <> FLAG) LIMIT 1"},
         {{"0005"}},
         {{"MAXNUM", "0005"}}},
        {"SELECT SINGLE BATCH INTO MAXNUM FROM ZT WHERE LINE NOT LIKE 'a#_%' ESCAPE '#' AND BATCH BETWEEN 1 AND PROGID\n"
         "AND FLAG IS NOT NULL AND LINE = 'longer than its column' AND AMOUNT = '1.5' AND LENGTH NOT IN (1, 2).",
         {"SELECT BATCH FROM ZT WHERE (NOT (LINE LIKE 'a#_%' ESCAPE #) AND BATCH BETWEEN '0001' AND '0042' AND "
          "NOT (FLAG IS NULL) AND LINE = 'longer t' AND AMOUNT = '1.50' AND NOT (LENGTH IN (1, 2))) LIMIT 1"},
         {},
         {{"RC", "4"}}},
        // Changes.
        {"ZT-MANDT = '000'. ZT-PROGID = 42. ZT-LINE = 'x'. ZT-AMOUNT = '2.5'. ZT-LENGTH = -1. INSERT ZT.",
         {"INSERT ZT: '000', '0042', '0000', '', '2.50', -1, 'x'"},
         {},
         {{"RC", "0"}, {"CNT", "1"}}},
        {"CLEAR RAW. INSERT INTO ZT VALUES RAW. MODIFY ZT FROM RAW. UPDATE ZT FROM RAW. DELETE ZT FROM RAW.",
         {"INSERT ZT: '', '0000', '0000', '', '0.00', 0, ''", "INSERT ZT: '', '0000', '0000', '', '0.00', 0, ''",
          "UPDATE ZT: '', '0000', '0000', '', '0.00', 0, ''", "DELETE ZT: '', '0000', '0000', '', '0.00', 0, ''"},
         {},
         {{"RC", "0"}}},
        {"UPDATE ZT SET FLAG = 'X' LENGTH = LENGTH + N AMOUNT = AMOUNT - '1.5' WHERE PROGID = PROGID.",
         {"UPDATE ZT SET FLAG = 'X', LENGTH + 0, AMOUNT - '1.50' WHERE PROGID = '0042'"},
         {},
         {{"RC", "0"}, {"CNT", "1"}}},
        {"DELETE FROM ZT WHERE PROGID = PROGID AND BATCH = MAXNUM. COMMIT WORK AND WAIT. ROLLBACK WORK.",
         {"DELETE ZT WHERE (PROGID = '0042' AND BATCH = '0000')", "COMMIT", "ROLLBACK"},
         {},
         {{"RC", "0"}, {"CNT", "1"}}},
    };
    for (const auto& caso : casos) {
        Reporte reporte;
        reporte.alrededores.base.respuestas.push_back(caso.respuesta);
        reporte.Correr(caso.sentencias);
        EXPECT_THAT(reporte.alrededores.base.pedidos, ElementsAreArray(caso.pedidos)) << caso.sentencias;
        reporte.Exigir(caso.variables);
    }
}

TEST(OpenSQL, FillsAndReadsInternalTables) {
    struct Caso {
        const char* sentencias;
        std::vector<std::string> pedidos;
        std::vector<FilasDePrueba> respuestas;
        Variables variables;
    };
    constexpr const char* lineasDeR = R"(
R-SIGN = 'I'. R-OPTION = 'EQ'. R-LOW = 1. APPEND R. R-LOW = 2. APPEND R.
R-OPTION = 'BT'. R-LOW = 5. R-HIGH = 7. APPEND R. R-SIGN = 'E'. R-OPTION = 'GT'. R-LOW = 6. APPEND R.
SELECT SINGLE BATCH INTO MAXNUM FROM ZT WHERE BATCH IN R.)";
    const std::string todas = todasLasColumnas;
    const Caso casos[] = {
        {"ITAB-LINE = 'old'. APPEND ITAB. SELECT BATCH LINE FROM ZT INTO TABLE ITAB. N = SY-DBCNT.\n"
         "SELECT BATCH FROM ZT APPENDING CORRESPONDING FIELDS OF TABLE ITAB.\n"
         "LOOP AT ITAB. CONCATENATE OUT ITAB-BATCH ITAB-LINE ',' INTO OUT. ENDLOOP. SY-SUBRC = 0.",
         {"SELECT BATCH LINE FROM ZT", "SELECT BATCH FROM ZT"},
         {{{"0001", "a"}, {"0002", "b"}}, {{"0003"}}},
         {{"OUT", "0001a,0002b,0003,"}, {"N", "2"}, {"CNT", "1"}}},
        {"SELECT * FROM ZT INTO TABLE RAW. LOOP AT RAW. N = N + RAW-LENGTH. OUT = RAW-LINE. ENDLOOP.\n"
         "INSERT ZT FROM TABLE RAW ACCEPTING DUPLICATE KEYS.",
         {todas, "INSERT ZT: '000', '0042', '0001', '', '-1.50', 3, 'a'"},
         {{FilaZT("0001", "a")}},
         {{"N", "3"}, {"OUT", "a"}, {"RC", "0"}, {"CNT", "1"}}},
        {lineasDeR,
         {"SELECT BATCH FROM ZT WHERE (NOT (BATCH > '0006') AND (BATCH BETWEEN '0005' AND '0007' OR BATCH IN ('0001', '0002')))"
          " LIMIT 1"},
         {},
         {{"RC", "4"}}},
        {"SELECT SINGLE BATCH INTO MAXNUM FROM ZT WHERE BATCH IN R.", {"SELECT BATCH FROM ZT LIMIT 1"}, {}, {}},
        {"DO 2 TIMES. ITAB-BATCH = 1. APPEND ITAB. ENDDO. ITAB-BATCH = 2. APPEND ITAB.\n"
         "SELECT LINE INTO TEXT FROM ZT FOR ALL ENTRIES IN ITAB WHERE BATCH = ITAB-BATCH AND FLAG = 'X'.\n"
         "CONCATENATE OUT TEXT INTO OUT. ENDSELECT.",
         {"SELECT LINE FROM ZT WHERE ((BATCH = '0001' AND FLAG = 'X') OR (BATCH = '0002' AND FLAG = 'X'))"},
         {{{"a"}, {"b"}, {"a"}}},
         {{"OUT", "ab"}, {"CNT", "2"}}},
        {"SELECT LINE INTO TEXT FROM ZT FOR ALL ENTRIES IN ITAB WHERE BATCH = ITAB-BATCH. ENDSELECT.",
         {"SELECT LINE FROM ZT"},
         {{{"a"}}},
         {{"TEXT", "a"}}},
    };
    for (const auto& caso : casos) {
        Reporte reporte;
        for (const auto& respuesta : caso.respuestas) reporte.alrededores.base.respuestas.push_back(respuesta);
        reporte.Correr(caso.sentencias);
        EXPECT_THAT(reporte.alrededores.base.pedidos, ElementsAreArray(caso.pedidos)) << caso.sentencias;
        reporte.Exigir(caso.variables);
    }
}

TEST(OpenSQL, TellsOfKeysThatAreTaken) {
    Reporte reporte;
    reporte.alrededores.base.cambios = {0, 0, 1, 0};
    reporte.Correr("INSERT ZT. N = SY-SUBRC. MODIFY ZT. MAXNUM = SY-SUBRC. UPDATE ZT.");
    EXPECT_THAT(reporte.alrededores.base.pedidos,
                ElementsAre(HasSubstr("INSERT"), HasSubstr("INSERT"), HasSubstr("UPDATE"), HasSubstr("UPDATE")));
    reporte.Exigir({{"N", "4"}, {"MAXNUM", "0000"}, {"RC", "4"}, {"CNT", "0"}});
}

TEST(NativeSQL, RunsWithVariablesOfTheReport) {
    Reporte reporte;
    auto& base = reporte.alrededores.base;
    base.respuestas.push_back({{"12", std::int64_t{7}}, {"13", std::int64_t{8}}});
    base.respuestas.push_back({{ValorDeBase{}, "x"}});
    reporte.Correr(
        "TEXT = 'k'.\nEXEC SQL.\n  SELECT A, ':T' \"B:C\" INTO :MAXNUM, :N FROM T -- :NO\n"
        "* the second variable\n    WHERE K = :TEXT /* :X */ AND L = :PROGID AND M IN (SELECT Q FROM U)\nENDEXEC.\n"
        "EXEC SQL. SELECT * INTO :ITAB FROM T ENDEXEC. OUT = ITAB.");
    EXPECT_THAT(base.pedidos,
                ElementsAre("SELECT A, ':T' \"B:C\" FROM T WHERE K = ? AND L = ? AND M IN (SELECT Q FROM U) | 'k', '0042'",
                            "SELECT * FROM T | "));
    reporte.Exigir({{"MAXNUM", "0012"}, {"N", "7"}, {"OUT", "      x"}, {"RC", "0"}, {"CNT", "1"}});
}

TEST(NativeSQL, PerformsAFormForEachRow) {
    constexpr const char* sql = "EXEC SQL PERFORMING ROW. SELECT A INTO :ITAB-BATCH FROM T ENDEXEC.";
    constexpr const char* forma =
        "FORM ROW. CONCATENATE OUT ITAB-BATCH INTO OUT. IF ITAB-BATCH = '3'. EXIT FROM SQL. ENDIF. ENDFORM.";
    Reporte sinBucle;
    sinBucle.alrededores.base.respuestas.push_back({{"1"}, {"2"}, {"3"}, {"4"}});
    sinBucle.alrededores.seguimiento.saltado = 2;
    sinBucle.Correr(sql, forma);
    EXPECT_THAT(sinBucle.alrededores.seguimiento.registros, ElementsAre("1", "2", "3", "end"));
    sinBucle.Exigir({{"OUT", "13"}, {"RC", "0"}, {"CNT", "3"}});

    Reporte conBucle;
    conBucle.alrededores.base.respuestas.push_back({{"1"}, {"2"}});
    conBucle.Correr(std::string(sql) + " LOOP AT ITAB. ENDLOOP.", forma);
    EXPECT_THAT(conBucle.alrededores.seguimiento.registros, ElementsAre("end"));
    conBucle.Exigir({{"OUT", "12"}});
}

TEST(Datasets, AreOpenedReadAndWritten) {
    Reporte reporte;
    auto& archivos = reporte.alrededores.archivos;
    archivos.lineas = {"0001abcdefgh", "2"};
    reporte.Correr(
        "DATA FILE(20) VALUE 'a.txt'.\n"
        "OPEN DATASET FILE FOR INPUT IN TEXT MODE ENCODING UTF-8 IGNORING CONVERSION ERRORS. RC = SY-SUBRC.\n"
        "PERFORM READ TABLES ITAB USING FILE CHANGING N. READ DATASET FILE INTO S LENGTH CNT. MAXNUM = SY-SUBRC. CLOSE DATASET "
        "FILE.\n"
        "OPEN DATASET 'b' FOR OUTPUT. TRANSFER TEXT TO 'b'. TEXT = 'end'. TRANSFER TEXT TO 'b' LENGTH 3.\n"
        "OPEN DATASET 'missing' FOR APPENDING IN TEXT MODE MESSAGE OUT.\n",
        "FORM READ TABLES T USING F CHANGING C. DO. READ DATASET F INTO T. IF SY-SUBRC NE 0. EXIT. ENDIF.\n"
        "CONCATENATE OUT T ',' INTO OUT. C = C + 1. ENDDO. ENDFORM.");
    EXPECT_THAT(archivos.pedidos,
                ElementsAre("OPEN a.txt INPUT TEXT", "CLOSE a.txt", "OPEN b OUTPUT BINARY",
                            "WRITE b <" + std::string(10, ' ') + ">", "WRITE b <end>", "OPEN missing APPENDING TEXT"));
    reporte.Exigir({{"N", "2"}, {"MAXNUM", "0004"}, {"OUT", "The file can't be opened"}, {"RC", "8"}});
}

TEST(CallFunction, PassesParametersAndTakesExceptions) {
    Reporte reporte;
    auto& funciones = reporte.alrededores.funciones;
    reporte.Correr(
        "DATA NAME(30) VALUE 'FM'. APPEND ITAB. APPEND ITAB. ITAB-LINE = 'head'.\n"
        "CALL FUNCTION 'BAPI_X' EXPORTING A = 'lit' B = PROGID TABLES = N HEAD = ITAB IMPORTING RESULT = TEXT CHANGING C = OUT\n"
        "TABLES DATA = ITAB LINES = R EXCEPTIONS ERROR_MESSAGE = 1 OTHERS = 2. N = SY-SUBRC.\n"
        "CALL FUNCTION NAME EXPORTING IMPORTING TABLES.");
    EXPECT_THAT(funciones.pedidos,
                ElementsAre("BAPI_X >A=lit >B=0042 >TABLES=0 >HEAD=      head <RESULT= ~C= #DATA=      head[2 BATCH] #LINES=" +
                                std::string("   00000000") + "[0 SIGN]",
                            "FM"));
    reporte.Exigir({{"TEXT", "imported"}, {"OUT", "changed"}, {"N", "0"}, {"RC", "0"}});

    constexpr const char* llamada = "CALL FUNCTION 'F' EXCEPTIONS NOT_FOUND = 3 ";
    for (const auto& [excepcion, otras, subrc] :
         {std::tuple{"NOT_FOUND", "OTHERS = 9.", "3"}, {"ELSE", "OTHERS = 9.", "9"}, {"ELSE", ".", "RAISE_EXCEPTION"}}) {
        Reporte con;
        con.alrededores.funciones.excepcion = excepcion;
        try {
            con.Correr(std::string(llamada) + otras);
            con.Exigir({{"RC", subrc}});
        } catch (const Volcado& volcado) {
            EXPECT_EQ(volcado.Nombre(), subrc);
            EXPECT_THAT(volcado.what(), HasSubstr(excepcion));
        }
    }
}

TEST(CallTransaction, TellsWhatCameOfIt) {
    Reporte reporte;
    auto& transacciones = reporte.alrededores.transacciones;
    transacciones.resultado = {1001, {{"SAPLX", "0100", 'E', "00", "349", {"F", "P", "D", ""}, "F"}}};
    reporte.Correr(
        "DATA: MODE(1) VALUE 'N', BEGIN OF B OCCURS 0. INCLUDE STRUCTURE BDCDATA. DATA END OF B.\n"
        "APPEND B. MESS-MSGID = 'kept'. APPEND MESS. CALL TRANSACTION 'MM01' USING B MODE MODE UPDATE 'S' MESSAGES INTO MESS.\n"
        "RC = SY-SUBRC. CONCATENATE SY-MSGTY SY-MSGID SY-MSGNO SY-MSGV1 SY-MSGV2 INTO TEXT.\n"
        "LOOP AT MESS. CONCATENATE OUT MESS-TCODE MESS-DYNAME MESS-DYNUMB MESS-MSGTYP MESS-MSGSPRA MESS-MSGID MESS-MSGNR\n"
        "MESS-MSGV1 MESS-FLDNAME ',' INTO OUT. ENDLOOP. CALL TRANSACTION 'XD01'.");
    EXPECT_THAT(transacciones.pedidos, ElementsAre("MM01 1 NS", "XD01 0 AA"));
    reporte.Exigir({{"TEXT", "E00349FP"}, {"OUT", "kept000,MM01SAPLX0100EE00349FF,"}, {"RC", "1001"}});
}

TEST(Statements, OfSurroundingsThatAreNotKnownDoNotCompile) {
    for (const auto& caso : pruebas::LeerCasos("abap_not_known.txt")) {
        AlrededoresDePrueba alrededores;
        const auto compilacion = Compilar(cabeza + caso.codigo, alrededores.diccionario);
        ASSERT_THAT(compilacion.faltas, ::testing::Not(IsEmpty())) << caso.codigo;
        EXPECT_THAT(compilacion.faltas.front().texto, HasSubstr(caso.esperado.front())) << caso.codigo;
        EXPECT_GE(compilacion.faltas.front().linea, 10) << caso.codigo;
    }
}

TEST(Statements, EndInAShortDump) {
    for (const auto& [sentencias, nombre] :
         {std::pair{"SELECT * FROM ZT INTO ITAB. ENDSELECT.", "SAPSQL_WA_TOO_SMALL"},
          {"INSERT ZT FROM ITAB.", "SAPSQL_WA_TOO_SMALL"},
          {"APPEND RAW. INSERT ZT FROM TABLE RAW.", "SAPSQL_ARRAY_INSERT_DUPREC"},
          {"R-SIGN = 'Z'. APPEND R. DELETE FROM ZT WHERE BATCH IN R.", "SAPSQL_IN_ITAB_ILLEGAL_SIGN"},
          {"EXEC SQL. SELECT A INTO :TEXT FROM T ENDEXEC.", "DBIF_DSQL2_SQL_ERROR"},
          {"SELECT SINGLE LINE INTO N FROM ZT.", "CONVT_NO_NUMBER"}}) {
        Reporte reporte;
        reporte.alrededores.base.cambios = {0};
        reporte.alrededores.base.respuestas.push_back({{"word", "b"}});
        try {
            reporte.Correr(sentencias);
            ADD_FAILURE() << sentencias;
        } catch (const Volcado& volcado) {
            EXPECT_EQ(volcado.Nombre(), nombre) << sentencias;
        }
    }
}

}  // namespace
}  // namespace qor::abap
