#include "app/pages/findings_pane.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>

#include "base/files.h"
#include "findings/catalogue.h"
#include "tests/forms/principal_fixture.h"

// The pane below the pages, with keys as a user types them.
namespace qor {
namespace {

using pruebas::ProgramaDePrueba;
using testing::HasSubstr;

class FindingsPane : public testing::Test {
protected:
    ProgramaDePrueba p;

    QWidget* Panel() const { return p.Control("PanelDeHallazgos"); }
    ListaDeHallazgos* Lista() const { return p.Control<ListaDeHallazgos>("ListaDeHallazgos"); }

    void Escribir(const char* celda, const char* texto) const {
        p.Enfocar(celda);
        QTest::keyClicks(p.Control(celda), QString::fromLatin1(texto));
    }
    // One screen with a field that the file doesn't have.
    void EscribirFalta() const {
        p.Control<QCheckBox>("Autofill")->setChecked(false);
        Escribir("Text6_0", "TRANS");
        Escribir("Text3_0", "MM01");
        Escribir("Text6_1", "SAPLMGMM");
        Escribir("Text3_1", "0060");
        Escribir("Text4_2", "RMMG1-MATNR");
        Escribir("Text5_2", "ABSENT");
    }
    bool Aparece(int milisegundos = 2000) const {
        return QTest::qWaitFor([this] { return Panel()->isVisible(); }, milisegundos);
    }
    // The row of a finding in the list; -1 where there is none.
    int Fila(const char* codigo) const {
        const auto* const modelo = Lista()->model();
        for (int r = 0; r < modelo->rowCount(); ++r) {
            if (modelo->index(r, ModeloDeHallazgos::Codigo).data().toString() == codigo) return r;
        }
        return -1;
    }
    void Activar(const char* codigo) const {
        const int fila = Fila(codigo);
        ASSERT_GE(fila, 0) << codigo;
        Lista()->setFocus();
        Lista()->setCurrentIndex(Lista()->model()->index(fila, 0));
        QTest::keyClick(Lista(), Qt::Key_Return);
    }
};

TEST_F(FindingsPane, FollowsTheTypingAndLeadsToTheCell) {
    EXPECT_FALSE(Aparece(700)) << "a new document has no findings";
    EscribirFalta();
    EXPECT_FALSE(Panel()->isVisible()) << "there was no pause yet";
    const std::string escribe = ProgramaDePrueba::Foco();
    ASSERT_TRUE(Aparece());
    EXPECT_EQ(ProgramaDePrueba::Foco(), escribe);
    EXPECT_THAT(p.Control<QLabel>("TituloDeHallazgos")->text().toStdString(), HasSubstr("error"));
    EXPECT_LE(Panel()->height(), p.principal->height() / 3);

    // The row of the cell bears the sentence; another one doesn't.
    EXPECT_NE(p.Control("Text5_2")->accessibleDescription(), "");
    EXPECT_EQ(p.Control("Text5_5")->accessibleDescription(), "");
    p.LaVentana().vista.MostrarFila(Tabla::Transaccion, 100);
    EXPECT_EQ(p.Control("Text5_2")->accessibleDescription(), "");

    Activar("Q201");
    EXPECT_EQ(ProgramaDePrueba::Foco(), "Text5_2");
    EXPECT_EQ(p.LaVentana().transaccion.PrimeraFilaTransaccion, 0);
    EXPECT_TRUE(p.LaVentana().foco.has_value());

    Lista()->setFocus();
    QTest::keyClick(Lista(), Qt::Key_Escape);
    EXPECT_EQ(ProgramaDePrueba::Foco(), "Text5_2");

    // The fault goes, and its finding with it.
    p.Control<QLineEdit>("Text5_2")->selectAll();
    Escribir("Text5_2", "'X'");
    EXPECT_TRUE(QTest::qWaitFor([this] { return Fila("Q201") < 0; }, 2000));
}

TEST_F(FindingsPane, LeadsIntoDialogsAndToOptions) {
    auto& documento = p.LaVentana().documento;
    documento.especificacion.TablaArchivo[0] = {"MATNR", "18", "", "@ 'A' 'B'\r\n@ 'C'\r\n"};
    documento.especificacion.TablaTransaccion[0] = {"TRANS", "MM01", "", "", ""};
    documento.especificacion.TablaTransaccion[1] = {"SAPLMGMM", "0060", "", "", ""};
    documento.especificacion.TablaTransaccion[2] = {"", "", "RMMG1-MATNR", "MATNR", ""};
    documento.Cambiar();
    p.principal->Sincronizar();
    ASSERT_TRUE(Aparece());
    Activar("Q110");
    EXPECT_EQ(ProgramaDePrueba::Foco(), "Programa");

    bool abierto = false;
    ProgramaDePrueba::ConDialogo([&] { Activar("Q210"); },
                                 [&](QDialog& dialogo) {
                                     abierto = dialogo.objectName() == "ABAPWindow";
                                     auto* const texto = dialogo.findChild<QPlainTextEdit*>("ABAPText");
                                     EXPECT_EQ(texto->textCursor().block().text(), "@ 'C'");
                                     // No analysis comes in the way of a dialog.
                                     texto->setPlainText("@ 'A' 'B'");
                                     QTest::qWait(700);
                                     EXPECT_GE(Fila("Q210"), 0);
                                 });
    EXPECT_TRUE(abierto);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Fila("Q210") < 0; }, 2000));
}

TEST_F(FindingsPane, IsSwitchedOffUntilGenerateIsRefused) {
    EscribirFalta();
    ASSERT_TRUE(Aparece());
    QTest::mouseClick(p.Control("CerrarHallazgos"), Qt::LeftButton);
    EXPECT_FALSE(Panel()->isVisible());
    EXPECT_FALSE(p.Control<QAction>("FindingsOption")->isChecked());
    EXPECT_EQ(p.Control("Text5_2")->accessibleDescription(), "");
    EXPECT_THAT(LeerArchivo(p.directorio / "Tessaline.ini"), HasSubstr("SHOW FINDINGS=No\r\n"));
    Escribir("Text5_2", "2");
    EXPECT_FALSE(Aparece(700));

    p.Control<QPushButton>("Generar")->click();
    EXPECT_THAT(p.vista->avisos, testing::ElementsAre(308));
    ASSERT_TRUE(Panel()->isVisible());
    EXPECT_EQ(Lista()->currentIndex().row(), Fila("Q201"));
    EXPECT_EQ(ProgramaDePrueba::Foco(), "Text5_0") << "the refusal's own place";
    // The user's choice is not another one.
    EXPECT_THAT(LeerArchivo(p.directorio / "Tessaline.ini"), HasSubstr("SHOW FINDINGS=No\r\n"));

    // F8 goes round all of them.
    const int cuantos = Lista()->model()->rowCount();
    for (int i = 0; i < cuantos; ++i) p.Control<QAction>("NextFindingOption")->trigger();
    EXPECT_EQ(Lista()->currentIndex().row(), Fila("Q201"));
    p.vista->respuestas = {Respuesta::No};
    p.Control<QAction>("NewOption")->trigger();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !Panel()->isVisible(); }, 2000));
}

}  // namespace
}  // namespace qor
