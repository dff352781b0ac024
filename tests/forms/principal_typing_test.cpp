#include <gmock/gmock.h>

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QSplitter>

#include "app/qt/grid_cell.h"
#include "base/files.h"
#include "generator/generate.h"
#include "model/document_format.h"
#include "tests/forms/principal_fixture.h"
#include "tests/support/window_fixture.h"

namespace qor {
namespace {

using pruebas::ProgramaDePrueba;
using pruebas::VentanaDePrueba;
using testing::ElementsAre;
using testing::IsEmpty;

// Two transactions, the first with a table control, as rows of the tables.
const std::initializer_list<std::string_view> filasDePrograma = {"TRANS|VA01",
                                                                 "SAPMV45A|0101",
                                                                 "||VBAK-AUART|AUART",
                                                                 "||BDC_OKCODE|'/00'",
                                                                 "SAPMV45A|4001",
                                                                 "||VBKD-BSTKD|BSTKD",
                                                                 "||RV45A-MABNR(1)|MATNR|!1 1!2items.txt!31!4!51!6!7,BSTKD",
                                                                 "||RV45A-KWMENG(1)|KWMENG",
                                                                 "||BDC_OKCODE|'/11'",
                                                                 "TRANS|VA02",
                                                                 "SAPMV45A|0102",
                                                                 "||VBAK-VBELN|VBELN",
                                                                 "||BDC_OKCODE|'/11'"};
const std::initializer_list<std::string_view> filasDeArchivo = {"AUART|4", "BSTKD|20", "MATNR|18", "KWMENG|13", "VBELN|10"};

// Brings a row of the program side under the cursor with the keys of the grid.
void IrAFila(ProgramaDePrueba& p, int fila) {
    const auto& rejilla = p.LaVentana().transaccion;
    const int linea = std::min(fila - rejilla.PrimeraFilaTransaccion, lineasTransaccion - 1);
    p.Enfocar("Text6_" + std::to_string(linea));
    while (rejilla.PrimeraFilaTransaccion + linea < fila) ProgramaDePrueba::Pulsar(Qt::Key_Down);
}

void EscribirPrograma(ProgramaDePrueba& p) {
    VentanaDePrueba aMano;
    aMano.Transaccion(filasDePrograma);
    const auto& tabla = aMano.ventana.documento.especificacion.TablaTransaccion;
    for (int fila = 0; fila < static_cast<int>(filasDePrograma.size()); ++fila) {
        IrAFila(p, fila);
        for (std::size_t columna = 0; columna < 4; ++columna) {
            ProgramaDePrueba::Escribir(tabla[fila].*columnasDeTransaccion[columna]);
            ProgramaDePrueba::Pulsar(Qt::Key_Right);
        }
    }
}

// The note of row 6 makes it the head of a step-loop.
void MarcarStepLoop(ProgramaDePrueba& p) {
    p.Enfocar("Text6_0");
    while (p.LaVentana().transaccion.PrimeraFilaTransaccion > 0) ProgramaDePrueba::Pulsar(Qt::Key_Up);
    p.Enfocar("Text4_6");
    const auto dobleClic = [&] {
        QMouseEvent evento(QEvent::MouseButtonDblClick, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, Qt::LeftButton,
                           Qt::NoModifier);
        QApplication::sendEvent(p.Control("Text4_6"), &evento);
    };
    ProgramaDePrueba::ConDialogo(dobleClic, [](QDialog& notas) {
        notas.findChild<QCheckBox*>("Steploop")->click();
        notas.findChild<QLineEdit*>("NombreArchivo")->setText("items.txt");
        auto* const campos = notas.findChild<QListWidget*>("ListaCampos");
        const auto hallados = campos->findItems("BSTKD", Qt::MatchExactly);
        ASSERT_EQ(hallados.size(), 1);
        hallados.front()->setSelected(true);
    });
}

TEST(Principal, TypedSpecificationGivesTheReportOfTheOneMadeByHand) {
    qputenv("SOURCE_DATE_EPOCH", "86400");
    ProgramaDePrueba p;
    const std::string documento = (p.directorio / "orders.qor").string();
    EscribirPrograma(p);
    // Autofill has made the fields of the file; their widths are still missing.
    int linea = 0;
    for (const std::string_view ancho : {"4", "20", "18", "13", "10"}) {
        p.Enfocar("Text2_" + std::to_string(linea++));
        ProgramaDePrueba::Escribir(std::string(ancho));
    }
    MarcarStepLoop(p);
    p.vista->archivos = {documento};
    p.Control<QAction>("SaveOption")->trigger();
    EXPECT_THAT(p.vista->avisos, IsEmpty());

    VentanaDePrueba aMano;
    aMano.Archivo(filasDeArchivo);
    aMano.Transaccion(filasDePrograma);
    EXPECT_EQ(LeerArchivo(documento), EscribirDocumento(aMano.ventana.documento.especificacion, aMano.ventana.documento.opciones));
    EXPECT_EQ(p.principal->windowTitle(), "Qor Generator - Batch Input & BAPI-based Interface Generator  (orders.qor)[*]");

    ASSERT_TRUE(p.principal->close());
    p.Abrir();
    p.principal->ActivarPorPrimeraVez({false, documento});
    EXPECT_EQ(p.Control<QLineEdit>("Text4_6")->text(), "RV45A-MABNR(1)");
    p.Enfocar("Programa");
    ProgramaDePrueba::Escribir("typed.abap");  // beside the document
    p.Control<QPushButton>("Generar")->click();
    EXPECT_THAT(p.vista->avisos, ElementsAre(323));

    aMano.ventana.documento.opciones.Programa = (p.directorio / "by_hand.abap").string();
    EstadoDelGenerador estado;
    ASSERT_TRUE(Generar({aMano.ventana.documento.especificacion, aMano.ventana.documento.opciones, p.programa->ajustes.preferencias,
                         p.programa->textos, aMano.vista, documento, "orders.qor"},
                        estado));
    EXPECT_EQ(LeerArchivo(p.directorio / "typed.abap"), LeerArchivo(p.directorio / "by_hand.abap"));
    EXPECT_THAT(LeerArchivo(p.directorio / "typed.abap"), testing::HasSubstr("TABFORM_1"));
}

TEST(Principal, KeysOfTheGrids) {
    ProgramaDePrueba p;
    struct Caso {
        const char* desde;
        int tecla;
        const char* hasta;
    };
    const Caso casos[] = {
        {"Text2_3", Qt::Key_Up, "Text2_2"},
        {"Text5_2", Qt::Key_Right, "Text6_3"},
        {"Text2_0", Qt::Key_Return, "Text1_1"},
        {"Text4_0", Qt::Key_PageDown, "Text4_10"},
    };
    for (const auto& caso : casos) {
        p.Enfocar(caso.desde);
        ProgramaDePrueba::Pulsar(caso.tecla);
        EXPECT_EQ(ProgramaDePrueba::Foco(), caso.hasta) << caso.desde;
    }

    p.Enfocar("Text1_0");
    ProgramaDePrueba::Escribir("a b");
    ProgramaDePrueba::Pulsar(Qt::Key_Down);
    ProgramaDePrueba::Escribir("A_B");
    ProgramaDePrueba::Pulsar(Qt::Key_Up);
    EXPECT_EQ(p.Control<QLineEdit>("Text1_1")->text(), "A_B2");
    EXPECT_EQ(p.Control<QLabel>("LineaArchivo")->text(), "1");
    EXPECT_EQ(p.Control<QLineEdit>("Text1_0")->selectedText(), "A_B");

    ProgramaDePrueba::Pulsar(Qt::Key_F6);
    EXPECT_EQ(p.Control<QLineEdit>("Text1_0")->text(), "A_B2");
    ProgramaDePrueba::Pulsar(Qt::Key_Z, {}, Qt::ControlModifier);
    EXPECT_EQ(p.Control<QLineEdit>("Text1_0")->text(), "A_B");

    ProgramaDePrueba::Pulsar(Qt::Key_Backspace);
    EXPECT_EQ(p.Control<QLineEdit>("Text1_0")->text(), "");
    p.Enfocar("Text1_5");
    ProgramaDePrueba::Pulsar(Qt::Key_Backspace);
    EXPECT_THAT(p.vista->avisos, ElementsAre(339));
}

TEST(Principal, BlocksOfTheClipboard) {
    ProgramaDePrueba p;
    auto* const portapapeles = QApplication::clipboard();
    const auto tecla = [](int cual, Qt::KeyboardModifiers con) { ProgramaDePrueba::Pulsar(cual, {}, con); };
    p.Enfocar("Text1_0");
    portapapeles->setText("MATNR\t18\nMAKTX\t40\n");
    tecla(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(p.Control<QLineEdit>("Text1_1")->text() + p.Control<QLineEdit>("Text2_1")->text(), "MAKTX40");
    EXPECT_EQ(ProgramaDePrueba::Foco(), "Text1_1");
    // One line is a text as before, and the selected text is what is copied.
    portapapeles->setText("ernam\n");
    p.Control<QAction>("PasteOption")->trigger();
    EXPECT_EQ(p.Control<QLineEdit>("Text1_1")->text(), "ERNAM");
    p.Control<QLineEdit>("Text1_1")->setSelection(0, 2);
    tecla(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(portapapeles->text(), "ER");
    p.Control<QLineEdit>("Text1_1")->deselect();
    tecla(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(portapapeles->text(), "ERNAM\t40\n");
    tecla(Qt::Key_Up, Qt::ShiftModifier);
    const QColor marcada = p.Control("Text2_1")->palette().color(QPalette::Base);
    EXPECT_NE(marcada, p.Control("Text2_2")->palette().color(QPalette::Base));
    tecla(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(portapapeles->text(), "MATNR\t18\nERNAM\t40\n");
    // The hint and the forms of a value are where it is typed.
    p.Enfocar("Text6_0");
    portapapeles->setText("TRANS\tVA01\nSAPM\t100\n\t\tBDC_OKCODE\t\n");
    tecla(Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(p.Control<QLineEdit>("Text5_2")->placeholderText().isEmpty());
    EXPECT_TRUE(p.Control<QLineEdit>("Text5_1")->placeholderText().isEmpty());
    p.Enfocar("Text5_2");
    ProgramaDePrueba::Escribir("/00");
    ProgramaDePrueba::Pulsar(Qt::Key_Return);
    EXPECT_THAT(p.Control<QLabel>("AvisoDeRejilla")->text().toStdString(), testing::HasSubstr("'/00'"));
    EXPECT_THAT(p.vista->avisos, IsEmpty());
}

TEST(Principal, CellsWithoutTheCursorShowTheirFront) {
    ProgramaDePrueba p;
    auto* const celda = p.Control<QLineEdit>("Text1_0");
    p.Enfocar("Text1_0");
    ProgramaDePrueba::Escribir("A_VERY_LONG_NAME_OF_A_FIELD");
    celda->selectAll();
    // Behind another window the focus goes without a word to the cell that has it.
    QFocusEvent salida(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(celda, &salida);
    EXPECT_TRUE(celda->hasSelectedText());
    p.LaVentana().vista.Enfocar("Text1_3");
    p.principal->Sincronizar();
    EXPECT_FALSE(celda->hasSelectedText());
    EXPECT_EQ(celda->cursorPosition(), 0);
}

TEST(Principal, WidthsOfTheGridsAreTheUsers) {
    ProgramaDePrueba p;
    const auto arrastrar = [&](const char* nombre, int paso) {
        auto* const cabecera = p.Control(nombre);
        const QPointF borde(cabecera->width() - 1, 5);
        const auto mandar = [&](QEvent::Type tipo, QPointF donde, Qt::MouseButtons botones) {
            QMouseEvent evento(tipo, donde, cabecera->mapToGlobal(donde), Qt::LeftButton, botones, Qt::NoModifier);
            QApplication::sendEvent(cabecera, &evento);
        };
        mandar(QEvent::MouseButtonPress, borde, Qt::LeftButton);
        mandar(QEvent::MouseMove, borde + QPointF(paso, 0), Qt::LeftButton);
        mandar(QEvent::MouseButtonRelease, borde + QPointF(paso, 0), Qt::NoButton);
        QApplication::processEvents();
    };
    const auto ancho = [&](const char* nombre) { return p.Control(nombre)->width(); };
    const int antes = ancho("Text4_0") + ancho("Text5_0");
    const int campo = ancho("Text4_0");
    arrastrar("FieldCol", 30);
    EXPECT_EQ(ancho("Text4_0"), campo + 30);
    EXPECT_EQ(ancho("Text4_0") + ancho("Text5_0"), antes);
    arrastrar("FieldCol", 5000);
    EXPECT_GE(ancho("Text5_0"), p.Control("Col2Name")->sizeHint().width());
    const int quedan = ancho("Text4_0");
    p.Control<QSplitter>("DivisionDeRejillas")->setSizes({420, 700});
    QApplication::processEvents();
    const int lado = ancho("RejillaArchivo");
    const QSize ventana = p.principal->size();
    const double parte = static_cast<double>(ancho("Text4_0")) / ancho("RejillaTransaccion");
    ASSERT_TRUE(p.principal->close());
    p.Abrir();
    p.principal->resize(ventana);
    QApplication::processEvents();
    EXPECT_NEAR(ancho("RejillaArchivo"), lado, 2);
    EXPECT_NEAR(static_cast<double>(ancho("Text4_0")) / ancho("RejillaTransaccion"), parte, 0.01);
    EXPECT_GT(quedan, campo);
}

TEST(Principal, HeadingsAreWholeAndCaptionsMoveNothing) {
    for (const char* const idioma : {"English", "Espanol"}) {
        ProgramaDePrueba p;
        p.directorio.Escribir("Tessaline.ini", std::string("Language=") + idioma + "\r\n");
        p.Abrir();
        p.principal->resize(1024, 600);
        for (const bool ancho : {false, true}) {
            if (ancho) p.Control<QPushButton>("ExpandirCampo")->click();
            QApplication::processEvents();
            for (const char* const nombre : {"ColumnName", "FileWidth", "ProgramCol", "DynproCol", "FieldCol", "Col2Name"}) {
                const auto* const cabecera = p.Control(nombre);
                if (cabecera->isHidden()) continue;
                EXPECT_GE(cabecera->width(), cabecera->sizeHint().width()) << idioma << ' ' << nombre << ancho;
            }
        }
        p.LaVentana().documento.especificacion.TablaArchivo[0].campo = "MATNR";
        const int antes = p.Control("TextoBuscado")->width();
        p.Control<QLineEdit>("TextoBuscado")->setText("MATNR");
        for (const char* const boton : {"BuscarArchivo", "BuscarTransaccion"}) {
            p.Control<QPushButton>(boton)->click();
            QApplication::processEvents();
            EXPECT_EQ(p.Control("TextoBuscado")->width(), antes) << idioma << ' ' << boton;
        }
    }
}

TEST(Principal, DropsOntoAValue) {
    ProgramaDePrueba p;
    p.LaVentana().documento.especificacion.TablaArchivo[0].campo = "MATNR";
    p.LaVentana().documento.especificacion.TablaTransaccion[0] = {"TRANS", "MM01", "", "", ""};
    p.LaVentana().documento.especificacion.TablaTransaccion[1] = {"", "", "RMMG1-MATNR", "", ""};
    p.LaVentana().vista.MostrarFila(Tabla::Archivo, 0);
    p.LaVentana().vista.MostrarFila(Tabla::Transaccion, 0);
    const auto soltar = [&](const char* celda, QMimeData* datos) {
        const std::unique_ptr<QMimeData> dueno(datos);
        QDragEnterEvent entrada(QPoint(3, 3), Qt::CopyAction, datos, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(p.Control(celda), &entrada);
        QDropEvent evento(QPointF(3, 3), Qt::CopyAction, datos, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(p.Control(celda), &evento);
    };
    soltar("Text5_1", DatosDeCampo(0, "MATNR"));
    EXPECT_EQ(p.Control<QLineEdit>("Text5_1")->text(), "MATNR");
    soltar("Text5_2", DatosDeOkCode(RotuloDeOkCode::SaveCode));
    EXPECT_EQ(p.Control<QLineEdit>("Text4_2")->text(), "BDC_OKCODE");
    EXPECT_EQ(p.Control<QLineEdit>("Text5_2")->text(), "'/11'");
    soltar("Text5_6", DatosDeCampo(0, "MATNR"));
    EXPECT_THAT(p.vista->avisos, ElementsAre(345));
    EXPECT_EQ(p.Control<QLineEdit>("Text5_6")->text(), "");
}

}  // namespace
}  // namespace qor
