#include <gmock/gmock.h>

#include <chrono>
#include <thread>

#include "base/text.h"
#include "editor/file_side.h"
#include "editor/undo_command.h"
#include "input/preview_check.h"
#include "input/preview_findings.h"
#include "input/preview_rows.h"
#include "input/preview_ruler.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// ---- Lines ----

DisenoDeEntrada Diseno(bool porTabuladores) {
    Especificacion e;
    e.TablaArchivo[0] = {"MATNR", "4", "", ""};
    e.TablaArchivo[1] = {"MENGE", "3", "", ""};
    e.TablaArchivo[2] = {"MEINS", "2", "", ""};
    Opciones opciones;
    opciones.AnchoFijo = !porTabuladores;
    return {e, opciones};
}

TEST(PreviewRows, ALineIsSplitWithWhatNoFieldTakes) {
    struct Caso {
        bool porTabuladores;
        const char* linea;
        std::vector<std::string> valores;  // the three fields, and what is left
    };
    const Caso casos[] = {
        {false, "M-01 12ST", {"M-01", " 12", "ST", ""}},
        {false, "M-01 12ST rest  ", {"M-01", " 12", "ST", " rest"}},
        {false, "M-0", {"M-0", "", "", ""}},
        {false, "    7    ", {"", "7", "", ""}},
        {false, "", {"", "", "", ""}},
        {true, "M-00001\t1\tST", {"M-00001", "1", "ST", ""}},
        {true, "M\t\tST\tx\ty ", {"M", "", "ST", "x\ty"}},
        {true, "M", {"M", "", "", ""}},
        {true, "M\t", {"M", "", "", ""}},
    };
    for (const auto& caso : casos) {
        const auto diseno = Diseno(caso.porTabuladores);
        std::vector<std::string> valores;
        for (const auto& tramo : PartirRegistro(diseno, diseno.Clases().front(), caso.linea)) {
            valores.emplace_back(tramo.En(caso.linea));
        }
        EXPECT_EQ(valores, caso.valores) << caso.linea;
    }
}

TEST(PreviewRows, EachByteIsSeenAsOneCharacter) {
    EXPECT_EQ(TextoVisible("a\xFC\x80z"), "a\u00FC\u20ACz");
    EXPECT_EQ(TextoVisible(std::string_view("\t\0\x81\x7F", 4)), "\u2192\uFFFD\uFFFD\uFFFD");
}

