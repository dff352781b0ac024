#include <gmock/gmock.h>

#include <QAction>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextBrowser>

#include "base/files.h"
#include "editor/help_pages.h"
#include "tests/forms/principal_fixture.h"

// Clicks and keys as a user makes them, most of them while a cell of the grids has the focus.
namespace qor {
namespace {

using pruebas::ProgramaDePrueba;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

void Clic(const ProgramaDePrueba& p, const char* control) { QTest::mouseClick(p.Control(control), Qt::LeftButton); }

void ClicEnPestana(const ProgramaDePrueba& p, const char* pestanas, int pagina) {
    QTabBar* const barra = p.Control<QTabWidget>(pestanas)->tabBar();
    QTest::mouseClick(barra, Qt::LeftButton, {}, barra->tabRect(pagina).center());
}

// A key goes to whatever has the focus, by way of the shortcuts.
void Tecla(int tecla, Qt::KeyboardModifiers modificadores = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(tecla), modificadores);
}

// Page, strip, focus and the page of F1 agree on a page of the tabs.
void ExpectPagina(const ProgramaDePrueba& p, int pagina, const char* camino) {
    auto* const pestanas = p.Control<QTabWidget>("SSTab1");
    EXPECT_EQ(pestanas->tabBar()->currentIndex(), pagina) << camino;
    EXPECT_EQ(p.LaVentana().SSTab1, pagina) << camino;
    for (int i = 0; i < pestanas->count(); ++i) EXPECT_EQ(pestanas->widget(i)->isVisible(), i == pagina) << camino << ' ' << i;
    const QWidget* const foco = QApplication::focusWidget();
    ASSERT_NE(foco, nullptr) << camino;
    EXPECT_TRUE(pestanas->widget(pagina)->isAncestorOf(foco)) << camino << ' ' << ProgramaDePrueba::Foco();
    EXPECT_EQ(p.LaVentana().foco.has_value(), pagina == 0) << camino;

    const int ayuda = std::get<int>(PaginaDe(ProgramaDePrueba::Foco()).value_or(PaginaDePestana(pagina)));
    Tecla(Qt::Key_F1);
    auto* const ventana = p.Control("VentanaDeAyuda");
    ASSERT_NE(ventana, nullptr) << camino;
    EXPECT_THAT(ventana->findChild<QTextBrowser*>()->source().toString().toStdString(),
                testing::EndsWith(p.programa->textos.Texto(ayuda)))
        << camino;
    ventana->close();
    p.principal->activateWindow();
    QApplication::setActiveWindow(p.principal.get());
    QApplication::processEvents();
}

TEST(PrincipalCommands, PageAndStripAgreeWhenACellIsLeftByTheTabs) {
    ProgramaDePrueba p;
    for (const int fila : {0, 1, 2}) {
        p.LaVentana().documento.especificacion.TablaArchivo[fila].campo = "F" + std::to_string(fila);
        p.LaVentana().documento.especificacion.TablaTransaccion[fila].campo = "G";
    }
    p.LaVentana().vista.MostrarFila(Tabla::Archivo, 0);
    p.LaVentana().vista.MostrarFila(Tabla::Transaccion, 0);
    for (const char* const celda : {"Text1_3", "Text2_0", "Text5_1"}) {
        for (const int pagina : {1, 2, 3}) {
            p.Enfocar(celda);
            ProgramaDePrueba::Escribir("7");
            ClicEnPestana(p, "SSTab1", pagina);
            ExpectPagina(p, pagina, celda);
            ClicEnPestana(p, "SSTab1", 0);
            ExpectPagina(p, 0, celda);
            EXPECT_EQ(ProgramaDePrueba::Foco(), celda);
        }
        // On the second page the keys are those of the tabs inside of it.
        Tecla(Qt::Key_Tab, Qt::ControlModifier);
        ExpectPagina(p, 1, "Ctrl+Tab");
        ClicEnPestana(p, "SSTab1", 0);
        Tecla(Qt::Key_Tab, Qt::ControlModifier | Qt::ShiftModifier);
        ExpectPagina(p, 3, "Ctrl+Shift+Tab");
        ClicEnPestana(p, "SSTab1", 0);
    }
}

// A name of 25 letters that another row has: the rule empties the cell.
void EscribirNombreRechazado(ProgramaDePrueba& p) {
    const std::string nombre(25, 'X');
    p.LaVentana().documento.especificacion.TablaArchivo[0].campo = nombre;
    p.LaVentana().vista.MostrarFila(Tabla::Archivo, 0);
    p.Enfocar("Text1_1");
    ProgramaDePrueba::Escribir(nombre);
}

TEST(PrincipalCommands, EveryCommandLeavesTheCellFirst) {
    using Mandar = std::function<void(ProgramaDePrueba&)>;
    struct Caso {
        const char* nombre;
        Mandar mandar;
    };
    const Caso casos[] = {
        {"shortcut", [](auto&) { Tecla(Qt::Key_S, Qt::ControlModifier); }},
        {"tool button", [](auto& p) { Clic(p, "SaveButton"); }},
        {"menu", [](auto& p) { p.template Control<QAction>("SaveAsOption")->trigger(); }},
        {"closing", [](auto& p) { p.principal->close(); }},
        {"undo", [](auto&) { Tecla(Qt::Key_Z, Qt::ControlModifier); }},
        {"button", [](auto& p) { Clic(p, "Generar"); }},
        {"code", [](auto& p) { Clic(p, "ABAP_5"); }},
        {"tab", [](auto& p) { ClicEnPestana(p, "SSTab1", 2); }},
        {"Ctrl+Tab", [](auto&) { Tecla(Qt::Key_Tab, Qt::ControlModifier); }},
    };
    for (const auto& [nombre, mandar] : casos) {
        ProgramaDePrueba p;
        EscribirNombreRechazado(p);
        mandar(p);
        // Nothing has been begun.
        EXPECT_THAT(p.vista->avisos, ElementsAre(338)) << nombre;
        EXPECT_EQ(p.Control<QLineEdit>("Text1_1")->text(), "") << nombre;
        EXPECT_EQ(ProgramaDePrueba::Foco(), "Text1_1") << nombre;
        EXPECT_EQ(p.Control<QTabWidget>("SSTab1")->currentIndex(), 0) << nombre;
        EXPECT_TRUE(p.principal->isVisible()) << nombre;
    }
}

TEST(PrincipalCommands, ACommandWorksOnTheCellAsItsRuleLeavesIt) {
    ProgramaDePrueba p;
    const std::string documento = (p.directorio / "names.qor").string();
    p.Enfocar("Text1_0");
    ProgramaDePrueba::Escribir("KUNNR");
    ProgramaDePrueba::Pulsar(Qt::Key_Down);
    ProgramaDePrueba::Escribir("KUNNR");
    p.vista->archivos = {documento};
    Tecla(Qt::Key_S, Qt::ControlModifier);
    EXPECT_THAT(LeerArchivo(documento), HasSubstr("KUNNR2"));
    EXPECT_EQ(ProgramaDePrueba::Foco(), "Text1_1");
    EXPECT_FALSE(p.principal->isWindowModified());

    p.LaVentana().documento.especificacion.TablaTransaccion[0].campo = "F";
    p.LaVentana().documento.especificacion.TablaTransaccion[1].campo = "G";
    p.LaVentana().documento.especificacion.TablaTransaccion[2].campo = "H";
    p.LaVentana().vista.MostrarFila(Tabla::Transaccion, 0);
    // The value becomes a field of the file before the button does its work, and the focus comes back.
    p.Enfocar("Text5_2");
    ProgramaDePrueba::Escribir("matnr");
    Clic(p, "ExpandirCampo");
    EXPECT_EQ(p.Control<QPushButton>("ExpandirCampo")->text(), "-");
    EXPECT_EQ(ProgramaDePrueba::Foco(), "Text5_2");
    EXPECT_EQ(p.Control<QLineEdit>("Text1_2")->text(), "MATNR");
    EXPECT_EQ(p.LaVentana().foco, (LugarDeCelda{Columna::Valor, 2}));
    // The keys of the cell itself leave no cell, and the entry of the menu does.
    for (const bool conMenu : {false, true}) {
        p.Control<QLineEdit>("Text5_2")->selectAll();
        ProgramaDePrueba::Escribir(conMenu ? "by_menu" : "by_key");
        if (conMenu) {
            p.Control<QAction>("InsertOption")->trigger();
        } else {
            Tecla(Qt::Key_F5);
        }
        EXPECT_EQ(p.LaVentana().documento.especificacion.FilasArchivo(), conMenu ? 4 : 3);
        EXPECT_EQ(p.Control<QLineEdit>("Text5_3")->text(), conMenu ? "by_menu" : "by_key");
        EXPECT_EQ(ProgramaDePrueba::Foco(), "Text5_2");
    }
    EXPECT_THAT(p.vista->avisos, IsEmpty());
}

TEST(PrincipalCommands, RowsMoveOnlyWithTheFocusInTheFileGrid) {
    ProgramaDePrueba p;
    p.LaVentana().documento.especificacion.TablaArchivo[0].campo = "A";
    p.LaVentana().documento.especificacion.TablaArchivo[1].campo = "B";
    p.LaVentana().vista.MostrarFila(Tabla::Archivo, 0);
    const auto nombres = [&] {
        return (p.Control<QLineEdit>("Text1_0")->text() + p.Control<QLineEdit>("Text1_1")->text()).toStdString();
    };
    struct Caso {
        const char* control;
        const char* nombres;  // behind Alt+Down
        const char* foco;
    };
    for (const auto& [control, despues, foco] : {Caso{"Text6_0", "AB", "Text6_1"}, Caso{"Programa", "AB", "Programa"},
                                                 Caso{"TextoBuscado", "AB", "TextoBuscado"}, Caso{"Text2_0", "BA", "Text1_1"}}) {
        p.Enfocar(control);
        const bool mueve = std::string(despues) == "BA";
        EXPECT_EQ(p.Control("DownButton")->isEnabled(), mueve) << control;
        EXPECT_EQ(p.Control<QAction>("UpOption")->isEnabled(), mueve) << control;
        Tecla(Qt::Key_Down, Qt::AltModifier);
        EXPECT_EQ(nombres(), despues) << control;
        EXPECT_EQ(ProgramaDePrueba::Foco(), foco) << control;
    }
    // The tool button takes no focus.
    Clic(p, "UpButton");
    EXPECT_EQ(nombres(), "AB");
    EXPECT_EQ(ProgramaDePrueba::Foco(), "Text1_0");
    ClicEnPestana(p, "SSTab1", 3);
    EXPECT_FALSE(p.Control("DownButton")->isEnabled());
    // A new document keeps the keyboard in the cell, and so the command.
    p.Enfocar("Text1_0");
    p.vista->respuestas = {Respuesta::No};
    Tecla(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(ProgramaDePrueba::Foco(), "Text1_0");
    EXPECT_TRUE(p.Control("DownButton")->isEnabled());
}

}  // namespace
}  // namespace qor
