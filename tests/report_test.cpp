#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <optional>

#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "generator/generate.h"
#include "generator/observation.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

// Keeps everything that the generator asks of the view, in one line.
class Diario : public VistaDePrueba {
public:
    std::string diario;
    bool conEditor = false;

    void Mostrar(const Mensaje& mensaje, Icono icono) override {
        const auto archivo = mensaje.escrito.empty() ? std::string() : "\r\n" + mensaje.escrito.string();
        Anotar(mensaje.texto + archivo + (icono == Icono::Informacion ? "i" : ""));
    }
    Respuesta Preguntar(const Mensaje& mensaje, Botones botones) override {
        Anotar(mensaje.texto + "?");
        return VistaDePrueba::Preguntar(mensaje, botones);
    }
    void PunteroOcupado(bool ocupado) override { Anotar(ocupado ? "busy" : "idle"); }
    void MostrarFila(Tabla tabla, int fila) override { Anotar((tabla == Tabla::Archivo ? "A" : "T") + std::to_string(fila)); }
    void Enfocar(const std::string& control) override { Anotar(control); }
    void MostrarTexto(const std::string& texto) override { Anotar("text:" + texto.substr(0, texto.find('\r'))); }
    bool OfreceEditor() const override { return conEditor; }
    bool AbrirEditor(const std::filesystem::path& ruta) override {
        Anotar("edit:" + ruta.filename().string());
        return false;
    }

private:
    void Anotar(const std::string& que) { diario += (diario.empty() ? "" : " ") + que; }
};

// A transaction with a step-loop whose record lies in a file of its own.
struct Informe {
    DirectorioTemporal directorio;
    VentanaDePrueba prueba;
    Especificacion& e = prueba.ventana.documento.especificacion;
    Opciones& o = prueba.ventana.documento.opciones;
    Preferencias preferencias;
    std::string RutaDocumento = "/loads/orders.qor";
    Diario vista;
    EstadoDelGenerador estado;
    std::optional<ReporteEscrito> reporte;

    Informe() {
        prueba.Archivo({"ORDER|10", "DATE|8", "ITEM|6"});
        prueba.Transaccion({"TRANS|VA01", "SAPMV45A|101", "||VBAK-VBELN|ORDER", "||VBAK-ERDAT|DATE", "SAPMV45A|4001",
                            "||VBAP-POSNR(1)|ITEM|!1 1!2items.txt!30!4!51!65!7,ORDER", "||BDC_OKCODE|'/00'"});
        e.TablaCondiciones[0] = {"COND", "RESULT = YES."};
        o.Programa = RutaDelModelo(directorio / "report.abap");
        o.ArchivoFuente = "orders.txt";
    }

    bool Generar(SistemaConectado* sistema = nullptr) {
        PedidoDeGeneracion pedido{e, o, preferencias, prueba.textos, vista, RutaDocumento, NombreDeRuta(RutaDocumento), sistema};
        pedido.reporte = &reporte;
        return qor::Generar(pedido, estado).has_value();
    }
};

// A specification with every fault at once shows them in the order of the checks, as each one is repaired.
TEST(Report, ChecksRunInTheirOrder) {
    const struct {
        std::function<void(Informe&)> falta;
        const char* diario;
    } faltas[] = {
        {[](auto& i) { i.prueba.PonerArchivo(5, "X|1"); }, "<373>"},
        {[](auto& i) { i.o.Identificadores = "1,02"; }, "Identificadores <380>"},
        {[](auto& i) {
             i.prueba.PonerTransaccion(10, "P|3"), i.prueba.PonerTransaccion(11, "||G(1)|DATE|!1 1!2!30!4!51!65!7"),
                 i.o.Identificadores = "1,2,3";
         },
         "<379>"},
        {[](auto& i) { i.e.VariablesGlobales = ""; }, "T8 <386>: HEAD-A"},
        {[](auto& i) { i.o.TablaZ = " "; }, "TablaZ <392>"},
        {[](auto& i) { i.o.ProgID = ""; }, "ProgID <402>"},
        {[](auto& i) { i.e.TablaTransaccion[0].programa = "PROG"; }, "busy <302> idle"},
        {[](auto& i) { i.o.FileParameterCh = 0, i.o.ArchivoFuente = ""; }, "busy ArchivoFuente <304> idle"},
        {[](auto& i) { i.e.TablaTransaccion[3].valor = "ITEM"; }, "busy <367> ITEM. idle"},
        {[](auto& i) { i.e.TablaTransaccion[1].dynpro = "101;NONE"; }, "busy <369> NONE <370> idle"},
        {[](auto& i) { i.e.TablaTransaccion[2].valor = "NONE"; }, "busy T2 Text5_0 <308> 'NONE' <309> idle"},
        {[](auto& i) { i.e.TablaTransaccion[9].valor = "@NONE"; }, "busy T9 Text5_0 <312> NONE <313>i idle"},
        {[](auto& i) { i.o.Programa = ""; }, "busy Programa <301> idle"},
        {[](auto& i) { i.e.TablaArchivo[0].ancho = ""; }, "busy idle A0 <315> ORDER"},
        {[](auto& i) { i.e.TablaTransaccion[4].dynpro = ""; }, "busy idle <318>"},
        {[](auto&) {}, "busy idle A0 T0 text:<323>"},
    };
    for (std::size_t desde = 0; desde < std::size(faltas); ++desde) {
        Informe informe;
        informe.prueba.PonerTransaccion(7, "BAPI|BAPI_X");
        informe.prueba.PonerTransaccion(8, "||HEAD-A|ORDER");
        informe.prueba.PonerTransaccion(9, "||HEAD-B|'1'");
        informe.e.VariablesGlobales = "DATA: HEAD LIKE T, RET LIKE R.";
        informe.e.TablaBAPIs[0] = {"BAPI_X", "CALL FUNCTION 'BAPI_X'\r\n     IMPORTING\r\n       RETURN = RET."};
        informe.o.MultipleFilesOption = false;
        informe.o.Identificadores = "1,2";
        informe.o.CallTransaction = informe.o.ErrorHandlingCheck = 1;
        informe.o.CommitCheck = 0;
        informe.o.ProgID = "1";
        for (std::size_t n = std::size(faltas); n-- > desde;) {
            // The group without keys needs ids of its own; behind it the specification has one group again.
            if (n != 2 || desde == 2) faltas[n].falta(informe);
        }
        EXPECT_EQ(informe.Generar(), desde + 1 == std::size(faltas)) << desde;
        EXPECT_EQ(informe.vista.diario, faltas[desde].diario) << desde;
    }
}

