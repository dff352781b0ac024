#include <gmock/gmock.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include "app/FormDatos.h"
#include "base/files.h"
#include "input/qt/line_ruler.h"
#include "input/qt/record_table.h"
#include "tests/forms/principal_fixture.h"

// The preview of the data over the main form, with the keys and the mouse of a user.
namespace qor {
namespace {

using pruebas::ProgramaDePrueba;
using testing::ElementsAre;
using testing::HasSubstr;

class DataPreview : public testing::Test {
protected:
    ProgramaDePrueba p;
    std::vector<std::string> escogidos_;

    Documento& ElDocumento() const { return p.LaVentana().documento; }

    void PonerCampos(std::initializer_list<std::pair<const char*, const char*>> campos) const {
        int fila = 0;
        for (const auto& [nombre, ancho] : campos) {
            ElDocumento().especificacion.TablaArchivo[static_cast<std::size_t>(fila++)] = {nombre, ancho, "", ""};
        }
        ElDocumento().DarPorGuardado();
    }
    // Opens the preview of a file, uses it, and closes it.
    void Con(const std::string& texto, const std::function<void(QDialog&)>& usar) {
        EntornoDeDatos entorno;
        FormDatos dialogo(p.LaVentana(), entorno, p.directorio.Escribir("in.txt", texto), p.principal.get());
        dialogo.setWindowState(Qt::WindowNoState);
        dialogo.resize(1000, 640);
        dialogo.show();
        QApplication::setActiveWindow(&dialogo);
        QApplication::processEvents();
        usar(dialogo);
        dialogo.close();
        EXPECT_FALSE(dialogo.isVisible());
    }
    template <typename T>
    static T* Control(const QDialog& dialogo, const char* nombre) {
        auto* const control = dialogo.findChild<T*>(QString::fromLatin1(nombre));
        EXPECT_NE(control, nullptr) << nombre;
        return control;
    }
    // The rows that the table shows, values joined by "|".
    static std::vector<std::string> Filas(const QDialog& dialogo) {
        std::vector<std::string> filas;
        const auto* const modelo = Control<RejillaDeRegistros>(dialogo, "TablaDeRegistros")->model();
        for (int r = 0; r < modelo->rowCount(); ++r) {
            QStringList valores;
            for (int c = 0; c < modelo->columnCount(); ++c) valores << modelo->index(r, c).data().toString();
            filas.push_back(valores.join(QLatin1Char('|')).toStdString());
        }
        return filas;
    }
    // Drags from one column of the ruler to another, with a stop on the way, and lets go unless a key ends it.
    static void Arrastrar(ReglaDeLinea& regla, std::size_t desde, std::size_t hasta, bool conEscape = false) {
        const auto punto = [&](std::size_t columna) { return QPoint(regla.XDe(columna), regla.viewport()->height() / 2); };
        QTest::mousePress(regla.viewport(), Qt::LeftButton, {}, punto(desde));
        for (const auto columna : {(desde + hasta) / 2, hasta}) {
            QMouseEvent mover(QEvent::MouseMove, punto(columna), regla.viewport()->mapToGlobal(punto(columna)), Qt::NoButton,
                              Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(regla.viewport(), &mover);
        }
        if (conEscape) QTest::keyClick(&regla, Qt::Key_Escape);
        QTest::mouseRelease(regla.viewport(), Qt::LeftButton, {}, punto(hasta));
    }
    static bool Espera(const std::function<bool()>& condicion) { return QTest::qWaitFor(condicion, 5000); }
};

TEST_F(DataPreview, DraggingABorderIsOneStepToUndo) {
    PonerCampos({{"MATNR", "4"}, {"MENGE", "3"}, {"MEINS", "2"}});
    const auto& tabla = ElDocumento().especificacion.TablaArchivo;
    Con("M-01 12ST\r\nM-0234 5K\r\n", [&](QDialog& dialogo) {
        EXPECT_THAT(Filas(dialogo), ElementsAre("M-01| 12|ST|", "M-02|34|5K|"));
        auto* const regla = Control<ReglaDeLinea>(dialogo, "Regla");
        Arrastrar(*regla, 4, 6);
        EXPECT_EQ(tabla[0].ancho, "6");
        EXPECT_EQ(tabla[1].ancho, "3");
        EXPECT_TRUE(ElDocumento().HayCambios());
        EXPECT_THAT(Filas(dialogo), ElementsAre("M-01 1|2ST||", "M-0234| 5K||"));
        // A press that moves nothing, and a drag that Esc ends, are none.
        const auto revision = ElDocumento().Revision();
        QTest::mouseClick(regla->viewport(), Qt::LeftButton, {}, QPoint(regla->XDe(6), 5));
        Arrastrar(*regla, 6, 8, true);
        EXPECT_EQ(ElDocumento().Revision(), revision);
        EXPECT_TRUE(dialogo.isVisible());
        Control<QPushButton>(dialogo, "Deshacer")->click();
        EXPECT_EQ(tabla[0].ancho, "4");
        EXPECT_TRUE(ElDocumento().deshacer.Vacia());
        EXPECT_FALSE(Control<QPushButton>(dialogo, "Deshacer")->isEnabled());
        EXPECT_THAT(Filas(dialogo), ElementsAre("M-01| 12|ST|", "M-02|34|5K|"));

        // The same by keys: the border of the second field, one column to the left.
        regla->setFocus(Qt::TabFocusReason);
        QTest::keyClick(regla, Qt::Key_Home);
        QTest::keyClick(regla, Qt::Key_Right);
        QTest::keyClick(regla, Qt::Key_Left, Qt::ControlModifier);
        EXPECT_EQ(tabla[1].ancho, "2");
        EXPECT_THAT(regla->accessibleDescription().toStdString(), HasSubstr("MENGE, width 2"));
        EXPECT_THAT(Filas(dialogo), ElementsAre("M-01| 1|2S|T", "M-02|34| 5|K"));
    });
}

TEST_F(DataPreview, OpensBehindBrowseAndFromTheMenu) {
    const auto archivo = p.directorio.Escribir("chosen.txt", "M-01\n");
    p.vista->archivos = {archivo};
    std::string mostrado;
    ProgramaDePrueba::ConDialogo(
        [&] { p.Control<QPushButton>("ExaminarFuente")->click(); },
        [&](QDialog& dialogo) { mostrado = Control<QLineEdit>(dialogo, "Archivo")->text().toStdString(); });
    EXPECT_EQ(mostrado, archivo.string());
    EXPECT_EQ(ElDocumento().opciones.ArchivoFuente, archivo.string());
    // The document leads there from now on; one whose data come from elsewhere leads nowhere.
    mostrado.clear();
    const auto abrir = [&] { p.Control<QAction>("DataPreviewOption")->trigger(); };
    ProgramaDePrueba::ConDialogo(
        abrir, [&](QDialog& dialogo) { mostrado = Control<QLineEdit>(dialogo, "Archivo")->text().toStdString(); });
    EXPECT_EQ(mostrado, archivo.string());
    ElDocumento().especificacion.OrigenUsuario = true;
    abrir();
    EXPECT_EQ(p.vista->avisos.size(), 1U);
}

TEST_F(DataPreview, ItemsStandUnderTheirOrder) {
    PonerCampos({{"ORDER", "4"}, {"KIND", "2"}, {"MATNR", "4"}});
    auto& especificacion = ElDocumento().especificacion;
    especificacion.TablaTransaccion[0] = {"TRANS", "VA01", "", "", ""};
    especificacion.TablaTransaccion[1] = {"", "", "A", "ORDER", ""};
    especificacion.TablaTransaccion[2] = {"", "", "B(1)", "MATNR", "!1 1!2!30!4!51!61!7"};
    ElDocumento().opciones.MultipleFilesOption = false;
    ElDocumento().opciones.Identificadores = "H,I";
    Con("H0001TA\nIM-01\nX?\n", [&](QDialog& dialogo) {
        EXPECT_THAT(Filas(dialogo), ElementsAre("H|0001|TA|", "  \u2514 I|M-01||", "?|X?||"));
        auto* const rejilla = Control<RejillaDeRegistros>(dialogo, "TablaDeRegistros");
        EXPECT_EQ(rejilla->model()->index(1, 1).data(ModeloDeRegistros::NombreEnCelda).toString(), "MATNR");
        EXPECT_EQ(rejilla->model()->index(0, 1).data(ModeloDeRegistros::NombreEnCelda).toString(), "");
        // The ruler has the borders of the kind that the line is of.
        rejilla->setFocus();
        QTest::keyClick(rejilla, Qt::Key_Down);
        Arrastrar(*Control<ReglaDeLinea>(dialogo, "Regla"), 5, 3);
        EXPECT_EQ(especificacion.TablaArchivo[2].ancho, "2");
        EXPECT_EQ(especificacion.TablaArchivo[0].ancho, "4");
    });
}

TEST_F(DataPreview, FindingsLeadThroughALargeFile) {
    PonerCampos({{"MATNR", "6"}, {"MENGE", "3"}});
    p.directorio.Escribir("d.checks", "MENGE number ,\n");
    ElDocumento().ruta = p.directorio / "d.qor";
    std::string texto;
    for (int i = 1; i <= 50'000; ++i) texto += i % 20'000 == 0 ? "M-0001x 2\n" : "M-0001 12\n";
    Con(texto, [&](QDialog& dialogo) {
        auto* const lista = Control<QTreeView>(dialogo, "ListaDeHallazgosDeDatos");
        ASSERT_TRUE(Espera([&] { return lista->model()->rowCount() == 2; }));
        const auto estado = [&] { return Control<QLabel>(dialogo, "EstadoDeLineas")->toolTip().toStdString(); };
        QTest::keyClick(&dialogo, Qt::Key_F8);
        EXPECT_THAT(estado(), HasSubstr("Line 20,000 of 50,000"));
        EXPECT_THAT(estado(), HasSubstr("number"));
        auto* const rejilla = Control<RejillaDeRegistros>(dialogo, "TablaDeRegistros");
        EXPECT_EQ(rejilla->currentIndex().data().toString(), "x 2");
        EXPECT_FALSE(rejilla->currentIndex().data(Qt::DecorationRole).isNull());
        EXPECT_THAT(rejilla->currentIndex().data(Qt::ToolTipRole).toString().toStdString(), HasSubstr("number"));
        EXPECT_TRUE(rejilla->currentIndex().siblingAtRow(rejilla->currentIndex().row() + 1).data(Qt::DecorationRole).isNull());
        QTest::keyClick(&dialogo, Qt::Key_F8, Qt::ShiftModifier);
        EXPECT_THAT(estado(), HasSubstr("Line 40,000"));

        // Keys move over the lines of the file, not over those that are seen.
        rejilla->setFocus();
        QTest::keyClick(rejilla, Qt::Key_End, Qt::ControlModifier);
        EXPECT_THAT(estado(), HasSubstr("Line 50,000"));
        QTest::keyClick(rejilla, Qt::Key_PageUp);
        QTest::keyClick(rejilla, Qt::Key_PageDown);
        EXPECT_THAT(estado(), HasSubstr("Line 50,000"));
        Control<QLineEdit>(dialogo, "IrALinea")->setText("123");
        QTest::keyClick(Control<QLineEdit>(dialogo, "IrALinea"), Qt::Key_Return);
        EXPECT_EQ(rejilla->model()->headerData(rejilla->currentIndex().row(), Qt::Vertical).toString(), "123");
    });
}

TEST_F(DataPreview, AnEmptyFileSideIsFilled) {
    const auto& tabla = ElDocumento().especificacion.TablaArchivo;
    p.vista->respuestas = {Respuesta::Si};
    Con("Material\tUnit\r\nM-01\tST\r\n", [&](QDialog& dialogo) {
        EXPECT_THAT(Filas(dialogo), ElementsAre("Material\u2192Unit", "M-01\u2192ST"));
        Control<QPushButton>(dialogo, "LlenarDeCabecera")->click();
        EXPECT_EQ(tabla[0], (FilaDeArchivo{"MATERIAL", "4", "", ""}));
        EXPECT_FALSE(ElDocumento().opciones.AnchoFijo) << "asked for";
        EXPECT_THAT(Filas(dialogo), ElementsAre("Material|Unit|", "M-01|ST|"));
        Control<QPushButton>(dialogo, "Deshacer")->click();
        EXPECT_EQ(ElDocumento().especificacion.FilasArchivo(), 0);
    });
    ElDocumento().opciones.AnchoFijo = true;
    Con("M-01 12ST\r\nM-02\r\n", [&](QDialog& dialogo) {
        auto* const regla = Control<ReglaDeLinea>(dialogo, "Regla");
        auto* const llenar = Control<QPushButton>(dialogo, "LlenarDeMarcas");
        EXPECT_FALSE(llenar->isEnabled());
        QTest::mouseClick(regla->viewport(), Qt::LeftButton, {}, QPoint(regla->XDe(4), 20));
        regla->setFocus();
        for (int i = 0; i < 3; ++i) QTest::keyClick(regla, Qt::Key_Right);
        QTest::keyClick(regla, Qt::Key_Space);
        llenar->click();
        EXPECT_THAT(Filas(dialogo), ElementsAre("M-01| 12|ST|", "M-02|||"));
        QTest::keyClick(&dialogo, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(tabla[0].campo, "");
        EXPECT_TRUE(ElDocumento().deshacer.Vacia());
    });
}

TEST_F(DataPreview, ChecksOfAFieldAreKeptBesideTheDocument) {
    PonerCampos({{"MATNR", "4"}, {"MENGE", "3"}});
    p.directorio.Escribir("d.checks", "# weights\nMENGE required\n");
    ElDocumento().ruta = p.directorio / "d.qor";
    Con("M-01x 2\r\n", [&](QDialog& dialogo) {
        auto* const lista = Control<QTreeView>(dialogo, "ListaDeHallazgosDeDatos");
        auto* const rejilla = Control<RejillaDeRegistros>(dialogo, "TablaDeRegistros");
        rejilla->setFocus();
        QTest::keyClick(rejilla, Qt::Key_Right);
        EXPECT_EQ(Control<QLabel>(dialogo, "CampoDeClase")->text(), "MENGE");
        EXPECT_TRUE(Control<QCheckBox>(dialogo, "Obligatorio")->isChecked());
        EXPECT_EQ(lista->model()->rowCount(), 0);
        Control<QComboBox>(dialogo, "TipoDeCampo")->setCurrentIndex(1);
        Control<QComboBox>(dialogo, "SignoDecimal")->setCurrentIndex(1);
        EXPECT_TRUE(Espera([&] { return lista->model()->rowCount() == 1; })) << "checked anew by itself";
        // What says nothing yet is told, and goes nowhere.
        auto* const patron = Control<QLineEdit>(dialogo, "PatronDeCampo");
        patron->setText("[0-");
        EXPECT_FALSE(Control<QLabel>(dialogo, "FaltaDeClase")->text().isEmpty());
        Control<QPushButton>(dialogo, "GuardarClases")->click();
        EXPECT_EQ(LeerArchivo(p.directorio / "d.checks"), "# weights\nMENGE required\nMENGE number ,\n");
        EXPECT_EQ(patron->text(), "[0-");
        patron->setText("[0-9 ]*");
        p.vista->respuestas = {Respuesta::Cancelar};
        dialogo.close();
        EXPECT_TRUE(dialogo.isVisible()) << "the checks are not saved";
        p.vista->respuestas = {Respuesta::Si};
    });
    EXPECT_THAT(LeerArchivo(p.directorio / "d.checks"), HasSubstr("MENGE pattern [0-9 ]*\n"));
    ElDocumento().ruta.clear();
}

}  // namespace
}  // namespace qor
