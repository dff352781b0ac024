#include <gmock/gmock.h>

#include <QFontMetricsF>
#include <QPrinter>
#include <map>

#include "base/failure.h"
#include "base/files.h"
#include "print/page.h"
#include "print/qt/pdf_device.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

using ::testing::StartsWith;

// Keeps where each text came to stand.
class DispositivoQueAnota : public DispositivoQt {
public:
    struct Texto {
        QString texto;
        int pagina;
        double x, y, derecha;  // parts of the paper's width and height
        QFont fuente;
    };

    explicit DispositivoQueAnota(QPagedPaintDevice& papel) : DispositivoQt(papel), papel_(papel) {}
    ~DispositivoQueAnota() override { DispositivoQt::Terminar(); }

    std::vector<Texto> textos;

    const Texto& Buscar(const QString& comienzo) const {
        for (const auto& texto : textos) {
            if (texto.texto.startsWith(comienzo)) return texto;
        }
        throw std::logic_error("not printed: " + comienzo.toStdString());
    }

protected:
    void Pintar(double x, double y, const QString& texto, const QFont& fuente) override {
        const double ancho = papel_.pageLayout().fullRect(QPageLayout::Point).width() * 20;
        const double alto = papel_.pageLayout().fullRect(QPageLayout::Point).height() * 20;
        const double escala = std::min(1.0, ancho / 11906);
        const double largo = QFontMetricsF(fuente, &papel_).horizontalAdvance(texto) / papel_.logicalDpiX() * 1440;
        textos.push_back({texto, NumeroDePagina(), x * escala / ancho, y * escala / alto, (x * escala + largo) / ancho, fuente});
        DispositivoQt::Pintar(x, y, texto, fuente);
    }

private:
    QPagedPaintDevice& papel_;
};

class Papel : public ::testing::Test {
protected:
    std::unique_ptr<QPrinter> Nuevo(QPageSize::PageSizeId tamano = QPageSize::A4) {
        auto impresora = std::make_unique<QPrinter>(QPrinter::HighResolution);
        impresora->setOutputFormat(QPrinter::PdfFormat);
        impresora->setPageSize(QPageSize(tamano));
        impresora->setOutputFileName(QString::fromStdString((directorio / "out.pdf").string()));
        return impresora;
    }

    DirectorioTemporal directorio;
    VentanaDePrueba prueba;
};

TEST_F(Papel, NothingRunsOffThePaper) {
    for (const auto tamano : {QPageSize::A4, QPageSize::Letter, QPageSize::A5, QPageSize::A3}) {
        const auto impresora = Nuevo(tamano);
        DispositivoQueAnota d(*impresora);
        ASSERT_TRUE(d.Abierto());
        d.AlAcabarLaPagina([&](Dispositivo& este) { PasarPagina(este, prueba.textos); });
        ConfigurarImpresora(d);
        LineaSeparadora(d, 90);
        for (int n = 0; n < 150; ++n) {
            SPrint(d, prueba.textos, std::string(300, n % 2 == 0 ? 'W' : 'i'), 120);
            for (const int columna : {10, 30, 45, 100}) {
                d.Tab(columna);
                d.Item("A text of several words, wider than its column");
            }
            d.FinDeLinea();
        }
        d.Terminar();
        EXPECT_GT(d.NumeroDePagina(), 3);
        std::map<int, bool> conCabeza;
        for (const auto& texto : d.textos) {
            EXPECT_GT(texto.x, 0.03);
            EXPECT_LE(texto.derecha, 0.98) << texto.texto.toStdString();
            EXPECT_LE(texto.y, 0.985);
            if (texto.texto.startsWith(QStringLiteral("<920>"))) conCabeza[texto.pagina] = true;
        }
        EXPECT_EQ(static_cast<int>(conCabeza.size()), d.NumeroDePagina() - 1) << "every page but the first has its number";
    }
}

TEST_F(Papel, TabsAreColumnsThatNoTextCovers) {
    const auto impresora = Nuevo();
    DispositivoQueAnota d(*impresora);
    d.PonerOrigenIzquierdo(600);
    for (const char* const texto : {"short", "a name that is far too long for the narrow column"}) {
        d.Tab(2);
        d.Item(texto);
        d.Tab(20);
        d.Item("second");
        d.FinDeLinea();
    }
    d.PonerLetra({"Arial", 20, false});
    d.Tab(20);
    d.Item("large");
    d.FinDeLinea();
    const auto& corto = d.Buscar(QStringLiteral("short"));
    const auto& segundo = d.Buscar(QStringLiteral("second"));
    EXPECT_NEAR(segundo.x - corto.x, 18 * 10 * 0.4414 / 595.3, 0.001) << "characters of 10 points";
    EXPECT_GT(d.Buscar(QStringLiteral("large")).x, segundo.x) << "characters of 20 points";
    int trozos = 0;
    for (const auto& texto : d.textos) {
        if (texto.x != corto.x || texto.texto == corto.texto) continue;
        ++trozos;
        EXPECT_LT(texto.derecha, segundo.x) << texto.texto.toStdString();
    }
    EXPECT_GT(trozos, 2) << "goes on below";
}

TEST_F(Papel, EmphasisIsVisibleAndEnds) {
    const auto impresora = Nuevo();
    DispositivoQueAnota d(*impresora);
    Encabezado(d, "heading");
    d.PonerEnfasis(Enfasis::Clave, true);
    d.Item("key ");
    d.PonerEnfasis(Enfasis::Clave, false);
    d.Item("plain");
    d.FinDeLinea();
    EXPECT_TRUE(d.Buscar(QStringLiteral("heading")).fuente.underline());
    EXPECT_TRUE(d.Buscar(QStringLiteral("key")).fuente.italic());
    const auto& llano = d.Buscar(QStringLiteral("plain"));
    EXPECT_FALSE(llano.fuente.underline() || llano.fuente.italic() || llano.fuente.bold());
    EXPECT_NEAR(llano.x, d.Buscar(QStringLiteral("key")).derecha, 0.001) << "one line";
}

TEST_F(Papel, AnEndedPdfTakesItsPlaceWhole) {
    const auto ruta = directorio.Escribir("out.pdf", "old");
    {
        DispositivoPDF d(ruta);
        Linea(d, "never ended");
    }
    EXPECT_EQ(LeerArchivo(ruta), "old");
    DispositivoPDF d(ruta);
    EXPECT_TRUE(d.Abierto());
    for (int i = 0; i < 200; ++i) Linea(d, "text");
    d.Terminar();
    EXPECT_THAT(LeerArchivo(ruta), testing::AllOf(StartsWith("%PDF"), testing::EndsWith("%%EOF\n")));
    EXPECT_THROW(DispositivoPDF(directorio / "none/out.pdf"), FalloDeArchivo);
}

}  // namespace
}  // namespace qor::pruebas
