// Ways that lead through the practice system and back, each by the commands that a user types.
#include <gmock/gmock.h>

#include <map>
#include <sstream>

#include "app/command_line.h"
#include "base/files.h"
#include "base/text.h"
#include "tests/support/qorgen_run.h"

namespace qor {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

const std::filesystem::path fuentes = QOR_TEST_SOURCE_DIR;

// The practice system lies in "D/s".
struct RoundTrips : testing::Test, pruebas::QorgenDePrueba {
    int Sistema(const std::string& orden) { return Q("system --system D/s " + orden); }
    std::string Contenido(const char* archivo) const { return LeerArchivo(directorio / archivo); }
    // The newest entry of the queue.
    std::string Cola() {
        EXPECT_EQ(Sistema("queue"), estadoBien);
        return std::string(PartirEnLineas(salida).back());
    }
};

// A recording is turned into a program, which leaves a session with the values of a file on the recorded screens.
TEST_F(RoundTrips, FromARecordingToASessionOfTheSameScreens) {
    ASSERT_EQ(Sistema("record " + (fuentes / "examples/recording/zmmrec.txt").string()), estadoBien);
    ASSERT_EQ(Q("import D/a.qor zmmrec --practice D/s"), estadoBien) << errores;
    const auto grabadas = FilasDePrograma("a.qor");
    ASSERT_EQ(grabadas.size(), 31U);

    // Constants become fields of a file.
    const std::tuple<std::string, std::string, int, std::string, std::string> campos[] = {
        {"'QR-1000'", "MATNR", 8, "'QR-2000'", "'QR-2001'"},
        {"'GARDEN HOSE, GREEN'", "MAKTX", 16, "'HOSE, RED, 9 M'", "'HOSE, BLUE'"},
        {"'00103'", "MATKL", 5, "'00103'", "'00104'"}};
    std::string documento = Contenido("a.qor");
    std::string archivo;
    std::vector<std::string> primera = grabadas;
    std::vector<std::string> segunda = grabadas;
    for (const auto& [constante, campo, ancho, uno, dos] : campos) {
        archivo += "1,\"" + campo + "\",\"" + std::to_string(ancho) + R"(","","","","","","","")" + "\r\n";
        documento = ReemplazarTodo(documento, "\"" + constante + "\"", "\"" + campo + "\"");
        for (auto& fila : primera) fila = ReemplazarTodo(fila, constante, uno);
        for (auto& fila : segunda) fila = ReemplazarTodo(fila, constante, dos);
    }
    documento = archivo + documento;
    directorio.Escribir("a.qor", documento);
    directorio.Escribir("in.txt", "QR-2000 HOSE, RED, 9 M  00103\r\nQR-2001 HOSE, BLUE      00104\r\n");
    ASSERT_EQ(Q("generate D/a.qor -o D/a.abap"), estadoBien);
    ASSERT_EQ(Q("publish D/a.abap zload --practice D/s"), estadoBien) << errores;
    ASSERT_EQ(Q("run --program ZLOAD --system D/s --file FILE=D/in.txt"), estadoBien) << errores;
    EXPECT_THAT(salida, EndsWith("2 records, 2 posted, 0 failed, 0 transactions called, 4 put into 1 sessions, 0 BAPI calls\n"));
    ASSERT_EQ(Q("import D/b.qor " + Cola().substr(0, 20) + " --practice D/s"), estadoBien) << errores;
    primera.insert(primera.end(), segunda.begin(), segunda.end());
    auto vueltas = FilasDePrograma("b.qor");
    for (auto& fila : vueltas) fila = ReemplazarTodo(fila, " '\"", "'\"");  // a blank more behind the subscreen
    EXPECT_EQ(vueltas, primera);

    // What is not on the recorded screens is told.
    for (const auto& [antes, ahora, dicho] :
         {std::tuple{"\"4004\"", "\"4005\"", "MM01, SAPLMGMM 4005: 00 344 No batch input data for screen SAPLMGMM 4005\n"},
          {"MARA-MATKL", "MARA-SPART", "MM01, SAPLMGMM 4004, MARA-SPART: 00 349 Field MARA-SPART does not exist in the screen "}}) {
        directorio.Escribir("c.qor", ReemplazarTodo(documento, antes, ahora));
        EXPECT_EQ(Q("run D/c.qor --system D/s --file FILE=D/in.txt --records 1-1"), estadoRechazado);
        EXPECT_THAT(errores, StartsWith("record 1, " + std::string(dicho)));
        EXPECT_EQ(Q("run D/c.qor --file FILE=D/in.txt --records 1-1"), estadoBien);  // no recording, no check
    }
}

