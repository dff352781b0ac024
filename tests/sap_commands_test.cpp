#include <gmock/gmock.h>

#include <sstream>

#include "app/command_line.h"
#include "base/files.h"
#include "base/text.h"
#include "tests/support/qorgen_run.h"

namespace qor {
namespace {

using pruebas::DirectorioTemporal;
using testing::ElementsAre;
using testing::HasSubstr;

const std::string grabacion = std::string(QOR_TEST_SOURCE_DIR) + "/examples/recording/zmmrec.txt";
constexpr const char* pantalla = "bdc_dynpro 'P' '0100'\nbdc_field 'A-B'\n'v'\n";

struct Ejecucion : pruebas::QorgenDePrueba {
    // The numbers of the messages, each with the answer to its question. What the system said stands below them.
    std::vector<std::string> Numeros() const {
        std::vector<std::string> numeros;
        for (const auto linea : PartirEnLineas(errores)) {
            if (linea.starts_with("  ")) continue;  // what the system said
            const auto corchete = linea.ends_with(']') ? linea.rfind('[') : linea.size();
            numeros.push_back(std::string(linea.substr(0, linea.find(':'))) + std::string(linea.substr(corchete)));
        }
        return numeros;
    }
};

TEST(SapCommands, ARecordingBecomesADocument) {
    Ejecucion qorgen;
    EXPECT_EQ(qorgen.Correr({"import", "D/a.qor", grabacion}), estadoRechazado);
    EXPECT_THAT(qorgen.Numeros(), ElementsAre("329", "373"));  // the empty row between its transactions
    EXPECT_FALSE(std::filesystem::exists(qorgen.directorio / "a.qor"));

    EXPECT_EQ(qorgen.Correr({"import", "D/a.qor", grabacion, "--close-gaps"}), estadoBien);
    EXPECT_THAT(qorgen.Numeros(), ElementsAre("329"));
    const auto filas = qorgen.FilasDePrograma("a.qor");
    ASSERT_EQ(filas.size(), 31U);
    EXPECT_EQ(filas[0], R"("TRANS","MM01")");
    EXPECT_EQ(filas[13], R"("","","BDC_SUBSCR","'SAPLMGMM                                2004TABFRA1'")");
    EXPECT_EQ(filas[14], R"("","","MAKT-MAKTX","'Garden hose, green'")");
    EXPECT_EQ(filas[18], R"("TRANS","MM02")");
}

TEST(SapCommands, RowsThatExistNeedAWord) {
    struct Caso {
        std::vector<std::string> opciones;
        int estado;
        const char* pregunta;
        std::size_t filas;
    };
    const Caso casos[] = {{{}, estadoRechazado, "330[cancel]", 3},
                          {{"--yes"}, estadoRechazado, "330[cancel]", 3},
                          {{"--replace"}, estadoBien, "330[yes]", 3},
                          {{"--append"}, estadoBien, "330[no]", 6},
                          {{"--append", "--yes"}, estadoBien, "330[no]", 6}};
    for (const auto& caso : casos) {
        Ejecucion qorgen;
        qorgen.directorio.Escribir("rec", std::string(pantalla) + "bdc_transaction 'OLD'");
        EXPECT_EQ(qorgen.Correr({"import", "D/a.qor", "D/rec"}), estadoBien);
        qorgen.directorio.Escribir("rec", std::string(pantalla) + "bdc_transaction 'NEW'");
        std::vector<std::string> argumentos = {"import", "D/a.qor", "D/rec"};
        argumentos.insert(argumentos.end(), caso.opciones.begin(), caso.opciones.end());
        EXPECT_EQ(qorgen.Correr(argumentos), caso.estado);
        EXPECT_EQ(qorgen.Numeros().front(), caso.pregunta);
        const auto filas = qorgen.FilasDePrograma("a.qor");
        EXPECT_EQ(filas.size(), caso.filas);
        EXPECT_EQ(filas.front(), caso.filas == 3 && caso.estado == estadoBien ? R"("TRANS","NEW")" : R"("TRANS","OLD")");
    }
}

TEST(SapCommands, ImportsThatAreRefusedSaveNothing) {
    struct Caso {
        std::vector<std::string> argumentos;
        int estado;
        std::vector<std::string> numeros;
    };
    const Caso casos[] = {
        {{"import", "D/a.qor", "D/headless"}, estadoRechazado, {"329", "302"}},
        {{"import", "D/a.qor", "D/headless", "--close-gaps"}, estadoRechazado, {"329", "302"}},
        {{"import", "D/a.qor", "D/absent"}, estadoRechazado, {"335"}},
        {{"import", "D/a.qor", " "}, estadoRechazado, {"332"}},
        {{"import", "D/.", "D/headless"}, estadoRechazado, {"335"}},
        {{"import", "D/headless", "D/headless"}, estadoRechazado, {"335"}},
    };
    for (const auto& caso : casos) {
        Ejecucion qorgen;
        qorgen.directorio.Escribir("headless", pantalla);
        EXPECT_EQ(qorgen.Correr(caso.argumentos), caso.estado) << caso.argumentos[2];
        EXPECT_EQ(qorgen.Numeros(), caso.numeros) << caso.argumentos[2];
        EXPECT_FALSE(std::filesystem::exists(qorgen.directorio / "a.qor"));
    }
}

// Another program writes the document between its reading and its saving.
TEST(SapCommands, AnotherProgramsChangeIsOverwrittenWithYesOnly) {
    for (const bool conYes : {false, true}) {
        const DirectorioTemporal directorio;
        const auto documento = directorio / "a.qor";
        std::ostringstream salida;
        std::ostringstream errores;
        int cambios = 0;
        const auto escribirOtro = [&] {
            const std::string nombre(static_cast<std::size_t>(++cambios), 'X');
            directorio.Escribir("a.qor", "1,\"" + nombre + "\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n");
        };
        escribirOtro();
        PonerTrampa([&](LlamadaDeArchivo llamada) {
            const bool preguntado = Contiene(errores.str(), "Another program");
            if (llamada == LlamadaDeArchivo::Abrir && !preguntado) escribirOtro();
            return 0;
        });
        std::vector<std::string> argumentos = {"import", documento.string(), grabacion, "--close-gaps"};
        if (conYes) argumentos.push_back("--yes");
        const int estado = EjecutarQorgen(argumentos, salida, errores);
        PonerTrampa({});
        EXPECT_EQ(estado, conYes ? estadoBien : estadoRechazado);
        EXPECT_THAT(errores.str(), HasSubstr("Overwrite it? " + std::string(conYes ? "[yes]" : "[no]") + "\n"));
        EXPECT_EQ(Contiene(LeerArchivo(documento), "MM01"), conYes);
    }
}

TEST(SapCommands, WidthsGoOutAndComeBack) {
    Ejecucion qorgen;
    qorgen.directorio.Escribir(
        "a.qor",
        "1,\"MATNR\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n2,\"TRANS\",\"MM01\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n"
        "2,\"\",\"\",\"MARA-MATNR\",\"MATNR\",\"\",\"\",\"\",\"\",\"\"\r\n");
    EXPECT_EQ(qorgen.Correr({"widths", "D/a.qor", "--export", "D/fields"}), estadoBien);
    EXPECT_THAT(qorgen.Numeros(), ElementsAre("327"));
    std::string linea = LeerArchivo(qorgen.directorio / "fields");
    EXPECT_EQ(linea, "MARA" + std::string(26, ' ') + "MATNR" + std::string(25, ' ') + "MATNR" + std::string(25, ' ') + "\r\n");

    EXPECT_EQ(qorgen.Correr({"widths", "--query", "D/fields"}), estadoBien);
    EXPECT_THAT(qorgen.salida, HasSubstr("\nITAB-TABLE = 'MARA'.\nITAB-FIELD = 'MATNR'.\nAPPEND ITAB.\n"));

    qorgen.directorio.Escribir("fields", linea.insert(90, "000018"));
    EXPECT_EQ(qorgen.Correr({"widths", "D/a.qor", "--import", "D/fields"}), estadoBien);
    EXPECT_EQ(qorgen.errores, "");
    EXPECT_THAT(LeerArchivo(qorgen.directorio / "a.qor"), HasSubstr("1,\"MATNR\",\"18\","));

    EXPECT_EQ(qorgen.Correr({"widths", "D/a.qor", "--import", "D/absent"}), estadoRechazado);
    EXPECT_THAT(qorgen.Numeros(), ElementsAre("328"));
    EXPECT_EQ(qorgen.Correr({"widths", "--query", "D/absent"}), estadoRechazado);
    EXPECT_THAT(qorgen.Numeros(), ElementsAre("415"));
}

// One command behind the other, in one practice system.
TEST(SapCommands, ThePracticeSystemAnswersEachCommand) {
    Ejecucion qorgen;
    const std::string vacias = "\"\",\"\",\"\",\"\",\"\",\"\"\r\n";
    qorgen.directorio.Escribir("a.qor", "1,\"QID\",\"\",\"\"," + vacias + "2,\"TRANS\",\"MM01\",\"\"," + vacias +
                                            "2,\"\",\"\",\"APQI-QID\",\"QID\",\"\",\"\",\"\",\"\",\"\"\r\n");
    for (const char* nombre : {"z.txt", "z.rec"}) qorgen.directorio.Escribir(nombre, std::string(pantalla) + "bdc_transaction 'T'");
    const std::string en = " --practice D/s";
    const std::tuple<std::string, int, const char*> casos[] = {
        {"widths D/a.qor" + en, estadoBien, ""},
        {"widths D/a.qor --practice D/z.txt", estadoRechazado, "0: The practice system can't be opened."},
        {"system --system D/s record D/z.txt", estadoBien, "0: 1 transaction recorded."},
        {"import D/b.qor Z" + en, estadoBien, "329: "},
        {"import D/c.qor none" + en, estadoRechazado, "0: The practice system has no session and no recording none."},
        {"system --system D/s record D/z.rec", estadoBien, ""},
        {"import D/c.qor Z" + en, estadoRechazado, "0: The practice system has several entries Z. Name one by its id: 2"},
        {"publish D/z.txt load" + en, estadoRechazado, "412: "},
        {"publish D/z.txt z-load" + en, estadoMalUso, "NAME: z-load is not the name of a program"},
        {"publish D/z.txt zload" + en, estadoBien, "410: "},
        {"publish D/z.txt zload" + en, estadoRechazado, "414: "},
        {"publish D/z.txt zload --dry-run" + en, estadoMalUso, ""},
        {"system --system D/s role p", estadoBien, ""},
        {"publish D/z.txt znew --yes" + en, estadoRechazado, "416: "},
        {"system --system D/s role X", estadoMalUso, "ROLE: X is none of P, T, C, D, E, S and none"},
        {"run --program znew --system D/s", estadoRechazado, "0: The practice system has no program ZNEW."},
        {"bapi update" + en, estadoRechazado, "255: "},
    };
    for (const auto& [orden, estado, errores] : casos) {
        EXPECT_EQ(qorgen.Q(orden), estado) << orden << qorgen.errores;
        EXPECT_THAT(qorgen.errores, testing::StartsWith(errores)) << orden;
    }
    EXPECT_THAT(LeerArchivo(qorgen.directorio / "a.qor"), testing::StartsWith("1,\"QID\",\"20\","));
}

}  // namespace
}  // namespace qor
