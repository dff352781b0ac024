#include "dataset/data_set.h"

#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <chrono>
#include <functional>
#include <thread>

#include "base/files.h"
#include "dataset/line_reader.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

std::string Ancho(std::string texto, std::size_t ancho) {
    texto.resize(ancho, ' ');
    return texto;
}

// A session record: kind, field name or code, value.
std::string Sesion(char clase, const std::string& campo = "", const std::string& valor = "") {
    return Ancho("", 40) + "0000" + clase + (valor.empty() ? campo : Ancho(campo, 132) + valor) + "\r\n";
}

std::string Pantalla(const std::string& programa, const std::string& dynpro) { return Ancho(programa, 40) + dynpro + "X\r\n"; }

// Lines of an error table: columns 4 to 13 program, 14 to 23 run, 24 to 33 operation or line identifier.
std::string DefinicionDe(int linea, int ancho, const std::string& campo) {
    char cabeza[80];
    std::snprintf(cabeza, sizeof cabeza, "   00000000010000000000%010d", linea);
    char largo[16];
    std::snprintf(largo, sizeof largo, "%05d", ancho);
    return Ancho(cabeza, 62) + largo + " " + campo + "\r\n";
}

std::string Dato(int operacion, int linea, const std::string& datos) {
    char cabeza[80];
    std::snprintf(cabeza, sizeof cabeza, "   00000000010000000007%010d", operacion);
    char id[16];
    std::snprintf(id, sizeof id, "%03d", linea);
    return Ancho(cabeza, 56) + id + "   " + datos + "\r\n";
}

const std::string dosTransacciones = Sesion('M', "QOR_TEST") +                                                            //
                                     Sesion('T', "MM01") + Pantalla("SAPLMGMM", "0060") + Sesion(' ', "MATNR", "abc1") +  //
                                     Sesion(' ', "MAKTX(1)", "Screw") + Sesion(' ', "MAKTX(2)", "Nut") +                  //
                                     Sesion(' ', "BDC_OKCODE", "/00") + Sesion(' ', "BDC_CURSOR", "F") +
                                     Sesion(' ', "BDC_SUBSCR", "S") +  //
                                     Sesion('T', "XD01") + Sesion(' ', "MATNR", "abc2") + Sesion(' ', "KUNNR", "7");

const std::string tablaDeErrores = DefinicionDe(1, 4, "MATNR") + DefinicionDe(1, 6, "MAKTX") + DefinicionDe(1, 2, "SPART") +
                                   DefinicionDe(2, 3, "MEINS") +                                          //
                                   Dato(1, 1, "abc1Screw ") + Dato(1, 2, "PC") + Dato(1, 0, "message") +  //
                                   Dato(2, 1, "abc2");

struct PruebaDeDatos : testing::Test {
    DirectorioTemporal directorio;
    VentanaDePrueba prueba;

    std::filesystem::path Escribir(const std::string& contenido, const char* nombre = "data.txt") {
        return directorio.Escribir(nombre, contenido);
    }

    std::optional<JuegoDeDatos> Examinar(const std::filesystem::path& ruta) {
        return ExaminarJuegoDeDatos(ruta, prueba.textos, prueba.vista);
    }

    // Replaces with the answer yes, and gives the file afterwards.
    std::string Reemplazar(const std::string& contenido, const Reemplazo& reemplazo, Respuesta respuesta = Respuesta::Si) {
        const auto ruta = Escribir(contenido);
        auto datos = Examinar(ruta);
        prueba.vista.respuestas = {respuesta};
        ReemplazarValores(ruta, *datos, reemplazo, prueba.textos, prueba.vista);
        EXPECT_FALSE(std::filesystem::exists(directorio / "data.TMP"));
        return LeerArchivo(ruta);
    }
};

Reemplazo De(const std::string& campo, const std::string& nuevo, ModoDeReemplazo modo = ModoDeReemplazo::Cualquiera,
             const std::string& viejo = "") {
    Reemplazo reemplazo;
    reemplazo.campo = campo;
    reemplazo.nuevo = nuevo;
    reemplazo.modo = modo;
    reemplazo.viejo = viejo;
    return reemplazo;
}

std::string Cambiar(std::string texto, const std::string& viejo, const std::string& nuevo) {
    for (auto p = texto.find(viejo); p != std::string::npos; p = texto.find(viejo, p + nuevo.size()))
        texto.replace(p, viejo.size(), nuevo);
    return texto;
}

