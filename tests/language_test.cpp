#include "app/language.h"

#include <gmock/gmock.h>

#include "base/words.h"
#include "tests/support/temporary_directory.h"

namespace qor {
namespace {

using pruebas::DirectorioTemporal;
using ::testing::ElementsAre;

constexpr const char* archivo =
    "0,\"English\"\r\n"
    "300,\"  Save the changes?  \"\r\n"
    "499,\"It's done\"\r\n"
    "500,\"Error in 'it'\"\r\n"
    "699,\"'\"\r\n"
    "700,\"d'oh.html\"\r\n"
    "999,\"last\"\r\n"
    "1000,\"en\"\r\n"
    "1011,\" a word \"\r\n"
    "1012,\"another\"\r\n"
    "100000,\"beyond\"\r\n"
    "0,\"Espa\xF1ol\"\r\n"
    "300,\"\xBFGrabar?\"\r\n"
    "0,\"Deutsch\"\r\n"
    "300,\"Sichern?\"\r\n"
    "300,\"Wirklich sichern?\"\r\n"
    "1012,\"ein anderes\"\r\n"
    "0,\"English\"\r\n"
    "301,\"a second section of the name\"\r\n";

struct Carga {
    explicit Carga(std::string_view contenido, std::string nombre) : IdiomaActual(std::move(nombre)) {
        textos.Poner(300, "of an earlier language");
        resultado = RecuperarIdiomaDeTexto(textos, contenido, IdiomaActual);
    }
    std::string Texto(int numero) const { return textos.Texto(numero); }

    TextosIdioma textos;
    std::string IdiomaActual;
    ResultadoIdioma resultado;
};

TEST(Language, LoadsOneSectionWithItsTextsCut) {
    const Carga carga(archivo,
                      "Fran\xE7"
                      "ais");
    EXPECT_EQ(carga.resultado, ResultadoIdioma::Bien);
    EXPECT_EQ(carga.IdiomaActual, "English") << "which stands in for a language that is missing";
    const std::pair<int, const char*> textos[] = {
        {0, "English"}, {300, "Save the changes?"}, {301, ""},     {499, "It's done"}, {500, "Error in  it "},
        {699, " "},     {700, "d'oh.html"},         {999, "last"}, {1000, ""}};
    for (const auto& [numero, texto] : textos) EXPECT_EQ(carga.Texto(numero), texto) << numero;
}

TEST(Language, NamesAreFoundInAnyCase) {
    const Carga carga(archivo, "ESPA\xD1OL");
    EXPECT_EQ(carga.IdiomaActual, "ESPA\xD1OL");
    EXPECT_EQ(carga.Texto(0), "Espa\xF1ol");
    EXPECT_EQ(carga.Texto(300), "\xBFGrabar?");
    EXPECT_EQ(carga.Texto(999), "");
    EXPECT_EQ(Carga(archivo, "deutsch").Texto(300), "Wirklich sichern?") << "the later text of a number counts";
}

// The words of the language itself, else those of English, else those of the program's own file; what tells of the language is
// never another's.
TEST(Language, WordsThatAreMissingComeFromEnglish) {
    const Carga ingles(archivo, "English");
    const Carga aleman(archivo, "Deutsch");
    EXPECT_EQ(ingles.textos.Palabra(1000) + ingles.textos.Palabra(1011) + ingles.textos.Palabra(1012), "en a word another");
    EXPECT_EQ(aleman.textos.Palabra(1000) + aleman.textos.Palabra(1011) + aleman.textos.Palabra(1012), " a word ein anderes");
    EXPECT_EQ(aleman.textos.Palabra(100000) + ingles.textos.Palabra(1013), "");
    EXPECT_EQ(aleman.textos.PalabraInglesa(1012), "another");
    EXPECT_EQ(aleman.textos.PorIngles("another"), "ein anderes");
    EXPECT_EQ(aleman.textos.PorIngles("no word"), "no word");

    const DirectorioTemporal directorio;
    TextosIdioma textos;
    std::string idioma = "Espanol";
    RecuperarIdioma(textos, directorio.Escribir("language.txt", "0,\"Espanol\"\r\n1,\"Uno\"\r\n"), idioma);
    EXPECT_EQ(textos.Texto(1) + textos.Palabra(palabra::Cerrar), "UnoCerrar") << "a file without words, of an earlier version";
    EXPECT_EQ(textos.Palabra(palabra::CodigoDelIdioma), "");
}

TEST(Language, AFailureKeepsWhatWasRead) {
    struct Caso {
        const char* que;
        const char* contenido;
        const char* nombre;
        ResultadoIdioma resultado;
        const char* texto300;
    };
    const ResultadoIdioma bien = ResultadoIdioma::Bien;
    const ResultadoIdioma fallo = ResultadoIdioma::Fallo;
    const Caso casos[] = {
        {"a negative number", "0,\"English\"\n300,\"a\"\n-1,\"b\"\n", "English", fallo, "a"},
        {"a negative number of another language", "0,\"Deutsch\"\n-1,\"b\"\n0,\"English\"\n300,\"a\"\n", "English", bien, "a"},
        {"a number without its text", "0,\"English\"\n300,\"a\"\n301", "English", fallo, "a"},
        {"an end behind the section", "0,\"English\"\n300,\"a\"\n0,\"Deutsch\"\n301", "English", bien, "a"},
        {"a word for a number opens a language", "0,\"English\"\n300,\"a\"\nx,\"y\"\n300,\"b\"\n", "English", bien, "a"},
        {"a quote that is never closed", "0,\"English\"\n300,\"a\nb", "English", bien, "a\nb"},
        {"a text without quotes", "0,English\n300, a b \n", "English", bien, "a b"},
        {"an empty file", "", "English", bien, ""},
    };
    for (const auto& caso : casos) {
        const Carga carga(caso.contenido, caso.nombre);
        EXPECT_EQ(carga.resultado, caso.resultado) << caso.que;
        EXPECT_EQ(carga.Texto(300), caso.texto300) << caso.que;
    }
}

TEST(Language, AMissingFileLeavesTheTextsAlone) {
    TextosIdioma textos;
    textos.Poner(300, "loaded before");
    std::string idioma = "Espanol";
    EXPECT_EQ(RecuperarIdioma(textos, DirectorioTemporal() / "language.txt", idioma), ResultadoIdioma::SinArchivo);
    EXPECT_EQ(textos.Texto(300) + idioma, "loaded beforeEspanol");
    EXPECT_EQ(textos.Palabra(palabra::Cerrar), "Cerrar") << "words are still there for what has to be told";
}

TEST(Language, ListsTheNamesWithoutQuotes) {
    const DirectorioTemporal directorio;
    const auto todos = ListarIdiomas(directorio.Escribir("language.txt", archivo));
    EXPECT_TRUE(todos.completa);
    EXPECT_THAT(todos.nombres, ElementsAre("English", "Espa\xF1ol", "Deutsch", "English"));

    const auto rotos = ListarIdiomas(directorio.Escribir("language.txt", "0,\"A \"\"B\"\"\"\n300,\"x\"\n0"));
    EXPECT_FALSE(rotos.completa);
    EXPECT_THAT(rotos.nombres, ElementsAre("A B"));

    EXPECT_FALSE(ListarIdiomas(directorio / "missing.txt").completa);
}

}  // namespace
}  // namespace qor
