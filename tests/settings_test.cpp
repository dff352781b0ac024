#include "app/settings.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <map>

#include "app/data_directory.h"
#include "base/failure.h"
#include "base/files.h"
#include "tests/support/failing_calls.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/temporary_directory.h"

namespace qor {
namespace {

using pruebas::DirectorioTemporal;
namespace fs = std::filesystem;

ArchivoINI IniDe(std::string_view texto) {
    ArchivoINI ini;
    ini.LeerTexto(texto);
    return ini;
}

AjustesDelPrograma AjustesDe(std::string_view texto) { return LeerAjustes(IniDe(texto), "/opt/qor"); }

TEST(SettingsFile, FindsEntriesWhateverTheirCaseAndSpacing) {
    const auto ini = IniDe(
        "  Language  =  Espanol  \r\n"
        "formula=a=b=c\n"
        "A comment\r"
        "=no key\n"
        "\n"
        "twice=1\nTWICE=2\n"
        "a comment = not\n"
        "ma\xF1"
        "ana=\xF1\n"
        "last=without an end");
    const std::pair<const char*, const char*> casos[] = {{"LANGUAGE", "Espanol"},
                                                         {" language ", "Espanol"},
                                                         {"Formula", "a=b=c"},
                                                         {"a comment", ""},
                                                         {"twice", "1"},
                                                         {"absent", ""},
                                                         {"MA\xD1"
                                                          "ANA",
                                                          "\xF1"},
                                                         {"last", "without an end"}};
    for (const auto& [clave, valor] : casos) EXPECT_EQ(ini.LeerClave(clave), valor) << clave;
}

TEST(SettingsFile, ASaveChangesOnlyTheLinesOfChangedEntries) {
    struct Caso {
        const char* que;
        const char* antes;
        const char* clave;
        const char* valor;
        const char* despues;
    };
    const Caso casos[] = {
        {"unchanged lines keep case and spacing", " Lang = X \nb=1", "b", "2", " Lang = X \r\nB=2\r\n"},
        {"the value is cut, the key raised", "b=1", " b ", "  2 2 ", "B=2 2\r\n"},
        {"comments stay, blank lines go", "# one\n\n   \nb=1\n;two=\n", "b", "2", "# one\r\nB=2\r\n;two=\r\n"},
        {"a new key comes last", "b=1\n", "New key", "v", "b=1\r\nNEW KEY=v\r\n"},
        {"an emptied value", "b=1\n", "b", " ", "B=\r\n"},
        {"only the first of two lines with one key", "b=1\nb=2\n", "b", "3", "B=3\r\nb=2\r\n"},
        {"a line without an equals sign is never replaced", "b\n", "b", "3", "b\r\nB=3\r\n"},
        {"a line break would end the entry", "b=1\n", "b", "x\r\ny=3\n", "B=x  y=3\r\n"},
        {"the same value is no change", "b =  1\n", "B", "1 ", nullptr},
    };
    for (const auto& caso : casos) {
        auto ini = IniDe(caso.antes);
        ini.EscribirClave(caso.clave, caso.valor);
        EXPECT_EQ(ini.Modificado(), caso.despues != nullptr) << caso.que;
        if (caso.despues == nullptr) continue;
        EXPECT_EQ(ini.TextoCambiado(caso.antes), caso.despues) << caso.que;
    }
}

TEST(SettingsFile, ASaveBringsChangesIntoTheFileAsItIsThen) {
    const DirectorioTemporal directorio;
    const auto ruta = directorio.Escribir("Tessaline.ini", "a=1\r\nb=1\r\n");
    ArchivoINI ini;
    ini.CargarINI(ruta);
    ini.EscribirClave("b", "2");
    directorio.Escribir("Tessaline.ini", "c=of another program\nb=9\n");

    ini.GuardarINI(ruta);
    EXPECT_EQ(LeerArchivo(ruta), "c=of another program\r\nB=2\r\n");
    EXPECT_FALSE(fs::exists(directorio / "Tessaline.tmp"));
    EXPECT_FALSE(ini.Modificado());

    // Nothing is changed any more, so nothing is written.
    directorio.Escribir("Tessaline.ini", "d=1\n");
    ini.GuardarINI(ruta);
    EXPECT_EQ(LeerArchivo(ruta), "d=1\n");
}

TEST(SettingsFile, AMissingFileIsMadeWithItsDirectory) {
    const DirectorioTemporal directorio;
    const auto ruta = directorio / "new/qor-generator/Tessaline.ini";
    ArchivoINI ini;
    ini.CargarINI(ruta);
    ini.EscribirClave("a", "1");
    ini.GuardarINI(ruta);
    EXPECT_EQ(LeerArchivo(ruta), "A=1\r\n");
}

TEST(SettingsFile, AFailedSaveLeavesTheFileAndTheChange) {
    const DirectorioTemporal directorio;
    const auto ruta = directorio.Escribir("Tessaline.ini", "a=1\r\n");
    ArchivoINI ini;
    ini.CargarINI(ruta);
    ini.EscribirClave("a", "2");
    {
        const pruebas::FalloProvocado fallo(LlamadaDeArchivo::LlevarAlDisco, 1, ENOSPC);
        EXPECT_THROW(ini.GuardarINI(ruta), FalloDeArchivo);
    }
    ini.GuardarINI(ruta);
    EXPECT_EQ(LeerArchivo(ruta), "A=2\r\n");
    // What can't be read is told, and not taken for a file without entries.
    EXPECT_THROW(ini.CargarINI(directorio.Ruta()), FalloDeArchivo);
}

#ifndef LEFT_OUT_SettingsPath_TakesTheFirstDirectoryThatApplies
TEST(SettingsPath, TakesTheFirstDirectoryThatApplies) {
    const DirectorioTemporal directorio;
    const std::string existe = directorio.Ruta().string();
    const std::map<std::string, std::string> todo = {
        {"tessaline_ini", "  " + existe + " "}, {"windir", "/windows"}, {"XDG_CONFIG_HOME", "/xdg"}, {"HOME", "/home/ana"}};
    struct Caso {
        std::map<std::string, std::string> cambios;
        std::string ruta;
    };
    const Caso casos[] = {
        {{}, existe + "/Tessaline.ini"},
        {{{"tessaline_ini", existe + "/missing"}}, "/windows/Tessaline.ini"},
        {{{"tessaline_ini", "   "}}, "/windows/Tessaline.ini"},
        {{{"tessaline_ini", ""}, {"windir", ""}}, "/xdg/qor-generator/Tessaline.ini"},
        {{{"tessaline_ini", ""}, {"windir", ""}, {"XDG_CONFIG_HOME", ""}}, "/home/ana/.config/qor-generator/Tessaline.ini"},
        {{{"tessaline_ini", ""}, {"windir", ""}, {"XDG_CONFIG_HOME", "rel"}}, "/home/ana/.config/qor-generator/Tessaline.ini"},
    };
    for (const auto& caso : casos) {
        auto variables = todo;
        for (const auto& [nombre, valor] : caso.cambios) variables[nombre] = valor;
        EXPECT_EQ(RutaDeAjustes([&](const char* nombre) { return variables[nombre]; }).string(), caso.ruta);
    }
}
#endif

TEST(Settings, SwitchesTakeOnlyTheirExactWord) {
    for (const auto& [valor, si] : {std::pair{"No", false}, {"no", true}, {"Yes", true}, {"0", true}}) {
        const std::string v = valor;
        EXPECT_EQ(AjustesDe("Logon at startup=" + v).LogonAlInicio, si) << v;
        EXPECT_EQ(AjustesDe("Check Logon Errors=" + v).ChequearErroresLogon, si) << v;
        EXPECT_EQ(AjustesDe("Import SHDB after Logon=" + v).ImportarSHDBLogon, si) << v;
    }
    for (const auto& [valor, si] : {std::pair{"Yes", 1}, {"yes", 0}, {"No", 0}, {"1", 0}}) {
        const auto ajustes = AjustesDe(std::string("Activate Naming Conventions=") + valor);
        EXPECT_EQ(ajustes.preferencias.CheckActivateNamingConventions, si) << valor;
    }
    EXPECT_TRUE(AjustesDe("UPLOAD FUNCTION = WS_UPLOAD").preferencias.OptionWS_UPLOAD);
    EXPECT_FALSE(AjustesDe("Upload Function=ws_upload").preferencias.OptionWS_UPLOAD);
    EXPECT_EQ(AjustesDe("rfc module=z_run_report").nombresRFC.ModuloRFCPropio, "Z_RUN_REPORT");
    EXPECT_EQ(AjustesDe("editor= mousepad --x ").EditorDeTextos, "mousepad --x");
    const auto conexion = AjustesDe("RFC Library=/opt/nwrfc/libsapnwrfc.so\nRFC Time Limit=90");
    EXPECT_EQ(conexion.BibliotecaRFC, "/opt/nwrfc/libsapnwrfc.so");
    EXPECT_EQ(conexion.SegundosDeLlamadaRFC, 90);
    for (const auto& [valor, segundos] : {std::pair{"", 600}, {"0", 0}, {"-1", 0}, {"none", 0}}) {
        EXPECT_EQ(AjustesDe(std::string("RFC Time Limit=") + valor).SegundosDeLlamadaRFC, segundos) << valor;
    }
}

TEST(Settings, DatasetAdditionsChooseTheirOption) {
    struct Caso {
        const char* valor;
        OpcionEncoding opcion;
        const char* queda;
    };
    const Caso casos[] = {
        {"", OpcionEncoding::Default, "ENCODING DEFAULT."},
        {"ENCODING ...", OpcionEncoding::Default, "ENCODING DEFAULT."},
        {"ENCODING DEFAULT.", OpcionEncoding::Default, "ENCODING DEFAULT."},
        {"NONE", OpcionEncoding::Ninguna, "NONE"},
        {"ENCODING NON-UNICODE.", OpcionEncoding::NonUnicode, "ENCODING NON-UNICODE."},
        {"none", OpcionEncoding::Additional, "none"},
        {"ENCODING UTF-8.", OpcionEncoding::Additional, "ENCODING UTF-8."},
    };
    for (const auto& caso : casos) {
        const auto ajustes = AjustesDe(std::string("Dataset Additions=") + caso.valor);
        EXPECT_EQ(ajustes.preferencias.AdicionesDataset, caso.queda) << caso.valor;
        EXPECT_EQ(EncodingDeAdiciones(ajustes.preferencias.AdicionesDataset), caso.opcion) << caso.valor;
        EXPECT_EQ(AdicionesDeEncoding(caso.opcion, caso.valor), caso.queda) << caso.valor;
    }
}

#ifndef LEFT_OUT_Settings_AreSavedInTheirOrderAndReadBack
// A first save writes every setting but a path that is its default, in an order that users of the file know.
TEST(Settings, AreSavedInTheirOrderAndReadBack) {
    AjustesDelPrograma ajustes = AjustesDe("");
    ajustes.IdiomaActual = "Espanol";
    ajustes.DirectorioDocumentos = "/home/ana/cargas";
    ajustes.ImportarSHDBLogon = false;
    ajustes.MostrarHallazgos = false;
    ajustes.preferencias.OptionWS_UPLOAD = true;
    ajustes.preferencias.AdicionesDataset = "NONE";
    ajustes.preferencias.CheckActivateNamingConventions = 1;
    ajustes.preferencias.LTprefijo = "TL_";
    ArchivoINI ini;
    GuardarAjustes(ini, ajustes);
    const std::string texto = ini.TextoCambiado("");
    EXPECT_EQ(texto,
              "LANGUAGE=Espanol\r\nQOR DIRECTORY=/home/ana/cargas\r\n"
              "UPLOAD FUNCTION=WS_UPLOAD\r\nDATASET ADDITIONS=NONE\r\nACTIVATE NAMING CONVENTIONS=Yes\r\n"
              "GS PREFIX=GS_\r\nGN PREFIX=GN_\r\nGT PREFIX=GT_\r\nLS PREFIX=LS_\r\nLN PREFIX=LN_\r\nLT PREFIX=TL_\r\n"
              "GC PREFIX=GC_\r\nPS PREFIX=PS_\r\nPN PREFIX=PN_\r\n"
              "LOGON AT STARTUP=Yes\r\nCHECK LOGON ERRORS=Yes\r\nIMPORT SHDB AFTER LOGON=No\r\nSHOW FINDINGS=No\r\n");

    auto otra = IniDe(texto);
    GuardarAjustes(otra, LeerAjustes(otra, "/elsewhere"));
    EXPECT_FALSE(otra.Modificado());
    // A default that was stored goes, so that it is that of the program where it lies now.
    auto vieja = IniDe("bapifile=/opt/qor/BAPI46C\nQOR Directory=/opt/qor/\nFieldsFile=/widths");
    GuardarAjustes(vieja, LeerAjustes(vieja, "/opt/qor"));
    const auto nueva = LeerAjustes(vieja, "/usr/share/qor");
    EXPECT_EQ(nueva.ArchivoBAPI, "/usr/share/qor/BAPI46C");
    EXPECT_EQ(nueva.DirectorioDocumentos, "/opt/qor/");
    EXPECT_EQ(nueva.ArchivoAnchos, "/widths");
    // An editor has its entry once one was chosen, and keeps it when it is taken away again.
    for (const char* const editor : {"mousepad", ""}) {
        ajustes.EditorDeTextos = editor;
        GuardarAjustes(ini, ajustes);
        EXPECT_EQ(ini.TextoCambiado(""), texto + "EDITOR=" + editor + "\r\n");
    }
}
#endif

#ifndef LEFT_OUT_DataDirectory_IsTheInstalledOneOrThatOfTheTreeByTheLanguageFile
TEST(DataDirectory, IsTheInstalledOneOrThatOfTheTreeByTheLanguageFile) {
    const DirectorioTemporal directorio;
    const auto programa = directorio.Escribir("bin/qorgen", "");
    EXPECT_EQ(DirectorioDeDatos(programa), directorio / "share/qor-generator");
    directorio.Escribir("tree/data/language.txt", "0,\"English\"\r\n");
    fs::create_directory_symlink(directorio / "tree/data", directorio / "data");
    EXPECT_EQ(DirectorioDeDatos(programa), fs::canonical(directorio / "tree/data"));
    directorio.Escribir("share/qor-generator/language.txt", "0,\"English\"\r\n");
    EXPECT_EQ(DirectorioDeDatos(programa), directorio / "share/qor-generator");
    // This program isn't installed.
    EXPECT_EQ(DirectorioDeDatos(), fs::path(QOR_TEST_SOURCE_DIR) / "data");
}
#endif

}  // namespace
}  // namespace qor
