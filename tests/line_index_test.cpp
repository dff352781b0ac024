#include "base/line_index.h"

#include <gmock/gmock.h>

#include "base/failure.h"
#include "base/files.h"
#include "tests/support/temporary_directory.h"

namespace qor::pruebas {
namespace {

using ::testing::ElementsAre;

void Contar(IndiceDeLineas& indice) {
    while (indice.Avanzar()) {
    }
}

TEST(LineIndex, AgreesWithTheReaderOfWholeFiles) {
    DirectorioTemporal directorio;
    const std::string larga(3000, 'x');
    for (const std::string& texto : {std::string(), std::string("one"), std::string("one\r\ntwo\nthree\rfour"),
                                     std::string("\n\n\r\r\n"), std::string("one\r\n"), larga + "\r\n\r\n" + larga}) {
        IndiceDeLineas indice(directorio.Escribir("file", texto));
        Contar(indice);
        const auto lineas = PartirEnLineas(texto);
        ASSERT_EQ(indice.Lineas(), lineas.size());
        EXPECT_EQ(indice.Leer(0, lineas.size() + 5, 10000), std::vector<std::string>(lineas.begin(), lineas.end()));
    }
}

// Line ends that a step, or a reading, cuts in two; and places far from a mark.
TEST(LineIndex, FindsAnyLineOfALargeFile) {
    DirectorioTemporal directorio;
    std::string texto((1 << 20) - 1, 'a');  // the CR is the last character of the first step
    texto += "\r\n";
    for (int n = 1; n < 20000; ++n) texto += "line " + std::to_string(n) + (n % 7 == 0 ? "\r" : "\r\n");
    IndiceDeLineas indice(directorio.Escribir("file", texto));
    EXPECT_TRUE(indice.Avanzar());
    EXPECT_FALSE(indice.Completo());
    EXPECT_EQ(indice.Lineas(), 1U);
    Contar(indice);
    EXPECT_TRUE(indice.Completo());
    EXPECT_EQ(indice.Lineas(), 20000U);
    EXPECT_THAT(indice.Leer(0, 2, 3), ElementsAre("aaa", "lin"));
    for (const std::size_t n : {1, 255, 256, 257, 9999, 19998}) {
        EXPECT_THAT(indice.Leer(n, 2, 99), ElementsAre("line " + std::to_string(n), "line " + std::to_string(n + 1))) << n;
        if (n == 19998) EXPECT_THAT(indice.Leer(n + 1, 2, 99), ElementsAre("line 19999"));
    }
    EXPECT_TRUE(indice.Leer(20000, 1, 9).empty());
}

// Whatever follows a very long line is shown without reading that line.
TEST(LineIndex, LongLinesAreReadAsFarAsTheyAreShown) {
    DirectorioTemporal directorio;
    const std::string larga(std::size_t{3} << 20, 'x');
    IndiceDeLineas indice(directorio.Escribir("file", "one\n" + larga + "\r\nthree\n" + larga));
    Contar(indice);
    std::size_t lecturas = 0;
    PonerTrampa([&](LlamadaDeArchivo) { return ++lecturas, 0; });
    EXPECT_THAT(indice.Leer(0, 9, 3), ElementsAre("one", "xxx", "thr", "xxx"));
    EXPECT_LE(lecturas, 4U);
    EXPECT_THAT(indice.Leer(2, 1, 9), ElementsAre("three"));
    EXPECT_LE(lecturas, 6U);
    PonerTrampa({});
}

TEST(LineIndex, FileThatIsMissingOrShrinks) {
    DirectorioTemporal directorio;
    EXPECT_THROW(IndiceDeLineas(directorio / "none"), FalloDeEjecucion);
    const auto ruta = directorio.Escribir("file", "one\ntwo\nthree\n");
    IndiceDeLineas indice(ruta);
    Contar(indice);
    std::filesystem::resize_file(ruta, 4);
    EXPECT_THAT(indice.Leer(0, 3, 9), ElementsAre("one"));
}

}  // namespace
}  // namespace qor::pruebas
