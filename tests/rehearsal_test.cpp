#include "app/rehearsal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

TEST(Rehearsal, ExamplesTellWhatTheySend) {
    struct Caso {
        const char* carpeta;
        const char* documento;
        std::vector<std::string> archivos;
        bool conValores;
        std::size_t falla;   // a record that was asked to
        const char* diario;  // expected
        const char* estados;
        const char* totales;
        std::size_t registro;
        std::vector<const char*> envios;  // parts of what that record sent
        std::vector<std::pair<const char*, const char*>> fallados;
    };
    const Caso casos[] = {
        {"mm01",
         "materials.qor",
         {"materials.txt"},
         true,
         0,
         "checked.jsonl",
         "SSSF",
         "WITH_WEIGHT 6/8 ",
         3,
         {"MM01 session\n SAPLMGMM 0060 <1,1>\n  RMMG1-MATNR=SEAL-DN50 <2,3 MATNR 0:3>\n",
          "  BDC_OKCODE=/00 <5,3>\n SAPLMGMM 0070 <6,1>\n",
          "  MARA-SPART=01 <13,3>\n  MARA-BRGEW= <14,3 BRGEW 0:3> -- The condition "
          "WITH_WEIGHT is not met.\n",
          "  BDC_OKCODE=/11 <16,3>\n S 00 355 Transaction was processed\n"},
         {{"failed.txt", "OIL-ISO46         CROH Hydraulic oil ISO 46                    L  FLUIDS   0,870            KG\r\n"}}},
        {"va01",
         "orders.qor",
         {"orders.txt", "items.txt"},
         false,
         1,
         "",
         "FP",
         "8:1 3 8:2 1 8:0 0 ",
         1,
         {"VA01 failed\n", "  RV45A-MABNR(2)=SEAL-DN50 <10,3 MATNR 1:2>\n",
          "  VBAP-VRKME(3)=KAR <12,3 VRKME 1:3>\n"
          "  BDC_OKCODE= <13,3> -- The step-loop did not go on to another screen.\n  BDC_OKCODE==SICH <14,3>\n"
          " E QP 001 Asked to fail\n"},
         {{"failed.txt", "PO-7001             TA  100010000000001032\r\n"},
          {"failed-SLOOP_1.txt",
           "PO-7001             PUMP-0100         2            PC\r\nPO-7001             SEAL-DN50         4"
           "            PC\r\nPO-7001             OIL-ISO46         1            BX\r\n"}}},
        {"va01-one-file",
         "orders.qor",
         {"orders.txt"},
         false,
         2,
         "failed.jsonl",
         "PF",
         "8:1 3 8:2 0 8:0 0 ",
         2,
         {"VA01 failed\n", "  RV45A-MABNR(1)=PUMP-0250 <10,3 MATNR 1:3>\n", "VA01 session failed\n"},
         {{"failed.txt", "HPO-7002             TA  100012000000001390\r\nIPUMP-0250         1            PC\r\n"}}},
        {"xd01",
         "customers.qor",
         {"customers.txt"},
         false,
         0,
         "run.jsonl",
         "PPP",
         "IN_THE_UNION 2/3 WITH_COMPANY 4/6 5:1 2 5:2 0 5:3 1 5:0 0 11:1 1 11:2 1 11:3 1 11:4 0 11:0 0 ",
         3,
         {"  KNA1-STCEG= <19,3 STCEG 0:3> -- The condition IN_THE_UNION is not met.\n",
          " SAPMF02D 0210 <23,1> -- The condition WITH_COMPANY is not met.\n"
          "  KNB1-AKONT= <24,3 AKONT 0:3> -- Its screen was not opened.\n"},
         {{"failed.txt", ""}}},
        {"bapi-sales-order",
         "orders.qor",
         {"orders.txt", "items.txt", "partners.txt"},
         false,
         2,
         "",
         "PF",
         "NUMBERED 2/2 WITH_DATE 1/2 WITH_PLANT 0/3 9:1 2 9:2 1 9:0 0 ",
         2,
         {"BAPI_SALESORDER_CREATEFROMDAT2 bapi failed\n ORDER_HEADER_IN  <1,2>\n  DOC_TYPE=TA <1,3 DOC_TYPE 0:2>\n",
          "  REQ_DATE_H= <5,3 REQ_DATE_H 0:2> -- The condition WITH_DATE is not met.\n",
          " ORDER_ITEMS_IN 1 <8,2>\n  MATERIAL=OIL-ISO46 <8,3 MATERIAL 1:3>\n  TARGET_QTY=12 <9,3 TARGET_QTY 1:3>\n"
          "  PLANT= <10,3 PLANT 1:3> -- The condition WITH_PLANT is not met.\n ORDER_PARTNERS 1 <11,2>\n",
          " E QP 001 Asked to fail\n"},
         {{"failed.txt", "PO-8002             TA  10001000\r\n"},
          {"failed-SLOOP_1.txt", "PO-8002             OIL-ISO46         12           1100\r\n"},
          {"failed-SLOOP_2.txt", "PO-8002             SP0000001390\r\n"}}},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.carpeta);
        EnsayoDePrueba prueba;
        prueba.preferencias.CheckActivateNamingConventions = caso.carpeta == std::string_view("xd01") ? 1 : 0;
        prueba.Abrir(caso.carpeta, caso.documento, caso.archivos);
        if (caso.conValores) prueba.pedido.sistema.valores = prueba.Carpeta() / "values";
        if (caso.falla > 0) prueba.pedido.fallos[caso.falla] = {'E', "Asked to fail"};
        const auto& resultado = prueba.Correr();
        ASSERT_TRUE(resultado.empezado);
        EXPECT_EQ(EstadosDe(resultado), caso.estados);
        EXPECT_EQ(TotalesDe(resultado), caso.totales);
        const auto enviado = EnviosDe(*prueba.ensayo, caso.registro);
        for (const auto* parte : caso.envios) EXPECT_THAT(enviado, HasSubstr(parte));
        const auto diario = prueba.directorio / "journal";
        prueba.ensayo->ExportarDiario(diario);
        if (*caso.diario != 0) EXPECT_EQ(LeerArchivo(diario), LeerArchivo(prueba.Carpeta() / "expected" / caso.diario));
        const auto salidas = prueba.ensayo->ExportarFallados(prueba.directorio / "failed.txt");
        ASSERT_EQ(salidas.size(), caso.fallados.size());
        for (std::size_t i = 0; i < salidas.size(); ++i) {
            EXPECT_EQ(salidas[i], prueba.directorio / caso.fallados[i].first);
            EXPECT_EQ(LeerArchivo(salidas[i]), caso.fallados[i].second);
        }
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
    EXPECT_EQ(EstadosDe(resultado), "PPPF");
    EXPECT_EQ(EnviosDe(*prueba.ensayo, 1),
              "TA\n SAPX 0100 <1,1>\n  F-SAME=abc <2,3 A 0:1>\n  F-SAME= <3,3> -- The condition C2 is not met.\n"
              "  BDC_OKCODE=/00 <4,3>\n SAPX 0200 <5,1> -- The condition C2 is not met.\n"
              "  F-TWO= <6,3 A 0:1> -- Its screen was not opened.\n  F-ITEM(1)= <7,3 ITEM 1:1> -- Its screen was not opened.\n"
              "  BDC_OKCODE= <8,3> -- The step-loop did not go on to another screen.\n"
              "  BDC_SUBSCR= <9,3> -- Its screen was not opened.\n  BDC_OKCODE= <10,3> -- Its screen was not opened.\n"
              " S 00 355 Transaction was processed\n"
              "TA\n SAPX 0100 <12,1>\n  F-SAME=own <13,3>\n S 00 355 Transaction was processed\n"
              "BAPI_X bapi\n HEAD  <15,2>\n  A= <15,3 A 0:1> -- A row behind it fills the field.\n  A=1 <16,3 KIND 0:1>\n"
              "  B=abc <17,3 A 0:1>\n S 00 355 Transaction was processed\n");
    EXPECT_THAT(EnviosDe(*prueba.ensayo, 2),
                StartsWith("TA\n SAPX 0100 <1,1>\n  F-SAME= <2,3 A 0:2> -- The value is blank.\n  F-SAME=K <3,3>\n"
                           "  BDC_OKCODE=/00 <4,3>\n SAPX 0200 <5,1>\n  F-TWO= <6,3 A 0:2> -- The value is blank.\n"
                           "  F-ITEM= <7,3 ITEM 1:0> -- No line of the step-loop belongs to the record.\n"
                           "  BDC_OKCODE= <8,3> -- No line of the step-loop belongs to the record.\n  BDC_SUBSCR=SUB <9,3>\n"
                           "  BDC_OKCODE==S <10,3>\n S 00 355 Transaction was processed\nTA\n"));
    EXPECT_THAT(EnviosDe(*prueba.ensayo, 2),
                HasSubstr("  A= <15,3 A 0:2> -- A row behind it clears the field.\n  A= <16,3 KIND 0:2> -- The condition C1 is not "
                          "met.\n  B= <17,3 A 0:2> -- The value is blank or zero.\n"));
    EXPECT_THAT(EnviosDe(*prueba.ensayo, 3), StartsWith("TA -- The condition CHECKED is not met.\nTA\n SAPX 0100 <12,1>\n"));
    EXPECT_THAT(EnviosDe(*prueba.ensayo, 4),
                testing::EndsWith("  F-TWO=def <6,3 A 0:4>\n  F-ITEM(1)=j1 <7,3 ITEM 1:2>\n  F-ITEM(2)=j2 <7,3 ITEM 1:3>\n"
                                  "  BDC_OKCODE==P <8,3>\n SAPX 0200 <5,1>\n  F-ITEM(1)=j3 <7,3 ITEM 1:5>\n"
                                  "  BDC_SUBSCR=SUB <9,3>\n  BDC_OKCODE==S <10,3>\n E QP 001 No way\n"
                                  "TA -- An operation in front of it has failed.\n"
                                  "BAPI_X bapi -- An operation in front of it has failed.\n"));
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
