#include <gmock/gmock.h>

#include <QDropEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QUrl>
#include <filesystem>
#include <string>

#include "app/qt/recent_documents.h"
#include "base/files.h"
#include "base/qt/text.h"
#include "tests/forms/principal_fixture.h"

namespace qor {
namespace {

namespace fs = std::filesystem;
using pruebas::ProgramaDePrueba;

class Inicio : public testing::Test {
protected:
    void Empezar() {
        p.principal->ActivarPorPrimeraVez({.conPresentacion = false, .documento = {}});
        QApplication::processEvents();
    }
    bool ALaVista() const { return p.Control("PaginaDeInicio")->isVisible(); }
    fs::path Documento() const { return p.LaVentana().documento.ruta; }

    fs::path Copia(const char* nombre, const char* ejemplo) const {
        p.directorio.Escribir(nombre, LeerArchivo(fs::path(QOR_TEST_SOURCE_DIR "/examples") / ejemplo));
        return p.directorio.Ruta() / nombre;
    }

    // Drops files onto a cell, which takes texts.
    void Soltar(const std::vector<fs::path>& archivos) const {
        Enviar(archivos);
        QApplication::processEvents();
    }
    void Enviar(const std::vector<fs::path>& archivos) const {
        QMimeData datos;
        QList<QUrl> direcciones;
        for (const auto& archivo : archivos) direcciones << QUrl::fromLocalFile(NombreQt(archivo));
        datos.setUrls(direcciones);
        QDragEnterEvent entrado(QPoint(2, 2), Qt::CopyAction, &datos, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(p.Control("Text1_0"), &entrado);
        EXPECT_EQ(entrado.isAccepted(), archivos.size() == 1);
        QDropEvent soltado(QPointF(2, 2), Qt::CopyAction, &datos, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(p.Control("Text1_0"), &soltado);
    }

    ProgramaDePrueba p;
};

TEST_F(Inicio, OffersWhatWasOpenLast) {
    for (const char* const nombre : {"a & b.qor", "second.qor"}) Soltar({Copia(nombre, "mm01/materials.qor")});
    fs::remove(p.directorio.Ruta() / "a & b.qor");
    p.Abrir();
    Empezar();
    const auto* const lista = p.Control<QListWidget>("DocumentosRecientes");
    ASSERT_EQ(lista->count(), 2);
    EXPECT_TRUE(lista->item(0)->text().startsWith("second.qor\n"));

    // The one that is gone leaves the list, if the user wants it.
    p.vista->respuestas = {Respuesta::Si};
    ProgramaDePrueba::Pulsar(Qt::Key_Down);
    ProgramaDePrueba::Pulsar(Qt::Key_Return);
    ASSERT_EQ(lista->count(), 1);
    EXPECT_TRUE(ALaVista());
    p.Control("DocumentosRecientes")->setFocus();
    ProgramaDePrueba::Pulsar(Qt::Key_Return);
    EXPECT_EQ(Documento().filename(), "second.qor");
    EXPECT_FALSE(ALaVista());
}

TEST_F(Inicio, GivesWayToTheFirstKey) {
    Empezar();
    ASSERT_TRUE(ALaVista());
    ProgramaDePrueba::Escribir("matnr");
    EXPECT_FALSE(ALaVista());
    EXPECT_EQ(p.Control<QLineEdit>("Text1_0")->text(), "MATNR");
}

TEST_F(Inicio, TakesFilesForWhatTheyAre) {
    Soltar({Copia("zmmrec.txt", "recording/zmmrec.txt")});
    EXPECT_EQ(p.LaVentana().documento.especificacion.TablaTransaccion[0].dynpro, "MM01");
    EXPECT_EQ(p.vista->avisos.back(), 329);

    p.vista->respuestas = {Respuesta::No};
    const auto documento = Copia("Materials.QOR", "mm01/materials.qor");
    Soltar({documento, documento});
    EXPECT_EQ(Documento(), fs::path()) << "of several files none is meant";
    Soltar({documento});
    EXPECT_EQ(Documento(), documento);

    const auto datos = Copia("materials.txt", "mm01/materials.txt");
    Enviar({datos});
    ProgramaDePrueba::ConDialogo([] { QApplication::processEvents(); },
                                 [&](QDialog& dialogo) {
                                     EXPECT_EQ(dialogo.objectName(), "FormDatos");
                                     auto* const archivo = dialogo.findChild<QLineEdit*>("Archivo");
                                     ASSERT_NE(archivo, nullptr);
                                     EXPECT_EQ(archivo->text(), NombreQt(datos));
                                 });
    EXPECT_EQ(p.Control<QLineEdit>("Text1_0")->text(), "MATNR") << "a cell took the name of a file";
}

TEST_F(Inicio, RemembersTenDocumentsOnce) {
    const auto memoria = p.directorio.Ruta() / "memory.ini";
    for (int i = 0; i < 12; ++i) RecordarDocumento(memoria, "/d/" + std::to_string(i) + ".qor");
    RecordarDocumento(memoria, "/d/5.qor");
    const auto recientes = DocumentosRecientes(memoria);
    ASSERT_EQ(recientes.size(), 10U);
    EXPECT_EQ(recientes[0], "/d/5.qor");
    EXPECT_EQ(recientes[1], "/d/11.qor");
    EXPECT_EQ(recientes[9], "/d/2.qor");
}

}  // namespace
}  // namespace qor
