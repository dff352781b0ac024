#include "app/start_up.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "app/file_type.h"
#include "base/files.h"
#include "editor/document_commands.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor {
namespace {

using pruebas::DirectorioTemporal;
using pruebas::VentanaDePrueba;
namespace fs = std::filesystem;

Entorno EntornoDe(const std::map<std::string, std::string>& valores) {
    return [valores](const char* nombre) {
        const auto valor = valores.find(nombre);
        return valor == valores.end() ? std::string() : valor->second;
    };
}

TEST(CommandLine, NamesADocument) {
    struct Caso {
        const char* linea;
        bool conPresentacion;
        const char* documento;
    };
    const Caso casos[] = {{"", true, ""},     {"\"a b.qor\"", true, "a b.qor"},
                          {"#$%", false, ""}, {"#$%\"/d/a.qor\"", false, "/d/a.qor"},
                          {"\"", true, "\""}, {" #$%a", true, " #$%a"}};
    for (const auto& caso : casos) {
        const auto linea = LeerArranque(caso.linea);
        EXPECT_EQ(linea.conPresentacion, caso.conPresentacion) << caso.linea;
        EXPECT_EQ(linea.documento, caso.documento) << caso.linea;
    }
}

TEST(StartUp, FollowsSettingsAndCommandLine) {
    struct Caso {
        const char* ajustes;
        const char* linea;
        bool preguntarIdioma;
        bool conectar;
        const char* mensaje1;
    };
    const Caso casos[] = {{"", "", true, true, "one"},
                          {"Language=Espanol\n", "", false, true, "uno"},
                          {"Language=Espanol\nLogon at startup=No\n", "#$%", false, false, "uno"},
                          {"Language=Klingon\n", "d.qor", false, false, "one"}};
    for (const auto& caso : casos) {
        const DirectorioTemporal directorio;
        directorio.Escribir("language.txt", "0,\"English\"\n1,\"one\"\n0,\"Espanol\"\n1,\"uno\"\n");
        directorio.Escribir("Tessaline.ini", caso.ajustes);
        Programa programa;
        EXPECT_EQ(CargarPrograma(programa, EntornoDe({{"tessaline_ini", directorio.Ruta().string()}}), directorio.Ruta()),
                  ResultadoIdioma::Bien);
        EXPECT_EQ(programa.textos.Texto(1), caso.mensaje1);
        const auto linea = LeerArranque(caso.linea);
        const auto plan = PlanearPrimeraActivacion(programa, linea);
        EXPECT_EQ(plan.preguntarIdioma, caso.preguntarIdioma);
        EXPECT_EQ(plan.conectar, caso.conectar);
        EXPECT_EQ(plan.mostrarPresentacion, linea.conPresentacion);
        EXPECT_EQ(plan.documento, linea.documento);
    }
    Programa programa;
    const DirectorioTemporal vacio;
    EXPECT_EQ(CargarPrograma(programa, EntornoDe({}), vacio.Ruta()), ResultadoIdioma::SinArchivo);
}

TEST(StartUp, ADocumentIsOpenedOrTheReasonIsTold) {
    const DirectorioTemporal directorio;
    VentanaDePrueba p;
    p.Archivo({"A|1"});
    ASSERT_TRUE(GuardarDocumentoComo(p.documento, directorio / "d.qor", p.textos, p.vista));
    p.ventana.documento.canal.Cerrar();

    Programa programa;
    VentanaDePrueba otro;
    EXPECT_TRUE(AbrirInicial(programa, otro.ventana, directorio / "d.qor"));
    EXPECT_EQ(programa.ajustes.DirectorioDocumentos, directorio.Ruta().string() + "/");
    EXPECT_EQ(otro.FilaArchivo(0), "A|1");
    VentanaDePrueba tercero;
    for (const char* const nombre : {"d.qor", "missing.qor"}) {
        EXPECT_FALSE(AbrirInicial(programa, tercero.ventana, directorio / nombre)) << nombre;
        EXPECT_EQ(tercero.vista.TomarAvisos(), "<335>");
    }
}

TEST(Closing, SavesTheSettingsAndTidiesUp) {
    for (const bool cancela : {true, false}) {
        const DirectorioTemporal directorio;
        directorio.Escribir("language.txt", "0,\"English\"\n0,\"Espanol\"\n");
        Programa programa;
        CargarPrograma(programa, EntornoDe({{"tessaline_ini", directorio.Ruta().string()}}), directorio.Ruta());
        VentanaDePrueba p;
        EXPECT_EQ(ElegirIdioma(programa, "  "), ResultadoIdioma::Bien);
        EXPECT_EQ(programa.ajustes.IdiomaActual, "");
        EXPECT_EQ(ElegirIdioma(programa, " Espanol "), ResultadoIdioma::Bien);
        EXPECT_EQ(LeerArchivo(directorio / "Tessaline.ini"), "LANGUAGE=Espanol\r\n");  // at once
        programa.ajustes.DirectorioDocumentos = "/docs/";
        p.ventana.documento.Cambiar();
        p.vista.respuestas = {cancela ? Respuesta::Cancelar : Respuesta::No};
        programa.generador.UltimoPrograma = directorio.Escribir("20240131_120000.tmp", "x");
        programa.generador.ProgramaTemporal = true;
        bool desconectado = false;
        EXPECT_EQ(CerrarPrograma(programa, p.ventana, [&] { desconectado = true; }), !cancela);
        EXPECT_EQ(desconectado, !cancela);
        EXPECT_EQ(fs::exists(directorio / "20240131_120000.tmp"), cancela);
        if (cancela) continue;
        ArchivoINI ini;
        ini.CargarINI(directorio / "Tessaline.ini");
        EXPECT_EQ(ini.LeerClave("Language"), "Espanol");
        EXPECT_EQ(ini.LeerClave("QOR Directory"), "/docs/");
    }
}

// What can't be read is not replaced by the defaults, not even where it could be written by then.
TEST(Closing, LeavesSettingsThatCouldNotBeRead) {
    const DirectorioTemporal directorio;
    directorio.Escribir("language.txt", "0,\"English\"\n");
    fs::create_directory(directorio / "Tessaline.ini");
    Programa programa;
    CargarPrograma(programa, EntornoDe({{"tessaline_ini", directorio.Ruta().string()}}), directorio.Ruta());
    fs::remove(directorio / "Tessaline.ini");
    directorio.Escribir("Tessaline.ini", "FIELDSFILE=/mine\r\n");
    EXPECT_FALSE(GuardarElecciones(programa));
    EXPECT_EQ(LeerArchivo(directorio / "Tessaline.ini"), "FIELDSFILE=/mine\r\n");
}

#ifndef LEFT_OUT_FileType_IsRegisteredOnceWhereNothingIsInstalled
TEST(FileType, IsRegisteredOnceWhereNothingIsInstalled) {
    const DirectorioTemporal directorio;
    const fs::path datos = fs::path(QOR_TEST_SOURCE_DIR) / "data";
    const auto planear = [&](const std::string& casaDeDatos) {
        return PlanearRegistro(EntornoDe({{"XDG_DATA_HOME", casaDeDatos},
                                          {"XDG_DATA_DIRS", "relative:" + (directorio / "system").string()},
                                          {"HOME", "/home/ana"}}),
                               "/opt/my $dir/50%/qor", datos);
    };
    const auto plan = planear((directorio / "data").string());
    EXPECT_TRUE(RegistrarExtension(plan));
    std::set<std::string> rutas;
    for (const auto& archivo : plan) rutas.insert(fs::relative(archivo.ruta, directorio / "data").string());
    EXPECT_EQ(rutas, (std::set<std::string>{
                         "applications/qor-data-set-editor.desktop", "applications/qor-generator.desktop",
                         "icons/hicolor/scalable/apps/qor-data-set-editor.svg", "icons/hicolor/scalable/apps/qor-generator.svg",
                         "icons/hicolor/scalable/mimetypes/application-x-qor.svg", "mime/packages/qor-generator.xml"}));
    for (const auto& [nombre, orden] :
         {std::pair{"qor-generator", "%f"}, std::pair{"qor-data-set-editor", "--data-set-editor %f"}}) {
        const std::string entrada = LeerArchivo(directorio / "data/applications" / (std::string(nombre) + ".desktop"));
        const std::string linea = std::string("\nExec=\"/opt/my \\\\$dir/50%%/qor\" ") + orden + '\n';
        EXPECT_NE(entrada.find(linea), std::string::npos) << entrada;
    }

    directorio.Escribir("data/applications/qor-generator.desktop", "changed by the user");
    EXPECT_FALSE(RegistrarExtension(plan));
    EXPECT_EQ(LeerArchivo(directorio / "data/applications/qor-generator.desktop"), "changed by the user");

    EXPECT_EQ(planear("relative").front().ruta, "/home/ana/.local/share/mime/packages/qor-generator.xml");
    EXPECT_TRUE(PlanearRegistro(EntornoDe({}), "/q", datos).empty());
    EXPECT_TRUE(PlanearRegistro(EntornoDe({{"HOME", "/home/ana"}}), "/q", directorio.Ruta()).empty());
    EXPECT_FALSE(RegistrarExtension({{directorio / "data/mime/packages/qor-generator.xml/x", ""}}));

    directorio.Escribir("system/applications/qor-generator.desktop", "");
    EXPECT_TRUE(planear((directorio / "data").string()).empty());
}
#endif

}  // namespace
}  // namespace qor
