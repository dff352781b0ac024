#include "app/rehearsal.h"

#include <gmock/gmock.h>

#include <array>
#include <chrono>
#include <thread>

#include "app/rehearsal_place.h"
#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "model/document_file.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor {
namespace {

namespace fs = std::filesystem;
using pruebas::DirectorioTemporal;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// A document with its rehearsal. An example is copied first.
struct EnsayoDePrueba {
    DirectorioTemporal directorio;
    pruebas::VentanaDePrueba prueba;
    Documento& documento = prueba.ventana.documento;
    Preferencias preferencias;
    PedidoDeEnsayo pedido;
    std::unique_ptr<Ensayo> ensayo;

    EnsayoDePrueba() { pedido.sistema.diccionario = fs::path(QOR_TEST_SOURCE_DIR) / "data/dictionary.txt"; }

    fs::path Carpeta() const { return directorio / "x"; }
    void Abrir(const std::string& ejemplo, const std::string& nombre, const std::vector<std::string>& archivos) {
        fs::copy(fs::path(QOR_TEST_SOURCE_DIR) / "examples" / ejemplo, Carpeta(), fs::copy_options::recursive);
        ASSERT_TRUE(AbrirDocumento(documento, Carpeta() / nombre, prueba.textos, prueba.vista));
        for (const auto& archivo : archivos) pedido.archivos.push_back(Carpeta() / archivo);
    }
    void Preparar() {
        ensayo = std::make_unique<Ensayo>(PedidoDeGeneracion::De(documento, preferencias, prueba.textos, prueba.vista), pedido);
    }
    const ResultadoDeEnsayo& Correr() {
        Preparar();
        ensayo->Correr();
        return ensayo->Resultado();
    }
};

std::string EstadosDe(const ResultadoDeEnsayo& resultado) {
    std::string estados;
    for (const auto estado : resultado.registros) estados += ".PFS"[static_cast<std::size_t>(estado)];
    return estados;
}

std::string TotalesDe(const ResultadoDeEnsayo& resultado) {
    std::string totales;
    for (const auto& uno : resultado.condiciones)
        totales += uno.nombre + " " + std::to_string(uno.ciertas) + "/" + std::to_string(uno.veces) + " ";
    for (const auto& uno : resultado.pares)
        totales += std::to_string(uno.fila) + ":" + std::to_string(uno.linea) + " " + std::to_string(uno.veces) + " ";
    return totales;
}

std::string CeldaDe(const Lugar& lugar) {
    if (lugar.parte == Lugar::Parte::Ninguna) return "?";
    return (lugar.parte == Lugar::Parte::Programa ? "" : "other ") + std::to_string(lugar.fila) + "," +
           std::to_string(lugar.columna);
}

// What a record sent: an operation, a screen or a field a line, with its cell, and the record and field of the file.
std::string EnviosDe(const Ensayo& ensayo, std::size_t registro) {
    std::string texto;
    const auto decir = [&texto](std::string linea, const std::string& sinEnviar) {
        texto += linea + (sinEnviar.empty() ? "" : " -- " + sinEnviar) + "\n";
    };
    for (const auto& envio : ensayo.EnviosDe(registro)) {
        decir(envio.nombre + (envio.esBapi ? " bapi" : "") + (envio.enSesion ? " session" : "") + (envio.fallado ? " failed" : ""),
              envio.sinEnviar.EnIngles());
        for (const auto& pantalla : envio.pantallas) {
            decir(" " + pantalla.programa + " " + pantalla.dynpro + " <" + CeldaDe(pantalla.celda) + ">",
                  pantalla.sinEnviar.EnIngles());
            for (const auto& campo : pantalla.campos) {
                std::string origen = CeldaDe(campo.celda);
                if (!campo.campoDeArchivo.empty()) {
                    origen +=
                        " " + campo.campoDeArchivo + " " + std::to_string(campo.grupo) + ":" + std::to_string(campo.deRegistro);
                }
                decir("  " + campo.campo + "=" + campo.valor + " <" + origen + ">", campo.sinEnviar.EnIngles());
            }
        }
        for (const auto& mensaje : envio.mensajes) decir(" " + mensaje, {});
    }
    return texto;
}

// All that came of a rehearsal, its failed records with the files that they go to, against a file that a person has read.
void ExigirTodo(EnsayoDePrueba& prueba, const std::string& nombre) {
    const auto& resultado = prueba.ensayo->Resultado();
    std::string todo = EstadosDe(resultado) + "\n" + TotalesDe(resultado) + "\n";
    for (std::size_t registro = 1; registro <= resultado.registros.size(); ++registro)
        todo += "\nRecord " + std::to_string(registro) + "\n" + EnviosDe(*prueba.ensayo, registro);
    for (const auto& salida : prueba.ensayo->ExportarFallados(prueba.directorio / "failed.txt"))
        todo += "\n" + salida.filename().string() + "\n" + LeerArchivo(salida);
    const std::string archivo = QOR_TEST_SOURCE_DIR "/tests/expected/rehearsal/" + nombre + ".txt";
    EXPECT_EQ(todo, LeerArchivo(archivo)) << nombre;
}

TEST(Rehearsal, ExamplesTellWhatTheySend) {
    struct Caso {
        const char* carpeta;
        const char* documento;
        std::vector<std::string> archivos;
        std::size_t falla;   // a record that was asked to
        const char* diario;  // expected
    };
    const Caso casos[] = {
        {"mm01", "materials.qor", {"materials.txt"}, 0, "checked.jsonl"},
        {"va01", "orders.qor", {"orders.txt", "items.txt"}, 1, ""},
        {"va01-one-file", "orders.qor", {"orders.txt"}, 2, "failed.jsonl"},
        {"xd01", "customers.qor", {"customers.txt"}, 0, "run.jsonl"},
        {"bapi-sales-order", "orders.qor", {"orders.txt", "items.txt", "partners.txt"}, 2, ""},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.carpeta);
        EnsayoDePrueba prueba;
        prueba.preferencias.CheckActivateNamingConventions = caso.carpeta == std::string_view("xd01") ? 1 : 0;
        prueba.Abrir(caso.carpeta, caso.documento, caso.archivos);
        if (caso.carpeta == std::string_view("mm01")) prueba.pedido.sistema.valores = prueba.Carpeta() / "values";
        if (caso.falla > 0) prueba.pedido.fallos[caso.falla] = {'E', "Asked to fail"};
        ASSERT_TRUE(prueba.Correr().empezado);
        ExigirTodo(prueba, caso.carpeta);
        const auto diario = prueba.directorio / "journal";
        prueba.ensayo->ExportarDiario(diario);
        if (*caso.diario != 0) EXPECT_EQ(LeerArchivo(diario), LeerArchivo(prueba.Carpeta() / "expected" / caso.diario));
    }
}

