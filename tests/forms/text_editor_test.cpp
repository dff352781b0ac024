#include "app/qt/text_editor.h"

#include <gmock/gmock.h>

#include <QTest>
#include <filesystem>

#include "app/qt/screen_view.h"
#include "base/files.h"
#include "tests/support/temporary_directory.h"

namespace qor {
namespace {

namespace fs = std::filesystem;

// Programs that write their name and arguments into a file, and are the only ones there are.
class Editores {
public:
    Editores() : ruta_(qgetenv("PATH")) { qputenv("PATH", directorio.Ruta().string().c_str()); }
    ~Editores() { qputenv("PATH", ruta_); }

    std::string Nuevo(const std::string& nombre) {
        const auto hecho = (directorio / "done").string();
        directorio.Escribir(nombre, "#!/bin/sh\nprintf '%s' \"$0\" > '" + hecho + ".new'\nprintf '|%s' \"$@\" >> '" + hecho +
                                        ".new'\n/bin/mv '" + hecho + ".new' '" + hecho + "'\n");
        fs::permissions(directorio / nombre, fs::perms::owner_all);
        return (directorio / nombre).string();
    }
    // What the started program wrote; empty when none comes.
    std::string Llamada() const {
        const auto hecho = directorio / "done";
        if (!QTest::qWaitFor([&] { return fs::exists(hecho); }, 5000)) return "";
        const std::string texto = LeerArchivo(hecho);
        fs::remove(hecho);
        return texto.substr(directorio.Ruta().string().size() + 1);
    }

    pruebas::DirectorioTemporal directorio;

private:
    QByteArray ruta_;
};

TEST(TextEditor, IsThatOfTheSettingsOrAKnownOneWhateverTheNameOfTheFile) {
    Editores editores;
    editores.directorio.Escribir("report.html", "REPORT X.");
    const std::string archivo = (editores.directorio / "report.html").string();
    TextosIdioma textos;
    VistaDePantalla vista(textos);
    std::string comando;
    VistaDePantalla::Formulario formulario;
    formulario.editorDeTextos = [&] { return comando; };
    vista.Servir(formulario);
    EXPECT_FALSE(vista.AbrirEditor(archivo)) << "no editor is installed";

    editores.Nuevo("kate");
    const std::string conBlanco = editores.Nuevo("my editor");
    struct Caso {
        std::string comando;
        std::string llamada;
    };
    for (const auto& [dado, llamada] : {Caso{"", "kate|"}, Caso{conBlanco, "my editor|"}, Caso{"missing -x", "kate|"},
                                        Caso{'"' + conBlanco + "\" --line 3", "my editor|--line|3|"}}) {
        comando = dado;
        EXPECT_TRUE(vista.AbrirEditor(archivo)) << dado;
        EXPECT_EQ(editores.Llamada(), llamada + archivo) << dado;
    }
    EXPECT_FALSE(vista.AbrirEditor((editores.directorio / "missing.abap").string()));
}

}  // namespace
}  // namespace qor
