// What reports ask of their surroundings: the database, files, function modules, transactions.
#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "abap/execution.h"
#include "abap/short_dump.h"
#include "abap/values/conversion.h"
#include "base/text.h"
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

// An answer of the database, of rows.
FilasDePrueba FilasDe(const std::string& json) {
    FilasDePrueba filas;
    for (const auto& fila : nlohmann::json::parse(json)) {
        auto& valores = filas.emplace_back();
        for (const auto& valor : fila) {
            if (valor.is_string()) {
                valores.emplace_back(valor.get<std::string>());
            } else if (valor.is_number_float()) {
                valores.emplace_back(valor.get<double>());
            } else {
                valores.emplace_back(valor.is_null() ? ValorDeBase{} : ValorDeBase{valor.get<std::int64_t>()});
            }
        }
    }
    return filas;
}

TEST(OpenSQL, AsksTheDatabase) {
    for (const auto& caso : pruebas::LeerCasos("abap_open_sql.txt")) {
        Reporte reporte;
        std::vector<std::string> pedidos;
        std::vector<std::string> variables;
        for (const auto& linea : caso.esperado) {
            if (linea.starts_with('[')) {
                reporte.alrededores.base.respuestas.push_back(FilasDe(linea));
            } else {
                (linea.find('=') < linea.find(' ') ? variables : pedidos).push_back(linea);
            }
        }
        reporte.Correr(caso.codigo);
        EXPECT_THAT(reporte.alrededores.base.pedidos, ElementsAreArray(pedidos)) << caso.codigo;
        for (const auto& variable : variables) {
            const std::string nombre(AntesDe(variable, '='));
            EXPECT_EQ(reporte.Valor(nombre.c_str()), DespuesDe(variable, '=')) << caso.codigo << nombre;
        }
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
