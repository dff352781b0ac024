#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/files.h"
#include "editor/document_commands.h"
#include "editor/find.h"
#include "editor/option_rules.h"
#include "tests/support/editor_fixture.h"
#include "tests/support/temporary_directory.h"

namespace qor {
namespace {

using pruebas::DirectorioTemporal;
using pruebas::EditorDePrueba;

TEST(Options, SetTheChangeFlagOnlyWhenTheyChange) {
    EditorDePrueba p;
    CambiarOpcion(p.editor, &Opciones::TablaCh, 0);
    EXPECT_FALSE(p.editor.HayCambios);
    CambiarOpcion(p.editor, &Opciones::Functional, "someone");
    EXPECT_TRUE(p.editor.HayCambios);
}

TEST(Options, LimitTheirTexts) {
    EditorDePrueba p;
    CambiarNombreManual(p.editor, "123456789012");
    CambiarProgID(p.editor, "1234567890");
    EXPECT_EQ(p.vista.TomarAvisos(), "");
    CambiarNombreManual(p.editor, "1234567890123");
    CambiarProgID(p.editor, "12345678901");
    EXPECT_EQ(p.vista.TomarAvisos(), "<333> 12. <333> 10.");
    EXPECT_EQ(p.editor.opciones.NombreManual, "123456789012");
    EXPECT_EQ(p.editor.opciones.ProgID, "1234567890");
}

TEST(Options, DecideOverTheControls) {
    struct Caso {
        const char* control;
        std::function<void(Editor&, Preferencias&)> preparar;
        EstadoDeControl estado;
    };
    const auto nada = [](Editor&, Preferencias&) {};
    const auto servidor = [](Editor& e, Preferencias&) { e.opciones.ClienteOp = false; };
    const auto tabla = [](Editor& e, Preferencias&) {
        e.opciones.ClienteOp = false;
        e.opciones.TablaCh = 1;
    };
    const auto tabuladores = [](Editor& e, Preferencias&) { e.opciones.AnchoFijo = false; };
    const auto unArchivo = [](Editor& e, Preferencias&) { e.opciones.MultipleFilesOption = false; };
    const auto origen = [](Editor& e, Preferencias&) {
        e.especificacion.OrigenUsuario = true;
        e.opciones.MultipleFilesOption = false;
    };
    const EstadoDeControl todo{true, true};
    const EstadoDeControl inactivo{true, false};
    const EstadoDeControl oculto{false, true};
    const Caso casos[] = {{"Otro1", nada, oculto},
                          {"Otro1", origen, todo},
                          {"ArchivoFuente", nada, todo},
                          {"ArchivoFuente", origen, oculto},
                          {"AddF4", nada, todo},
                          {"AddF4", servidor, inactivo},
                          {"AddF4", [](Editor& e, Preferencias&) { e.opciones.FileParameterCh = 0; }, inactivo},
                          {"ExaminarFuente", servidor, inactivo},
                          {"OneFileOption", nada, todo},
                          {"OneFileOption", tabuladores, inactivo},
                          {"OneFileOption", servidor, todo},
                          {"OneFileOption", tabla, inactivo},
                          {"OneFileOption", origen, inactivo},
                          {"Identificadores", nada, inactivo},
                          {"Identificadores", unArchivo, todo},
                          {"Identificadores", origen, inactivo},
                          {"ModeAsParameter", nada, oculto},
                          {"ModeAsParameter", [](Editor& e, Preferencias&) { e.opciones.CallTransaction = 1; }, todo},
                          {"ProgID", nada, oculto},
                          {"ProgID", [](Editor& e, Preferencias&) { e.opciones.ErrorHandlingCheck = 1; }, todo},
                          {"SpaceCode", nada, inactivo},
                          {"SpaceCode", [](Editor& e, Preferencias&) { e.opciones.ProcesarTodoOpt = false; }, todo},
                          {"NombreManual", nada, inactivo},
                          {"NombreManual", [](Editor& e, Preferencias&) { e.opciones.GeneracionAutomatica = false; }, todo},
                          {"LabelGTprefix", nada, oculto},
                          {"PNprefijo", [](Editor&, Preferencias& p) { p.CheckActivateNamingConventions = 1; }, todo},
                          {"ProgramCol", [](Editor& e, Preferencias&) { ClicExpandirCampo(e); }, oculto},
                          {"EncodingAdditional", nada, inactivo}};
    for (const auto& caso : casos) {
        EditorDePrueba p;
        Preferencias preferencias;
        caso.preparar(p.editor, preferencias);
        EXPECT_EQ(EstadoDeControles(p.editor, preferencias, false).at(caso.control), caso.estado) << caso.control;
    }
}

TEST(NewDocument, PutsTheWholeWindowBack) {
    EditorDePrueba p;
    auto& e = p.editor;
    p.LlenarArchivo(100);
    CambiarTextoBuscado(e, "F50");
    BuscarArchivo(e);
    ClicExpandirCampo(e);
    e.ventana.SSTab1 = 2;
    e.HayCambios = true;
    NewOption(e);  // cancelled
    EXPECT_EQ(e.archivo.LineaArchivo, 50);
    p.vista.respuestas = {Respuesta::No};
    NewOption(e);
    EXPECT_EQ(p.vista.TomarAvisos(), "<300> <300>");
    EXPECT_EQ(e.archivo.LineaArchivo, 0);
    EXPECT_EQ(p.Texto({Columna::Text1, 0}), "");
    EXPECT_EQ(RotuloDeBuscarArchivo(e), 46);
    EXPECT_EQ(e.busquedas.TextoBuscado, "");
    EXPECT_STREQ(RotuloDeExpandirCampo(e), "+");
    EXPECT_EQ(e.ventana.SSTab1, 0);
    EXPECT_FALSE(e.HayCambios);
}

TEST(ClosingDocument, SavesOrKeepsItOpen) {
    struct Caso {
        const char* que;
        std::vector<Respuesta> respuestas;
        bool cambios;
        bool conHueco;
        bool cierra;
        std::string avisos;
    };
    const Caso casos[] = {{"no changes", {}, false, false, true, ""},
                          {"not saved on purpose", {Respuesta::No}, true, false, true, "<300>"},
                          {"cancelled", {Respuesta::Cancelar}, true, false, false, "<300>"},
                          {"saved", {Respuesta::Si}, true, false, true, "<300>"},
                          {"the save fails, so nothing is lost", {Respuesta::Si}, true, true, false, "<300> <373>"}};
    for (const auto& caso : casos) {
        const DirectorioTemporal directorio;
        EditorDePrueba p;
        p.Archivo({"A|1"});
        FijarDocumento(p.editor, (directorio / "d.qor").string());
        ASSERT_TRUE(SaveOption(p.editor));
        const std::string antes = LeerArchivo(directorio / "d.qor");
        p.PonerArchivo(caso.conHueco ? 5 : 1, "B|2");
        p.editor.HayCambios = caso.cambios;
        p.vista.respuestas = {caso.respuestas.begin(), caso.respuestas.end()};
        EXPECT_EQ(CerrarDocumento(p.editor), caso.cierra) << caso.que;
        EXPECT_EQ(p.editor.DocumentoBloqueado(), !caso.cierra) << caso.que;
        EXPECT_EQ(p.vista.TomarAvisos(), caso.avisos) << caso.que;
        EXPECT_EQ(LeerArchivo(directorio / "d.qor") != antes, std::string(caso.que) == "saved") << caso.que;
    }
}

}  // namespace
}  // namespace qor
