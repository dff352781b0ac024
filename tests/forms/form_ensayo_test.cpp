#include <gmock/gmock.h>

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>
#include <QTest>
#include <QTreeView>
#include <QTreeWidget>

#include "app/FormEnsayo.h"
#include "app/examples.h"
#include "base/files.h"
#include "base/qt/text.h"
#include "editor/document_commands.h"
#include "tests/forms/principal_fixture.h"

namespace qor {
namespace {

using pruebas::ProgramaDePrueba;
using testing::HasSubstr;

FormEnsayo* Ventana() {
    for (QWidget* const ventana : QApplication::topLevelWidgets()) {
        if (auto* const ensayo = qobject_cast<FormEnsayo*>(ventana)) return ensayo;
    }
    return nullptr;
}

template <typename T>
T* Parte(const char* nombre) {
    return Ventana()->findChild<T*>(QString::fromLatin1(nombre));
}

std::string Celda(const QAbstractItemView* vista, const QModelIndex& lugar, int columna) {
    return vista->model()->index(lugar.row(), columna, lugar.parent()).data().toString().toStdString();
}

// From the copy of an example to its failed record, the cell that it came from, and the records to load again.
TEST(FormEnsayo, AnExampleIsRehearsedWithKeysAlone) {
    ProgramaDePrueba p;
    const auto carpeta = CopiarEjemplo(QOR_TEST_SOURCE_DIR "/examples/mm01", p.directorio.Ruta());
    ASSERT_TRUE(OpenOption(p.LaVentana(), carpeta / "materials.qor"));
    p.principal->Sincronizar();
    p.Control<QAction>("RehearseOption")->trigger();
    ASSERT_NE(Ventana(), nullptr);
    QApplication::setActiveWindow(Ventana());
    EXPECT_EQ(Parte<QLineEdit>("FILE")->text(), NombreQt(carpeta / "materials.txt"));
    EXPECT_EQ(Parte<QLineEdit>("Valores")->text(), NombreQt(carpeta / "values"));

    // What can't be read is refused, and nothing runs.
    auto* const fallos = Parte<QLineEdit>("Fallos");
    fallos->setText(QStringLiteral("x"));
    Parte<QPushButton>("Correr")->click();
    EXPECT_FALSE(Ventana()->Corriendo());
    EXPECT_EQ(p.vista->avisos.size(), 1U);

    fallos->setText(QStringLiteral("2=Chosen, by hand"));
    QTest::keyClick(Ventana(), Qt::Key_F9);
    const auto* const estado = Parte<QLabel>("Estado");
    EXPECT_TRUE(QTest::qWaitFor([&] { return estado->text() == QLatin1String("4 records read, 2 in session, 2 failed"); }, 30'000))
        << estado->text().toStdString();

    // Its value stands in no list.
    auto* const busqueda = Parte<QLineEdit>("BuscarRegistro");
    QTest::keyClicks(busqueda, QStringLiteral("fluids"));
    auto* const tabla = Parte<QTableView>("TablaDeRegistrosDeEnsayo");
    ASSERT_EQ(tabla->model()->rowCount(), 1);
    EXPECT_EQ(Celda(tabla, tabla->currentIndex(), 0), "4");
    QTest::keyClick(busqueda, Qt::Key_Return);
    EXPECT_FALSE(Ventana()->Corriendo()) << "Enter is no order to run";
    auto* const arbol = Parte<QTreeView>("ArbolDeEnvios");
    EXPECT_EQ(Celda(arbol, arbol->currentIndex(), 0), "MARA-MATKL");
    EXPECT_EQ(Celda(arbol, arbol->currentIndex(), 1), "FLUIDS");
    EXPECT_EQ(Celda(arbol, arbol->currentIndex(), 2), "MATKL");
    QTest::keyClick(arbol, Qt::Key_Return);
    ASSERT_TRUE(p.LaVentana().foco.has_value());
    EXPECT_EQ(p.LaVentana().transaccion.PrimeraFilaTransaccion + p.LaVentana().foco->linea, 12);

    // Its line in the input file, from each place that tells of it.
    const auto verLinea = [&](const std::function<void()>& abrir) {
        std::string visto;
        QApplication::setActiveWindow(Ventana());
        ProgramaDePrueba::ConDialogo(abrir, [&](QDialog& dialogo) {
            auto* const rejilla = dialogo.findChild<QTableView*>(QStringLiteral("TablaDeRegistros"));
            visto = dialogo.findChild<QLabel*>(QStringLiteral("EstadoDeLineas"))->toolTip().left(11).toStdString() + ", " +
                    rejilla->currentIndex().data().toString().toStdString();
        });
        return visto;
    };
    auto* const listaDeFallos = Parte<QTreeWidget>("ListaDeFallos");
    listaDeFallos->setCurrentItem(listaDeFallos->topLevelItem(1));
    const auto conTecla = [](QWidget* control, int tecla) {
        return [=] {
            control->setFocus();
            QTest::keyClick(control, static_cast<Qt::Key>(tecla));
        };
    };
    EXPECT_EQ(verLinea(conTecla(tabla, Qt::Key_Return)), "Line 4 of 4, FLUIDS");
    EXPECT_EQ(verLinea(conTecla(listaDeFallos, Qt::Key_Return)), "Line 4 of 4, FLUIDS");
    EXPECT_EQ(verLinea([&] { emit arbol->activated(arbol->currentIndex().siblingAtColumn(2)); }), "Line 4 of 4, FLUIDS");
    EXPECT_EQ(verLinea(conTecla(arbol, Qt::Key_F7)), "Line 4 of 4, FLUIDS");

    // The third one has no weight.
    busqueda->setText(QStringLiteral("3"));
    const auto hallados = arbol->model()->match(arbol->model()->index(0, 0), Qt::DisplayRole, QStringLiteral("MARA-BRGEW"), 1,
                                                Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_EQ(hallados.size(), 1);
    EXPECT_EQ(Celda(arbol, hallados.first(), 3), "The condition WITH_WEIGHT is not met.");

    QApplication::setActiveWindow(Ventana());
    const auto fallados = p.directorio / "again.txt";
    p.vista->archivos = {fallados};
    QTest::keyClick(Ventana(), Qt::Key_F9);
    ASSERT_TRUE(QTest::qWaitFor([] { return !Ventana()->Corriendo(); }, 30'000));
    emit Parte<QMenu>("MenuDeExportar")->aboutToShow();
    Parte<QAction>("ExportarFallados")->trigger();
    const auto entrada = LeerArchivo(carpeta / "materials.txt");
    const auto lineas = PartirEnLineas(entrada);
    const auto escrito = LeerArchivo(fallados);
    EXPECT_THAT(PartirEnLineas(escrito), testing::ElementsAre(lineas[1], lineas[3]));

    auto* const division = Parte<QSplitter>("DivisionDeRegistros");
    const int ancho = division->width() - division->handleWidth();
    division->setSizes({ancho - 400, 400});

    // The file that was chosen is known to the next start, and not to the document.
    const auto otra = carpeta / "other.txt";
    std::filesystem::copy(fallados, otra);
    Parte<QLineEdit>("FILE")->setText(NombreQt(otra));
    emit Parte<QLineEdit>("FILE")->editingFinished();
    EXPECT_FALSE(p.LaVentana().documento.HayCambios());
    p.Abrir();
    EXPECT_EQ(Ventana(), nullptr);
    ASSERT_TRUE(OpenOption(p.LaVentana(), carpeta / "materials.qor"));
    p.principal->Sincronizar();
    p.Control<QAction>("RehearseOption")->trigger();
    EXPECT_EQ(Parte<QLineEdit>("FILE")->text(), NombreQt(otra));
    EXPECT_EQ(Parte<QSplitter>("DivisionDeRegistros")->sizes().value(1), 400) << "the window is as it was left";

    // A window that closes stops its run, also one without an end.
    p.LaVentana().documento.especificacion.TablaArchivo[0].conversion = "DO.\r\nENDDO.\r\n";
    p.LaVentana().documento.Cambiar();
    p.principal->Sincronizar();
    QApplication::setActiveWindow(Ventana());
    QTest::keyClick(Ventana(), Qt::Key_F9);
    QTest::qWait(300);
    ASSERT_TRUE(Ventana()->Corriendo()) << Parte<QLabel>("Estado")->text().toStdString();
    Ventana()->close();
    EXPECT_FALSE(Ventana()->Corriendo());
}

// Records that were asked to fail in one document don't fail in the next one, and a file that the preview is given is rehearsed.
TEST(FormEnsayo, AnotherDocumentBeginsAnew) {
    ProgramaDePrueba p;
    const auto abrir = [&p](const char* ejemplo, const char* documento) {
        const auto carpeta = CopiarEjemplo(std::filesystem::path(QOR_TEST_SOURCE_DIR "/examples") / ejemplo, p.directorio.Ruta());
        ASSERT_TRUE(OpenOption(p.LaVentana(), carpeta / documento));
        p.principal->Sincronizar();
    };
    abrir("mm01", "materials.qor");
    p.Control<QAction>("RehearseOption")->trigger();
    ASSERT_NE(Ventana(), nullptr);
    const auto pedido = [] {
        return Parte<QComboBox>("Registros")->currentText() + QLatin1Char('|') + Parte<QLineEdit>("Fallos")->text() +
               QLatin1Char('|') + Parte<QLineEdit>("Parametros")->text();
    };
    const QString alPrincipio = pedido();
    Parte<QComboBox>("Registros")->setCurrentText(QStringLiteral("2-3"));
    Parte<QLineEdit>("Fallos")->setText(QStringLiteral("2"));
    Parte<QLineEdit>("Parametros")->setText(QStringLiteral("P=1"));
    abrir("va01", "orders.qor");
    EXPECT_EQ(pedido(), alPrincipio);
    Ventana()->TomarArchivo("SLOOP_1", "/other.txt");
    EXPECT_EQ(Parte<QLineEdit>("SLOOP_1")->text(), QStringLiteral("/other.txt"));
}

// Of several input files those beside the chosen one are not replaced unasked.
TEST(FormEnsayo, FailedRecordsOfSeveralFilesAskForEach) {
    ProgramaDePrueba p;
    const auto carpeta = CopiarEjemplo(QOR_TEST_SOURCE_DIR "/examples/va01", p.directorio.Ruta());
    ASSERT_TRUE(OpenOption(p.LaVentana(), carpeta / "orders.qor"));
    p.principal->Sincronizar();
    p.Control<QAction>("RehearseOption")->trigger();
    ASSERT_NE(Ventana(), nullptr);
    QApplication::setActiveWindow(Ventana());
    Parte<QLineEdit>("FILE")->setText(NombreQt(carpeta / "orders.txt"));
    Parte<QLineEdit>("SLOOP_1")->setText(NombreQt(carpeta / "items.txt"));
    Parte<QLineEdit>("Fallos")->setText(QStringLiteral("1"));
    QTest::keyClick(Ventana(), Qt::Key_F9);
    ASSERT_TRUE(QTest::qWaitFor([] { return !Ventana()->Corriendo(); }, 30'000));
    p.directorio.Escribir("bad-SLOOP_1.txt", "mine");
    const auto exportar = [&](Respuesta respuesta) {
        p.vista->archivos = {p.directorio / "bad.txt"};
        p.vista->respuestas = {respuesta};
        emit Parte<QMenu>("MenuDeExportar")->aboutToShow();
        Parte<QAction>("ExportarFallados")->trigger();
        return LeerArchivo(p.directorio / "bad-SLOOP_1.txt");
    };
    EXPECT_EQ(exportar(Respuesta::No), "mine");
    EXPECT_FALSE(std::filesystem::exists(p.directorio / "bad.txt"));
    const auto partidas = exportar(Respuesta::Si);
    EXPECT_THAT(LeerArchivo(carpeta / "items.txt"), HasSubstr(partidas));
    EXPECT_NE(partidas, "mine");
}

}  // namespace
}  // namespace qor
