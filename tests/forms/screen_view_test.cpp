#include "app/qt/screen_view.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "app/qt/file_memory.h"
#include "base/qt/text.h"
#include "tests/support/language.h"
#include "tests/support/temporary_directory.h"

namespace qor::pruebas {
namespace {

// Uses the modal window that `abrir` opens, and answers whether there was one.
template <typename Dialogo>
bool Con(const std::function<void()>& abrir, const std::function<void(Dialogo&)>& usar) {
    bool usado = false;
    QTimer::singleShot(0, qApp, [&] {
        auto* const dialogo = qobject_cast<Dialogo*>(QApplication::activeModalWidget());
        if (dialogo == nullptr) return;
        usado = true;
        usar(*dialogo);
        dialogo->close();
    });
    abrir();
    return usado;
}

TEST(ScreenView, AWrittenFileCanBeCopiedByItsWholeName) {
    const auto textos = TextosDe("English");
    VistaDePantalla vista(textos);
    Mensaje mensaje = MensajeLiteral("Written.");
    mensaje.escrito = "/loads/zload.abap";
    const auto copiar = [](QMessageBox& caja) {
        auto* const boton = caja.findChild<QPushButton*>(QStringLiteral("CopiarNombre"));
        ASSERT_NE(boton, nullptr);
        QTest::mouseClick(boton, Qt::LeftButton);
        EXPECT_TRUE(caja.isVisible());
        EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("/loads/zload.abap"));
    };
    EXPECT_TRUE(Con<QMessageBox>([&] { vista.Informar(mensaje); }, copiar));
    QApplication::clipboard()->clear();
    EXPECT_TRUE(Con<QMessageBox>([&] { EXPECT_EQ(vista.Preguntar(mensaje, Botones::SiNo), Respuesta::No); }, copiar));
}

TEST(ScreenView, AFileDialogBeginsWhereTheLastFileOfItsKindWas) {
    const DirectorioTemporal d;
    for (const char* const nombre : {"data", "pdf", "docs", "loads"}) std::filesystem::create_directory(d / nombre);
    Programa programa;
    programa.rutaDeAjustes = d / "Tessaline.ini";
    programa.ajustes.directorioDelPrograma = programa.ajustes.DirectorioDocumentos = d / "data";
    VistaDePantalla vista(programa.textos);
    VistaDePantalla::Formulario formulario;
    formulario.lugares = [&](ClaseDeArchivo clase) { return LugaresDe(programa, d / "loads/materials.qor", clase); };
    formulario.recordar = [&](ClaseDeArchivo clase, const auto& ruta) { RecordarLugar(programa, clase, ruta); };
    vista.Servir(formulario);

    const auto grabar = [&](const PedidoDeArchivo& pedido, const char* comienzo, const char* elegido) {
        std::optional<std::filesystem::path> dado;
        EXPECT_TRUE(Con<QFileDialog>([&] { dado = vista.ElegirParaGrabar(pedido); },
                                     [&](QFileDialog& dialogo) {
                                         EXPECT_EQ(dialogo.selectedFiles().value(0), NombreQt(d / comienzo));
                                         if (elegido == nullptr) return;
                                         dialogo.selectFile(NombreQt(d / elegido));
                                         QMetaObject::invokeMethod(&dialogo, "accept");
                                     }));
        EXPECT_EQ(dado, elegido == nullptr ? std::nullopt : std::optional(d / elegido));
    };
    const PedidoDeArchivo pdf{ClaseDeArchivo::PDF, "PDF|*.pdf", {}, "materials.pdf"};
    const PedidoDeArchivo documento{ClaseDeArchivo::Documento, "QOR|*.qor", {}, "materials.qor"};
    grabar(pdf, "loads/materials.pdf", "pdf/x.pdf");
    grabar(pdf, "pdf/materials.pdf", nullptr);
    grabar(documento, "loads/materials.qor", "docs/x.qor");
    grabar(documento, "docs/materials.qor", nullptr);
    EXPECT_EQ(programa.ajustes.DirectorioDocumentos, d / "docs/");
    grabar({ClaseDeArchivo::Diario, "JSON Lines|*.jsonl", {}, "m.jsonl"}, "loads/m.jsonl", nullptr);
}

}  // namespace
}  // namespace qor::pruebas