// Fields of one name under different conditions, screens that are not opened, a step-loop over several screens and one without
// lines, two operations of one code, and what an error leaves undone.
void PonerDeTodo(EnsayoDePrueba& e) {
    auto& especificacion = e.documento.especificacion;
    auto& opciones = e.documento.opciones;
    e.prueba.Archivo({"ID|5", "A|3", "KIND|1", "ITEM|4"});
    e.prueba.Transaccion({"TRANS|TA;CHECKED", "SAPX|0100", "||F-SAME;C1|A", "||F-SAME;C2|'K'", "||BDC_OKCODE|'/00'", "SAPX|0200;C2",
                          "||F-TWO|A", "||F-ITEM(1)|ITEM|Items!1 1!2!30!4!51!62!7ID", "||BDC_OKCODE|'=P'", "||BDC_SUBSCR|'SUB'",
                          "||BDC_OKCODE|'=S'", "TRANS|TA", "SAPX|0100", "||F-SAME|@OWN", "BAPI|BAPI_X", "||H-A|A", "||H-A;C1|KIND",
                          "||H-B|A"});
    especificacion.TablaCondiciones[0] = {"CHECKED", "IF #KIND NE 'N'. RESULT = YES. ENDIF."};
    especificacion.TablaCondiciones[1] = {"C1", "IF #KIND = '1'. RESULT = YES. ENDIF."};
    especificacion.TablaCondiciones[2] = {"C2", "IF #KIND = '2'.\r\nRESULT = YES.\r\nENDIF."};
    especificacion.TablaBAPIs[0] = {"BAPI_X",
                                    "CALL FUNCTION 'BAPI_X'\r\n  EXPORTING\r\n    HEAD = H\r\n  IMPORTING\r\n    RETURN = R."};
    especificacion.VariablesGlobales = "DATA: RESULT, H LIKE HEADS, R LIKE BAPIRET2, OWN(3) VALUE 'own'.";
    opciones.CallTransaction = opciones.ErrorHandlingCheck = 1;
    opciones.SafeCallTransactionCheck = 0;
    opciones.ProgID = "7";
    opciones.ProcesarTodoOpt = false;
    e.pedido.archivos = {e.directorio.Escribir("in.txt", "00001abc1\r00002   2\n00003xyzN\r\n00004def2"),
                         e.directorio.Escribir("items.txt", "00001i1\n00004j1\n00004j2\n00009no\n00004j3")};
    e.pedido.fallos[4] = {'E', "No way"};
}