TEST_F(PruebaDeDatos, ScanListsTransactionsAndFieldsOnce) {
    const auto sesion = Examinar(Escribir(dosTransacciones));
    ASSERT_TRUE(sesion);
    EXPECT_EQ(sesion->transacciones, (std::vector<std::string>{"MM01", "XD01"}));
    EXPECT_EQ(sesion->campos, (std::vector<std::string>{"MATNR", "MAKTX", "KUNNR"}));

    const auto tabla = Examinar(Escribir(tablaDeErrores));
    ASSERT_TRUE(tabla);
    EXPECT_EQ(tabla->campos, (std::vector<std::string>{"MATNR", "MAKTX", "SPART", "MEINS"}));
}

TEST_F(PruebaDeDatos, UnknownAndUnreadableFilesAreRefused) {
    EXPECT_FALSE(Examinar(Escribir("no data set\r\n")));
    EXPECT_FALSE(Examinar(Escribir("")));
    EXPECT_FALSE(Examinar(directorio / "missing"));
    EXPECT_FALSE(Examinar(Escribir(DefinicionDe(1, -4, "MATNR"))));
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<403> <403> <328> <328>");
}

TEST_F(PruebaDeDatos, SessionValuesAreReplaced) {
    struct {
        const char* que;
        Reemplazo reemplazo;
        std::string esperado;
        const char* avisos;
    } casos[] = {
        {"any value", De("MATNR", "N"), Cambiar(Cambiar(dosTransacciones, "abc1", "N"), "abc2", "N"), "2 <360> <361>"},
        {"a value as a whole", De("MATNR", "N", ModoDeReemplazo::Todo, "C1"), Cambiar(dosTransacciones, "abc1", "N"),
         "<359> <361>"},
        {"every part, in any case", De("MATNR", "xy", ModoDeReemplazo::Parte, "B"), Cambiar(dosTransacciones, "abc", "axyc"),
         "2 <360> <361>"},
        {"no such value", De("MATNR", "N", ModoDeReemplazo::Parte, "Q"), dosTransacciones, "0 <360>"},
        {"a field with a line number", De("MAKTX", "N", ModoDeReemplazo::Todo, "NUT"), Cambiar(dosTransacciones, "Nut", "N"),
         "<359> <361>"},
    };
    for (auto& caso : casos) {
        EXPECT_EQ(Reemplazar(dosTransacciones, caso.reemplazo), caso.esperado) << caso.que;
        EXPECT_EQ(prueba.vista.TomarAvisos(), caso.avisos) << caso.que;
    }
}

TEST_F(PruebaDeDatos, ErrorTableKeepsItsColumns) {
    struct {
        const char* que;
        Reemplazo reemplazo;
        std::string esperado;
    } casos[] = {
        {"cut to the width", De("MATNR", "123456"), Cambiar(Cambiar(tablaDeErrores, "abc1", "1234"), "abc2", "1234")},
        {"padded to the width", De("MATNR", "1"), Cambiar(Cambiar(tablaDeErrores, "abc1", "1   "), "abc2", "1   ")},
        {"a part that grows pushes nothing", De("MATNR", "XX", ModoDeReemplazo::Parte, "A"),
         Cambiar(Cambiar(tablaDeErrores, "abc1", "XXbc"), "abc2", "XXbc")},
        {"a short line grows to the field", De("MAKTX", "Nut"),
         Cambiar(Cambiar(tablaDeErrores, "Screw ", "Nut   "), "abc2", "abc2Nut   ")},
        {"a field behind two others", De("SPART", "1"),
         Cambiar(Cambiar(tablaDeErrores, "Screw ", "Screw 1 "), "abc2", "abc2      1 ")},
        {"a field of another line", De("MEINS", "KG"), Cambiar(tablaDeErrores, "PC", "KG ")},
    };
    for (auto& caso : casos) EXPECT_EQ(Reemplazar(tablaDeErrores, caso.reemplazo), caso.esperado) << caso.que;
}

