#include <gmock/gmock.h>

#include "abap/short_dump.h"
#include "practice/files.h"
#include "practice/upload_functions.h"
#include "tests/support/failing_calls.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/practice_fixture.h"
#include "tests/support/temporary_directory.h"

namespace qor {
namespace {

using pruebas::AgregarFila;
using pruebas::FilasDe;
using pruebas::HacerEstructura;
using pruebas::HacerTabla;
using pruebas::LlamadaDePrueba;
using pruebas::OyenteQueApunta;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Modo = abap::Archivos::Modo;

// A folder of a document with files inside and outside of it.
class Carpeta {
public:
    Carpeta() {
        raiz.Escribir("doc/in.txt", "inside\n");
        raiz.Escribir("doc/load.qor", "the document");
        raiz.Escribir("doc/sub/deep.txt", "deep\n");
        raiz.Escribir("document/other.txt", "a neighbour\n");
        raiz.Escribir("out.txt", "outside\n");
        std::error_code error;  // where the system has none, the tests of them are left out
        std::filesystem::create_symlink("../out.txt", raiz / "doc/link.txt", error);
        std::filesystem::create_symlink("..", raiz / "doc/up", error);
        std::filesystem::create_symlink("sub/deep.txt", raiz / "doc/good.txt", error);
        std::filesystem::create_symlink("../new.txt", raiz / "doc/dangling.txt", error);
        lugares.carpeta = raiz / "doc";
        lugares.ajenos = {raiz / "doc/load.qor"};
    }

    NombresDeArchivos& Nombres() {
        if (!nombres) {
            nombres.emplace(
                lugares,
                [this](std::string_view nombre, std::string_view valor) {
                    return EsElNombre("PS_FILE", nombre) && valor == fileVale;
                },
                oyente);
        }
        return *nombres;
    }

