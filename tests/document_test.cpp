#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "editor/document_commands.h"
#include "model/document_format.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

Especificacion Leer(const std::string& texto, Opciones& opciones) {
    Especificacion e;
    LectorValores lector(texto);
    if (LeerDocumento(lector, e, opciones) == Formato::Antiguo) {
        lector.VolverAlPrincipio();
        ImportarFormatoAntiguo(lector, e, opciones);
    }
    return e;
}

std::string Registro(int etiqueta, std::initializer_list<const char*> campos) {
    std::string registro = std::to_string(etiqueta);
    for (const char* campo : campos) registro += std::string(",") + campo;
    for (auto n = campos.size(); n < 9; ++n) registro += ",\"\"";
    return registro + "\r\n";
}

TEST(Document, OddRecordsAreTaken) {
    Opciones o;
    const auto e = Leer(Registro(12, {}) + Registro(1, {"\"A\"", "7"}) +
                            Registro(3, {"1", "#TRUE#", "0", "1", "1", "\"X\"", "\" out \"", "\"IN\""}) +
                            Registro(4, {"\"\"", "\"\"", "\"\"", "\"\"", "\"\"", "\"\"", "\"\"", "\"\"", "\"  \""}) +
                            Registro(7, {"0"}) + Registro(9, {"\"12\""}),
                        o);
    EXPECT_EQ(e.TablaArchivo[0].ancho, "7");
    EXPECT_TRUE(o.ServidorOp() && o.AnchoFijo);
    EXPECT_EQ(o.Modo, 'A');
    EXPECT_EQ(o.TablaZ, "ZDATAERRORS");
    EXPECT_EQ(o.SafeCallTransactionCheck, 1);
    EXPECT_EQ(o.ModeAsParameter, 1);
    EXPECT_NE(EscribirDocumento(e, o).find("\"out\",\"in\",#TRUE#"), std::string::npos);
    // No record at all is a document, too.
    EXPECT_EQ(Leer("", o).TablaArchivo[0].campo, "");
}

TEST(Document, BrokenTextsFail) {
    std::string llena;
    for (int r = 0; r < 1003; ++r) llena += Registro(1, {"\"A\""});
    std::string bapis;
    for (int r = 0; r < 503; ++r) bapis += Registro(8, {"\"A\""});
    const std::string rotos[] = {"no document",
                                 "1,\"A\",2",
                                 Registro(1, {"\"A\""}) + "\r\n",
                                 Registro(3, {"x", "#TRUE#"}),
                                 Registro(3, {"\"\"", "#TRUE#"}),
                                 Registro(3, {"40000", "#TRUE#"}),
                                 "99999,",
                                 llena,
                                 bapis,
                                 "\"a\",\"p\"\r\n\"F\",\"1\",\"\"\r\n"};
    for (const auto& roto : rotos) {
        Opciones o;
        EXPECT_THROW(Leer(roto, o), FalloDeEjecucion) << roto.substr(0, 40);
    }
}

struct Archivos : testing::Test {
    DirectorioTemporal directorio;
    VentanaDePrueba prueba;
    Ventana& ventana = prueba.ventana;

    bool Abrir(Ventana& otro, const std::filesystem::path& ruta) { return OpenOption(otro, ruta); }
    bool Grabar(const std::filesystem::path& ruta) {
        return GuardarDocumentoComo(ventana.documento, ruta, prueba.textos, prueba.vista);
    }
};

TEST_F(Archivos, VisibleRowsPassTheChangeRule) {
    std::string documento;
    for (int r = 0; r < 15; ++r) documento += Registro(1, {"\" abc \"", "\" 5 \""});
    documento += Registro(2, {"\" trans \"", "\"va01\""});
    for (int r = 0; r < 12; ++r) documento += Registro(2, {"\"\"", "\"\"", "\"f\"", r == 0 ? "\" 'aB' \"" : "\"x\""});
    ASSERT_TRUE(Abrir(ventana, directorio.Escribir("a.qor", documento)));
    EXPECT_EQ(prueba.FilaArchivo(13), "ABC|5");
    EXPECT_EQ(prueba.FilaArchivo(14), " abc | 5 ");
    EXPECT_EQ(prueba.FilaTransaccion(0), "TRANS|VA01");
    EXPECT_EQ(prueba.FilaTransaccion(1), "||F|'aB'");
    EXPECT_EQ(prueba.FilaTransaccion(11), "||f|x");
    EXPECT_FALSE(ventana.documento.HayCambios());

    const std::string largo = "\"" + std::string(31, 'a') + "\"";
    ASSERT_TRUE(Abrir(ventana, directorio.Escribir("b.qor", Registro(1, {largo.c_str()}))));
    EXPECT_EQ(prueba.FilaArchivo(0), std::string(30, 'A'));
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<333> 30.");
}

TEST_F(Archivos, WhatCannotBeOpenedLeavesANewDocument) {
    const auto ajeno = directorio.Escribir("other.qor", Registro(1, {"\"A\""}));
    VentanaDePrueba otro;
    ASSERT_TRUE(Abrir(otro.ventana, ajeno));
    const std::filesystem::path malos[] = {ajeno, directorio / "missing", directorio.Ruta(), directorio.Escribir("x", "\x01\x02,")};
    for (const auto& malo : malos) {
        EXPECT_FALSE(Abrir(ventana, malo)) << malo;
        EXPECT_EQ(prueba.vista.TomarAvisos(), "<335>");
        EXPECT_TRUE(ventana.documento.ruta.empty() && !ventana.documento.Bloqueado());
    }
    otro.ventana.documento.canal.Cerrar();
    EXPECT_TRUE(Abrir(ventana, ajeno));
}