TEST(PreviewRows, TheBarReachesEveryEnd) {
    for (const std::uint64_t lineas : {0ULL, 1ULL, 20ULL, 21ULL, 3'000'000'000ULL, 40'000'000'000ULL}) {
        const VentanaDeRegistros ventana{lineas, 20};
        EXPECT_EQ(ventana.PrimeraDe(0), 0U);
        EXPECT_EQ(ventana.PrimeraDe(ventana.MaximoDeBarra()), lineas > 20 ? lineas - 20 : 0) << lineas;
        EXPECT_EQ(ventana.ValorDe(ventana.UltimaPrimera()), ventana.MaximoDeBarra());
        int antes = -1;
        for (std::uint64_t primera = 0; primera <= ventana.UltimaPrimera(); primera += 1 + ventana.UltimaPrimera() / 7) {
            const int valor = ventana.ValorDe(primera);
            EXPECT_GT(valor, antes);
            // No more than a step of the bar away.
            const auto vuelta = ventana.PrimeraDe(valor);
            EXPECT_LE(primera - std::min(primera, vuelta), lineas / 2'147'483'647 + 1) << lineas;
            EXPECT_LE(vuelta, primera);
            antes = valor;
        }
    }
    const VentanaDeRegistros ventana{1000, 20};
    struct Caso {
        std::uint64_t linea, primera, despues;
    };
    for (const auto& [linea, primera, despues] :
         {Caso{105, 100, 100}, {99, 100, 99}, {120, 100, 101}, {500, 100, 490}, {0, 100, 0}, {999, 100, 980}, {985, 990, 980}}) {
        EXPECT_EQ(ventana.PrimeraPara(linea, primera), despues) << linea << " from " << primera;
    }
}

// ---- The ruler ----

TEST(PreviewRuler, BordersAreTakenHoldOfAndMoved) {
    ClaseDeRegistro clase;
    clase.campos = {{0, "A", 1, 4, false}, {1, "B", 5, 0, false}, {2, "C", 5, 0, false}, {3, "D", 5, 10, false}};
    struct Caso {
        double columna;
        int campo;
    };
    for (const auto& [columna, campo] : {Caso{4.6, 0}, {5.0, 0}, {5.3, 1}, {15.4, 3}, {14.6, 3}, {8.0, -1}, {1.0, -1}, {0.0, -1}}) {
        EXPECT_EQ(BordeEn(clase, columna, 0.5), campo) << columna;
    }
    // Two borders within reach: the nearer one.
    clase.campos = {{0, "A", 0, 4, false}, {1, "B", 4, 1, false}};
    EXPECT_EQ(BordeEn(clase, 4.4, 0.9), 0);
    EXPECT_EQ(BordeEn(clase, 4.6, 0.9), 1);
    EXPECT_EQ(AnchoHasta(clase.campos[1], 9), 5U);
    EXPECT_EQ(AnchoHasta(clase.campos[1], -3), 1U);
    EXPECT_EQ(AnchoMas(clase.campos[1], -1), 1U);
    EXPECT_EQ(AnchoMas(clase.campos[0], 10), 14U);
    EXPECT_EQ(AnchoMas(clase.campos[0], 1'000'000), anchoMaximoDeCampo);
    EXPECT_EQ(EscalaDe(12), "....5...10..");
    EXPECT_EQ(EscalaDe(0), "");
}

std::vector<std::string> EnTextos(const std::vector<FilaDeArchivo>& filas) {
    std::vector<std::string> textos;
    for (const auto& fila : filas) textos.push_back(fila.campo + "|" + fila.ancho);
    return textos;
}

TEST(PreviewRuler, MarksBecomeFields) {
    MarcasDeRegla marcas;
    EXPECT_THAT(CamposDeMarcas(marcas, 0, 30), IsEmpty());
    for (const std::size_t columna : {10, 4, 25, 0, 25, 2}) marcas.Alternar(columna);
    EXPECT_THAT(marcas.Columnas(), ElementsAre(2, 4, 10));
    EXPECT_THAT(EnTextos(CamposDeMarcas(marcas, 0, 30)), ElementsAre("FIELD1|2", "FIELD2|2", "FIELD3|6", "FIELD4|20"));
    EXPECT_THAT(EnTextos(CamposDeMarcas(marcas, 0, 7)), ElementsAre("FIELD1|2", "FIELD2|2", "FIELD3|6"));
    EXPECT_THAT(EnTextos(CamposDeMarcas(marcas, 2, 10)), ElementsAre("FIELD1|2", "FIELD2|6"));
}

TEST(PreviewRuler, AHeadingLineBecomesFields) {
    EXPECT_THAT(EnTextos(CamposDeCabecera("Material\t Unit (1)\t\tunit_1_\tMATERIAL\tGr\xF6\xDF"
                                          "e\t",
                                          {"M-01\tST\t1\t\tX", "M-0001\tKAR ", ""})),
                ElementsAre("MATERIAL|6", "UNIT__1_|3", "FIELD3|1", "UNIT_1_|", "MATERIAL2|1", "GR__E|", "FIELD7|"));
    // Long names stay different, and no more fields come than the file side has room for.
    const std::string largo(40, 'x');
    EXPECT_THAT(EnTextos(CamposDeCabecera(largo + "\t" + largo + "\t" + largo, {})),
                ElementsAre(std::string(30, 'X') + "|", std::string(29, 'X') + "2|", std::string(29, 'X') + "3|"));
    EXPECT_EQ(CamposDeCabecera(std::string(3000, '\t'), {}).size(), 1001U);
}

// ---- The file side ----

TEST(FileSide, IsFilledAndWidenedInOneStep) {
    VentanaDePrueba p;
    auto& documento = p.documento;
    p.PonerArchivo(3, "HIDDEN|5");
    LlenarLadoDeArchivo(p.ventana, {{"A", "4", "", ""}, {"B", "", "", ""}});
    EXPECT_THAT(p.FilasArchivo(), ElementsAre("A|4", "B"));
    EXPECT_EQ(p.Texto({Columna::CampoDeArchivo, 1}), "B");
    EXPECT_TRUE(documento.HayCambios());
    // One that has fields is left alone.
    LlenarLadoDeArchivo(p.ventana, {{"C", "1", "", ""}});
    Deshacer(p.ventana);
    EXPECT_EQ(p.FilaArchivo(0), "");
    EXPECT_EQ(p.FilaArchivo(3), "HIDDEN|5");
    EXPECT_EQ(p.Texto({Columna::CampoDeArchivo, 0}), "");
    EXPECT_TRUE(documento.deshacer.Vacia());

    // A row out of sight comes into it; the same width is no change.
    p.LlenarArchivo(40);
    documento.DarPorGuardado();
    CambiarAncho(p.ventana, 33, documento.especificacion.TablaArchivo[33].ancho);
    EXPECT_FALSE(documento.HayCambios());
    CambiarAncho(p.ventana, 33, "12");
    EXPECT_EQ(p.FilaArchivo(33), "F33|12");
    EXPECT_EQ(p.Texto({Columna::Ancho, 33 - p.ventana.archivo.PrimeraFilaArchivo}), "12");
    Deshacer(p.ventana);
    EXPECT_EQ(p.FilaArchivo(33), "F33");
    EXPECT_TRUE(documento.deshacer.Vacia());
}

// ---- Findings ----

HallazgoDeDatos Hallazgo(int archivo, std::uint64_t linea, std::size_t columna, bool aviso = false) {
    HallazgoDeDatos hallazgo;
    hallazgo.clase = aviso ? HallazgoDeEntrada::LineaCorta : HallazgoDeEntrada::NoEsNumero;
    hallazgo.archivo = archivo;
    hallazgo.linea = linea;
    hallazgo.columna = columna;
    return hallazgo;
}

TEST(PreviewFindings, StandInTheOrderOfTheLines) {
    HallazgosVistos hallazgos;
    EXPECT_EQ(hallazgos.Vecino(0, 1, 0, 1), -1);
    EXPECT_TRUE(hallazgos.Agregar(Hallazgo(0, 3, 5)));
    EXPECT_TRUE(hallazgos.Agregar(Hallazgo(0, 9, 1, true)));
    EXPECT_TRUE(hallazgos.Agregar(Hallazgo(1, 2, 0)));
    EXPECT_FALSE(hallazgos.Agregar(Hallazgo(0, 3, 1, true)));
    EXPECT_TRUE(hallazgos.Completos());
    hallazgos.Contar(5, 0);
    EXPECT_FALSE(hallazgos.Completos());
    EXPECT_EQ(hallazgos.Errores(), 7U);
    EXPECT_EQ(hallazgos.Avisos(), 2U);
    EXPECT_EQ(hallazgos.DeLinea(0, 3), std::pair(std::size_t{0}, std::size_t{2}));
    EXPECT_EQ(hallazgos.DeLinea(0, 4).second, 0U);
    EXPECT_EQ(hallazgos.DeLinea(1, 9).second, 0U);
    struct Caso {
        int archivo;
        std::uint64_t linea;
        std::size_t columna;
        int paso, vecino;
    };
    for (const auto& [archivo, linea, columna, paso, vecino] : {Caso{0, 1, 0, 1, 0},
                                                                {0, 3, 1, 1, 1},
                                                                {0, 3, 5, 1, 2},
                                                                {0, 9, 1, 1, 3},
                                                                {1, 2, 0, 1, 0},
                                                                {0, 1, 0, -1, 3},
                                                                {0, 9, 0, -1, 1}}) {
        EXPECT_EQ(hallazgos.Vecino(archivo, linea, columna, paso), vecino) << linea << "," << columna;
    }
}

void Esperar(const RevisionEnFondo& revision) {
    while (revision.Corriendo()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

TEST(PreviewFindings, ComeFromACheckInTheBackground) {
    const DirectorioTemporal directorio;
    std::string texto;
    for (int i = 0; i < 500; ++i) texto += i % 2 == 0 ? "M-01 x2ST\r\n" : "M-01\r\n";
    RevisionEnFondo::Pedido pedido{std::make_shared<DisenoDeEntrada>(Diseno(false)),
                                   ClasesDeCampos::Leer("MENGE number ,\n"),
                                   directorio / "d.qor",
                                   {directorio.Escribir("in", texto)},
                                   20};
    HallazgosVistos hallazgos;
    RevisionEnFondo revision(pedido);
    Esperar(revision);
    EXPECT_TRUE(revision.Tomar(hallazgos));
    EXPECT_TRUE(revision.Completa());
    EXPECT_EQ(revision.PorMil(), 1000);
    EXPECT_FALSE(revision.Fallo());
    // So many of each severity are kept, all are counted.
    EXPECT_EQ(hallazgos.Errores(), 250U);
    EXPECT_EQ(hallazgos.Avisos(), 250U);
    EXPECT_EQ(hallazgos.Lista().size(), 40U);
    EXPECT_EQ(hallazgos.Lista().back().linea, 40U);

    // A file that was not chosen: nothing is checked to its end. A list that isn't there: the reason.
    pedido.archivos = {{}};
    RevisionEnFondo sinArchivo(pedido);
    Esperar(sinArchivo);
    EXPECT_FALSE(sinArchivo.Completa());
    EXPECT_FALSE(sinArchivo.Fallo());
    pedido.clases = ClasesDeCampos::Leer("MENGE list none.txt\n");
    RevisionEnFondo sinLista(pedido);
    Esperar(sinLista);
    EXPECT_FALSE(sinLista.Completa());
    EXPECT_EQ(sinLista.Fallo().value().ruta.filename(), "none.txt");

    // Stopped at once, also where nothing is found.
    pedido.clases = {};
    pedido.archivos = {
        directorio.Escribir("big", ReemplazarTodo(std::string(400'000, 'x'), "x", "M-01 12ST\n" + std::string(90, ' ')))};
    RevisionEnFondo detenida(pedido);
    detenida.Detener();
    Esperar(detenida);
    EXPECT_FALSE(detenida.Completa());
}

}  // namespace
}  // namespace qor::pruebas
