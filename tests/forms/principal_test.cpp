#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTabWidget>
#include <QToolButton>
#include <QWheelEvent>
#include <map>
#include <set>

#include "base/files.h"
#include "base/qt/text_boxes.h"
#include "editor/cell_rules.h"
#include "editor/option_rules.h"
#include "tests/forms/principal_fixture.h"

namespace qor {
namespace {

using pruebas::ProgramaDePrueba;
using testing::ElementsAre;

// By their names users of the program, help pages, the core and tests know the controls.
TEST(Principal, HasEveryControlOnceUnderItsName) {
    const ProgramaDePrueba p;
    std::set<std::string> vistos;
    for (const auto* const control : p.principal->findChildren<QObject*>()) {
        const std::string nombre = control->objectName().toStdString();
        const bool deQt = nombre.starts_with("qt_") || nombre.starts_with("_q_") || nombre.starts_with("Scroll");
        EXPECT_TRUE(nombre.empty() || deQt || vistos.insert(nombre).second) << nombre << " twice";
    }
    for (const auto& [nombre, estado] : EstadoDeControles(p.LaVentana(), Preferencias{}, false)) {
        EXPECT_TRUE(vistos.contains(std::string(nombre))) << nombre;
    }
    for (const auto columna : columnasDeCeldasDeArchivo)
        EXPECT_TRUE(vistos.contains(NombreDeControl({columna, lineasArchivo - 1})));
    for (const auto columna : columnasDeCeldasDeTransaccion) {
        EXPECT_TRUE(vistos.contains(NombreDeControl({columna, lineasTransaccion - 1})));
    }
}

// Every word that the window shows, by control.
std::map<std::string, std::string> Palabras(const Principal& principal) {
    std::map<std::string, std::string> palabras;
    const auto poner = [&](const QObject* control, const QString& texto) {
        // Controls inside of controls, such as the arrows of the tabs, have no words.
        if (!control->objectName().isEmpty() && (!texto.isEmpty() || control->parent() == &principal))
            palabras[control->objectName().toStdString()] = texto.toStdString();
    };
    for (const auto* const boton : principal.findChildren<QAbstractButton*>()) poner(boton, boton->text());
    for (const auto* const rotulo : principal.findChildren<QLabel*>()) poner(rotulo, rotulo->text());
    for (const auto* const grupo : principal.findChildren<QGroupBox*>()) poner(grupo, grupo->title());
    for (const auto* const accion : principal.findChildren<QAction*>()) poner(accion, accion->text() + '/' + accion->toolTip());
    for (const auto* const menu : principal.findChildren<QMenu*>()) poner(menu, menu->title());
    for (const auto* const tabla : principal.findChildren<QTabWidget*>()) {
        for (int i = 0; i < tabla->count(); ++i)
            palabras[tabla->objectName().toStdString() + char('0' + i)] = tabla->tabText(i).toStdString();
    }
    return palabras;
}

TEST(Principal, ChangesEveryWordWithTheLanguage) {
    ProgramaDePrueba p;
    const auto ingles = Palabras(*p.principal);
    ElegirIdioma(*p.programa, "Espanol");
    p.principal->RefrescarIdioma();
    const auto espanol = Palabras(*p.principal);
    // The same in both: numbers, names of ABAP and of keys, and what has no text while there is no document or connection.
    const std::set<std::string> iguales = {"LineaArchivo",
                                           "LineaTransaccion",
                                           "ExpandirCampo",
                                           "F5Code",
                                           "Porcentaje",
                                           "ConnectionStatus",
                                           "DocumentoActual",
                                           "OptionEncodingDefault",
                                           "OptionEncodingNonUnicode",
                                           "DynproCol"};
    for (const auto& [nombre, texto] : ingles) {
        if (nombre.starts_with("ABAP_") || nombre.starts_with("_q_") || nombre.starts_with("qt_") || iguales.contains(nombre))
            continue;
        EXPECT_NE(texto, espanol.at(nombre)) << nombre;
        EXPECT_NE(espanol.at(nombre), "") << nombre;
    }
    ElegirIdioma(*p.programa, "English");
    p.principal->RefrescarIdioma();
    EXPECT_EQ(Palabras(*p.principal), ingles);
}

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

TEST(Principal, ShowsAndEnablesWhatTheOptionsAllow) {
    ProgramaDePrueba p;
    struct Caso {
        const char* boton;
        const char* control;
        bool mostrado;    // before the click
        bool habilitado;  // before the click
    };
    const Caso casos[] = {
        {"CallTransaction", "CTFrame", false, true},
        {"GeneracionManual", "NombreManual", true, false},
        {"ServidorOp", "ExaminarFuente", true, true},
    };
    for (const auto& caso : casos) {
        auto* const control = p.Control(caso.control);
        EXPECT_EQ(!control->isHidden(), caso.mostrado) << caso.boton;
        EXPECT_EQ(control->isEnabledTo(control->parentWidget()), caso.habilitado) << caso.boton;
        p.Control<QAbstractButton>(caso.boton)->click();
        EXPECT_TRUE(control->isHidden() == caso.mostrado || control->isEnabledTo(control->parentWidget()) != caso.habilitado)
            << caso.boton;
    }
    EXPECT_EQ(p.Control<QLabel>("SourceName")->text().toStdString(), p.programa->textos.Texto(50));
}

TEST(Principal, ARefusedGenerationShowsThePlace) {
    struct Caso {
        std::function<void(Ventana&)> preparar;
        std::vector<int> avisos;
        const char* foco;
        int SSTab1;
        int SSTab2;
    };
    const auto bapi = [](Ventana& e) { e.documento.especificacion.TablaTransaccion[0] = {"BAPI", "BAPI_X", "", "", ""}; };
    const Caso casos[] = {
        {[](Ventana& e) {
             e.documento.opciones.ErrorHandlingCheck = e.documento.opciones.CallTransaction = 1;
             e.documento.opciones.ProgID.clear();
         },
         {402},
         "ProgID",
         1,
         0},
        {[&](Ventana& e) { bapi(e); }, {301}, "Programa", 2, 0},
        {[&](Ventana& e) {
             bapi(e);
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
        {[&](Ventana& e) {
             bapi(e);
             for (int r = 1; r < 30; ++r) e.documento.especificacion.TablaTransaccion[r] = {"", "", "F", "'1'", ""};
             e.documento.especificacion.TablaTransaccion[25].valor = "X";
             e.documento.especificacion.VariablesGlobales = "DATA: F LIKE A-B.";
         },
         {308},
         "Text5_0",
         0,
         0},
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
