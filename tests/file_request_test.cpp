#include "base/file_request.h"

#include <gtest/gtest.h>

#include <cerrno>

#include "base/failure_trap.h"
#include "base/files.h"
#include "base/message_text.h"
#include "base/words.h"
#include "model/document_file.h"
#include "model/suggested_name.h"
#include "tests/support/failing_calls.h"
#include "tests/support/language.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

namespace fs = std::filesystem;

TEST(FileDialogs, BeginAtTheFirstPlaceThatIsThere) {
    const DirectorioTemporal d;
    for (const char* const nombre : {"now", "last", "doc", "user"}) fs::create_directory(d / nombre);
    struct Caso {
        const char* presente;
        const char* ultimo;
        const char* delDocumento;
        const char* comienzo;
    };
    const Caso casos[] = {
        {"", "last", "doc", "last/new.pdf"},    {"now/old.pdf", "last", "doc", "now/old.pdf"},
        {"now/", "last", "doc", "now/new.pdf"}, {"gone/old.pdf", "last", "doc", "last/old.pdf"},
        {"", "gone", "doc", "doc/new.pdf"},     {"", "", "gone", "user/new.pdf"},
    };
    const auto en = [&](const char* nombre) { return *nombre == '\0' ? fs::path() : d / nombre; };
    for (const auto& caso : casos) {
        const PedidoDeArchivo pedido{ClaseDeArchivo::PDF, "PDF|*.pdf", en(caso.presente), "new.pdf"};
        EXPECT_EQ(ComienzoDelDialogo(pedido, {en(caso.ultimo), en(caso.delDocumento), d / "user"}), d / caso.comienzo);
    }
    EXPECT_EQ(ComienzoDelDialogo({ClaseDeArchivo::PDF, "PDF|*.pdf", {}, "new.pdf"}, {}), "new.pdf");
}

TEST(FileDialogs, SuggestTheNameOfTheDocumentOrWhatItIsAbout) {
    const auto textos = TextosDe("English");
    struct Caso {
        const char* ruta;
        const char* programa;
        const char* descripcion;
        const char* nombre;
    };
    const Caso casos[] = {
        {"/a/materials.qor", "zload.abap", "Load", "materials.pdf"},
        {"", "c:\\loads\\zload.abap", "Load", "zload.pdf"},
        {"", " ", "Plants / stock: 1\r\nof them", "Plants _ stock_ 1.pdf"},
        {"", "", "...", "specification.pdf"},
        {"", "", "", "specification.pdf"},
    };
    for (const auto& caso : casos) {
        Documento documento;
        documento.ruta = caso.ruta;
        documento.opciones.Programa = caso.programa;
        documento.opciones.Description = caso.descripcion;
        EXPECT_EQ(NombreSugerido(documento, ".pdf", textos), caso.nombre);
    }
}

#ifndef LEFT_OUT_FailedFiles_AreToldApartOnTheScreen
// What the user of a screen reads, behind the words for what failed: the cause, and the whole name.
TEST(FailedFiles, AreToldApartOnTheScreen) {
    const DirectorioTemporal d;
    const auto textos = TextosDe("English");
    VistaDePrueba vista;
    Documento abierto;
    ASSERT_TRUE(GuardarDocumentoComo(abierto, d / "locked.qor", textos, vista));
    d.Escribir("damaged.qor", "\"QOR\",1,2\r\n");
    const auto bueno = d.Escribir("good.qor", "x");

    const auto abrir = [&](const fs::path& ruta) {
        Documento otro;
        vista.mensajes.clear();
        EXPECT_FALSE(AbrirDocumento(otro, ruta, textos, vista));
    };
    const auto guardar = [&](const fs::path& ruta) {
        Documento otro;
        vista.mensajes.clear();
        EXPECT_FALSE(GuardarDocumentoComo(otro, ruta, textos, vista));
    };
    const auto visto = [&] {
        const auto texto = EnPantalla(vista.mensajes.at(0), textos);
        return texto.texto + "|" + texto.detalle;
    };
    const auto se = [&](const char* que, const char* causa, const fs::path& ruta) {
        return std::string(que) + "\r\n" + causa + "|" + ruta.string();
    };
    constexpr const char* sinAbrir = "The file could not be opened.";
    constexpr const char* sinGuardar = "The specification could not be saved.";

    abrir(d / "none.qor");
    EXPECT_EQ(visto(), se(sinAbrir, "There is no such file.", d / "none.qor"));
    abrir(d / "none/a.qor");
    EXPECT_EQ(visto(), se(sinAbrir, "The folder of the file does not exist.", d / "none/a.qor"));
    abrir(d / "locked.qor");
    EXPECT_EQ(visto(), se(sinAbrir, "Another window, another program or another user has the file open.", d / "locked.qor"));
    abrir(d / "damaged.qor");
    EXPECT_EQ(visto(), se(sinAbrir, "The file is damaged, or it is a file of another kind.", d / "damaged.qor"));
    abrir(d.Ruta());
    EXPECT_EQ(visto(), se(sinAbrir, "It is a folder or a device and not a file.", d.Ruta()));
    {
        const FalloProvocado fallo(LlamadaDeArchivo::Abrir, 1, EACCES);
        abrir(bueno);
    }
    EXPECT_EQ(visto(), se(sinAbrir, "You have no permission for this file or its folder.", bueno));
    {
        const FalloProvocado fallo(LlamadaDeArchivo::Leer, 1, EIO);
        const FalloProvocado otro(LlamadaDeArchivo::Abrir, 1, EIO);
        abrir(bueno);
    }
    EXPECT_EQ(visto(), sinAbrir + std::string("|Input/output error: ") + bueno.string());  // only the system can tell
    {
        const FalloProvocado fallo(LlamadaDeArchivo::LlevarAlDisco, 1, ENOSPC);
        guardar(d / "full.qor");
    }
    EXPECT_EQ(visto(), se(sinGuardar, "There is no room left on the disk.", d / "full.qor"));
    guardar(d / "none/a.qor");
    EXPECT_EQ(visto(), se(sinGuardar, "The folder of the file does not exist.", d / "none/a.qor"));

    // An action that no rule of its own catches.
    vista.mensajes.clear();
    EXPECT_FALSE(ConTrampa(vista, [&] { LeerArchivo(d / "none.txt"); }));
    EXPECT_EQ(visto(), se("The action failed.", "There is no such file.", d / "none.txt"));
    vista.mensajes.clear();
    EXPECT_FALSE(ConTrampa(vista, [] { throw FalloDeEjecucion("no luck"); }));
    EXPECT_EQ(visto(), "The action failed: no luck.|");
}
#endif

// Sentences of the core are in the loaded language; what a system or a user wrote stays.
TEST(TextsOnTheScreen, AreInTheLoadedLanguageLineByLine) {
    const auto textos = TextosDe("Espanol");
    const std::string logon = textos.Palabra(palabra::LaConexionHaFallado);
    ASSERT_NE(logon, "The logon has failed.");
    EXPECT_EQ(EnPantalla(MensajeLiteral("The logon has failed.\r\nName or password\r\n"), textos).texto,
              logon + "\r\nName or password\r\n");
    Mensaje conMotivo = Componer(textos, {411});
    conMotivo.texto += "\r\nThe connection to the SAP system is lost. Please log on again.";
    EXPECT_EQ(EnPantalla(conMotivo, textos).texto, textos.Texto(411) + "\r\n" + textos.Palabra(palabra::ConexionConSAPPerdida));
}

}  // namespace
}  // namespace qor::pruebas
