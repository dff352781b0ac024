#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTabWidget>
#include <QWheelEvent>
#include <map>

#include "base/files.h"
#include "base/qt/text_boxes.h"
#include "tests/forms/principal_fixture.h"

namespace qor {
namespace {

using pruebas::ProgramaDePrueba;
using testing::ElementsAre;

// ---- Options ----

// What the controls of the options show.
std::map<std::string, std::string> Valores(const Principal& principal) {
    std::map<std::string, std::string> valores;
    const auto poner = [&](const QObject* control, const QString& texto) {
        if (!control->objectName().startsWith("qt_") && !control->objectName().isEmpty()) {
            valores[control->objectName().toStdString()] = texto.toStdString();
        }
    };
    for (const auto* const boton : principal.findChildren<QAbstractButton*>()) {
        if (boton->isCheckable() && boton->inherits("QToolButton") == false) poner(boton, boton->isChecked() ? "on" : "off");
    }
    for (const auto* const caja : principal.findChildren<QLineEdit*>()) poner(caja, caja->text());
    for (const auto* const caja : principal.findChildren<QPlainTextEdit*>()) {
        if (!caja->isReadOnly()) poner(caja, caja->toPlainText());
    }
    for (const auto* const combo : principal.findChildren<QComboBox*>()) poner(combo, combo->currentText());
    for (const auto* const barra : principal.findChildren<QSlider*>()) poner(barra, QString::number(barra->value()));
    return valores;
}

TEST(Principal, OptionsComeBackFromDocumentAndSettings) {
    ProgramaDePrueba p;
    const std::string documento = (p.directorio / "options.qor").string();
    // Each control gets a value that no other one has, and that it does not start with.
    for (auto* const casilla : p.principal->findChildren<QCheckBox*>()) casilla->setChecked(!casilla->isChecked());
    for (const char* const boton : {"ServidorOp", "DelimTab", "OneFileOption", "EOption", "GeneracionManual", "ProcesarParteOpt",
                                    "OptionWS_UPLOAD", "OptionEncodingAdditional"}) {
        p.Control<QRadioButton>(boton)->setChecked(true);
    }
    int numero = 10;
    for (auto* const caja : p.principal->findChildren<CajaDeLinea*>()) {
        if (caja->objectName().startsWith("Text") || caja->objectName() == "ReporteTrans") continue;
        caja->setText(QString::number(numero++));
    }
    for (auto* const caja : p.principal->findChildren<QPlainTextEdit*>()) caja->setPlainText(QString("a\nb %1").arg(numero++));
    for (auto* const combo : p.principal->findChildren<QComboBox*>()) combo->setEditText(QString::number(numero++));
    p.Control<QSlider>("HScroll1")->setValue(73);
    // Not part of a document.
    p.Control<QCheckBox>("CommitCheck")->setChecked(true);
    const auto antes = Valores(*p.principal);
    p.vista->archivos = {documento};
    p.vista->respuestas = {Respuesta::Si};
    ASSERT_TRUE(p.principal->close());
    EXPECT_THAT(p.vista->avisos, ElementsAre(300));

    p.Abrir();
    p.principal->ActivarPorPrimeraVez({false, documento});
    EXPECT_EQ(Valores(*p.principal), antes);
    EXPECT_FALSE(p.principal->isWindowModified());
    p.Control<QAction>("NewOption")->trigger();
    EXPECT_FALSE(p.Control<QCheckBox>("CallTransaction")->isChecked());
    EXPECT_TRUE(p.Control<QCheckBox>("CheckActivateNamingConventions")->isChecked());
}

TEST(Principal, SettingsAreSavedAsSoonAsTheyAreChosen) {
    ProgramaDePrueba p;
    const auto guardado = [&](const char* linea) {
        return ("\n" + LeerArchivo(p.directorio / "Tessaline.ini")).find(std::string("\n") + linea + "\r\n") != std::string::npos;
    };
    p.Control<QCheckBox>("CheckLogon")->click();
    EXPECT_TRUE(guardado("LOGON AT STARTUP=No"));
    p.Control<QRadioButton>("OptionWS_UPLOAD")->click();
    EXPECT_TRUE(guardado("UPLOAD FUNCTION=WS_UPLOAD"));
    p.Control<QRadioButton>("OptionEncodingNone")->click();
    EXPECT_TRUE(guardado("DATASET ADDITIONS=NONE"));
    p.Control<QCheckBox>("CheckActivateNamingConventions")->click();
    p.Control<QTabWidget>("SSTab1")->setCurrentIndex(1);
    p.Control<QTabWidget>("SSTab2")->setCurrentIndex(2);
    p.Enfocar("LTprefijo");
    ProgramaDePrueba::Escribir("TAB_");
    ProgramaDePrueba::Pulsar(Qt::Key_Return);
    EXPECT_TRUE(guardado("LT PREFIX=TAB_"));
    ProgramaDePrueba::ConDialogo([&] { p.Control<QAction>("Directorios")->trigger(); },
                                 [](QDialog& dialogo) {
                                     dialogo.findChild<QLineEdit*>("EditorDeTextos")->setText("mousepad");
                                     dialogo.accept();
                                 });
    EXPECT_TRUE(guardado("EDITOR=mousepad"));
    // Where the file can't be written, one warning is enough.
    p.programa->rutaDeAjustes = p.directorio / "Tessaline.ini" / "below";
    for (int i = 0; i < 2; ++i) p.Control<QCheckBox>("CheckLogon")->click();
    EXPECT_EQ(p.vista->avisos.size(), 1U);
}

TEST(Principal, ARefusedGenerationShowsThePlace) {
    struct Caso {
        std::function<void(Ventana&)> preparar;
        std::vector<int> avisos;
        const char* foco;
        int SSTab1;
        int SSTab2;
    };
    const Caso casos[] = {
        {[](Ventana& e) {
             e.documento.opciones.ErrorHandlingCheck = e.documento.opciones.CallTransaction = 1;
             e.documento.opciones.ProgID.clear();
         },
         {402},
         "ProgID",
         1,
         0},
        {[](Ventana& e) {
             e.documento.opciones.MultipleFilesOption = false;
             e.documento.opciones.Identificadores = "1,22";
             e.documento.especificacion.TablaTransaccion[0] = {"TRANS", "VA01", "", "", ""};
             e.documento.especificacion.TablaTransaccion[1] = {"SAPMV45A", "0101", "", "", ""};
             e.documento.especificacion.TablaTransaccion[2] = {"", "", "F(1)", "'1'", "!1 1!2!31!4!51!6!7"};
         },
         {380},
         "Identificadores",
         1,
         1},
    };
    for (const auto& caso : casos) {
        ProgramaDePrueba p;
        caso.preparar(p.LaVentana());
        p.principal->Sincronizar();
        p.Control<QTabWidget>("SSTab1")->setCurrentIndex(2);
        p.Control<QPushButton>("Generar")->click();
        EXPECT_EQ(p.vista->avisos, caso.avisos);
        EXPECT_EQ(ProgramaDePrueba::Foco(), caso.foco);
        EXPECT_EQ(p.Control<QTabWidget>("SSTab1")->currentIndex(), caso.SSTab1) << caso.foco;
        EXPECT_EQ(p.Control<QTabWidget>("SSTab2")->currentIndex(), caso.SSTab2) << caso.foco;
    }
}

TEST(Principal, WheelAndScrollBarMoveTheGrids) {
    ProgramaDePrueba p;
    const auto rueda = [&](const char* marco, int delta) {
        QWheelEvent evento(QPointF(3, 3), QPointF(3, 3), {}, QPoint(0, delta), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                           false);
        QApplication::sendEvent(p.Control(marco), &evento);
    };
    rueda("RejillaArchivo", -120);
    EXPECT_EQ(p.LaVentana().archivo.PrimeraFilaArchivo, 3);
    EXPECT_EQ(p.Control<QScrollBar>("BarraArchivo")->value(), 3);
    for (int i = 0; i < 4; ++i) rueda("RejillaTransaccion", -30);
    EXPECT_EQ(p.LaVentana().transaccion.PrimeraFilaTransaccion, 3);
    p.Control<QScrollBar>("BarraTransaccion")->setValue(5000);
    EXPECT_EQ(p.LaVentana().transaccion.PrimeraFilaTransaccion, ultimaPrimeraFilaTransaccion);
}

// ---- Start and end ----

TEST(Principal, ADocumentThatCanNotBeOpenedLeavesAnEmptyWindow) {
    ProgramaDePrueba p;
    p.principal->ActivarPorPrimeraVez({false, (p.directorio / "missing.qor").string()});
    EXPECT_THAT(p.vista->avisos, ElementsAre(335));
    EXPECT_TRUE(p.principal->isVisible());
    EXPECT_TRUE(p.LaVentana().documento.ruta.empty());
}

TEST(Principal, AsksBeforeItLosesChanges) {
    ProgramaDePrueba p;
    p.Enfocar("Text1_0");
    ProgramaDePrueba::Escribir("X");
    EXPECT_TRUE(p.principal->isWindowModified());
    p.vista->respuestas = {Respuesta::Cancelar, Respuesta::No};
    EXPECT_FALSE(p.principal->close());
    EXPECT_TRUE(p.principal->isVisible());
    EXPECT_TRUE(p.principal->close());
    EXPECT_THAT(p.vista->avisos, ElementsAre(300, 300));
    EXPECT_THAT(LeerArchivo(p.directorio / "Tessaline.ini"), testing::HasSubstr("LOGON AT STARTUP=Yes"));
}

}  // namespace
}  // namespace qor