TEST_F(Archivos, SaveReplacesAndKeepsTheLock) {
    prueba.Archivo({"A|1"});
    const auto ruta = directorio / "doc.qor";
    ASSERT_TRUE(Grabar(ruta));
    EXPECT_TRUE(ventana.documento.Bloqueado() && !ventana.documento.HayCambios());
    EXPECT_FALSE(std::filesystem::exists(directorio / "doc.TMP"));
    VentanaDePrueba otro;
    EXPECT_FALSE(Abrir(otro.ventana, ruta));
    // Nor can it be replaced by another.
    EXPECT_FALSE(GuardarDocumentoComo(otro.documento, ruta, otro.textos, otro.vista));
    EXPECT_EQ(otro.vista.TomarAvisos(), "<335> <336>");
}

TEST_F(Archivos, FailedSavesKeepTheDocument) {
    const auto ruta = directorio.Escribir("doc.qor", Registro(1, {"\"OLD\""}));
    ASSERT_TRUE(Abrir(ventana, ruta));
    prueba.PonerArchivo(0, "NEW|1");
    const auto viejo = LeerArchivo(ruta);

    EXPECT_FALSE(Grabar(directorio / "doc.tmp"));
    EXPECT_FALSE(Grabar(directorio / "no" / "place.qor"));
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<336> <336>");
    EXPECT_FALSE(std::filesystem::exists(directorio / "doc.tmp"));
    EXPECT_TRUE(ventana.documento.ruta == ruta && ventana.documento.Bloqueado());

    prueba.PonerArchivo(2, "GAP|1");
    EXPECT_FALSE(Grabar(ruta));
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<373>");
    EXPECT_EQ(LeerArchivo(ruta), viejo);
}

// Where another program has changed the document since it was read, the user decides; and only over the state that was seen.
TEST_F(Archivos, AnotherProgramsChangeIsOverwrittenOnARequestOnly) {
    const auto ruta = directorio / "doc.qor";
    const std::string suyo = Registro(1, {"\"THEIRS\""});
    const std::string pregunta = "Another program has changed the document " + ruta.string() + " since it was read. Overwrite it?";
    const std::map<std::string, std::function<void()>> maneras = {
        {"changed", [&] { directorio.Escribir("doc.qor", suyo); }},
        {"replaced", [&] { ReemplazarArchivo(directorio.Escribir("other", suyo), ruta); }},
        {"removed", [&] { std::filesystem::remove(ruta); }}};
    for (const auto& [manera, intervenir] : maneras) {
        for (int caso = 0; caso < 4; ++caso) {
            SCOPED_TRACE(manera + std::to_string(caso));
            const auto respuesta = caso % 2 == 0 ? Respuesta::No : Respuesta::Si;
            const bool comoElMismo = caso >= 2;  // "Save as" over its own path
            VentanaDePrueba p;
            ASSERT_TRUE(Abrir(p.ventana, directorio.Escribir("doc.qor", Registro(1, {"\"A\""}))));
            p.PonerArchivo(0, "OURS");
            p.documento.Cambiar();
            intervenir();
            p.vista.respuestas = {respuesta};
            const bool falta = manera == "removed";
            const bool guarda = falta || respuesta == Respuesta::Si;
            if (comoElMismo) p.vista.archivos = {ruta};
            EXPECT_EQ(comoElMismo ? SaveAsOption(p.ventana) : SaveOption(p.ventana), guarda);
            EXPECT_EQ(p.vista.TomarAvisos(), falta ? "" : pregunta);
            EXPECT_EQ(Contiene(LeerArchivo(ruta), "OURS"), guarda);
            EXPECT_EQ(p.documento.HayCambios(), !guarda);
            // What was saved is the state to compare with the next time.
            if (guarda) EXPECT_TRUE(SaveOption(p.ventana) && p.vista.TomarAvisos().empty());
        }
    }
    // It changes once more while the question stands.
    VentanaDePrueba p;
    ASSERT_TRUE(Abrir(p.ventana, ruta));
    maneras.at("changed")();
    p.vista.alPreguntar = maneras.at("replaced");
    p.vista.respuestas = {Respuesta::Si};
    EXPECT_FALSE(SaveOption(p.ventana));
    EXPECT_EQ(p.vista.TomarAvisos(), pregunta + " <336>");
    EXPECT_EQ(p.vista.detalles, "Another program has changed the file: " + ruta.string());
    EXPECT_EQ(LeerArchivo(ruta), suyo);
}

TEST_F(Archivos, UnsavedWorkIsAskedFor) {
    const auto ruta = directorio.Escribir("doc.qor", Registro(1, {"\"A\""}));
    prueba.Archivo({"WORK|1"});
    ventana.documento.Cambiar();
    EXPECT_FALSE(Abrir(ventana, ruta));  // cancelled
    EXPECT_EQ(prueba.FilaArchivo(0), "WORK|1");
    prueba.vista.respuestas = {Respuesta::Si};  // but no name is chosen
    EXPECT_FALSE(Abrir(ventana, ruta));
    EXPECT_EQ(prueba.FilaArchivo(0), "WORK|1");
    prueba.vista.respuestas = {Respuesta::No};
    EXPECT_TRUE(Abrir(ventana, ruta));
    EXPECT_EQ(prueba.FilaArchivo(0), "A");
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<334> <334> <334>");
}

}  // namespace
}  // namespace qor::pruebas