TEST_F(PruebaDeDatos, ConditionsChooseTheGroups) {
    const auto con = [](std::array<CondicionDeDatos, 3> condiciones, bool unaVez = false,
                        std::optional<std::string> transaccion = {}) {
        Reemplazo reemplazo = De("MATNR", "N");
        reemplazo.condiciones = std::move(condiciones);
        reemplazo.unaVez = unaVez;
        reemplazo.transaccion = std::move(transaccion);
        return reemplazo;
    };
    struct {
        const char* que;
        Reemplazo reemplazo;
        bool primera, segunda;
    } casos[] = {
        {"none", con({}), true, true},
        {"equal", con({CondicionDeDatos{"MATNR", true, "ABC1"}}), true, false},
        {"contained", con({CondicionDeDatos{"MATNR", false, "BC"}}), true, true},
        {"a field that never occurs", con({CondicionDeDatos{"KUNNR", false, "7"}}), false, true},
        {"all of them", con({CondicionDeDatos{"MATNR", false, "ABC"}, CondicionDeDatos{"KUNNR", true, "8"}}), false, false},
        {"every occurrence", con({CondicionDeDatos{"MAKTX", false, "SCREW"}}), false, false},
        {"one occurrence", con({CondicionDeDatos{"MAKTX", false, "SCREW"}}, true), true, false},
        {"a transaction", con({}, false, "XD01"), false, true},
    };
    for (auto& caso : casos) {
        std::string esperado = dosTransacciones;
        if (caso.primera) esperado = Cambiar(esperado, "abc1", "N");
        if (caso.segunda) esperado = Cambiar(esperado, "abc2", "N");
        EXPECT_EQ(Reemplazar(dosTransacciones, caso.reemplazo), esperado) << caso.que;
    }
}

TEST_F(PruebaDeDatos, LineEndsBecomeCrLf) {
    std::string conLf = Cambiar(dosTransacciones, "\r\n", "\n");
    conLf.pop_back();
    EXPECT_EQ(Reemplazar(conLf, De("KUNNR", "8")), Cambiar(dosTransacciones, " 7\r\n", " 8\r\n"));
}

TEST_F(PruebaDeDatos, WhateverFailsLeavesTheFile) {
    EXPECT_EQ(Reemplazar(dosTransacciones, De("MATNR", "N"), Respuesta::No), dosTransacciones);
    prueba.vista.TomarAvisos();

    // Its own work file.
    const auto temporal = Escribir(dosTransacciones, "set.tmp");
    auto deTemporal = Examinar(temporal);
    EXPECT_FALSE(ReemplazarValores(temporal, *deTemporal, De("MATNR", "N"), prueba.textos, prueba.vista));
    EXPECT_EQ(LeerArchivo(temporal), dosTransacciones);

    // More lines in a record than it may have.
    std::string larga = Sesion('M') + Sesion('T', "MM01");
    for (int i = 0; i <= 10001; ++i) larga += Sesion(' ', "MATNR", "a");
    EXPECT_EQ(Reemplazar(larga, De("MATNR", "N")), larga);

    // The user stops.
    const auto ruta = Escribir(dosTransacciones);
    auto datos = Examinar(ruta);
    EXPECT_FALSE(ReemplazarValores(ruta, *datos, De("MATNR", "N"), prueba.textos, prueba.vista, [](double) { return false; }));
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<328> <328>");
    EXPECT_FALSE(std::filesystem::exists(directorio / "data.TMP"));
}

// Between the scan and the beginning of a run, and between its beginning and its end.
TEST_F(PruebaDeDatos, AnotherProgramsFileIsNotOverwritten) {
    const auto ruta = directorio / "data.txt";
    const std::string larga = dosTransacciones + Sesion('T', "MM02");
    std::string mismoLargo = dosTransacciones;
    mismoLargo.replace(mismoLargo.find("abc1"), 4, "zzzz");
    const struct {
        const char* que;
        std::function<void()> hacer;
        std::string queda;
    } casos[] = {
        {"longer", [&] { Escribir(larga); }, larga},
        {"as long", [&] { Escribir(mismoLargo); }, mismoLargo},
        {"replaced", [&] { ReemplazarArchivo(Escribir(dosTransacciones, "other"), ruta); }, dosTransacciones},
    };
    for (const auto& caso : casos) {
        for (const bool alPreguntar : {false, true}) {
            auto datos = Examinar(Escribir(dosTransacciones));
            std::this_thread::sleep_for(std::chrono::milliseconds(10));  // the clock of the file system goes on
            VistaDePrueba vista;
            vista.respuestas = {Respuesta::Si};
            if (alPreguntar) {
                vista.alPreguntar = caso.hacer;
            } else {
                caso.hacer();
            }
            EXPECT_FALSE(ReemplazarValores(ruta, *datos, De("MATNR", "N"), prueba.textos, vista)) << caso.que;
            EXPECT_EQ(vista.detalles, "Another program has changed the file: " + ruta.string()) << caso.que;
            EXPECT_EQ(LeerArchivo(ruta), caso.queda) << caso.que;
            EXPECT_FALSE(std::filesystem::exists(directorio / "data.TMP"));
        }
    }
}

