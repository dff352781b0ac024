#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "app/command_line.h"
#include "base/files.h"
#include "print/page.h"
#include "print/text_device.h"
#include "tests/support/temporary_directory.h"

namespace qor::pruebas {
namespace {

const std::filesystem::path fuente = QOR_TEST_SOURCE_DIR;

// The whole print of every example, against a file that a person has read.
TEST(Print, ExamplesAreAsExpected) {
    DirectorioTemporal directorio;
    int ejemplos = 0;
    for (const auto& esperado : std::filesystem::directory_iterator(fuente / "tests/expected/print")) {
        const auto carpeta = fuente / "examples" / esperado.path().stem();
        std::filesystem::path documento;
        for (const auto& archivo : std::filesystem::directory_iterator(carpeta)) {
            if (archivo.path().extension() == ".qor") documento = archivo.path();
        }
        const auto salida = directorio / "print.txt";
        std::ostringstream terminal;
        ASSERT_EQ(EjecutarQorgen({"print", documento.string(), "-o", salida.string()}, terminal, terminal), estadoBien)
            << documento;
        EXPECT_EQ(LeerArchivo(salida), LeerArchivo(esperado.path())) << documento;
        ++ejemplos;
    }
    EXPECT_EQ(ejemplos, 8);
}

// A device of small pages: what is restored behind a page's head.
struct DispositivoDePaginas : DispositivoDeTexto {
    int posicion = 0;
    int pagina = 1;
    int PosicionVertical() const override { return posicion; }
    void NuevaPagina() override { posicion = 0, ++pagina; }
    int NumeroDePagina() const override { return pagina; }
};

TEST(Print, PageBreakRestoresFontAndOrigin) {
    DispositivoDePaginas d;
    TextosIdioma textos;
    textos.Poner(920, "Page");
    d.PonerLetra({"Arial", 10, true});
    d.PonerOrigenIzquierdo(2100);
    d.posicion = 15140;
    ControlarPagina(d, textos);
    EXPECT_EQ(d.Texto(), "");
    d.posicion = 15141;
    ControlarPagina(d, textos);
    EXPECT_EQ(d.pagina, 2);
    EXPECT_EQ(d.Texto(), "\r\n\r\nQor Generator - Batch Input & BAPI-based Interface Generator" + std::string(79, ' ') +
                             "Page 2\r\n\r\n\r\n\r\n");
    EXPECT_EQ(d.LetraActual().tamano, 10);
    EXPECT_TRUE(d.LetraActual().negrita);
    EXPECT_EQ(d.OrigenIzquierdo(), 2100);
}

TEST(Print, LongTextsBreakAtLineEndsAndAtTheWidth) {
    const struct {
        const char* texto;
        const char* esperado;
    } casos[] = {
        {"", "\r\n"},
        {"abcde", "abcde\r\n"},
        {"abcdefgh", "abcde\r\nfgh\r\n"},
        {"ab\r\ncdefgh", "ab\r\ncdefg\r\nh\r\n"},
        {"abcde\r\nf", "abcde\r\n\r\nf\r\n"},  // the break stands behind the width
    };
    for (const auto& caso : casos) {
        DispositivoDeTexto d;
        SPrint(d, TextosIdioma{}, caso.texto, 5);
        EXPECT_EQ(d.Texto(), caso.esperado) << caso.texto;
    }
}

}  // namespace
}  // namespace qor::pruebas
