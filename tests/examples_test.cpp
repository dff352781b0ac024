#include <gtest/gtest.h>

#include <filesystem>
#include <iomanip>
#include <iterator>
#include <sstream>

#include "app/command_line.h"
#include "base/code_page.h"
#include "base/files.h"
#include "base/text.h"
#include "tests/support/environment.h"
#include "tests/support/temporary_directory.h"

namespace qor::pruebas {
namespace {

const std::filesystem::path ejemplos = std::filesystem::path(QOR_TEST_SOURCE_DIR) / "examples";

struct Corrida {
    std::string estado;
    std::string salida;
    std::string errores;
};

Corrida CorrerAparte(const std::vector<std::string>& argumentos) {
    std::ostringstream salida;
    std::ostringstream errores;
    const int estado = EjecutarQorgen(argumentos, salida, errores);
    return {std::to_string(estado), salida.str(), errores.str()};
}

// Runs qorgen and gives what it said, behind its status.
std::string Correr(const std::vector<std::string>& argumentos) {
    const auto corrida = CorrerAparte(argumentos);
    return corrida.estado + "\n" + corrida.salida + corrida.errores;
}

std::string LeerSiEsta(const std::filesystem::path& archivo) {
    return std::filesystem::exists(archivo) ? LeerArchivo(archivo) : std::string();
}

TEST(Examples, ReportsAreAsExpected) {
    PonerVariable("SOURCE_DATE_EPOCH", "1100000000");
    DirectorioTemporal directorio;
    int informes = 0;
    for (const auto& ejemplo : std::filesystem::directory_iterator(ejemplos)) {
        std::vector<std::string> comunes;
        if (std::filesystem::exists(ejemplo.path() / "Tessaline.ini")) comunes = {"--settings", ejemplo.path().string()};
        for (const auto& documento : std::filesystem::directory_iterator(ejemplo.path())) {
            const auto esperado = ejemplo.path() / "expected" / documento.path().filename().replace_extension(".abap");
            if (documento.path().extension() != ".qor" || !std::filesystem::exists(esperado)) continue;
            auto argumentos = comunes;
            const auto informe = (directorio / documento.path().stem().string()).string();
            for (const auto& argumento : {std::string("generate"), documento.path().string(), std::string("-o"), informe}) {
                argumentos.push_back(argumento);
            }
            EXPECT_TRUE(Correr(argumentos).starts_with("0\n")) << documento.path();
            EXPECT_EQ(LeerArchivo(informe), LeerArchivo(esperado)) << documento.path();
            std::filesystem::remove(informe);
            ++informes;
        }
    }
    EXPECT_GE(informes, 8);
}

// The commands of each README that run a report or show a table, in their order and in a copy of the folder. The last word, without
// ".jsonl", names what is expected: NAME.txt on the standard output, NAME.err on the error output, and the journal.
TEST(Examples, RunsAreAsExpected) {
    PonerVariable("SOURCE_DATE_EPOCH", "1100000000");
    DirectorioTemporal directorio;
    const auto antes = std::filesystem::current_path();
    int corridas = 0;
    for (const auto& ejemplo : std::filesystem::directory_iterator(ejemplos)) {
        const auto copia = directorio / ejemplo.path().filename().string();
        std::filesystem::copy(ejemplo.path(), copia, std::filesystem::copy_options::recursive);
        std::filesystem::current_path(copia);
        std::istringstream texto(LeerArchivo("README.md"));
        for (std::string linea; std::getline(texto, linea);) {
            if (!linea.starts_with("    qorgen ") || !(Contiene(linea, " run ") || Contiene(linea, " show "))) continue;
            std::vector<std::string> argumentos;
            std::istringstream palabras(linea.substr(11));
            for (std::string palabra; palabras >> std::quoted(palabra, '\'', '\0');) argumentos.push_back(palabra);
            const auto esperado = std::filesystem::path("expected") / argumentos.back();
            const auto corrida = CorrerAparte(argumentos);
            const auto con = [&](const char* extension) { return std::filesystem::path(esperado).replace_extension(extension); };
            EXPECT_EQ(corrida.salida, LeerArchivo(con(".txt"))) << copia << linea;
            EXPECT_EQ(corrida.errores, LeerSiEsta(con(".err"))) << copia << linea;
            EXPECT_EQ(LeerSiEsta(argumentos.back()), LeerSiEsta(esperado)) << copia << linea;
            EXPECT_EQ(corrida.estado, Contiene(corrida.errores, "record ") ? "1" : "0") << copia << linea;
            ++corridas;
        }
    }
    std::filesystem::current_path(antes);
    EXPECT_GE(corridas, 13);
}

TEST(Examples, EarliestFormatIsConverted) {
    DirectorioTemporal directorio;
    const auto nuevo = directorio / "new.qor";
    ASSERT_EQ(Correr({"convert", (ejemplos / "old-format/vendors.qor").string(), "-o", nuevo.string()}), "0\n");
    EXPECT_EQ(LeerArchivo(nuevo), LeerArchivo(ejemplos / "old-format/expected/vendors.qor"));
}

// An option without a value between its name and the next argument takes nothing from that argument.
TEST(CommandLine, EmptyValuesStayEmpty) {
    DirectorioTemporal directorio;
    const auto sesion = directorio / "session.txt";
    const auto con = [&](const char* nuevo, bool separado) {
        std::filesystem::copy_file(ejemplos / "data-sets/session.txt", sesion, std::filesystem::copy_options::overwrite_existing);
        std::vector<std::string> argumentos = {"dataset", sesion.string(), "--field=RMMG1-MBRSH", nuevo};
        if (separado) argumentos.emplace_back();
        argumentos.insert(argumentos.end(), {"--once", "--yes"});
        EXPECT_TRUE(Correr(argumentos).starts_with("0\n360: 4 "));
        return LeerArchivo(sesion);
    };
    const auto vaciada = con("--new=", false);
    EXPECT_FALSE(Contiene(vaciada, "--once"));
    EXPECT_EQ(vaciada, con("--new", true));
    EXPECT_TRUE(Correr({"dataset", sesion.string(), "--yes="}).starts_with("2\n"));
}

TEST(CommandLine, WrongArgumentsAreToldByTheUsage) {
    for (const char* const orden : {"",
                                    "unknown",
                                    "generate",
                                    "convert d.qor",
                                    "source d.qor --model file",
                                    "source d.qor --model 0 --from server",
                                    "check --all",
                                    "check d.qor --format text",
                                    "check d.qor --warnings-as-errors",
                                    "check --all --format xml d.qor",
                                    "check --all d.qor --format",
                                    "import d.qor",
                                    "import d.qor rec --replace --append",
                                    "widths",
                                    "widths d.qor",
                                    "widths --export f",
                                    "widths d.qor --query f",
                                    "widths d.qor --export f --import f",
                                    "publish load.abap ZLOAD",
                                    "publish load.abap --dry-run"}) {
        std::istringstream palabras(orden);
        const auto corrida = CorrerAparte({std::istream_iterator<std::string>(palabras), {}});
        EXPECT_EQ(corrida.estado + corrida.salida, "2") << orden;
        EXPECT_TRUE(Contiene(corrida.errores, "qorgen")) << corrida.errores;
    }
}

// Statuses, answers, and where the common options may stand.
TEST(CommandLine, TellsStatusAndMessages) {
    DirectorioTemporal directorio;
    const auto documento = (ejemplos / "mm01/materials.qor").string();
    const auto informe = (directorio / "report.abap").string();
    const auto vacio = directorio.Escribir("empty.qor", "").string();
    DirectorioTemporal sinLeer;
    std::filesystem::create_directory(sinLeer / "Tessaline.ini");
    const struct {
        std::vector<std::string> argumentos;
        const char* comienzo;
    } casos[] = {
        {{"source", documento, "--model", "open-sql", "--table", ""}, "2\n"},
        {{"print", documento, "-o", (directorio / "no/such/place").string()}, "1\n0: "},
        {{"--help"}, "0\n"},
        {{"--version"}, "0\nqorgen 1."},
        {{"check", documento}, "0\n"},
        {{"generate", documento, "-o", informe}, "0\n323: "},
        {{"generate", documento, "-o", informe}, "1\n337: "},
        {{"generate", documento, "--yes", "-o", informe}, "0\n337: "},
        {{"--yes", "generate", documento, "-o", (directorio / "no/such/place").string()}, "1\n326: "},
        {{"--language", "espanol", "check", (directorio / "missing.qor").string()}, "1\n335: No se pudo"},
        {{"check", vacio}, "1\n302: "},
        {{"check", documento, vacio, documento}, "1\n"},
        {{"generate", vacio, "-o", "-"}, "1\n302: "},
        {{"check", vacio, "--data", directorio.Ruta().string()}, "1\n0: Cannot find language file.\n  No such file or directory: "},
        {{"check", documento, "--settings", (directorio / "none").string()},
         "1\n0: The settings can't be read.\n  No such file or directory: "},
        {{"check", documento, "--settings", vacio}, "1\n0: The settings can't be read.\n  Not a directory: "},
        {{"check", documento, "--settings", sinLeer.Ruta().string()}, "1\n0: The settings can't be read.\n  Not a regular file: "},
        {{"check", documento, "--settings", directorio.Ruta().string()}, "0\n"},
        {{"bapi", "insert", documento, "\xE2\x88\x9E"}, "1\n0: "},  // a name that the code page lacks
    };
    for (const auto& caso : casos) {
        const std::string dicho = Correr(caso.argumentos);
        EXPECT_TRUE(dicho.starts_with(caso.comienzo)) << dicho << "\nand not " << caso.comienzo;
    }
    // The answer stands behind the question.
    EXPECT_TRUE(Contiene(Correr({"generate", documento, "-o", informe}), "[cancel]\n"));
    EXPECT_TRUE(Contiene(Correr({"generate", documento, "-o", informe, "--yes"}), "[ok]\n"));
    // To the standard output the same lines go as into the file.
    EXPECT_EQ(Correr({"generate", documento, "-o", "-"}), "0\n" + AUtf8(ReemplazarTodo(LeerArchivo(informe), "\r\n", "\n")));
    EXPECT_EQ(Correr({"print", documento, "-o", "-"}), Correr({"print", documento}));
    EXPECT_TRUE(Correr({"check", documento, vacio}).ends_with(vacio + ":\n302: " + Correr({"check", vacio}).substr(7)));
    // No report overwrites the document that it is made from.
    const auto copia = (directorio / "copy.qor").string();
    std::filesystem::copy_file(documento, copia);
    EXPECT_TRUE(Contiene(Correr({"generate", copia, "-o", copia, "--yes"}), "326: "));
    EXPECT_EQ(LeerArchivo(copia), LeerArchivo(documento));
}

}  // namespace
}  // namespace qor::pruebas