    pruebas::DirectorioTemporal raiz;
    LugaresDeArchivos lugares;
    std::string fileVale = "c:\\data\\x.txt";
    OyenteQueApunta oyente;
    std::optional<NombresDeArchivos> nombres;
};

#ifndef LEFT_OUT_PracticeFiles_AreThoseOfTheDocumentAndThoseThatAreNamed
TEST(PracticeFiles, AreThoseOfTheDocumentAndThoseThatAreNamed) {
    Carpeta carpeta;
    const auto raiz = carpeta.raiz.Ruta().string();
    carpeta.lugares.archivos = {{"c:\\Exact", raiz + "/out.txt"}, {"file", raiz + "/doc/in.txt"}, {"PS_FILE", raiz + "/out.txt"}};
    struct Caso {
        std::string nombre;
        const char* primera;  // line; null: not to be opened
    };
    const Caso casos[] = {
        {"in.txt   ", "inside"},
        {"sub\\deep.txt", "deep"},
        {"sub/../in.txt", "inside"},
        {raiz + "/doc/in.txt", "inside"},
        {"good.txt", "deep"},
        {"../doc/in.txt", "inside"},
        {"c:\\Exact", "outside"},
        {"c:\\data\\x.txt", "inside"},
        {"c:\\exact", nullptr},
        {"../out.txt", nullptr},
        {"link.txt", nullptr},
        {"up/out.txt", nullptr},
        {"../document/other.txt", nullptr},
        {raiz + "/out.txt", nullptr},
        {"/etc/passwd", nullptr},
        {"sub", nullptr},
        {"none.txt", nullptr},
        {"  ", nullptr},
        {"\\\\server\\x", nullptr},
    };
    ArchivosDePractica archivos(carpeta.Nombres());
    for (const auto& caso : casos) {
        carpeta.oyente.dichos.clear();
        std::string linea;
        ASSERT_EQ(archivos.Abrir(caso.nombre, Modo::Leer, true), caso.primera != nullptr) << caso.nombre;
        if (!caso.primera) {
            EXPECT_FALSE(archivos.Abrir(caso.nombre, Modo::Leer, true));
            EXPECT_EQ(carpeta.oyente.dichos.size(), 1U) << caso.nombre << ": told once";
            continue;
        }
        EXPECT_TRUE(archivos.Leer(caso.nombre, linea, 0));
        EXPECT_EQ(linea, caso.primera) << caso.nombre;
        EXPECT_FALSE(archivos.Leer(caso.nombre, linea, 0));
        EXPECT_THAT(carpeta.oyente.dichos, IsEmpty());
    }
    EXPECT_TRUE(EsElNombre("p_File", "FILE") && EsElNombre("FILE_1", "file_1") && EsElNombre("psx_FILE_1", "FILE_1"));
    EXPECT_FALSE(EsElNombre("PARM_FILE", "FILE") || EsElNombre("_FILE", "FILE") || EsElNombre("P1_FILE", "FILE"));
}
#endif

#ifndef LEFT_OUT_PracticeFiles_AreWrittenInTheFolderOfTheDocumentOnly
TEST(PracticeFiles, AreWrittenInTheFolderOfTheDocumentOnly) {
    Carpeta carpeta;
    const auto& raiz = carpeta.raiz;
    {
        ArchivosDePractica archivos(carpeta.Nombres());
        for (const char* nombre : {"load.qor", "../x.txt", "link.txt", "dangling.txt", "up/x.txt", "none/x.txt", "sub"}) {
            EXPECT_FALSE(archivos.Abrir(nombre, Modo::Escribir, true)) << nombre;
            EXPECT_FALSE(archivos.Borrar(nombre)) << nombre;
        }
        ASSERT_TRUE(archivos.Abrir("sub/new.txt", Modo::Escribir, true));
        archivos.Escribir("sub/new.txt ", "a");
        archivos.Escribir("sub/new.txt", "");
        archivos.Cerrar("sub/new.txt");
        ASSERT_TRUE(archivos.Abrir("sub/new.txt", Modo::Anadir, false));
        archivos.Escribir("sub/new.txt", "b");
        EXPECT_TRUE(archivos.Abrir("in.txt", Modo::Escribir, true));
        EXPECT_TRUE(archivos.Abrir("good.txt", Modo::Leer, true));
        EXPECT_THROW(archivos.Escribir("good.txt", "x"), abap::Volcado);
        EXPECT_THROW(archivos.Escribir("sub/deep.txt", "x"), abap::Volcado);
    }
    EXPECT_EQ(LeerArchivo(raiz / "doc/sub/new.txt"), "a\n\nb");
    EXPECT_EQ(LeerArchivo(raiz / "doc/in.txt"), "");
    EXPECT_EQ(LeerArchivo(raiz / "doc/load.qor") + LeerArchivo(raiz / "out.txt"), "the documentoutside\n");
    EXPECT_FALSE(std::filesystem::exists(raiz / "new.txt") || std::filesystem::exists(raiz / "x.txt"));
    ArchivosDePractica archivos(carpeta.Nombres());
    EXPECT_TRUE(archivos.Borrar("sub/new.txt"));
    EXPECT_FALSE(std::filesystem::exists(raiz / "doc/sub/new.txt"));
}
#endif

// Every way in which lines may lie to the blocks that a file is read in.
TEST(PracticeFiles, HaveLinesOfAnyLength) {
    Carpeta carpeta;
    std::string texto;
    std::vector<std::string> lineas;
    constexpr std::size_t bloque = std::size_t{1} << 18;
    const char* const fines[] = {"\r\n", "\n", "\r"};
    for (std::size_t i = 0; i < 60; ++i) {
        const std::size_t largo = i % 7 == 3 ? 3 * bloque / 2 : 2 * bloque - texto.size() % bloque - 3 + i % 6;
        lineas.emplace_back(largo, static_cast<char>('a' + i % 26));
        texto += lineas.back() + fines[i % 3];
    }
    // The LF belongs to the CR before it.
    lineas.emplace_back("last");
    texto += "\nlast";
    carpeta.raiz.Escribir("doc/long.txt", texto);
    ArchivosDePractica archivos(carpeta.Nombres());
    ASSERT_TRUE(archivos.Abrir("long.txt", Modo::Leer, true));
    std::string linea;
    std::vector<std::string> leidas;
    while (archivos.Leer("long.txt", linea, 0)) leidas.push_back(linea);
    ASSERT_EQ(leidas.size(), lineas.size());
    EXPECT_TRUE(leidas == lineas);

    ASSERT_TRUE(archivos.Abrir("in.txt", Modo::Leer, false));
    std::vector<std::string> trozos;
    while (archivos.Leer("in.txt", linea, 4)) trozos.push_back(linea);
    EXPECT_THAT(trozos, ElementsAre("insi", "de\n"));
}

TEST(PracticeUploads, FillTheTable) {
    const auto registro = HacerEstructura("", {{"A", 3}, {"N", 3, abap::Tipo::N}, {"B", 2}});
    struct Caso {
        const char* modulo;
        const char* tipo;
        const char* separador;
        const char* archivo;
        std::vector<std::string> filas;
    };
    const Caso casos[] = {
        {"GUI",
         "ASC",
         " ",
         "abc001xy\r\nab\r\n\r\nabc001xyz and more\nlast",
         {"abc001xy", "ab      ", "        ", "abc001xy", "last    "}},
        {"GUI", "ASC", " ", "\r\r\na\rb\n\nc\r", {"        ", "        ", "a       ", "b       ", "        ", "c       "}},
        {"GUI",
         "ASC",
         "X",
         "abcd\t7\txyz\tmore\n\t12345\t\na\n\n\t\tb",
         {"abc007xy", "   345  ", "a  000  ", "   000  ", "   000b "}},
        {"GUI", "DAT", " ", "a\tb", {"a  000  "}},
        {"WS", "DAT", "", "a\t1\tb\r\n", {"a  001b "}},
        {"WS", "ASC", "", "a\t1\tb\r\n", {"a\t1\tb   "}},
        {"WS", "", "", "", {}},
        {"WS", "BIN", "", "12345678\n2", {"12345678", "\n2 000  "}},
    };
    Carpeta carpeta;
    for (const auto& caso : casos) {
        carpeta.raiz.Escribir("doc/up.txt", caso.archivo);
        auto tabla = HacerTabla(registro);
        AgregarFila(tabla, {"old"});
        LlamadaDePrueba llamada("UPLOAD");
        llamada.Exporta("FILENAME", "up.txt   ").Exporta("FILETYPE", caso.tipo).ConTabla("DATA_TAB", tabla);
        llamada.Exporta("HAS_FIELD_SEPARATOR", caso.separador);
        const bool gui = caso.modulo == std::string_view("GUI");
        EXPECT_EQ(gui ? LlamarGUI_UPLOAD(llamada.llamada, carpeta.Nombres()) : LlamarWS_UPLOAD(llamada.llamada, carpeta.Nombres()),
                  "");
        EXPECT_THAT(FilasDe(tabla), ElementsAreArray(caso.filas)) << caso.archivo;
    }
}

TEST(PracticeUploads, FailByName) {
    Carpeta carpeta;
    const auto registro = HacerEstructura("", {{"A", 3}});
    auto tabla = HacerTabla(registro);
    AgregarFila(tabla, {"old"});
    const auto subir = [&](std::string_view nombre, std::string_view tipo) {
        LlamadaDePrueba llamada("GUI_UPLOAD");
        llamada.Exporta("FILENAME", nombre).Exporta("FILETYPE", tipo).ConTabla("DATA_TAB", tabla);
        return LlamarGUI_UPLOAD(llamada.llamada, carpeta.Nombres());
    };
    EXPECT_EQ(subir("", "ASC"), "FILE_OPEN_ERROR");
    EXPECT_EQ(subir("none.txt", "ASC"), "FILE_OPEN_ERROR");
    EXPECT_EQ(subir("../out.txt", "ASC"), "FILE_OPEN_ERROR");
    EXPECT_EQ(subir("in.txt", "XYZ"), "INVALID_TYPE");
    EXPECT_THAT(FilasDe(tabla), ElementsAre("old"));
    carpeta.oyente.dichos.clear();
    {
        // The second block of the file can't be read.
        carpeta.raiz.Escribir("doc/big.txt", std::string(400000, '\n'));
        const pruebas::FalloProvocado fallo(LlamadaDeArchivo::Leer, 2, EIO);
        EXPECT_EQ(subir("big.txt", "ASC"), "FILE_READ_ERROR");
    }
    EXPECT_THAT(FilasDe(tabla), IsEmpty());
    EXPECT_THAT(carpeta.oyente.dichos, ElementsAre(HasSubstr("Input/output error")));
    ArchivosDePractica archivos(carpeta.Nombres());
    ASSERT_TRUE(archivos.Abrir("big.txt", Modo::Leer, true));
    std::filesystem::resize_file(carpeta.raiz / "doc/big.txt", 300000);
    std::string linea;
    EXPECT_THROW(while (archivos.Leer("big.txt", linea, 0)) continue, abap::Volcado);
    EXPECT_THAT(carpeta.oyente.dichos.back(), HasSubstr("became shorter"));
}

}  // namespace
}  // namespace qor