TEST(Rehearsal, LeavesNothingOutWithoutAReason) {
    EnsayoDePrueba prueba;
    PonerDeTodo(prueba);
    const auto& resultado = prueba.Correr();
    EXPECT_THAT(resultado.porQueNo, IsEmpty());
    ExigirTodo(prueba, "all_kinds");
    ASSERT_EQ(resultado.huerfanos.size(), 1U);
    EXPECT_EQ(resultado.huerfanos[0].EnIngles(), "ITABSL_1: 1 of 5 lines belong to no record");
    ASSERT_EQ(resultado.fallos.size(), 1U);
    EXPECT_EQ(resultado.fallos[0].texto.EnIngles(), "record 4, TA, SAPX 0200: QP 001 No way");
    EXPECT_EQ(resultado.fallos[0].celda, Lugar::EnPrograma(5, 1));

    const struct {
        int grupo;
        std::size_t numero;
        const char* campo;
        std::size_t linea;  // 0 for none
        int fila;
    } lugares[] = {{0, 4, "KIND", 4, 2}, {1, 5, "ITEM", 5, 3}, {0, 2, "NONE", 2, -1}, {0, 0, "A", 0, 0}, {2, 1, "A", 0, 0}};
    for (const auto& lugar : lugares) {
        const auto hallado = prueba.ensayo->EntradaDe(lugar.grupo, lugar.numero, lugar.campo);
        ASSERT_EQ(hallado.has_value(), lugar.linea > 0) << lugar.grupo << ' ' << lugar.numero;
        if (hallado) EXPECT_EQ(std::pair(hallado->linea, hallado->fila), std::pair(lugar.linea, lugar.fila)) << lugar.campo;
    }

    // In one file the lines of a kind are counted, between those of others and those that are of none.
    prueba.documento.opciones.MultipleFilesOption = false;
    prueba.documento.opciones.Identificadores = "H,I ";
    const DisenoDeEntrada unico(prueba.documento.especificacion, prueba.documento.opciones);
    const auto archivo = prueba.directorio.Escribir("one.txt", "H1\r\nI 1\n?\nI\rH2\n");
    for (const auto& [clase, numero, linea] : {std::array<std::size_t, 3>{0, 2, 5}, {1, 1, 2}, {1, 2, 4}, {1, 3, 0}})
        EXPECT_EQ(LineaDeRegistro(unico, static_cast<int>(clase), numero, archivo), linea) << clase << ' ' << numero;
}

// The lines of a failed record byte for byte: those that have its keys, and those that the report came to although they have not.
TEST(Rehearsal, FailedRecordsTakeTheirLinesAlong) {
    EnsayoDePrueba prueba;
    PonerDeTodo(prueba);
    prueba.documento.especificacion.TablaArchivo[0].conversion = "IF #ID = '00004'. #ID = '00009'. ENDIF.";
    prueba.pedido.fallos[1] = {'E', "No"};
    EXPECT_EQ(EstadosDe(prueba.Correr()), "FPPF");
    const auto salidas = prueba.ensayo->ExportarFallados(prueba.directorio / "bad.txt");
    EXPECT_EQ(LeerArchivo(prueba.directorio / "bad.txt"), "00001abc1\r00004def2");
    EXPECT_EQ(LeerArchivo(prueba.directorio / "bad-SLOOP_1.txt"), "00001i1\n00004j1\n00004j2\n00009no\n00004j3");
    EXPECT_THROW(prueba.ensayo->ExportarFallados(prueba.pedido.archivos[0]), FalloDeArchivo);
    prueba.directorio.Escribir("items.txt", "other");
    EXPECT_THROW(prueba.ensayo->ExportarFallados(prueba.directorio / "bad.txt"), FalloDeArchivo);
}

