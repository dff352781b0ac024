#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/files.h"
#include "editor/document_commands.h"
#include "editor/find.h"
#include "editor/option_rules.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor {
namespace {

using pruebas::DirectorioTemporal;
using pruebas::VentanaDePrueba;

TEST(Options, LimitTheirTexts) {
    VentanaDePrueba p;
    CambiarNombreManual(p.ventana, "123456789012");
    CambiarProgID(p.ventana, "1234567890");
    EXPECT_EQ(p.vista.TomarAvisos(), "");
    CambiarNombreManual(p.ventana, "1234567890123");
    CambiarProgID(p.ventana, "12345678901");
    EXPECT_EQ(p.vista.TomarAvisos(), "<333> 12. <333> 10.");
    EXPECT_EQ(p.ventana.documento.opciones.NombreManual, "123456789012");
    EXPECT_EQ(p.ventana.documento.opciones.ProgID, "1234567890");
}

TEST(Options, DecideOverTheControls) {
    struct Caso {
        const char* control;
        std::function<void(Ventana&, Preferencias&)> preparar;
        EstadoDeControl estado;
    };
    const auto nada = [](Ventana&, Preferencias&) {};
    const auto servidor = [](Ventana& e, Preferencias&) { e.documento.opciones.ClienteOp = false; };
    const auto tabla = [](Ventana& e, Preferencias&) {
        e.documento.opciones.ClienteOp = false;
        e.documento.opciones.TablaCh = 1;
    };
    const auto tabuladores = [](Ventana& e, Preferencias&) { e.documento.opciones.AnchoFijo = false; };
    const auto unArchivo = [](Ventana& e, Preferencias&) { e.documento.opciones.MultipleFilesOption = false; };
    const auto origen = [](Ventana& e, Preferencias&) {
        e.documento.especificacion.OrigenUsuario = true;
        e.documento.opciones.MultipleFilesOption = false;
    };
    const EstadoDeControl todo{true, true};
    const EstadoDeControl inactivo{true, false};
    const EstadoDeControl oculto{false, true};
    const Caso casos[] = {
        {"Otro1", nada, oculto},
        {"Otro1", origen, todo},
        {"ArchivoFuente", nada, todo},
        {"ArchivoFuente", origen, oculto},
        {"AddF4", nada, todo},
        {"AddF4", servidor, inactivo},
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
        {"ModeAsParameter", [](Ventana& e, Preferencias&) { e.documento.opciones.CallTransaction = 1; }, todo},
        {"ProgID", nada, oculto},
        {"ProgID", [](Ventana& e, Preferencias&) { e.documento.opciones.ErrorHandlingCheck = 1; }, todo},
        {"SpaceCode", [](Ventana& e, Preferencias&) { e.documento.opciones.ProcesarTodoOpt = false; }, todo},
        {"NombreManual", [](Ventana& e, Preferencias&) { e.documento.opciones.GeneracionAutomatica = false; }, todo},
        {"LabelGTprefix", nada, oculto},
        {"PNprefijo", [](Ventana&, Preferencias& p) { p.CheckActivateNamingConventions = 1; }, todo},
        {"ProgramCol", [](Ventana& e, Preferencias&) { ClicExpandirCampo(e); }, oculto},
        {"EncodingAdditional", nada, inactivo}};
    for (const auto& caso : casos) {
        VentanaDePrueba p;
        Preferencias preferencias;
        caso.preparar(p.ventana, preferencias);
        EXPECT_EQ(EstadoDeControles(p.ventana, preferencias, false).at(caso.control), caso.estado) << caso.control;
    }
}

TEST(NewDocument, PutsTheWholeWindowBack) {
    VentanaDePrueba p;
    auto& e = p.ventana;
    p.LlenarArchivo(100);
    CambiarTextoBuscado(e, "F50");
    BuscarArchivo(e);
    e.SSTab1 = 2;
    e.documento.Cambiar();
    NewOption(e);  // cancelled
    EXPECT_EQ(e.archivo.LineaArchivo, 50);
    p.vista.respuestas = {Respuesta::No};
    NewOption(e);
    EXPECT_EQ(p.vista.TomarAvisos(), "<300> <300>");
    EXPECT_EQ(e.archivo.LineaArchivo + e.SSTab1, 0);
    EXPECT_EQ(p.Texto({Columna::CampoDeArchivo, 0}) + e.busquedas.TextoBuscado, "");
    EXPECT_FALSE(e.documento.HayCambios());
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
    const Caso casos[] = {
        {"no changes", {}, false, false, true, ""},
        {"not saved on purpose", {Respuesta::No}, true, false, true, "<300>"},
        {"cancelled", {Respuesta::Cancelar}, true, false, false, "<300>"},
        {"saved", {Respuesta::Si}, true, false, true, "<300>"},
        {"the save fails, so nothing is lost", {Respuesta::Si}, true, true, false, "<300> <373>\r\r<444> 2 <445> <447>"}};
    for (const auto& caso : casos) {
        const DirectorioTemporal directorio;
        VentanaDePrueba p;
        p.Archivo({"A|1"});
        ASSERT_TRUE(GuardarDocumentoComo(p.documento, directorio / "d.qor", p.textos, p.vista));
        const std::string antes = LeerArchivo(directorio / "d.qor");
        p.PonerArchivo(caso.conHueco ? 5 : 1, "B|2");
        if (caso.cambios) p.documento.Cambiar();
        p.vista.respuestas = {caso.respuestas.begin(), caso.respuestas.end()};
        EXPECT_EQ(CerrarDocumento(p.ventana), caso.cierra) << caso.que;
        EXPECT_EQ(p.ventana.documento.Bloqueado(), !caso.cierra) << caso.que;
        EXPECT_EQ(p.vista.TomarAvisos(), caso.avisos) << caso.que;
        EXPECT_EQ(LeerArchivo(directorio / "d.qor") != antes, std::string(caso.que) == "saved") << caso.que;
    }
}

}  // namespace
}  // namespace qor