TEST_F(PruebaDeDatos, TwoRunsAtOnceAreOneAndARefusal) {
    const auto ruta = Escribir(dosTransacciones);
    auto datos = Examinar(ruta);
    auto deOtro = Examinar(ruta);
    VistaDePrueba otra;
    VistaDePrueba vista;
    vista.respuestas = {Respuesta::Si, Respuesta::Si};
    vista.alPreguntar = [&] {
        EXPECT_FALSE(ReemplazarValores(ruta, *deOtro, De("MATNR", "OTHER"), prueba.textos, otra));
        EXPECT_EQ(otra.TomarAvisos() + otra.detalles, "<328>The file is in use: " + ruta.string());
    };
    EXPECT_TRUE(ReemplazarValores(ruta, *datos, De("MATNR", "N"), prueba.textos, vista));
    EXPECT_EQ(LeerArchivo(ruta), Cambiar(Cambiar(dosTransacciones, "abc1", "N"), "abc2", "N"));
    // What was scanned stands for the new file.
    vista.alPreguntar = {};
    EXPECT_TRUE(ReemplazarValores(ruta, *datos, De("MATNR", "M"), prueba.textos, vista));
    EXPECT_EQ(vista.detalles, "");
}

#ifndef LEFT_OUT_PruebaDeDatos_OnlyRegularFilesAreScanned
TEST_F(PruebaDeDatos, OnlyRegularFilesAreScanned) {
    const auto tubo = directorio / "pipe";
    ASSERT_EQ(::mkfifo(tubo.c_str(), 0600), 0);
    VistaDePrueba vista;
    for (const char* ruta : {tubo.c_str(), "/dev/zero", "/"}) {
        vista.detalles.clear();
        EXPECT_FALSE(ExaminarJuegoDeDatos(ruta, prueba.textos, vista));
        EXPECT_EQ(vista.detalles, "Not a regular file: " + std::string(ruta));
    }
}
#endif

TEST_F(PruebaDeDatos, NewValueIsCutToTheWidestField) {
    const auto datos = Examinar(Escribir(tablaDeErrores));
    EXPECT_EQ(AjustarNuevoValor(*datos, "MAKTX", "1234567", prueba.textos, prueba.vista), "123456");
    EXPECT_EQ(AjustarNuevoValor(*datos, "MAKTX", "123456 ", prueba.textos, prueba.vista), "123456 ");
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<333> 6.");
}

// Lines across the borders of the blocks that are read, with every kind of end; whole, or cut where they are not needed.
TEST_F(PruebaDeDatos, ReaderKeepsLinesWholeAcrossBlocks) {
    std::string contenido;
    std::vector<std::string> esperadas;
    for (std::size_t i = 0; contenido.size() < (std::size_t{5} << 20); ++i) {
        const std::size_t largo = i % 100 == 0 ? i * 1000 + (1 << 20) - 1 : i * 7919 % 5000;
        esperadas.push_back(std::string(largo, static_cast<char>('a' + i % 26)));
        contenido += esperadas.back() + (i % 3 == 0 ? "\r\n" : i % 3 == 1 ? "\n" : "\r");
        if (i % 3 == 2) contenido += "x\r\n", esperadas.push_back("x");
    }
    ArchivoAbierto entero(Escribir(contenido));
    LectorDeLineas lector(entero);
    ArchivoAbierto cortado(entero.Ruta());
    LectorDeLineas lectorCortado(cortado, 100);
    LectorDeLineas::Linea linea;
    LectorDeLineas::Linea comienzo;
    std::size_t n = 0;
    while (lector.Siguiente(linea)) {
        ASSERT_LT(n, esperadas.size());
        ASSERT_EQ(lector.Texto(linea), esperadas[n]) << n;
        ASSERT_TRUE(lectorCortado.Siguiente(comienzo));
        ASSERT_EQ(lectorCortado.Texto(comienzo), esperadas[n].substr(0, 100)) << n;
        lectorCortado.MoverAncla(comienzo.inicio);
        if (n++ % 100 == 0) lector.MoverAncla(linea.inicio);
    }
    EXPECT_EQ(n, esperadas.size());
    EXPECT_FALSE(lectorCortado.Siguiente(comienzo));
}

}  // namespace
}  // namespace qor::pruebas
