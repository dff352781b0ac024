#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QMenu>
#include <QTabWidget>
#include <set>
#include <utility>
#include <vector>

#include "app/FormEnsayo.h"
#include "app/qt/help_window.h"
#include "app/qt/toolkit_language.h"
#include "base/files.h"
#include "base/values.h"
#include "tests/forms/all_dialogs.h"
#include "tests/forms/dialog_fixture.h"
#include "tests/forms/principal_fixture.h"

// A language that nobody speaks is added to the language file: each text of English between marks. Every form that is opened in it
// shows marked words alone.
namespace qor::pruebas {
namespace {

constexpr char abre = '\xAB';
constexpr char cierra = '\xBB';

std::filesystem::path ArchivoConIdiomaInventado(const DirectorioTemporal& directorio) {
    const std::string original = LeerArchivo(datos + "/language.txt");
    std::string inventado = "0,\"Made up\"\r\n1000,\"xx\"\r\n";
    LectorValores lector(original);
    lector.Leer(), lector.Leer();
    while (!lector.AlFinal()) {
        const std::string numero = lector.Leer().ComoTexto();
        const std::string texto = lector.Leer().ComoTexto();
        if (numero == "0") break;
        const bool dePagina = numero.size() == 3 && numero.starts_with('7');
        if (numero != "1000") inventado += numero + ',' + CampoTexto(dePagina ? texto : abre + texto + cierra) + "\r\n";
    }
    return directorio.Escribir("language.txt", original + inventado);
}

// What is not a word of any language.
bool EsNombre(const QString& texto) {
    static const std::set<QString> nombres = {
        QStringLiteral("Qor Generator"),     // the program
        QStringLiteral("ENCODING DEFAULT"),  // additions of ABAP
        QStringLiteral("ENCODING NON-UNICODE"),
    };
    return nombres.contains(texto);
}

// Letters outside of the marks.
bool TieneLetrasSinMarca(const QString& texto) {
    int dentro = 0;
    for (const QChar c : texto) {
        if (c == QChar(0xAB)) ++dentro;
        if (c == QChar(0xBB)) --dentro;
        if (dentro == 0 && c.isLetter()) return !EsNombre(texto);
    }
    return false;
}

// All that a window and its controls, actions, tabs and headings say, with where it stands. `valores` are controls whose contents
// are values: names of fields, files and systems.
std::vector<std::pair<std::string, QString>> Dichos(const QWidget& ventana, const std::set<QString>& valores) {
    std::vector<std::pair<std::string, QString>> dichos;
    const auto poner = [&](const QObject* de, const char* que, const QString& texto) {
        if (!texto.isEmpty()) dichos.emplace_back(de->objectName().toStdString() + ' ' + que, texto);
    };
    const auto mirar = [&](const QObject* uno) {
        if (uno->objectName().startsWith(QLatin1String("qt_"))) return;
        for (const char* const que : {"windowTitle", "title", "toolTip", "statusTip", "whatsThis", "placeholderText",
                                      "accessibleName", "accessibleDescription"}) {
            poner(uno, que, uno->property(que).toString());
        }
        const bool deValor = valores.contains(uno->objectName()) || uno->inherits("QLineEdit");
        if (!deValor) poner(uno, "text", uno->property("text").toString());
        if (const auto* const pestanas = qobject_cast<const QTabWidget*>(uno)) {
            for (int i = 0; i < pestanas->count(); ++i) poner(uno, "tab", pestanas->tabText(i));
        }
        if (const auto* const lista = qobject_cast<const QComboBox*>(uno); lista != nullptr && !deValor) {
            for (int i = 0; i < lista->count(); ++i) poner(uno, "item", lista->itemText(i));
        }
        if (const auto* const vista = qobject_cast<const QAbstractItemView*>(uno); vista != nullptr && vista->model() != nullptr) {
            for (int i = 0; i < vista->model()->columnCount(); ++i) {
                poner(uno, "heading", vista->model()->headerData(i, Qt::Horizontal).toString());
            }
        }
    };
    mirar(&ventana);
    for (const auto* const hijo : ventana.findChildren<QObject*>()) {
        if (hijo->isWidgetType() || hijo->inherits("QAction")) mirar(hijo);
    }
    return dichos;
}

void ExigirMarcas(const QWidget& ventana, const std::set<QString>& valores = {}) {
    SCOPED_TRACE(ventana.objectName().toStdString());
    for (const auto& [donde, texto] : Dichos(ventana, valores)) {
        EXPECT_FALSE(TieneLetrasSinMarca(texto)) << donde << ": " << texto.toStdString();
    }
}

TEST(MadeUpLanguage, EveryDialogSpeaksIt) {
    const DirectorioTemporal directorio;
    TodosLosDialogos todos(ArchivoConIdiomaInventado(directorio), "Made up");
    for (const auto& dialogo : todos.Crear()) {
        const DialogoAbierto abierto(*dialogo);
        ExigirMarcas(*dialogo);
    }
}

TEST(MadeUpLanguage, TheMainFormAndItsHelpSpeakIt) {
    ProgramaDePrueba p;
    std::string idioma = "Made up";
    RecuperarIdioma(p.programa->textos, ArchivoConIdiomaInventado(p.directorio), idioma);
    p.principal->RefrescarIdioma();
    ExigirMarcas(*p.principal);
    VentanaDeAyuda ayuda(p.programa->textos, datos, nullptr);
    ExigirMarcas(ayuda);
}

// The toolkit's words come by the code of the language, and are English where it has none of that code.
TEST(MadeUpLanguage, TheToolkitSpeaksTheLanguagesThatItHas) {
    const auto cancelar = [] { return QCoreApplication::translate("QPlatformTheme", "Cancel").toStdString(); };
    CambiarIdiomaDeQt("es");
    EXPECT_EQ(cancelar(), "Cancelar");
    CambiarIdiomaDeQt("de");
    EXPECT_EQ(cancelar(), "Abbrechen");
    CambiarIdiomaDeQt("xx");
    EXPECT_EQ(cancelar(), "Cancel");
    CambiarIdiomaDeQt("");
    EXPECT_EQ(cancelar(), "Cancel");
}

}  // namespace
}  // namespace qor::pruebas
