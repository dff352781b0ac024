#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QRegularExpression>
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

// What is no word of a language, and so stands in the code or in other data.
QString SinNombres(QString texto) {
    static const char* const nombres[] = {
        "Qor Generator - Batch Input & BAPI-based Interface Generator",
        "Qor Generator",
        "QOR End-User",  // the program
        "(Release 1.2.3)",
        "46C",  // releases
        "ENCODING DEFAULT",
        "ENCODING NON-UNICODE",  // additions of ABAP
        "KUNNR",
        "MATNR",
        "RV45A-MABNR(1)",
        "ITABSL_1",
        "ITAB",             // names of the document
        "practice.sqlite",  // a file
    };
    for (const char* const nombre : nombres) texto.remove(QLatin1String(nombre));
    static const QRegularExpression tecla(QStringLiteral("^(Ctrl\\+|Shift\\+)*(F[0-9]+|[A-Z])$"));
    return texto.remove(tecla);
}

// Controls whose entries are no words of a language either.
bool EsDeNombres(const QString& control) {
    static const std::set<QString> controles = {
        QStringLiteral("FormulaCombo"),                                           // those of formulas.txt
        QStringLiteral("ModuleCombo"),      QStringLiteral("FormatoDeFecha"),     // of the SAP system, of files
        QStringLiteral("Lenguaje"),         QStringLiteral("OptionEnglish"),      // languages in their own words
        QStringLiteral("OptionEspanol"),    QStringLiteral("Pregunta"),           //
        QStringLiteral("ScrollLeftButton"), QStringLiteral("ScrollRightButton"),  // the toolkit's own
    };
    return controles.contains(control);
}

// Letters outside of the marks.
bool TieneLetrasSinMarca(const QString& dicho) {
    int dentro = 0;
    for (const QChar c : SinNombres(dicho)) {
        if (c == QChar(0xAB)) ++dentro;
        if (c == QChar(0xBB)) --dentro;
        if (dentro == 0 && c.isLetter()) return true;
    }
    return false;
}

// All that a window and its controls, actions, tabs and headings say, with where it stands. What is typed into boxes is a
// value.
std::vector<std::pair<std::string, QString>> Dichos(const QWidget& ventana) {
    std::vector<std::pair<std::string, QString>> dichos;
    const auto poner = [&](const QObject* de, const char* que, const QString& texto) {
        if (!texto.isEmpty()) dichos.emplace_back(de->objectName().toStdString() + ' ' + que, texto);
    };
    const auto mirar = [&](const QObject* uno) {
        if (uno->objectName().startsWith(QLatin1String("qt_")) || EsDeNombres(uno->objectName())) return;
        for (const char* const que : {"windowTitle", "title", "toolTip", "statusTip", "whatsThis", "placeholderText",
                                      "accessibleName", "accessibleDescription"}) {
            poner(uno, que, uno->property(que).toString());
        }
        if (!uno->inherits("QLineEdit")) poner(uno, "text", uno->property("text").toString());
        if (const auto* const pestanas = qobject_cast<const QTabWidget*>(uno)) {
            for (int i = 0; i < pestanas->count(); ++i) poner(uno, "tab", pestanas->tabText(i));
        }
        if (const auto* const lista = qobject_cast<const QComboBox*>(uno); lista != nullptr) {
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

void ExigirMarcas(const QWidget& ventana) {
    SCOPED_TRACE(ventana.objectName().toStdString());
    for (const auto& [donde, texto] : Dichos(ventana)) {
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
    // It tells that there is nothing to choose from.
    FormImport importacion(todos.importacion, todos.sesion, todos.prueba.textos, todos.prueba.vista, nullptr);
    ExigirMarcas(importacion);
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
