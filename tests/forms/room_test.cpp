#include "base/qt/room.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

#include "base/qt/dialog.h"
#include "tests/forms/all_dialogs.h"
#include "tests/forms/dialog_fixture.h"
#include "tests/forms/principal_fixture.h"

// What forms make of the room that they have.
namespace qor::pruebas {
namespace {

constexpr QSize pantallaPequena(800 - 8, 600 - 32);  // less a frame

class Sitio : public ::testing::TestWithParam<const char*> {};

TEST_P(Sitio, EachDialogFitsASmallScreen) {
    TodosLosDialogos todos(datos + "/language.txt", GetParam());
    for (const auto& dialogo : todos.Crear()) {
        const DialogoAbierto abierto(*dialogo);
        const QSize menor = dialogo->minimumSizeHint();
        EXPECT_EQ(menor, menor.boundedTo(pantallaPequena)) << dialogo->objectName().toStdString();
        EXPECT_EQ(dialogo->size(), dialogo->size().boundedTo(SitioEnPantalla(*dialogo))) << dialogo->objectName().toStdString();
        dialogo->reject();
    }
}

// The pages are whole where the window is as large as most screens, and are scrolled upwards alone where it is smaller. Rows are
// as high as their text, however high the window is, and those of the two grids are in line.
TEST_P(Sitio, ThePagesAreWhole) {
    ProgramaDePrueba p;
    p.directorio.Escribir("Tessaline.ini", std::string("Language=") + GetParam() + "\r\n");
    p.Abrir();
    auto* const fichas = p.Control<QTabWidget>("SSTab1");
    for (const QSize tamano : {QSize(792, 568), QSize(1016, 568), QSize(1358, 704), QSize(1900, 1040)}) {
        p.principal->resize(tamano);
        for (int i = 0; i < fichas->count(); ++i) {
            fichas->setCurrentIndex(i);
            QApplication::processEvents();
            const auto* const pagina = qobject_cast<QScrollArea*>(fichas->widget(i));
            EXPECT_EQ(pagina->horizontalScrollBar()->maximum(), 0) << i << ' ' << tamano.width();
            const auto entera = [&] { return pagina->verticalScrollBar()->maximum() == 0; };
            EXPECT_TRUE(tamano.height() < 600 || QTest::qWaitFor(entera, 500)) << i << ' ' << tamano.width();
        }
        fichas->setCurrentIndex(0);
        QApplication::processEvents();
        const auto* const celda = p.Control("Text5_3");
        EXPECT_EQ(celda->height(), celda->sizeHint().height()) << tamano.height();
        EXPECT_EQ(celda->mapToGlobal(QPoint()).y(), p.Control("Text1_3")->mapToGlobal(QPoint()).y());
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, Sitio, ::testing::Values("English", "Espanol"));

class DialogoAlto : public Dialogo {
public:
    explicit DialogoAlto(const TextosIdioma& textos) : Dialogo(textos, "DialogoAlto", nullptr) {
        auto* const orden = new QVBoxLayout(this);
        for (int i = 0; i < 200; ++i) orden->addWidget(NuevoBoton(("B" + std::to_string(i)).c_str(), QString::number(i)));
        orden->addLayout(FilaDeBotones({NuevoBoton("OK", QStringLiteral("OK"))}));
        PonerTamano(20, 10);
    }
};

TEST(Room, WhatIsHigherThanTheScreenIsScrolledButForItsButtons) {
    const TextosIdioma textos;
    DialogoAlto dialogo(textos);
    const DialogoAbierto abierto(dialogo);
    EXPECT_LE(dialogo.height(), SitioEnPantalla(dialogo).height());
    EXPECT_FALSE(abierto.Control("OK")->visibleRegion().isEmpty());
    EXPECT_FALSE(abierto.Control("B0")->visibleRegion().isEmpty());
    EXPECT_TRUE(abierto.Control("B199")->visibleRegion().isEmpty());
    abierto.Control("B198")->setFocus();
    QTest::keyClick(abierto.Control("B198"), Qt::Key_Tab);
    EXPECT_FALSE(abierto.Control("B199")->visibleRegion().isEmpty());
}

TEST(Room, TheStructuresStandBelowWhereThereIsRoom) {
    ProgramaDePrueba p;
    auto& documento = p.LaVentana().documento;
    documento.especificacion.TablaArchivo[0] = {"MATNR", "18", "", ""};
    documento.especificacion.TablaTransaccion[0] = {"TRANS", "MM01", "", "", ""};
    documento.especificacion.TablaTransaccion[1] = {"SAPLMGMM", "0060", "", "", ""};
    documento.especificacion.TablaTransaccion[2] = {"", "", "RMMG1-MATNR", "MATNR", ""};
    documento.Cambiar();
    p.principal->Sincronizar();
    const auto* const panel = p.Control("PanelDeEstructuras");
    auto* const texto = p.Control<QPlainTextEdit>("TextoDeEstructuras");
    p.principal->resize(1016, 568);
    ASSERT_TRUE(QTest::qWaitFor([&] { return texto->toPlainText().contains(QLatin1String("MATNR(18)")); }, 2000));
    EXPECT_FALSE(panel->isVisible());
    p.principal->resize(1800, 1000);
    QApplication::processEvents();
    EXPECT_TRUE(panel->isVisible());
    EXPECT_LE(panel->height(), 1000 / 3);

    documento.especificacion.TablaArchivo[0].ancho = "20";
    documento.Cambiar();
    p.principal->Sincronizar();
    EXPECT_TRUE(QTest::qWaitFor([&] { return texto->toPlainText().contains(QLatin1String("MATNR(20)")); }, 2000));

    // Switched off, it stays so.
    p.Control<QToolButton>("CerrarEstructuras")->click();
    EXPECT_FALSE(panel->isVisible());
    ASSERT_TRUE(p.principal->close() || p.vista->avisos.size() == 1);
    documento.Cambiar();
    EXPECT_FALSE(p.principal->findChild<QAction*>("StructuresOption")->isChecked());
}

TEST(OpeningBox, GoesWithAnyKeyWhichIsNotLost) {
    const struct {
        Qt::Key tecla;
        const char* queda;
    } casos[] = {{Qt::Key_M, "M"}, {Qt::Key_Space, ""}, {Qt::Key_Escape, ""}, {Qt::Key_Return, ""}};
    for (const auto& [tecla, queda] : casos) {
        ProgramaDePrueba p;
        p.principal->ActivarPorPrimeraVez({true, ""});
        QApplication::processEvents();
        const QPointer<QDialog> caja = p.principal->findChild<QDialog*>("frmAbout");
        ASSERT_TRUE(caja != nullptr && caja->isVisible());
        auto* const celda = p.Control<QLineEdit>("Text1_0");
        QTest::keyClick(p.principal->windowHandle(), Qt::Key_Shift);
        EXPECT_TRUE(caja->isVisible());
        QTest::keyClick(p.principal->windowHandle(), tecla);
        EXPECT_FALSE(caja != nullptr && caja->isVisible()) << tecla;
        EXPECT_EQ(celda->text(), QLatin1String(queda)) << tecla;
        QTest::keyClick(p.principal->windowHandle(), Qt::Key_A);
        EXPECT_EQ(celda->text(), QLatin1String(queda) + QLatin1String("A"));
    }
}

}  // namespace
}  // namespace qor::pruebas