TEST(Report, AFileThatExistsIsReplacedOnlyOnRequest) {
    Informe informe;
    informe.o.Programa = RutaDelModelo(informe.directorio.Escribir("there.abap", "old"));
    EXPECT_FALSE(informe.Generar());
    EXPECT_EQ(informe.vista.diario, "busy <337>? Programa idle");
    EXPECT_EQ(LeerArchivo(RutaDelSistema(informe.o.Programa)), "old");
    EXPECT_EQ(informe.estado.UltimoPrograma, "");

    informe.vista.diario.clear();
    informe.vista.conEditor = true;
    informe.o.TablaZ = "  ZT ";
    informe.vista.respuestas = {Respuesta::Aceptar, Respuesta::Si};
    EXPECT_TRUE(informe.Generar());
    EXPECT_EQ(informe.vista.diario, "busy <337>? idle A0 T0 <323>i <324>? edit:there.abap <325>");
    EXPECT_EQ(informe.o.TablaZ, "ZT");
    EXPECT_TRUE(LeerArchivo(RutaDelSistema(informe.o.Programa)).starts_with("*---"));

    // What the run before has written is no other's work, until somebody changes it.
    informe.vista.diario.clear();
    informe.vista.conEditor = false;
    EXPECT_TRUE(informe.Generar());
    EXPECT_EQ(informe.vista.diario, "busy idle A0 T0 <323>i");
    informe.vista.diario.clear();
    std::optional<ReporteEscrito> deOtro;
    std::swap(informe.reporte, deOtro);
    EXPECT_FALSE(informe.Generar());
    std::swap(informe.reporte, deOtro);
    informe.directorio.Escribir("there.abap", "edited");
    EXPECT_FALSE(informe.Generar());
    EXPECT_EQ(informe.vista.diario, "busy <337>? Programa idle busy <337>? Programa idle");
    informe.vista.diario.clear();
    EXPECT_FALSE(informe.Generar());
    EXPECT_EQ(informe.vista.diario, "busy <337>? Programa idle");
}

