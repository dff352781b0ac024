#include <gtest/gtest.h>
#include <sqlite3.h>
#ifndef _WIN32
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include "abap/short_dump.h"
#include "app/command_line.h"
#include "base/files.h"
#include "base/process.h"
#include "base/text.h"
#include "practice/database.h"
#include "practice/dictionary.h"
#include "practice/programs.h"
#include "practice/query_text.h"
#include "practice/queue.h"
#include "practice/role.h"
#include "practice/session_transfer.h"
#include "practice/stored_recordings.h"
#include "practice/system_tables.h"
#include "practice/table_load.h"
#include "practice/table_transfer.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/temporary_directory.h"

namespace qor::pruebas {
namespace {

using abap::CondicionDeBase;
using abap::ValorDeBase;
using Clase = CondicionDeBase::Clase;

// Rows as a text: values behind blanks, rows behind "|"; "-" stands for nothing.
std::string Filas(std::unique_ptr<abap::FilasDeBase> filas) {
    std::string texto;
    std::vector<ValorDeBase> fila;
    while (filas->Siguiente(fila)) {
        if (!texto.empty()) texto += '|';
        for (std::size_t i = 0; i < fila.size(); ++i) {
            if (i > 0) texto += ' ';
            texto += std::holds_alternative<std::monostate>(fila[i]) ? "-" : TextoDeValor(fila[i]);
        }
    }
    return texto;
}

CondicionDeBase Compara(const std::string& columna, const std::string& operador, ValorDeBase valor) {
    CondicionDeBase donde;
    donde.clase = Clase::Compara;
    donde.columna = columna;
    donde.operador = operador;
    donde.valores = {std::move(valor)};
    return donde;
}

CondicionDeBase Con(Clase clase, const std::string& columna, std::vector<ValorDeBase> valores, char escape = 0) {
    CondicionDeBase donde;
    donde.clase = clase;
    donde.columna = columna;
    donde.valores = std::move(valores);
    donde.escape = escape;
    return donde;
}

CondicionDeBase De(Clase clase, std::vector<CondicionDeBase> partes) {
    CondicionDeBase donde;
    donde.clase = clase;
    donde.partes = std::move(partes);
    return donde;
}

abap::ConsultaDeBase Consulta(const std::string& tabla, std::vector<abap::ColumnaPedida> columnas = {},
                              CondicionDeBase donde = {}) {
    abap::ConsultaDeBase consulta;
    consulta.tabla = tabla;
    consulta.columnas = std::move(columnas);
    consulta.donde = std::move(donde);
    return consulta;
}

template <typename Hacer>
std::string VolcadoDe(Hacer hacer) {
    try {
        hacer();
    } catch (const abap::Volcado& volcado) {
        return volcado.Nombre();
    }
    return "";
}

template <typename Hacer>
std::string FalloDe(Hacer hacer) {
    try {
        hacer();
    } catch (const FalloDeEjecucion& fallo) {
        return fallo.what();
    }
    return "";
}

std::vector<ValorDeBase> FilaDeErrores(const std::string& batch, const std::string& operacion, int secuencia,
                                       const std::string& linea, const std::string& id = "001") {
    const std::string numero = std::to_string(secuencia);
    return {"999",
            "0000004501",
            std::string(10 - batch.size(), '0') + batch,
            std::string(10 - operacion.size(), '0') + operacion,
            std::string(10 - numero.size(), '0') + numero,
            "",
            "PRACTICE",
            id,
            static_cast<std::int64_t>(linea.size()),
            linea};
}

struct PruebaDeBase : testing::Test {
    DirectorioTemporal directorio;
    std::filesystem::path ruta = directorio / "practice.sqlite";
};

// ---- Open SQL ----

TEST_F(PruebaDeBase, OpenSqlAsReportsAskForIt) {
    BaseDePractica base;
    CargarTabla(base, "ZMAT", "MATNR,MTART,MENGE\nb2,ROH,10\na1,FERT,9\nB2,ROH,\nd%4,HALB,7\n\xC4x,ROH,1\n");
    base.CrearTablaDeErrores("ZERR", 256);
    const auto* const errores = base.BuscarTabla("ZERR");
    for (const int secuencia : {3, 1, 2}) base.Insertar(errores->estructura, FilaDeErrores("7", "1", secuencia, "x"));
    base.Insertar(errores->estructura, FilaDeErrores("0", "2", 1, "00004 MATNR", "000"));

    abap::ConsultaDeBase porOrden = Consulta("ZMAT", {{"MATNR", "", false}});
    porOrden.orden = {{"MTART", true}};
    abap::ConsultaDeBase grupos = Consulta("ZMAT", {{"MTART", "", false}, {"*", "COUNT", false}});
    grupos.grupo = {"MTART"};
    abap::ConsultaDeBase distintas = Consulta("ZMAT", {{"MTART", "", false}});
    distintas.distinta = true;
    abap::ConsultaDeBase una = Consulta("ZMAT", {{"MATNR", "", false}});
    una.limite = 1;
    auto otraColumna = Compara("MATNR", "<>", {});
    otraColumna.otraColumna = "MTART";
    std::vector<ValorDeBase> muchos(5000, "no\"pe\\");
    muchos.emplace_back("d%4");
    std::vector<CondicionDeBase> partes(5000, Compara("MATNR", "=", "zz"));
    partes.push_back(Compara("MATNR", "=", "a1"));
    const std::vector<abap::ColumnaPedida> matnr = {{"MATNR", "", false}};
    const std::vector<abap::ColumnaPedida> clave = {{"BATCH", "", false}, {"SEQUENCE", "", false}};

    const struct {
        abap::ConsultaDeBase consulta;
        const char* filas;
    } casos[] = {
        {Consulta("ZMAT"), "b2 ROH 10|a1 FERT 9|B2 ROH |d%4 HALB 7|\xC4x ROH 1"},
        {Consulta("ZMAT", matnr, Compara("MTART", "=", "ROH")), "b2|B2|\xC4x"},
        {Consulta("ZMAT", matnr, Compara("MENGE", "<", "7")), "b2|B2|\xC4x"},  // texts
        {Consulta("ZMAT", matnr, De(Clase::O, partes)), "a1"},
        {Consulta("ZMAT", matnr, De(Clase::O, {})), ""},
        {Consulta("ZMAT", matnr, De(Clase::No, {De(Clase::Y, {Compara("MTART", "=", "ROH"), Compara("MENGE", "<>", "")})})),
         "a1|B2|d%4"},
        {Consulta("ZMAT", matnr, Con(Clase::Entre, "MTART", {"F", "H~"})), "a1|d%4"},
        {Consulta("ZMAT", matnr, Con(Clase::En, "MATNR", {"a1", "zz", "B2"})), "a1|B2"},
        {Consulta("ZMAT", matnr, Con(Clase::En, "MATNR", muchos)), "d%4"},
        {Consulta("ZMAT", matnr, Con(Clase::Como, "MATNR", {"b%"})), "b2"},
        {Consulta("ZMAT", matnr, Con(Clase::Como, "MATNR", {"_2"})), "b2|B2"},
        {Consulta("ZMAT", matnr, Con(Clase::Como, "MATNR", {"_x"})), "\xC4x"},
        {Consulta("ZMAT", matnr, Con(Clase::Como, "MATNR", {"d#%4"}, '#')), "d%4"},
        {Consulta("ZMAT", matnr, Con(Clase::Como, "MATNR", {"[ab]*"})), ""},
        {Consulta("ZMAT", matnr, Con(Clase::EsNulo, "MENGE", {})), ""},
        {Consulta("ZMAT", matnr, otraColumna), "b2|a1|B2|d%4|\xC4x"},
        {porOrden, "b2|B2|\xC4x|d%4|a1"},
        {grupos, "FERT 1|HALB 1|ROH 3"},
        {distintas, "ROH|FERT|HALB"},
        {una, "b2"},
        {Consulta("ZMAT", {{"MATNR", "MAX", false}, {"MTART", "COUNT", true}}), "\xC4x 3"},
        {Consulta("ZMAT", {{"MATNR", "MAX", false}, {"*", "COUNT", false}}, Compara("MTART", "=", "no")), "- 0"},
        {Consulta("ZERR", clave), "0000000000 0000000001|0000000007 0000000001|0000000007 0000000002|0000000007 0000000003"},
        {Consulta("ZERR", {{"BATCH", "MAX", false}}), "0000000007"},
        {Consulta("ZERR", {{"MANDT", "", false}, {"LINE", "", false}}, Compara("ID", "=", "000")), "000 00004 MATNR"},
    };
    for (const auto& caso : casos) EXPECT_EQ(Filas(base.Seleccionar(caso.consulta)), caso.filas);

    EXPECT_EQ(VolcadoDe([&] { base.Seleccionar(Consulta("NOSUCH")); }), "SAPSQL_INVALID_TABLENAME");
    EXPECT_EQ(VolcadoDe([&] { base.Seleccionar(Consulta("ZMAT", {{"NOSUCH", "", false}})); }), "SAPSQL_INVALID_FIELDNAME");
}

TEST_F(PruebaDeBase, ChangesKeepKeyClientAndLength) {
    BaseDePractica base;
    base.CrearTablaDeErrores("ZERR", 256);
    const auto& tabla = base.BuscarTabla("ZERR")->estructura;
    auto fila = FilaDeErrores("7", "1", 1, "abcdef");
    fila[8] = std::int64_t{4};
    EXPECT_TRUE(base.Insertar(tabla, fila));
    EXPECT_FALSE(base.Insertar(tabla, fila));
    const auto linea = [&] {
        return Filas(base.Seleccionar(Consulta("ZERR", {{"MANDT", "", false}, {"LENGTH", "", false}, {"LINE", "", false}})));
    };
    EXPECT_EQ(linea(), "000 4 abcd");
    fila[8] = std::int64_t{6};
    EXPECT_EQ(base.ActualizarFila(tabla, fila), 1);
    EXPECT_EQ(linea(), "000 6 abcdef");
    const std::vector<abap::AsignacionDeBase> mas = {{"LENGTH", std::int64_t{10}, '+'}, {"BATCH", std::int64_t{5}, '+'}};
    EXPECT_EQ(base.Actualizar("ZERR", mas, Compara("PROGID", "=", "0000004501")), 1);
    EXPECT_EQ(Filas(base.Seleccionar(Consulta("ZERR", {{"LENGTH", "", false}, {"BATCH", "", false}}))), "16 0000000012");

    // Rows of another client are neither seen nor touched.
    base.PonerCliente("100");
    EXPECT_EQ(linea(), "");
    EXPECT_EQ(base.Borrar("ZERR", {}), 0);
    base.PonerCliente("000");
    EXPECT_EQ(base.BorrarFila(tabla, FilaDeErrores("12", "1", 1, "")), 1);
    EXPECT_EQ(linea(), "");
}

// Packed numbers, a user's own table, and rows that a loop found before they were changed.
TEST_F(PruebaDeBase, TablesOfADictionaryFile) {
    BaseDePractica base;
    DiccionarioDePractica diccionario(base, "");
    const auto archivo = directorio.Escribir("dictionary.txt", "TABLE ZAMT\n ID NUMC 3 KEY\n AMT CURR 31 2\n DAY DATS\n");
    diccionario.AgregarArchivo(archivo, true);
    const TablasDelSistema tablas(base, diccionario);
    EXPECT_TRUE(base.Tablas().empty());
    const auto& tabla = base.BuscarTabla("ZAMT")->estructura;
    const std::string grande = "12345678901234567890123456789.50";
    base.Insertar(tabla, std::vector<ValorDeBase>{"001", grande, {}});
    base.Insertar(tabla, std::vector<ValorDeBase>{"002", "9.25", "20260102"});
    base.Insertar(tabla, std::vector<ValorDeBase>{"003", "-10.00", "20260101"});
    auto orden = Consulta("ZAMT", {{"ID", "", false}});
    orden.orden = {{"AMT", false}};
    EXPECT_EQ(Filas(base.Seleccionar(orden)), "003|002|001");
    EXPECT_EQ(Filas(base.Seleccionar(Consulta("ZAMT", {{"AMT", "SUM", false}, {"AMT", "MIN", false}, {"DAY", "MIN", false}}))),
              "12345678901234567890123456788.75 -10.00 00000000");
    EXPECT_EQ(base.Actualizar("ZAMT", std::vector<abap::AsignacionDeBase>{{"AMT", "0.75", '-'}}, Compara("AMT", ">", "9.00")), 2);

    auto filas = base.Seleccionar(Consulta("ZAMT", {{"AMT", "", false}}));
    std::vector<ValorDeBase> fila;
    ASSERT_TRUE(filas->Siguiente(fila));
    base.Borrar("ZAMT", {});
    base.Confirmar();
    EXPECT_EQ(Filas(std::move(filas)), "8.50|-10.00");
    EXPECT_EQ(Filas(base.Seleccionar(Consulta("ZAMT"))), "");
}

// ---- Native SQL ----

TEST_F(PruebaDeBase, NativeSqlIsSelectAlone) {
    BaseDePractica base;
    DiccionarioDePractica diccionario(base, LeerArchivo(QOR_TEST_SOURCE_DIR "/data/BAPI46C"));
    diccionario.AgregarArchivo(QOR_TEST_SOURCE_DIR "/data/dictionary.txt", true);
    const TablasDelSistema tablas(base, diccionario);
    CargarTabla(base, "ZPO", "PONUM,TEXT,MENGE\n4712,b  ,2\n4711,\"a,\n\"\"x\"\"\",10\n4711,\xE9,3\n");
    const auto correr = [&](const std::string& texto, std::vector<ValorDeBase> valores = {}) {
        return Filas(base.SeleccionarNativo(texto, valores));
    };
    EXPECT_EQ(correr("select ponum, text from zpo"), "4712 b|4711 a,\n\"x\"|4711 \xE9");
    EXPECT_EQ(correr("SELECT TEXT FROM ZPO WHERE PONUM = ? AND MENGE = ?;  -- all", {"4711  ", std::int64_t{10}}), "a,\n\"x\"");
    EXPECT_EQ(correr("SELECT count(*), max(text), NULL, 1.5 FROM zpo WHERE text LIKE 'B'"), "1 b - 1.5");
    EXPECT_EQ(correr("SELECT text FROM zpo WHERE text = '\xE9'"), "\xE9");
    EXPECT_EQ(correr("WITH a(x) AS (SELECT menge FROM zpo) SELECT x FROM a"), "2|10|3");
    EXPECT_EQ(correr("SELECT mandt FROM t000"), "000");
    EXPECT_EQ(correr("SELECT qid FROM apqi"), "");
    EXPECT_EQ(correr("SELECT leng FROM dd03l WHERE tabname = 'BDCDATA' AND fieldname = 'FVAL'"), "000132");
    for (const char* const texto : {"DELETE FROM zpo",
                                    "INSERT INTO zpo VALUES (1,2,3)",
                                    "UPDATE zpo SET menge = 1",
                                    "DROP TABLE zpo",
                                    "CREATE TABLE x (y)",
                                    "ATTACH 'x' AS x",
                                    "PRAGMA user_version",
                                    "PRAGMA journal_mode=DELETE",
                                    "BEGIN",
                                    "COMMIT",
                                    "VACUUM",
                                    "",
                                    "  ;",
                                    "WITH a AS (SELECT 1) DELETE FROM zpo",
                                    "WITH a AS (SELECT 1) INSERT INTO zpo SELECT 1,2,3",
                                    "SELECT * FROM zpo; DELETE FROM zpo",
                                    "SELECT 1; SELECT 2",
                                    "EXPLAIN SELECT 1",
                                    "SELECT * FROM _qor_queue",
                                    "SELECT * FROM nosuch",
                                    "SELECT nosuch FROM zpo",
                                    "SELEKT",
                                    "SELECT load_extension('x')",
                                    "SELECT * FROM pragma_table_info('zpo')"}) {
        EXPECT_EQ(VolcadoDe([&] { correr(texto); }), "DBIF_DSQL2_SQL_ERROR") << texto;
    }
    EXPECT_EQ(correr("SELECT count(*) FROM zpo"), "3");
}

// ---- Comma-separated values ----

TEST_F(PruebaDeBase, TablesFromCommaSeparatedValues) {
    const struct {
        const char* texto;
        const char* tabla;  // columns with their widths, then rows; or the fault
    } casos[] = {
        {"A,B\r\n1,22\r\n333,\r\n", "A3 B2: 1 22|333 "},
        {"\xEF\xBB\xBF"
         "a, b \n\xC3\xA9\xC3\xA9,1",
         "A2 B1: \xE9\xE9 1"},
        {"a\n\xE9\r\"\"\"q\"\"\"\r\n", "A3: \xE9|\"q\""},
        {"A,B\n\"x\r\ny\",\"\"\n\n\n", "A4 B1: x\r\ny "},
        {"A,MANDT\n1,000\n2,100\n", "A1 MANDT3: 1 000"},
        {"A,B\n", "A1 B1: "},
        {"", "line 1: there is no line with the names of the columns"},
        {"\n\n", "line 1: there is no line with the names of the columns"},
        {"A,a\n", "line 1: the column A stands there twice"},
        {"A,\n1,2\n", "line 1: \"\" is no name of a column"},
        {"A B\n", "line 1: \"A B\" is no name of a column"},
        {"A,B\n1,2\n\"3\n4\"\n", "line 3: 1 value for 2 columns"},
        {"A,B\n1,2,3\n", "line 2: 3 values for 2 columns"},
        {"A,B\n\n1,2\n", "line 2: 1 value for 2 columns"},
        {"A\n\"\nx\n", "line 2: a quote is not closed"},
        {"A\n\"x\"y\n", "line 2: something stands behind a closing quote"},
        {"A\nx\n\xE4\xB8\xAD\n", "line 3: it holds a character that windows-1252 lacks"},
    };
    for (const auto& caso : casos) {
        BaseDePractica base;
        CargarTabla(base, "ZT", "OLD\nrow\n");
        const std::string fallo = FalloDe([&] { CargarTabla(base, "ZT", caso.texto); });
        std::string tabla = fallo;
        if (fallo.empty()) {
            for (const auto& columna : base.BuscarTabla("ZT")->estructura.componentes) {
                tabla += (tabla.empty() ? "" : " ") + columna.nombre + std::to_string(columna.tipo.largo);
            }
            tabla += ": ";
        }
        const std::string filas = Filas(base.Seleccionar(Consulta("ZT")));
        EXPECT_EQ(fallo.empty() ? tabla + filas : tabla, caso.tabla) << caso.texto;
        if (!fallo.empty()) EXPECT_EQ(filas, "row") << caso.texto;
    }
    BaseDePractica base;
    for (const char* const nombre : {"", "1A", "A B", "_qor_x", "SQLITE_X", "ABCDEFGHIJKLMNOPQRSTUVWXYZ01234"}) {
        EXPECT_NE(FalloDe([&] { CargarTabla(base, nombre, "A\n"); }), "") << nombre;
    }
}

// ---- The error table ----

TEST_F(PruebaDeBase, ErrorTablesGrowAndAreMadeOfLoadedOnes) {
    const auto ancho = [](BaseDePractica& base) { return base.BuscarTabla("ZERR")->estructura.Buscar("LINE")->tipo.largo; };
    {
        BaseDePractica base(ruta);
        base.CrearTablaDeErrores("ZERR", 256);
        base.Insertar(base.BuscarTabla("ZERR")->estructura, FilaDeErrores("7", "1", 1, "x"));
        base.TerminarUnidad();
        base.CrearTablaDeErrores("ZERR", 300);
        EXPECT_EQ(ancho(base), 300U);
        base.CrearTablaDeErrores("ZERR", 256);
    }
    std::string csv;
    {
        BaseDePractica base(ruta);
        EXPECT_EQ(ancho(base), 300U);
        EscribirTabla(base, "ZERR", [&](std::string_view linea) { csv += linea; });
        EXPECT_EQ(csv,
                  "MANDT,PROGID,BATCH,OPERATION,SEQUENCE,PROCESSED,USERNAME,ID,LENGTH,LINE\n"
                  "000,0000004501,0000000007,0000000001,0000000001,,PRACTICE,001,1,x\n");
        // A load into an error table adds rows, and none where one is there.
        EXPECT_EQ(FalloDe([&] { CargarTabla(base, "ZERR", csv); }), "line 2: there is a row with this key already");
        CargarTabla(base, "ZERR", "PROGID,BATCH,OPERATION,SEQUENCE,ID,LINE\n4501,7,1,2,0,late\n");
        EXPECT_EQ(Filas(base.Seleccionar(Consulta("ZERR", {{"SEQUENCE", "", false}, {"LENGTH", "", false}}))),
                  "0000000001 1|0000000002 4");
    }
    BaseDePractica base;
    CargarTabla(base, "ZERR", csv);
    base.CrearTablaDeErrores("ZERR", 256);
    EXPECT_EQ(ancho(base), 256U);
    EXPECT_EQ(Filas(base.Seleccionar(Consulta("ZERR", {{"BATCH", "", false}, {"LENGTH", "", false}, {"LINE", "", false}}))),
              "0000000007 1 x");
    CargarTabla(base, "ZBAD", "PROGID,BATCH\n1,2\n");
    EXPECT_NE(FalloDe([&] { base.CrearTablaDeErrores("ZBAD", 256); }), "");
    CargarTabla(base, "ZTEXT", "PROGID,BATCH,OPERATION,SEQUENCE,ID,LINE\nabc,7,1,2,0,late\n");
    EXPECT_NE(FalloDe([&] { base.CrearTablaDeErrores("ZTEXT", 256); }), "");
    EXPECT_EQ(Filas(base.Seleccionar(Consulta("ZTEXT", {{"PROGID", "", false}}))), "abc");
}

TEST_F(PruebaDeBase, DownloadsAreEditedAndTakenBack) {
    BaseDePractica base;
    base.CrearTablaDeErrores("ZERR", 2000);
    const auto& tabla = base.BuscarTabla("ZERR")->estructura;
    base.Insertar(tabla, FilaDeErrores("3", "1", 1, "A1    1000", "001"));
    base.Insertar(tabla, FilaDeErrores("3", "1", 2, "M3 305 \xE9", "000"));
    base.Insertar(tabla, FilaDeErrores("4", "1", 1, std::string(1500, 'x'), "002"));
    base.Insertar(tabla, FilaDeErrores("0", "1", 1, "00006 MATNR", "000"));
    base.Insertar(tabla, FilaDeErrores("0", "1", 2, "00004 WERKS", "000"));
    base.TerminarUnidad();
    const auto archivo = directorio / "errors.txt";
    const auto bajadas = BajarTabla(base, "ZERR", archivo);
    EXPECT_EQ(bajadas.definiciones, 2);
    EXPECT_EQ(bajadas.filas, 3);

    const std::string texto = ReemplazarTodo(LeerArchivo(archivo), "A1    1000", "A1    2000");
    const auto filas = [&] {
        return Filas(
            base.Seleccionar(Consulta("ZERR", {{"LENGTH", "", false}, {"LINE", "", false}}, Compara("BATCH", "=", "0000000003"))));
    };
    const std::string antes = filas();
    const auto lugar = [&](const char* parte) { return texto.find(parte); };
    const struct {
        const char* que;
        std::function<void(std::string&)> danar;
        const char* fallo;
    } danos[] = {
        {"short", [&](std::string& t) { t = t.substr(0, 40); }, "line 1: it is shorter than the 62 columns in front of the data"},
        {"digits", [&](std::string& t) { t[lugar("A1  ") - 20] = 'x'; }, "line 3: \"000000000x\" does not fit the column SEQUENCE"},
        {"twice", [&](std::string& t) { t += t; }, "line 6: the key stands on an earlier line already"},
        {"client", [&](std::string& t) { t[0] = '1'; }, "line 1: \"100\" is not the client 000"},
        {"empty", [&](std::string& t) { t = "\r\n"; }, "line 1: there is nothing in it"},
        {"wide", [&](std::string& t) { t.insert(lugar("A1  "), std::string(2000, 'y')); }, "line 3: \"" /* and the text */},
    };
    for (const auto& dano : danos) {
        std::string danado = texto;
        dano.danar(danado);
        const auto roto = directorio.Escribir("broken.txt", danado);
        const std::string fallo = FalloDe([&] { SubirTabla(base, "ZERR", roto); });
        EXPECT_TRUE(fallo.starts_with(dano.fallo)) << dano.que << ": " << fallo.substr(0, 200);
        EXPECT_EQ(filas(), antes) << dano.que;
    }
    const auto subidas = SubirTabla(base, "ZERR", directorio.Escribir("corrected.txt", texto));
    EXPECT_EQ(subidas.cambiadas, 5);
    EXPECT_EQ(subidas.nuevas, 0);
    EXPECT_EQ(filas(), "10 A1    2000|8 M3 305 \xE9");
    EXPECT_EQ(Filas(base.Seleccionar(Consulta("ZERR", {{"LENGTH", "", false}}, Compara("BATCH", "=", "0000000004")))), "1500");
    CargarTabla(base, "ZCSV", "A\n1\n");
    EXPECT_NE(FalloDe([&] { BajarTabla(base, "ZCSV", archivo); }), "");
}

// ---- Sessions ----

TEST_F(PruebaDeBase, SessionsThatAreNoneAreRefused) {
    BaseDePractica base(ruta);
    ColaDePractica cola(base, {"20260102", "030405"});
    const auto qid = cola.Abrir("LOAD01", "PRACTICE", "X");
    EXPECT_EQ(qid, "20260102030405000001");
    cola.Insertar("MM01", std::vector<FilaDeBDC>{{"SAPLMGMM", "0060", true, "", ""}, {"", "0000", false, "MAKTX", "\xC4 b"}});
    base.TerminarUnidad();
    EXPECT_EQ(cola.Entradas().at(0).estado + std::to_string(cola.Entradas().at(0).transacciones), "C1");
    cola.Cerrar();
    ExportarSesion(cola, *cola.Buscar(qid), directorio / "session.txt");
    EXPECT_EQ(ImportarSesion(base, cola, "PRACTICE", directorio / "session.txt"), "20260102030405000002");
    EXPECT_FALSE(cola.Leer(qid, "BDCR", {}) || cola.Leer("1", "BDC", {}));

    const std::string cabeza = std::string(40, ' ') + "0000MX\r\n";
    const struct {
        std::string texto;
        const char* fallo;
    } rotos[] = {
        {"", "line 1: there is no session"},
        {"hello\r\n", "line 1: a session begins with a line that has \"0000M\" in the columns 41 to 45"},
        {cabeza + "SAPX                                    0100X\r\n",
         "line 2: a transaction begins with a line that has \"0000T\" in the columns 41 to 45"},
        {cabeza + std::string(40, ' ') + "0000TMM01\r\n" + std::string(40, ' ') + "0000?X\r\n",
         "line 3: it is no record of a session"},
        {cabeza + std::string(320, 'x') + "\r\n", "line 2: it has more than 309 columns"},
    };
    for (const auto& roto : rotos) {
        const auto archivo = directorio.Escribir("broken.txt", roto.texto);
        EXPECT_EQ(FalloDe([&] { ImportarSesion(base, cola, "PRACTICE", archivo); }), roto.fallo);
    }
    EXPECT_EQ(cola.Entradas().size(), 2U);
}

// ---- Units of work, and what can happen to the file ----

TEST_F(PruebaDeBase, AUnitOfWorkIsKeptOrDroppedWhole) {
    BaseDePractica base(ruta);
    base.CrearTablaDeErrores("ZERR", 256);
    DiccionarioDePractica diccionario(base, "");
    diccionario.AgregarArchivo(directorio.Escribir("dictionary.txt", "TABLE ZOWN\n ID NUMC 3 KEY\n"), true);
    const TablasDelSistema tablas(base, diccionario);
    const auto& tabla = base.BuscarTabla("ZERR")->estructura;
    const auto cuantas = [&](const char* nombre) { return Filas(base.Seleccionar(Consulta(nombre, {{"*", "COUNT", false}}))); };
    base.Insertar(tabla, FilaDeErrores("1", "1", 1, "a"));
    base.Confirmar();
    base.Insertar(tabla, FilaDeErrores("1", "1", 2, "b"));
    base.Insertar(base.BuscarTabla("ZOWN")->estructura, std::vector<ValorDeBase>{"001"});
    base.Deshacer();
    EXPECT_EQ(cuantas("ZERR"), "1");
    EXPECT_EQ(cuantas("ZOWN"), "0");
    base.Insertar(base.BuscarTabla("ZOWN")->estructura, std::vector<ValorDeBase>{"001"});
    base.TerminarUnidad();
    base.Insertar(tabla, FilaDeErrores("1", "1", 2, "b"));
    EXPECT_EQ(cuantas("ZERR"), "2");
    {
        // Another program sees what was finished.
        BaseDePractica otra(ruta, Acceso::Leer);
        EXPECT_EQ(Filas(otra.Seleccionar(Consulta("ZERR", {{"*", "COUNT", false}}))), "1");
    }
    base.AbandonarUnidad();
    EXPECT_EQ(cuantas("ZERR"), "1");
}

#ifndef LEFT_OUT_PruebaDeBase_AKilledProcessLeavesTheLastFinishedUnit
TEST_F(PruebaDeBase, AKilledProcessLeavesTheLastFinishedUnit) {
    const pid_t hijo = fork();
    if (hijo == 0) {
        BaseDePractica base(ruta);
        base.CrearTablaDeErrores("ZERR", 256);
        const auto& tabla = base.BuscarTabla("ZERR")->estructura;
        for (int i = 1; i <= 5000; ++i) {
            base.Insertar(tabla, FilaDeErrores("1", "1", i, std::string(200, 'x')));
            if (i == 3000) base.Confirmar();
        }
        kill(getpid(), SIGKILL);
    }
    int estado = 0;
    ASSERT_EQ(waitpid(hijo, &estado, 0), hijo);
    BaseDePractica base(ruta, Acceso::Leer);
    EXPECT_EQ(Filas(base.Seleccionar(Consulta("ZERR", {{"*", "COUNT", false}}))), "3000");
    EXPECT_EQ(Filas(base.SeleccionarNativo("SELECT max(sequence) FROM zerr", {})), "0000003000");
}
#endif

TEST_F(PruebaDeBase, FilesThatAreNoneAreLeftAlone) {
    const auto ajena = directorio / "other.sqlite";
    sqlite3* mango = nullptr;
    sqlite3_open(ajena.string().c_str(), &mango);
    sqlite3_exec(mango, "CREATE TABLE t (x)", nullptr, nullptr, nullptr);
    sqlite3_close(mango);
    { const BaseDePractica hecha(ruta); }
    std::filesystem::copy_file(ruta, directorio / "newer.sqlite");
    sqlite3_open((directorio / "newer.sqlite").string().c_str(), &mango);
    sqlite3_exec(mango, "PRAGMA user_version=3", nullptr, nullptr, nullptr);
    sqlite3_close(mango);
    std::string danado = LeerArchivo(ruta);
    for (std::size_t i = 200; i < danado.size(); i += 3) danado[i] = static_cast<char>(i);
    const struct {
        std::filesystem::path archivo;
        const char* fallo;
    } casos[] = {
        {ajena, "It is no practice system"},
        {directorio.Escribir("text", "hello"), "It is no practice system"},
        {directorio.Escribir("long", std::string(10000, 'x')), "It is no practice system"},
        {directorio / "newer.sqlite", "A newer release of this program has made it"},
        {directorio.Escribir("damaged", danado), "The file is damaged"},
        {directorio.Ruta(), "Is a directory"},
        {directorio / "no" / "file", "No such file or directory"},
#ifndef _WIN32
        {"/dev/null", "It is no practice system"},
#endif
    };
    for (const auto& caso : casos) {
        const auto leer = [&] {
            return std::filesystem::is_regular_file(caso.archivo) ? LeerArchivo(caso.archivo) : std::string();
        };
        const std::string antes = leer();
        EXPECT_EQ(FalloDe([&] { const BaseDePractica base(caso.archivo); }), caso.fallo) << caso.archivo;
        EXPECT_EQ(leer(), antes) << caso.archivo;
    }
    // An empty file becomes one, and a missing one is an empty system for those who only look.
    { const BaseDePractica base(directorio.Escribir("empty", "")); }
    { const BaseDePractica base(directorio / "missing", Acceso::Leer); }
    EXPECT_FALSE(std::filesystem::exists(directorio / "missing"));
}

#ifndef LEFT_OUT_PruebaDeBase_AFileOfTheFirstVersionIsUpgraded
// The first version kept recordings by their name alone.
TEST_F(PruebaDeBase, AFileOfTheFirstVersionIsUpgraded) {
    { const BaseDePractica hecha(ruta); }
    sqlite3* mango = nullptr;
    sqlite3_open(ruta.c_str(), &mango);
    sqlite3_exec(mango,
                 "DROP TABLE _qor_recordings; DROP TABLE _qor_settings;"
                 "CREATE TABLE _qor_recordings (name TEXT PRIMARY KEY, source BLOB NOT NULL) WITHOUT ROWID;"
                 "INSERT INTO _qor_recordings VALUES ('second_recording.txt', x'62'), ('first', x'61'); PRAGMA user_version=1;"
                 "INSERT INTO _qor_programs VALUES ('ZOLD', 'PRACTICE', '20260101', '000000', x'41')",
                 nullptr, nullptr, nullptr);
    sqlite3_close(mango);
    const auto ponerModo = [&](unsigned archivo, unsigned carpeta) {
        std::filesystem::permissions(ruta, std::filesystem::perms(archivo));
        std::filesystem::permissions(directorio.Ruta(), std::filesystem::perms(carpeta));
    };
    ponerModo(0444, 0555);
    const pid_t hijo = fork();
    if (hijo == 0) {
        if (geteuid() == 0 && setuid(65534) != 0) _exit(2);
        const auto fallo = FalloDe([&] { const BaseDePractica base(ruta, Acceso::Leer); });
        _exit(fallo.starts_with("An older release of this program has made it") ? 0 : 1);
    }
    int estado = 0;
    ASSERT_EQ(waitpid(hijo, &estado, 0), hijo);
    EXPECT_EQ(estado, 0);
    ponerModo(0644, 0755);
    for (int vez = 0; vez < 2; ++vez) {
        BaseDePractica base(ruta, Acceso::Leer);
        std::string todas;
        for (const auto& una : GrabacionesDePractica(base).Todas()) todas += una.qid + una.nombre + una.grupo + una.texto + "|";
        EXPECT_EQ(todas, "00000000000000900001firstFIRSTa|00000000000000900002second_recording.txtSECOND_RECORb|");
        EXPECT_EQ(RolDeSistema(base), "T");
        EXPECT_TRUE(ProgramasDePractica(base).Buscar("ZOLD"));
    }
    BaseDePractica base(ruta);
    GrabacionesDePractica grabaciones(base);
    for (const char* const nombre : {"first", "third"}) grabaciones.Poner(nombre, "new");
    const auto todas = grabaciones.Todas();
    EXPECT_EQ(todas[0].qid + todas[0].texto, "00000000000000900001new");
    EXPECT_GT(todas[2].qid, todas[1].qid);
}
#endif

#ifndef LEFT_OUT_PruebaDeBase_AFullDiskIsADump
// A disk without room: the report ends with a dump, and what was finished before is there.
TEST_F(PruebaDeBase, AFullDiskIsADump) {
    const pid_t hijo = fork();
    if (hijo == 0) {
        PrepararProceso();
        BaseDePractica base(ruta);
        base.CrearTablaDeErrores("ZERR", 256);
        const auto& tabla = base.BuscarTabla("ZERR")->estructura;
        base.Insertar(tabla, FilaDeErrores("1", "1", 1, "a"));
        base.Confirmar();
        const rlimit limite{1 << 20, 1 << 20};
        setrlimit(RLIMIT_FSIZE, &limite);
        const std::string nombre = VolcadoDe([&] {
            for (int i = 2; i <= 20000; ++i) base.Insertar(tabla, FilaDeErrores("1", "1", i, std::string(200, 'x')));
            base.Confirmar();
        });
        base.AbandonarUnidad();
        const bool bien =
            nombre == "DBIF_RSQL_SQL_ERROR" && Filas(base.Seleccionar(Consulta("ZERR", {{"*", "COUNT", false}}))) == "1";
        _exit(bien ? 0 : 1);
    }
    int estado = 0;
    ASSERT_EQ(waitpid(hijo, &estado, 0), hijo);
    EXPECT_EQ(estado, 0);
    BaseDePractica base(ruta);
    EXPECT_EQ(Filas(base.Seleccionar(Consulta("ZERR", {{"*", "COUNT", false}}))), "1");
}
#endif

// ---- The dictionary ----

TEST_F(PruebaDeBase, TypesComeFromWhoKnowsThemBest) {
    BaseDePractica base;
    std::vector<std::string> avisos;
    DiccionarioDePractica diccionario(base, LeerArchivo(QOR_TEST_SOURCE_DIR "/data/BAPI46C"),
                                      [&](const std::string& texto) { avisos.push_back(texto); });
    diccionario.AgregarArchivo(QOR_TEST_SOURCE_DIR "/data/dictionary.txt", true);
    diccionario.AgregarArchivo(directorio / "none.txt", false);
    diccionario.AgregarArchivo(
        directorio.Escribir(
            "own.txt",
            "* mine\nstructure zown\n a char 3\n b dec 5 2\n  c int4\nFIELDS MARA\n MTART CHAR 4\nELEMENT MATNR CHAR 18\n"),
        true);
    const auto ancho = [](const char* tabla, const char* campo, const char* largo) {
        std::string linea = tabla;
        linea.resize(30, ' ');
        linea += campo;
        linea.resize(90, ' ');
        return linea + largo + "\r\n";
    };
    diccionario.AgregarAnchos(ancho("MARA", "MATNR", "000018") + ancho("MARA", "MTART", "000009") +
                              ancho("BDCDATA", "FVAL", "000001") + ancho("BAPIMATHEAD", "MATERIAL", "000018") +
                              ancho("MARA", "NONE", "000000"));
    const TablasDelSistema tablas(base, diccionario);
    CargarTabla(base, "T000", "X\nabc\n");

    const auto tipo = [](const abap::TipoDeCampo& t) {
        return std::string(1, "CNDTIPFXSE"[static_cast<int>(t.tipo)]) + std::to_string(t.largo) +
               (t.decimales > 0 ? "." + std::to_string(t.decimales) : "");
    };
    const auto elemento = [&](const char* nombre) {
        const auto hallado = diccionario.BuscarElemento(nombre);
        return hallado ? tipo(*hallado) : std::string("-");
    };
    const struct {
        const char* nombre;
        const char* tipo;
    } elementos[] = {{"BDCDATA-FVAL", "C132"},
                     {"BDCDATA-DYNPRO", "N4"},
                     {"APQI-GROUPID", "C12"},
                     {"ZOWN-B", "P3.2"},
                     {"ZOWN-C", "I4"},
                     {"MARA-MTART", "C4"},
                     {"MARA-MATNR", "C18"},
                     {"MARA-NONE", "-"},
                     {"MATNR", "C18"},
                     {"BAPIMATHEAD-MATERIAL", "C18"},
                     {"BAPIMATHEAD-IND_SECTOR", "-"},
                     {"T000-X", "C3"},
                     {"T000-MANDT", "-"},
                     {"NOSUCH", "-"},
                     {"BAPIRET2-ROW", "I4"}};
    for (const auto& caso : elementos) EXPECT_EQ(elemento(caso.nombre), caso.tipo) << caso.nombre;
    EXPECT_TRUE(avisos.empty());

    const auto estructura = [&](const char* nombre, std::vector<std::string> usados = {}) {
        std::string texto;
        for (const auto& campo : diccionario.BuscarEstructura({nombre, usados}).componentes)
            texto += campo.nombre + "=" + tipo(campo.tipo) + " ";
        return texto;
    };
    EXPECT_EQ(estructura("ZOWN"), "A=C3 B=P3.2 C=I4 ");
    EXPECT_EQ(estructura("CTU_PARAMS").substr(0, 11), "DISMODE=C1 ");
    EXPECT_EQ(estructura("BAPIMATHEAD").substr(0, 35), "MATERIAL=C18 IND_SECTOR=C255 MATL_T");
    EXPECT_EQ(estructura("ZUNKNOWN", {"B", "A"}), "B=C255 A=C255 ");
    EXPECT_EQ(&diccionario.BuscarEstructura({"ZOWN", {}}), &diccionario.BuscarEstructura({"ZOWN", {}}));
    EXPECT_EQ(tipo(diccionario.BuscarCampo("BAPIVBELN", "VBELN")), "C255");
    diccionario.BuscarCampo("BAPIVBELN", "VBELN");
    EXPECT_EQ(avisos, (std::vector<std::string>{"BAPIMATHEAD: length not known, taken as C 255",
                                                "ZUNKNOWN: length not known, taken as C 255",
                                                "BAPIVBELN-VBELN: length not known, taken as C 255"}));
    EXPECT_TRUE(diccionario.EsTabla("APQI"));
    EXPECT_FALSE(diccionario.EsTabla("BDCDATA"));
    EXPECT_FALSE(diccionario.EsTabla("MARA"));

    for (const char* const malo :
         {"A CHAR 3\n", "STRUCTURE Z\n A CHAR\n", "STRUCTURE Z\n A CHAR x\n", "STRUCTURE Z\n A CHAR 3 4\n",
          "STRUCTURE Z\n A FOO 3\n", "STRUCTURE Z\n A CHAR 3\n A CHAR 3\n", "STRUCTURE Z\n", "TABLE Z\n A DEC 40 2\n"}) {
        EXPECT_NE(FalloDe([&] { diccionario.AgregarArchivo(directorio.Escribir("bad.txt", malo), true); }).find("line "),
                  std::string::npos)
            << malo;
    }
}

}  // namespace
}  // namespace qor::pruebas