TEST_F(RoundTrips, ASessionIsCorrectedAndProcessed) {
    const std::string ejemplo = (fuentes / "examples/mm01/materials").string();
    directorio.Escribir("values/MTART.txt", "HAWA\r\n");
    ASSERT_EQ(Q("run " + ejemplo + ".qor --file FILE=" + ejemplo + ".txt --system D/s"), estadoRechazado);
    const auto id = Cola().substr(0, 20);
    EXPECT_EQ(Sistema("process " + id + " --journal D/j"), estadoRechazado);
    EXPECT_THAT(salida, StartsWith("4 records, 2 posted, 2 failed, 4 transactions called"));
    EXPECT_THAT(Contenido("j"), EndsWith(R"({"event":"end","records":4,"posted":2,"failed":2})"
                                         "\n"));
    EXPECT_THAT(Cola(), EndsWith(",E,4"));
    EXPECT_EQ(Sistema("process " + id + " --journal D/s"), estadoMalUso);
    EXPECT_EQ(Sistema("export " + id + " D/s"), estadoMalUso);

    ASSERT_EQ(Sistema("export " + id + " D/session.txt"), estadoBien);
    ASSERT_EQ(Q("dataset D/session.txt --field RMMG1-MTART --new HAWA --whole ROH --yes"), estadoBien);
    ASSERT_EQ(Sistema("import-session D/session.txt"), estadoBien);
    const auto otra = salida.substr(0, 20);
    EXPECT_THAT(Cola(), StartsWith(otra + ","));
    EXPECT_EQ(Sistema("process " + otra), estadoBien);
    EXPECT_THAT(salida, StartsWith("4 records, 4 posted, 0 failed"));
    EXPECT_THAT(Cola(), EndsWith(",F,4"));
    EXPECT_EQ(Sistema("export " + otra + " D/again.txt"), estadoBien);
    EXPECT_EQ(Contenido("again.txt"), Contenido("session.txt"));
    EXPECT_EQ(Sistema("show " + otra), estadoBien);
    EXPECT_THAT(salida, HasSubstr("\n1,MM01,,0000,,RMMG1-MATNR,PUMP-0100\n"));

    EXPECT_EQ(Sistema("reset"), estadoRechazado);
    EXPECT_EQ(Sistema("reset --yes"), estadoBien);
    EXPECT_THAT(Cola(), StartsWith("QID,"));
}

// The records that failed go out, are corrected, and come back; the commands are those that the run prints.
TEST_F(RoundTrips, FailedRecordsArePostedAgain) {
    const std::string ejemplo = (fuentes / "examples/va01-one-file/orders").string();
    directorio.Escribir("values/KUNNR.txt", "0000001032\r\n0000001391\r\n");
    ASSERT_EQ(Q("run " + ejemplo + ".qor --file FILE=" + ejemplo + ".txt --system D/s"), estadoRechazado);
    EXPECT_THAT(salida, HasSubstr("2 records, 1 posted, 1 failed"));
    std::vector<std::string> ordenes;
    for (const auto linea : PartirEnLineas(errores)) {
        if (linea.starts_with("  qorgen ")) ordenes.push_back(ReemplazarTodo(linea.substr(9), " errors.txt", " D/errors.txt"));
    }
    ASSERT_EQ(ordenes.size(), 3U);
    ASSERT_EQ(Q(ordenes[0]), estadoBien);
    ASSERT_EQ(Q("dataset D/errors.txt --field KUNNR --new 0000001391 --whole 0000001390 --yes"), estadoBien);
    ASSERT_EQ(Q(ordenes[1]), estadoBien);
    EXPECT_EQ(Q(ordenes[2]), estadoBien) << errores;
    EXPECT_THAT(salida, HasSubstr("1 records, 1 posted, 0 failed"));
    EXPECT_EQ(Q(ordenes[2]), estadoRechazado);  // nothing is left to be posted
    EXPECT_THAT(salida, HasSubstr("0 records"));
}

// A catalogue with its objects and their modules by name.
std::string EnOrden(const std::string& catalogo) {
    std::map<std::pair<std::string, std::string>, std::string> lineas;
    std::string objeto;
    std::string modulo;
    for (const auto linea : PartirEnLineas(catalogo)) {
        if (linea.starts_with("1 ")) objeto = linea, modulo.clear();
        if (linea.starts_with("2 ")) modulo = linea;
        lineas[{objeto, modulo}].append(linea).append("\r\n");
    }
    std::string orden;
    for (const auto& [lugar, suyas] : lineas) orden += suyas;
    return orden;
}

TEST_F(RoundTrips, TheCatalogueOfTheSystemIsTheOneThatFilledIt) {
    const std::string n(30, 'N');
    const std::string propio = "BAPIDEFS\r\n0 46C\r\n1 " + std::string(40, 'O') + "\r\n2 BAPI_" + std::string(25, 'N') + "\r\n3 " +
                               std::string(74, 't') + "\r\n3\r\n3 " + std::string(120, 'd') + "\r\n4 " + n + "::I:" + n + "-" + n +
                               "\r\n4 " + n + ":X:T:" + n + "\r\n5 " + n + "\r\n1 A b\r\n2 BAPI_LONG\r\n3 " + std::string(75, 't') +
                               "\r\n2 BAPI_BARE\r\n4 P::E:S\r\n1 B\r\n2 BAPI_BARE\r\n4 P::E:S\r\n";
    const struct {
        std::filesystem::path archivo;
        std::string texto;
    } casos[] = {{fuentes / "data/BAPI46C", LeerArchivo(fuentes / "data/BAPI46C")}, {directorio.Escribir("own", propio), propio}};
    for (const auto& caso : casos) {
        ASSERT_EQ(Q("--yes bapi --catalogue " + caso.archivo.string() + " update --practice D/s"), estadoBien) << errores;
        EXPECT_EQ(salida, (directorio.Ruta() / "practice" / "BAPI46C").string() + "\n");
        EXPECT_EQ(Contenido("practice/BAPI46C"), EnOrden(caso.texto));
        EXPECT_EQ(LeerArchivo(caso.archivo), caso.texto);
    }
}

}  // namespace
}  // namespace qor
