#include "app/rehearsal_lines.h"

#include <gmock/gmock.h>

#include "app/examples.h"
#include "app/input_files.h"
#include "base/failure.h"
#include "base/files.h"
#include "input/layout.h"
#include "model/document_file.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor {
namespace {

using testing::ElementsAre;
using testing::Pair;

TEST(RehearsalLines, RecordsThatShallFailAreReadFromOneLine) {
    FallosPorRegistro fallos;
    EXPECT_EQ(LeerFallosPedidos(" 2, 5=Limit of 1,000 exceeded, see note , 7=A:Locked,", fallos), "");
    ASSERT_EQ(fallos.size(), 3U);
    EXPECT_EQ(fallos.at(5).texto, "Limit of 1,000 exceeded, see note");
    EXPECT_EQ(fallos.at(7).tipo, 'A');
    // What is wrong is told, and the list stays.
    EXPECT_EQ(LeerFallosPedidos("9, 0=none", fallos), "0=none");
    EXPECT_EQ(LeerFallosPedidos("x", fallos), "x");
    EXPECT_EQ(fallos.size(), 3U);
}

TEST(RehearsalLines, ARangeIsTwoNumbersOrOneOrNothing) {
    struct {
        const char* texto;
        bool bien;
        std::size_t desde, hasta;
    } const casos[] = {{" 3 - 12 ", true, 3, 12}, {"7", true, 7, 7},    {"", true, 1, static_cast<std::size_t>(-1)},
                       {"0", false, 0, 0},        {"5-4", false, 0, 0}, {"1-", false, 0, 0}};
    for (const auto& caso : casos) {
        TramoDeRegistros tramo;
        EXPECT_EQ(LeerTramoPedido(caso.texto, tramo), caso.bien) << caso.texto;
        if (!caso.bien) continue;
        EXPECT_EQ(tramo.desde, caso.desde) << caso.texto;
        EXPECT_EQ(tramo.hasta, caso.hasta) << caso.texto;
    }
    std::vector<std::pair<std::string, std::string>> pares;
    EXPECT_EQ(LeerParesPedidos("p_text=a, b, P_TEST = X", pares), "");
    EXPECT_THAT(pares, ElementsAre(Pair("P_TEXT", "a, b"), Pair("P_TEST", "X")));
    EXPECT_EQ(LeerParesPedidos("=X", pares), "=X");
}

TEST(RehearsalLines, RecordsAreFoundByStateNumberAndFailure) {
    ResultadoDeEnsayo resultado;
    resultado.registros.assign(100, EstadoDeRegistro::EnSesion);
    const auto fallar = [&](std::size_t registro, const char* texto, int fila) {
        resultado.registros[registro - 1] = EstadoDeRegistro::Fallado;
        resultado.fallos.push_back({registro, {}, texto, {}, Lugar::EnPrograma(fila, 3), {}});
    };
    fallar(12,
           "MM01: 00 058 Entry \xD1"
           "ANDU does not exist",
           4);
    fallar(40, "stopped at 17", 5);
    fallar(12, "MM02: not found", 9);
    auto& volcado = resultado.volcado.emplace();
    volcado.registro = 90;
    volcado.nombre = "COMPUTE";
    volcado.texto = "by zero";
    // Looked for in the language of the user.
    RegistrosVistos vistos([](const Frase& frase) {
        return frase.En(
            [](std::string_view ingles) { return std::string(ingles == "MM02: not found" ? "MM02: no existe" : ingles); });
    });
    vistos.Poner(&resultado);
    EXPECT_EQ(vistos.Cuantos(), 100U);
    EXPECT_EQ(vistos.Motivo(40), "stopped at 17");
    EXPECT_THAT(vistos.Culpables(12), ElementsAre(Lugar::EnPrograma(4, 3), Lugar::EnPrograma(9, 3)));

    struct {
        std::optional<EstadoDeRegistro> estado;
        const char* texto;
        std::vector<std::size_t> registros;
    } const casos[] = {{EstadoDeRegistro::Fallado, "", {12, 40}},
                       {{},
                        "\xF1"
                        "andu",
                        {12}},
                       // Record 17, and the failure that speaks of 17.
                       {{}, " 17 ", {17, 40}},
                       {EstadoDeRegistro::Fallado, "17", {40}},
                       {{}, "compute by", {90}},
                       {EstadoDeRegistro::EnSesion, "stopped", {}},
                       {EstadoDeRegistro::Contabilizado, "", {}}};
    for (const auto& caso : casos) {
        vistos.Filtrar(caso.estado, caso.texto);
        std::vector<std::size_t> registros;
        for (std::size_t fila = 0; fila < vistos.Cuantos(); ++fila) {
            registros.push_back(vistos.Registro(fila));
            EXPECT_EQ(vistos.FilaDe(registros.back()), fila);
        }
        EXPECT_EQ(registros, caso.registros) << caso.texto;
        EXPECT_FALSE(vistos.FilaDe(50).has_value()) << caso.texto;
    }
}

TEST(RehearsalLines, WhatStandsInSomethingLeftOutIsGreyAndTheCulpritIsMarked) {
    const auto campo = [](const char* nombre, int fila, const char* sinEnviar) {
        CampoEnviado nuevo;
        nuevo.campo = nombre;
        nuevo.celda = Lugar::EnPrograma(fila, 3);
        nuevo.sinEnviar = sinEnviar;
        return nuevo;
    };
    const auto pantalla = [](const char* dynpro, std::vector<CampoEnviado> campos, const char* sinEnviar = "") {
        PantallaEnviada nueva;
        nueva.programa = "SAPLMGMM";
        nueva.dynpro = dynpro;
        nueva.campos = std::move(campos);
        nueva.sinEnviar = sinEnviar;
        return nueva;
    };
    Envio bueno;
    bueno.nombre = "MM01";
    bueno.pantallas = {pantalla("0060", {campo("A", 2, "")})};
    Envio malo;
    malo.nombre = "MM02";
    malo.fallado = true;
    malo.pantallas = {pantalla("0070", {campo("B", 2, ""), campo("C", 3, "blank")}), pantalla("0080", {campo("D", 4, "")}, "no")};
    malo.mensajes = {"E 00 058 no", "S 00 001 yes"};

    std::string dibujo;
    for (const auto& linea : LineasDe({bueno, malo}, {Lugar::EnPrograma(2, 3), Lugar::EnPrograma(4, 3)})) {
        dibujo += linea.nombre + "<" + std::to_string(linea.padre) + (linea.gris ? " grey" : "") +
                  (linea.fallado ? " failed" : "") + "\n";
    }
    EXPECT_EQ(dibujo,
              "MM01<-1\nSAPLMGMM 0060<0\nA<1\n"
              "MM02<-1 failed\nSAPLMGMM 0070<3\nB<4 failed\nC<4 grey\nSAPLMGMM 0080<3 grey\nD<7 grey\n"
              "E 00 058 no<3 failed\nS 00 001 yes<3\n");
}

// ---- Examples ----

const std::filesystem::path ejemplos = std::filesystem::path(QOR_TEST_SOURCE_DIR) / "examples";

TEST(ExampleCopies, EachFolderIsOfferedInBothLanguagesAndItsInputIsFound) {
    std::vector<std::string> carpetas;
    for (const auto& entrada : std::filesystem::directory_iterator(ejemplos)) {
        if (entrada.is_directory()) carpetas.push_back(entrada.path().filename().string());
    }
    pruebas::DirectorioTemporal directorio;
    std::vector<std::string> ofrecidas;
    for (const auto& ejemplo : LeerEjemplos(QOR_TEST_SOURCE_DIR "/data", ejemplos)) {
        SCOPED_TRACE(ejemplo.carpeta);
        ofrecidas.push_back(ejemplo.carpeta);
        EXPECT_TRUE(ejemplo.Frase("en").ends_with('.') && ejemplo.Frase("es").ends_with('.'));
        EXPECT_NE(ejemplo.Frase("en"), ejemplo.Frase("es"));
        const auto copia = CopiarEjemplo(ejemplos / ejemplo.carpeta, directorio.Ruta());
        if (ejemplo.clase != EjemploIncluido::Clase::Documento) continue;
        pruebas::VentanaDePrueba p;
        ASSERT_TRUE(AbrirDocumento(p.documento, copia / ejemplo.archivo, p.textos, p.vista));
        const DisenoDeEntrada diseno(p.documento.especificacion, p.documento.opciones);
        int n = 0;
        for (const auto& entrada : diseno.Archivos()) {
            EXPECT_EQ(ArchivoDelDocumento(p.documento, n++).parent_path(), copia) << entrada.nombre;
        }
    }
    EXPECT_THAT(ofrecidas, testing::UnorderedElementsAreArray(carpetas));
    EXPECT_EQ(TablasDeCarpeta(ejemplos / "native-sql"), "ZPO_HEAD=zpo_head.csv, ZPO_ITEM=zpo_item.csv");
}

TEST(ExampleCopies, SentencesOfAnyLanguageAreRead) {
    const auto leidos = LeerListaDeEjemplos("# A list.\n\nmm01 m.qor\nen One.\npt_BR Um.\n\n\nes s.txt dataset\nen Two.\n");
    ASSERT_EQ(leidos.size(), 2U);
    EXPECT_EQ(leidos[0].Frase("pt_BR") + leidos[0].Frase("es"), "Um.One.") << "English stands for a language that is missing";
    EXPECT_EQ(leidos[1].carpeta + leidos[1].Frase("en"), "esTwo.");
}

#ifndef LEFT_OUT_ExampleCopies_ACopyTakesAFreeNameAndCanBeChanged
TEST(ExampleCopies, ACopyTakesAFreeNameAndCanBeChanged) {
    namespace fs = std::filesystem;
    pruebas::DirectorioTemporal directorio;
    const auto original = directorio.Escribir("installed/mm01/a.txt", "A");
    directorio.Escribir("installed/mm01/values/b.txt", "B");
    fs::permissions(original, fs::perms::owner_read);
    const auto destino = directorio / "documents/examples";
    const auto una = CopiarEjemplo(original.parent_path(), destino);
    directorio.Escribir("documents/examples/mm01/a.txt", "changed");
    const auto otra = CopiarEjemplo(original.parent_path(), destino);
    EXPECT_EQ(una, destino / "mm01");
    EXPECT_EQ(otra, destino / "mm01-2");
    EXPECT_EQ(LeerArchivo(una / "a.txt"), "changed");
    EXPECT_EQ(LeerArchivo(otra / "values/b.txt"), "B");
    EXPECT_THROW(CopiarEjemplo(directorio / "installed/none", destino), FalloDeArchivo);
    EXPECT_FALSE(fs::exists(destino / "none"));
}
#endif

}  // namespace
}  // namespace qor