TEST(Rehearsal, EndsWhateverTheReportDoes) {
    const struct {
        const char* codigo;  // of the third record
        bool detener;
        const char* estados;
        const char* fallo;
        const char* volcado;
    } casos[] = {
        {"DO. SY-FDPOS = 1. ENDDO.", true, "SSF.", "record 3: The rehearsal was stopped in its midst.", ""},
        {"DO. COMMIT WORK. ENDDO.", true, "SSF.", "record 3: The rehearsal was stopped in its midst.", ""},
        {"SY-INDEX = #MAKTX.", false, "SSF.", "", "CONVT_NO_NUMBER"},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.codigo);
        EnsayoDePrueba prueba;
        prueba.Abrir("mm01", "materials.qor", {"materials.txt"});
        auto& conversion = prueba.documento.especificacion.TablaArchivo[3].conversion;
        conversion = std::string("IF #MATNR = 'SEAL-DN50'. ") + caso.codigo + " ENDIF.";
        prueba.Preparar();
        std::thread hilo([&] { prueba.ensayo->Correr(); });
        while (caso.detener && prueba.ensayo->Empezados() < 3) std::this_thread::yield();
        if (caso.detener) prueba.ensayo->Detener();
        hilo.join();
        const auto& resultado = prueba.ensayo->Resultado();
        EXPECT_EQ(EstadosDe(resultado), caso.estados);
        EXPECT_EQ(resultado.detenido, caso.detener);
        EXPECT_EQ(resultado.fallos.empty() ? "" : resultado.fallos[0].texto.EnIngles(), caso.fallo);
        ASSERT_EQ(resultado.volcado ? resultado.volcado->nombre : "", caso.volcado);
        if (resultado.volcado) {
            EXPECT_EQ(resultado.volcado->celda, Lugar::EnArchivo(3, 3, 1));
            const auto linea = PartirEnLineas(resultado.reporte)[static_cast<std::size_t>(resultado.volcado->linea) - 1];
            EXPECT_THAT(std::string(linea), HasSubstr("SY-INDEX = "));
        }
        prueba.ensayo->ExportarFallados(prueba.directorio / "bad.txt");
        EXPECT_THAT(LeerArchivo(prueba.directorio / "bad.txt"), StartsWith("SEAL-DN50 "));
    }
}

// What can't run says why, and a system in memory keeps its sessions as long as the rehearsal lives.
TEST(Rehearsal, ReasonsAndSessions) {
    EnsayoDePrueba sinCompilar;
    sinCompilar.Abrir("mm01", "materials.qor", {"materials.txt"});
    sinCompilar.documento.especificacion.TablaArchivo[3].conversion = "NOPE = 1.";
    EXPECT_FALSE(sinCompilar.Correr().empezado);
    const auto porQueNo = [](const ResultadoDeEnsayo& resultado) {
        return resultado.porQueNo.size() == 1 ? resultado.porQueNo[0].EnIngles() : std::string();
    };
    EXPECT_THAT(porQueNo(sinCompilar.ensayo->Resultado()), HasSubstr("file side, row 3, conversion, line 1: NOPE is not declared"));
    EXPECT_THAT(sinCompilar.ensayo->EnviosDe(1), IsEmpty());

    EnsayoDePrueba sinGenerar;
    sinGenerar.prueba.Transaccion({"TRANS|MM01", "SAPX|0100", "||F|NONE"});
    EXPECT_THAT(porQueNo(sinGenerar.Correr()), HasSubstr("NONE"));

    EnsayoDePrueba prueba;
    prueba.Abrir("mm01", "materials.qor", {"materials.txt"});
    prueba.pedido.tramo = {2, 3};
    EXPECT_EQ(EstadosDe(prueba.Correr()), ".SS.");
    ASSERT_THAT(prueba.ensayo->Sesiones(), ElementsAre("QOR_MTerials"));
    prueba.ensayo->ExportarSesion(0, prueba.directorio / "session.txt");
    EXPECT_THAT(LeerArchivo(prueba.directorio / "session.txt"), HasSubstr("0000TMM01"));
}

}  // namespace
}  // namespace qor