#ifndef LEFT_OUT_Report_TheDesktopKeepsReportsBesideTheirDocuments
// On the desktop, a path that leads out of the document's directory is asked about once, and the user is told where the report is.
TEST(Report, TheDesktopKeepsReportsBesideTheirDocuments) {
    namespace fs = std::filesystem;
    Informe informe;
    informe.vista.conEditor = true;
    const fs::path raiz = fs::canonical(informe.directorio.Ruta());
    fs::create_directories(raiz / "docs/sub");
    fs::create_directories(raiz / "docs2");
    fs::create_symlink("docs", raiz / "alias");
    fs::create_symlink("../docs2", raiz / "docs/away");
    fs::create_symlink("../loose", raiz / "docs/link");
    const struct {
        std::string programa;
        const char* escrito;
        bool preguntado;
    } casos[] = {
        {"a.abap", "docs/a.abap", false},
        {"sub/../b.abap", "docs/b.abap", false},
        {(raiz / "docs/sub/c.abap").string(), "docs/sub/c.abap", false},
        {(raiz / "alias/d.abap").string(), "docs/d.abap", false},
        {"../e.abap", "e.abap", true},
        {(raiz / "docs2/f.abap").string(), "docs2/f.abap", true},
        {"away/g.abap", "docs2/g.abap", true},
        {"link", "loose", true},  // a link to a file that is not there yet
    };
    const auto generar = [&](const std::string& programa) {
        informe.o.Programa = programa;
        informe.vista.diario.clear();
        PedidoDeGeneracion pedido{informe.e, informe.o, informe.preferencias, informe.prueba.textos, informe.vista, "", ""};
        pedido.directorioDelDocumento = raiz / "docs";
        return Generar(pedido, informe.estado).has_value();
    };
    const auto preguntado = [&] {
        return Contiene(informe.vista.diario, "outside of the document's directory:\r\n" + raiz.string());
    };
    for (const auto& caso : casos) {
        if (caso.preguntado) {
            informe.vista.respuestas = {Respuesta::No};
            EXPECT_FALSE(generar(caso.programa)) << caso.programa;
            EXPECT_TRUE(preguntado() && informe.vista.diario.ends_with(" Programa idle")) << informe.vista.diario;
            EXPECT_FALSE(fs::exists(raiz / caso.escrito)) << caso.programa;
            informe.vista.respuestas = {Respuesta::Si};
        }
        informe.vista.respuestas.push_back(Respuesta::Si);  // show it in the editor
        EXPECT_TRUE(generar(caso.programa)) << caso.programa;
        EXPECT_EQ(preguntado(), caso.preguntado) << informe.vista.diario;
        EXPECT_TRUE(fs::exists(raiz / caso.escrito)) << caso.programa;
        EXPECT_TRUE(Contiene(informe.vista.diario, "<323>\r\n" + informe.estado.UltimoPrograma.string() + "i")) << caso.programa;
        EXPECT_TRUE(Contiene(informe.vista.diario, "<325>\r\n" + informe.estado.UltimoPrograma.string())) << caso.programa;
    }
    // The answer is kept for the path; that the file is there now is another question.
    informe.vista.respuestas = {Respuesta::Aceptar, Respuesta::No};
    EXPECT_TRUE(generar("../e.abap"));
    EXPECT_FALSE(preguntado());

    // A document that was never saved has no directory to leave.
    PedidoDeGeneracion nuevo{informe.e, informe.o, informe.preferencias, informe.prueba.textos, informe.vista, "", ""};
    nuevo.directorioDelDocumento.emplace();
    informe.o.Programa = RutaDelModelo(raiz / "new.abap");
    EXPECT_TRUE(Generar(nuevo, informe.estado));
    EXPECT_FALSE(preguntado());

    // A path that comes with a command may hold any bytes, and is asked about nowhere.
    nuevo.directorioDelDocumento.reset();
    nuevo.salida = raiz / "\xE2\x82\xAC\xCE\xB1\xFF.abap";
    informe.o.Programa = "";
    EXPECT_TRUE(Generar(nuevo, informe.estado));
    EXPECT_TRUE(fs::exists(*nuevo.salida));
}
#endif

// The temporary report of a connected run goes when the next report is written, wherever that one lies.
TEST(Report, TemporaryReportsGoWithTheNextRun) {
    struct Sistema : SistemaConectado {
        std::filesystem::path archivo, ofrecido;
        void ObtenerAnchos() override {}
        std::filesystem::path ArchivoTemporal() override { return archivo; }
        void OfrecerPublicacion(const std::filesystem::path& ruta) override { ofrecido = ruta; }
    } sistema;
    Informe informe;
    const auto primero = informe.directorio / "1.tmp";
    const auto segundo = informe.directorio / "2.tmp";
    sistema.archivo = primero;
    ASSERT_TRUE(informe.Generar(&sistema));
    EXPECT_EQ(sistema.ofrecido, sistema.archivo);
    sistema.archivo = segundo;
    ASSERT_TRUE(informe.Generar(&sistema));
    EXPECT_FALSE(std::filesystem::exists(primero));
    EXPECT_TRUE(std::filesystem::exists(segundo));
    ASSERT_TRUE(informe.Generar());
    EXPECT_FALSE(std::filesystem::exists(segundo));
    std::ofstream(RutaDelSistema(informe.o.Programa), std::ios::app) << "* mine\n";
    ASSERT_FALSE(informe.Generar());  // the report that is there is the user's own, and stays
    EXPECT_TRUE(std::filesystem::exists(RutaDelSistema(informe.o.Programa)));
}

TEST(Messages, TellTheScreenTheirRow) {
    struct VistaConFila : pruebas::VistaDePrueba {
        std::optional<FilaDeMensaje> fila;
        void Mostrar(const Mensaje& mensaje, Icono /*icono*/) override { fila = mensaje.fila; }
    } vista;
    OyenteDeVista oyente(vista);
    oyente.Recibir({MensajeLiteral("a"), Lugar::EnPrograma(4, 3)});
    ASSERT_TRUE(vista.fila);
    EXPECT_EQ(vista.fila->fila, 4);
    EXPECT_FALSE(vista.fila->delArchivo);
    oyente.Recibir({MensajeLiteral("b"), Lugar::EnArchivo(0, 1)});
    ASSERT_TRUE(vista.fila);
    EXPECT_TRUE(vista.fila->delArchivo);
    oyente.Recibir({MensajeLiteral("c"), Lugar::EnOpcion("TablaZ")});
    EXPECT_FALSE(vista.fila);
}

}  // namespace
}  // namespace qor::pruebas
