#include <gmock/gmock.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QPrinter>
#include <QPushButton>
#include <map>
#include <memory>
#include <set>

#include "base/files.h"
#include "tests/forms/all_dialogs.h"
#include "tests/forms/dialog_fixture.h"
#include "tests/support/temporary_directory.h"

namespace qor::pruebas {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DialogosEnIdioma : public ::testing::TestWithParam<const char*> {};

QString LetraDeAcceso(const QString& texto) {
    const auto lugar = texto.indexOf(QLatin1Char('&'));
    return lugar < 0 ? QString() : texto.mid(lugar + 1, 1).toUpper();
}

// A button or a label shows its whole text, and its letter is its own.
void Mirar(const QWidget& control, std::set<QString>& letras) {
    const auto* const boton = qobject_cast<const QAbstractButton*>(&control);
    const auto* const rotulo = qobject_cast<const QLabel*>(&control);
    if (boton == nullptr && rotulo == nullptr) return;
    const QString texto = control.property("text").toString();
    SCOPED_TRACE(control.objectName().toStdString() + ": " + texto.toStdString());
    EXPECT_FALSE(boton != nullptr && texto.isEmpty());
    const QString letra = boton != nullptr || rotulo->buddy() != nullptr ? LetraDeAcceso(texto) : QString();
    EXPECT_TRUE(letra.isEmpty() || letras.insert(letra).second) << "a letter that stands twice";
    if (control.objectName() == QLatin1String("FileToEdit")) return;  // a path of any length
    const bool enLineas = rotulo != nullptr && rotulo->wordWrap();
    EXPECT_TRUE(enLineas || control.width() >= control.sizeHint().width()) << "cut off";
    EXPECT_GE(control.height(), enLineas ? rotulo->heightForWidth(rotulo->width()) : control.minimumSizeHint().height())
        << "cut off";
}

TEST_P(DialogosEnIdioma, ShowWholeWordsWithLettersOfTheirOwn) {
    TodosLosDialogos todos(datos + "/language.txt", GetParam());
    for (const auto& dialogo : todos.Crear()) {
        SCOPED_TRACE(dialogo->objectName().toStdString());
        const DialogoAbierto abierto(*dialogo);
        EXPECT_FALSE(dialogo->windowTitle().isEmpty());
        std::set<QString> letras;
        std::set<QString> nombres;
        for (auto* const control : dialogo->findChildren<QWidget*>()) {
            const QString nombre = control->objectName();
            if (nombre.isEmpty() || nombre.startsWith(QLatin1String("qt_"))) continue;
            EXPECT_TRUE(nombres.insert(nombre).second) << nombre.toStdString() << " twice";
            if (control->isVisible()) Mirar(*control, letras);
        }
        dialogo->reject();
        EXPECT_FALSE(dialogo->isVisible());
    }
    EXPECT_THAT(todos.prueba.vista.avisos, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Languages, DialogosEnIdioma, ::testing::Values("English", "Espanol"));

// ---- Texts to read ----

TEST(TextsToRead, SwallowKeysThatWouldChangeThem) {
    VentanaDePrueba prueba;
    FormPreview preview(prueba.textos, prueba.vista, "A\r\nB", {}, nullptr);
    const DialogoAbierto dialogo(preview);
    dialogo.Pulsar("Preview", Qt::Key_Down);
    EXPECT_EQ(prueba.vista.TomarAvisos(), "");
    dialogo.Teclear("Preview", "x\n");
    for (const int tecla : {Qt::Key_Delete, Qt::Key_Backspace}) dialogo.Pulsar("Preview", tecla, QStringLiteral("\b"));
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<362> <362> <362> <362>");
    EXPECT_EQ(dialogo.Texto("Preview"), "A\r\nB");
    dialogo.Pulsar("Preview", Qt::Key_Escape);
    EXPECT_FALSE(preview.isVisible());
}

// ---- Texts to write ----

// However a text comes in, it passes through the filter, and no double quote is left.
TEST(TextsToWrite, PassTheFilterOnEveryWay) {
    const TextosIdioma textos;
    FormTrans form(textos, {}, nullptr);
    const DialogoAbierto dialogo(form);
    auto* const caja = dialogo.Control<QLineEdit>("Transac");
    QApplication::clipboard()->setText(QStringLiteral("a\"b\nsecond line"));
    const std::map<const char*, std::function<void()>> caminos = {
        {"key", [&] { dialogo.Teclear("Transac", "a\"b"); }},
        {"paste",
         [&] {
             QKeyEvent pegar(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier, QStringLiteral("\x16"));
             QApplication::sendEvent(caja, &pegar);
         }},
        {"menu",
         [&] {
             QTimer::singleShot(0, caja, [&] {
                 auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                 ASSERT_NE(menu, nullptr);
                 for (auto* const accion : menu->actions()) {
                     if (accion->text().startsWith(QStringLiteral("&Paste"))) accion->trigger();
                 }
                 menu->close();
             });
             QContextMenuEvent pedido(QContextMenuEvent::Keyboard, QPoint(2, 2), caja->mapToGlobal(QPoint(2, 2)));
             QApplication::sendEvent(caja, &pedido);
         }},
    };
    for (const auto& [camino, meter] : caminos) {
        caja->clear();
        meter();
        EXPECT_EQ(dialogo.Texto("Transac"), "AB") << camino;
    }
    QKeyEvent conAlt(QEvent::KeyPress, Qt::Key_QuoteDbl, Qt::AltModifier, QStringLiteral("\""));
    QApplication::sendEvent(caja, &conAlt);
    EXPECT_EQ(dialogo.Texto("Transac"), "AB") << "Alt and a letter is no text";
}

// ---- Language, opening box ----

TEST(LanguageDialogs, AnswerTheChoice) {
    VentanaDePrueba prueba;
    DirectorioTemporal directorio;
    const auto archivo = directorio.Escribir("language.txt", "0,\"English\"\r\n1,\"A\"\r\n0,\"Deutsch\"\r\n1");
    FormLenguaje form(prueba.textos, prueba.vista, archivo, "ENGLISH", nullptr);
    const DialogoAbierto dialogo(form);
    EXPECT_EQ(prueba.vista.TomarAvisos(), avisoFalloListaDeIdiomas);
    EXPECT_EQ(dialogo.Texto("Lenguaje"), "English");
    dialogo.Control<QComboBox>("Lenguaje")->setCurrentText(QStringLiteral("  Deutsch "));
    EXPECT_EQ(form.IdiomaElegido(), "") << "closed without OK";
    dialogo.Clic("OK");
    EXPECT_EQ(form.IdiomaElegido(), "Deutsch");

    FormSelectLanguage primera(prueba.textos, archivo, nullptr);
    const DialogoAbierto eleccion(primera);
    EXPECT_EQ(primera.Idioma(), "English");
    eleccion.Clic("OptionDeutsch");
    eleccion.Clic("BotonOK");
    EXPECT_EQ(primera.Idioma(), "Deutsch") << "of the languages of the file";
}

// ---- Printers ----

TEST(Printers, ChooseAPdfFileOrNothing) {
    VentanaDePrueba prueba;
    DirectorioTemporal directorio;
    FormPrinters form(prueba.textos, prueba.vista, "d.pdf", {}, nullptr);
    const DialogoAbierto dialogo(form);
    auto* const lista = dialogo.Control<QListWidget>("PrintersList");
    lista->setCurrentRow(lista->count() - 1);
    dialogo.Clic("PrintButton");
    EXPECT_TRUE(form.isVisible()) << "no file was chosen";
    prueba.vista.archivos = {(directorio / "out.pdf").string()};
    dialogo.Clic("PrintButton");
    ASSERT_FALSE(form.Cancelado());
    EXPECT_EQ(form.Impresora(), nullptr);
    EXPECT_EQ(form.ArchivoPDF(), directorio / "out.pdf");
}

// ---- Operations and BAPIs ----

TEST(Operations, TransactionCodeOrBrowser) {
    const TextosIdioma textos;
    int abierto = 0;
    const auto navegador = [&](QWidget*) { ++abierto; };
    FormTrans form(textos, navegador, nullptr);
    const DialogoAbierto dialogo(form);
    dialogo.Teclear("Transac", "va\"01");
    EXPECT_TRUE(dialogo.Control<QPushButton>("OK")->isDefault());
    dialogo.Clic("OK");
    EXPECT_EQ(form.OperacionElegida(), "VA01");

    FormTrans otro(textos, navegador, nullptr);
    const DialogoAbierto segundo(otro);
    segundo.Teclear("Transac", "X");
    segundo.Clic("ButtonBAPILocator");
    EXPECT_EQ(abierto, 1);
    EXPECT_FALSE(otro.isVisible());
    EXPECT_EQ(otro.OperacionElegida(), "");
}

class Navegador : public ::testing::Test {
protected:
    EntornoDeBAPI Entorno() {
        return {.ArchivoBAPI = catalogo, .directorio = directorio.Ruta().string(), .FilaInsercion = 0, .imprimir = {}};
    }

    VentanaDePrueba prueba;
    DirectorioTemporal directorio;
    std::filesystem::path catalogo =
        directorio.Escribir("BAPIS",
                            "BAPIDEFS\r\n0 46C\r\n1 Order\r\n2 BAPI_ORDER_CREATE\r\n3 Makes <H1>an</H1>&order\r\n"
                            "4 HEAD::I:VBAK\r\n5 AUART\r\n5 VKORG\r\n4 NOTE:X:I:VBAK-NOTE\r\n"
                            "1 Item\r\n2 BAPI_ITEM_GET\r\n3 Reads an item\r\n");
};

TEST_F(Navegador, InsertsTheChosenBAPI) {
    FormBAPI form(prueba.documento, prueba.textos, prueba.vista, Entorno(), nullptr);
    const DialogoAbierto dialogo(form);
    dialogo.Teclear("TextoBuscar", "CREATE");
    dialogo.Clic("Buscar");
    EnElSiguiente([](const DialogoAbierto& campos) { campos.Clic("Cancel"); });
    dialogo.Clic("OK");
    EXPECT_TRUE(form.isVisible()) << "the question was cancelled";
    EXPECT_THAT(prueba.FilasTransaccion(), IsEmpty());
    EnElSiguiente([](const DialogoAbierto& campos) {
        campos.Clic("ObligatoriosOption");
        campos.Clic("OK");
    });
    dialogo.Clic("OK");
    EXPECT_FALSE(form.isVisible());
    EXPECT_THAT(prueba.FilasTransaccion(), ElementsAre("BAPI|BAPI_ORDER_CREATE", "||HEAD-AUART|AUART", "||HEAD-VKORG|VKORG"));
}

TEST_F(Navegador, TellsOfAnotherRelease) {
    SesionSAP sesion = SesionConectada(std::make_shared<Guion>());
    sesion.VersionSistema = "470";
    auto entorno = Entorno();
    entorno.sesion = &sesion;
    FormBAPI form(prueba.documento, prueba.textos, prueba.vista, entorno, nullptr);
    const DialogoAbierto dialogo(form);
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<252> 46C<253> 470. <254>");
}

TEST_F(Navegador, UpdatesTheCatalogueAndCanBeStopped) {
    const auto guion = std::make_shared<Guion>();
    SesionSAP sesion = SesionConectada(guion);
    auto entorno = Entorno();
    entorno.sesion = &sesion;
    FormBAPI form(prueba.documento, prueba.textos, prueba.vista, entorno, nullptr);
    const DialogoAbierto dialogo(form);
    const auto responder = [&] {
        guion->llamadas.clear();
        guion->Responder({"1 New", "2 BAPI_NEW_ONE", "2 BAPI_NEW_TWO", "end"});
        guion->Responder({"3 First", "end"});
        guion->Responder({"3 Second", "end"});
    };

    // The third row lets events through. The button for it is enabled then, and nothing else is.
    responder();
    prueba.vista.respuestas = {Respuesta::Si, Respuesta::No, Respuesta::Si};
    QTimer::singleShot(0, &form, [&] {
        EXPECT_TRUE(dialogo.Habilitado("ButtonCancelUpdate"));
        EXPECT_FALSE(dialogo.Habilitado("TextoBuscar"));
        EXPECT_TRUE(dialogo.Visible("LabelUpdate"));
        form.reject();  // asks, and is answered no
        EXPECT_TRUE(form.isVisible());
        dialogo.Clic("ButtonCancelUpdate");
    });
    dialogo.Control<QPushButton>("ButtonUpdate")->click();
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<255> <442> <442>");
    EXPECT_EQ(dialogo.Texto("VersionSAP"), "46C");
    EXPECT_FALSE(dialogo.Habilitado("ButtonCancelUpdate"));
    EXPECT_TRUE(dialogo.Habilitado("TextoBuscar"));
}

}  // namespace
}  // namespace qor::pruebas
