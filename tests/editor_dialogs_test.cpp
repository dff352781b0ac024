#include <gmock/gmock.h>

#include <functional>
#include <set>

#include "base/failure.h"
#include "base/failure_trap.h"
#include "base/files.h"
#include "base/key_filters.h"
#include "base/text.h"
#include "base/words.h"
#include "editor/conditions.h"
#include "editor/data_source.h"
#include "editor/definitions.h"
#include "editor/notes.h"
#include "editor/user_code.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor {
namespace {

using pruebas::DirectorioTemporal;
using pruebas::VentanaDePrueba;
using testing::ElementsAre;

constexpr FilaDeTabla filaDePrograma{Tabla::Transaccion, 2};

std::string Campos(const DialogoDeNotas& dialogo) {
    std::string texto;
    for (const auto& campo : dialogo.ListaCampos) texto += (campo.elegido ? "+" : " ") + campo.nombre;
    return texto;
}

// A transaction with two screens; row 2 is the one that the tests edit.
void PrepararNotas(VentanaDePrueba& p, std::string_view campo, std::string_view celda) {
    p.Archivo({"KEY", "ONE|1|file note", "TWO"});
    p.Transaccion({"TRANS|T", "P|100", "", "P|200", "||B(1)|TWO|!1 1!2!31!4!51!6!7"});
    p.PonerTransaccion(2, "||" + std::string(campo) + "|ONE|" + std::string(celda));
}

TEST(Notes, TheRowDecidesOverTheShape) {
    struct Caso {
        const char* campo;
        const char* celda;
        bool esStepLoop;
        const char* nota;
        int Steploop;
        const char* campos;
    };
    const Caso casos[] = {{"F", "a note", false, "a note", 0, ""},
                          {"F", "note!1 1!2file!31!4!51!6!7", false, "note", 1, ""},
                          {"F(1)", "", true, "", 0, " KEY ONE"},
                          {"F(1)", "note!1 1!2x.txt!30!4DESC!50!612!7,KEY,GONE", true, "note", 1, "+KEY ONE"},
                          {"F(1)", "note!1 0", true, "note", 0, " KEY ONE"}};
    for (const auto& caso : casos) {
        VentanaDePrueba p;
        PrepararNotas(p, caso.campo, caso.celda);
        const auto dialogo = AbrirNotas(p.ventana, filaDePrograma);
        EXPECT_EQ(dialogo.titulo, std::string("<92> ") + caso.campo);
        EXPECT_EQ(dialogo.EsStepLoop, caso.esStepLoop) << caso.celda;
        EXPECT_EQ(dialogo.NotaCampo, caso.nota) << caso.celda;
        EXPECT_EQ(dialogo.Steploop, caso.Steploop) << caso.celda;
        EXPECT_EQ(Campos(dialogo), caso.campos) << caso.celda;
        EXPECT_EQ(p.FilaTransaccion(2), std::string("||") + caso.campo + "|ONE" + (*caso.celda ? "|" : "") + caso.celda);
    }
}

TEST(Notes, ALineOfAnotherHeadOffersNoStepLoop) {
    VentanaDePrueba p;
    PrepararNotas(p, "F", "");
    p.PonerTransaccion(5, "||C(1)|ONE");
    EXPECT_FALSE(AbrirNotas(p.ventana, {Tabla::Transaccion, 5}).EsStepLoop);
    EXPECT_TRUE(AbrirNotas(p.ventana, {Tabla::Transaccion, 4}).EsStepLoop);
}

TEST(Notes, AHeadIsReadAndWrittenWithAllItsMarks) {
    VentanaDePrueba p;
    PrepararNotas(p, "F(1)", "note!1 1!2x.txt!30!4DESC!50!612!7,KEY");
    auto dialogo = AbrirNotas(p.ventana, filaDePrograma);
    EXPECT_FALSE(dialogo.NuevaOpt);
    EXPECT_FALSE(dialogo.Pos1);
    EXPECT_TRUE(dialogo.VerFilas());
    ASSERT_TRUE(CerrarNotas(p.ventana, dialogo));
    EXPECT_FALSE(p.ventana.documento.HayCambios());  // nothing was changed

    dialogo.NuevaOpt = dialogo.Pos1 = true;
    dialogo.Descripcion = " desc 2 ";
    CambiarFilas(dialogo, "123");
    dialogo.ListaCampos[1].elegido = true;
    ASSERT_TRUE(CerrarNotas(p.ventana, dialogo));
    EXPECT_EQ(p.FilaTransaccion(2), "||F(1)|ONE|note!1 1!2x.txt!31!4DESC 2!51!612!7,KEY,ONE");
    EXPECT_TRUE(p.ventana.documento.HayCambios());
    EXPECT_EQ(p.ColorDe({Columna::Campo, 2}), Color::Rojo);

    dialogo.Steploop = 0;
    dialogo.NotaCampo = "";
    ASSERT_TRUE(CerrarNotas(p.ventana, dialogo));
    EXPECT_EQ(p.FilaTransaccion(2), "||F(1)|ONE");
    EXPECT_EQ(p.ColorDe({Columna::Campo, 2}), Color::Negro);
}

TEST(Notes, RefusesAHeadWithoutItsData) {
    const std::string sinCampo = "<353>\r\r<375>\r\r<376>\r\r<377>";
    struct Caso {
        const char* que;
        const char* cabeza;
        bool avance;
        const char* filas;
        bool elegido;
        bool unArchivo;
        std::string avisos;
    };
    const Caso casos[] = {{"rows per screen are missing", "TRANS", true, " ", true, false, "<352>"},
                          {"they are not asked in a BAPI", "BAPI", true, "", true, false, ""},
                          {"nor where the screen is called anew", "TRANS", false, "", true, false, ""},
                          {"no field", "TRANS", true, "9", false, false, sinCampo},
                          {"no field, but all records in one file", "TRANS", true, "9", false, true, ""}};
    for (const auto& caso : casos) {
        VentanaDePrueba p;
        PrepararNotas(p, "F(1)", "old");
        p.PonerTransaccion(0, std::string(caso.cabeza) + "|T");
        if (std::string(caso.cabeza) == "BAPI") p.PonerTransaccion(1, "||E");
        p.ventana.documento.opciones.MultipleFilesOption = !caso.unArchivo;
        auto dialogo = AbrirNotas(p.ventana, filaDePrograma);
        EXPECT_EQ(dialogo.SinArchivoStep, caso.unArchivo) << caso.que;
        EXPECT_EQ(dialogo.RotuloDeSteploop(), std::string(caso.cabeza) == "BAPI" ? 175 : 93);
        dialogo.Steploop = 1;
        dialogo.NuevaOpt = !caso.avance;
        dialogo.Filas = caso.filas;
        dialogo.ListaCampos[0].elegido = caso.elegido;
        EXPECT_EQ(CerrarNotas(p.ventana, dialogo), caso.avisos.empty()) << caso.que;
        EXPECT_EQ(p.vista.TomarAvisos(), caso.avisos) << caso.que;
        if (!caso.avisos.empty()) {
            EXPECT_EQ(p.FilaTransaccion(2), "||F(1)|ONE|old") << caso.que;
        }
    }
}

// It would part the marks of the note in the wrong places, of which nothing could be made any more.
TEST(Notes, TakeNoSignOfTheMarksIntoAStepLoop) {
    VentanaDePrueba p;
    p.textos.PonerPalabra(palabra::SignoDeMarcas, "No sign");
    PrepararNotas(p, "F(1)", "old");
    p.PonerTransaccion(0, "TRANS|T");
    auto dialogo = AbrirNotas(p.ventana, filaDePrograma);
    dialogo.Steploop = 1;
    dialogo.Filas = "9";
    dialogo.ListaCampos[0].elegido = true;
    dialogo.Descripcion = "a!8b";
    EXPECT_FALSE(CerrarNotas(p.ventana, dialogo));
    EXPECT_EQ(p.vista.TomarAvisos(), "No sign");
    // A document can hold it all the same.
    p.documento.especificacion.TablaTransaccion[2].nota = "!8y!1 1!2a.txt!30!4!51!65!7,ONE";
    EXPECT_EQ(EstructurasDe(p.documento, {}, p.ventana.textos), "");
}

TEST(Notes, OfAFileRowAreASingleLine) {
    VentanaDePrueba p;
    PrepararNotas(p, "F", "");
    auto dialogo = AbrirNotas(p.ventana, {Tabla::Archivo, 1});
    for (const char tecla : {'\r', '!', '"'}) EXPECT_EQ(FiltrarTeclaDeNota(p.ventana, dialogo, tecla), teclaDescartada);
    EXPECT_EQ(p.vista.TomarAvisos(), "<354>");
    EXPECT_EQ(FiltrarTeclaDeNota(p.ventana, AbrirNotas(p.ventana, filaDePrograma), '\r'), '\r');
    dialogo.NotaCampo = "other";
    EXPECT_TRUE(CerrarNotas(p.ventana, dialogo));
    EXPECT_EQ(p.FilaArchivo(1), "ONE|1|other");
}

TEST(Notes, MarksInTheWrongOrderEndTheActionWithAMessage) {
    VentanaDePrueba p;
    PrepararNotas(p, "F(1)", "!2!1 1");
    const auto antes = p.FilasTransaccion();
    EXPECT_FALSE(ConTrampa(p.vista, [&] { AbrirNotas(p.ventana, filaDePrograma); }));
    EXPECT_THAT(p.vista.TomarAvisos(), testing::HasSubstr("wrong order"));
    EXPECT_EQ(p.FilasTransaccion(), antes);
}

TEST(Conditions, AreAddedEditedAndRemoved) {
    VentanaDePrueba p;
    auto& e = p.ventana;
    const auto& tabla = e.documento.especificacion.TablaCondiciones;
    auto dialogo = AbrirCondiciones(e);
    const auto agregar = [&](const char* nombre, const char* texto) {
        dialogo.Nuevo = nombre;
        AgregarCondicion(e, dialogo);
        CambiarCondicional(e, dialogo, texto);
    };
    agregar("  ", "");
    EXPECT_FALSE(e.documento.HayCambios());
    agregar(" one ", "RESULT = YES.");
    agregar("TWO", "");
    agregar("ONE", "");
    EXPECT_EQ(p.vista.TomarAvisos(), "<357>");
    agregar("THREE", "3");
    SeleccionarCondicion(e, dialogo, 0);
    EXPECT_EQ(dialogo.Condicional, "RESULT = YES.");
    BorrarCondicion(e, dialogo);
    BorrarCondicion(e, dialogo);  // nothing is selected any more
    EXPECT_THAT(dialogo.ListaCondiciones, ElementsAre("TWO", "THREE"));
    EXPECT_EQ(tabla[1], (FilaDeCondicion{"THREE", "3"}));
    EXPECT_EQ(tabla[2], (FilaDeCondicion{"", ""}));

    for (int r = 0; r < 1000; ++r) e.documento.especificacion.TablaCondiciones[r].nombre = "C" + std::to_string(r);
    dialogo = AbrirCondiciones(e);
    for (const char* nombre : {"LAST", "TOO MANY"}) agregar(nombre, "");
    EXPECT_EQ(tabla[1000].nombre + tabla[1001].nombre, "LAST");
    EXPECT_EQ(p.vista.TomarAvisos(), "There is no room for another condition.");
}

TEST(Formulas, AreReadByTheirHeads) {
    const auto formulas = LeerFormulas("dropped\r\n[ One ]\r\na !\n[not a head\n\n[]\nb\r\n[Two]");
    ASSERT_EQ(formulas.size(), 3U);
    EXPECT_EQ(formulas[0].nombre, "One");
    EXPECT_EQ(formulas[0].cuerpo, "a !\r\n[not a head\r\n\r\n");
    EXPECT_EQ(formulas[1].nombre, "");
    EXPECT_EQ(formulas[1].cuerpo, "b\r\n");
    EXPECT_EQ(formulas[2].cuerpo, "");

    std::string muchas;
    for (int n = 0; n < 1001; ++n) muchas += "[F]\nx\n";
    EXPECT_EQ(LeerFormulas(muchas).size(), 1000U);
    EXPECT_EQ(LeerFormulas(muchas).back().cuerpo, "x\r\n");
}

TEST(Formulas, ThatShipKeepWithinTheColumnsOfTheGenerator) {
    const std::string texto = LeerArchivo(QOR_TEST_SOURCE_DIR "/data/formulas.txt");
    EXPECT_EQ(ReemplazarTodo(texto, "\r\n", "").find_first_of("\r\n\""), std::string::npos);
    const auto formulas = LeerFormulas(texto);
    EXPECT_GT(formulas.size(), 25U);
    std::set<std::string> nombres;
    for (const auto& formula : formulas) {
        EXPECT_TRUE(nombres.insert(formula.nombre).second) << formula.nombre;
        EXPECT_LE(formula.nombre.size(), 48U) << formula.nombre;
        const std::string cuerpo = CuerpoParaCampo(formula.cuerpo, std::string(30, 'X'));
        for (const auto linea : PartirEnLineas(cuerpo)) {
            // A fold inside a literal would change it.
            if (Contiene(linea, "'")) {
                EXPECT_LE(linea.size(), 50U) << linea;
            }
        }
    }
}

TEST(UserCode, FormulasStackOnTopOfTheCode) {
    const DirectorioTemporal directorio;
    const std::string largo(70, 'n');
    directorio.Escribir("formulas.txt", "[Up]\nTRANSLATE ! TO UPPER CASE.\n[" + largo + "]\nCLEAR !+2(1).\n");
    VentanaDePrueba p;
    p.Archivo({"MATNR|18||old\r\n", "LOOPED"});
    p.Transaccion({"TRANS|T", "P|100", "||F(1)|LOOPED|!1 1!2"});
    auto ventana = AbrirCodigo(p.ventana, 0, directorio.Ruta());
    for (const int seleccion : {-1, 0, 1}) AplicarFormula(p.ventana, ventana, seleccion);
    EXPECT_EQ(ventana.ABAPText,
              "* " + largo.substr(2) + "\r\nCLEAR #MATNR+2(1).\r\n* Up\r\nTRANSLATE #MATNR TO UPPER CASE.\r\nold\r\n");
    EXPECT_TRUE(CerrarCodigo(p.ventana, ventana));
    EXPECT_EQ(p.ventana.archivo.conversion[0].color, Color::Rojo);

    auto deLoop = AbrirCodigo(p.ventana, 1, directorio.Ruta());
    AplicarFormula(p.ventana, deLoop, 0);
    EXPECT_EQ(p.vista.TomarAvisos(), "<355>");
    EXPECT_EQ(deLoop.ABAPText, "");
}

TEST(UserCode, IsStoredWhereItIsMoreThanBlanks) {
    const DirectorioTemporal sinFormulas;
    struct Caso {
        std::string texto;
        bool cierra;
        std::string queda;
        bool cambios;
    };
    std::string demasiado;
    for (int n = 0; n < 502; ++n) demasiado += "x\r\n";
    const Caso casos[] = {{"code", true, "code", false},
                          {"  \r\n \r\n", true, "", true},
                          {"", true, "", true},
                          {" \r\n x", true, " \r\n x", true},
                          {demasiado, false, "code", false}};
    for (const auto& caso : casos) {
        VentanaDePrueba p;
        p.Archivo({"A|1||code"});
        auto ventana = AbrirCodigo(p.ventana, 0, sinFormulas.Ruta());
        EXPECT_EQ(p.vista.TomarAvisos(), "<356> FORMULAS.TXT");
        ventana.ABAPText = caso.texto;
        EXPECT_EQ(CerrarCodigo(p.ventana, ventana), caso.cierra);
        EXPECT_EQ(p.ventana.documento.especificacion.TablaArchivo[0].conversion, caso.queda);
        EXPECT_EQ(p.ventana.documento.HayCambios(), caso.cambios);
    }
}

TEST(Definitions, EditTheGlobalsAndTheCallsOfBAPIs) {
    VentanaDePrueba p;
    auto& e = p.ventana;
    auto& bapis = e.documento.especificacion.TablaBAPIs;
    e.documento.especificacion.VariablesGlobales = "DATA: A.";
    bapis[0] = {"B1", "CALL 1"};
    bapis[1] = {"B2", "CALL 2"};
    auto dialogo = AbrirDefiniciones(e);
    EXPECT_THAT(dialogo.ListaDefiniciones, ElementsAre("<163>", "<164>: B1", "<164>: B2"));
    SeleccionarDefinicion(e, dialogo, 2);
    CambiarVars(e, dialogo, "CALL 2");
    EXPECT_FALSE(e.documento.HayCambios());
    CambiarVars(e, dialogo, "CALL TWO");
    EXPECT_TRUE(e.documento.HayCambios());

    SeleccionarDefinicion(e, dialogo, 1);
    p.vista.respuestas = {Respuesta::No, Respuesta::Si, Respuesta::No, Respuesta::Si};
    for (int n = 0; n < 2; ++n) Limpiar(e, dialogo);
    EXPECT_EQ(p.vista.TomarAvisos(), "<387>\r<388> <387>\r<388>");
    EXPECT_THAT(dialogo.ListaDefiniciones, ElementsAre("<163>", "<164>: B2"));
    EXPECT_EQ(dialogo.Vars, "DATA: A.");
    EXPECT_EQ(bapis[0], (FilaDeBAPI{"B2", "CALL TWO"}));
    EXPECT_EQ(bapis[1], (FilaDeBAPI{"", ""}));
    for (const bool hay : {true, false}) {
        Limpiar(e, dialogo);
        EXPECT_EQ(e.documento.HayDefiniciones(), hay);
    }
    EXPECT_EQ(p.vista.TomarAvisos(), "<366> <366>");
}

TEST(DataSource, OpensWithTheTablesOfTheReport) {
    VentanaDePrueba p;
    auto& e = p.ventana;
    const Preferencias preferencias;
    p.Archivo({"A|10", "B"});
    p.Transaccion({"TRANS|T", "P|100", "||F|A", "||G|B"});
    EXPECT_FALSE(AbrirOrigen(e, preferencias));  // a width is missing
    p.PonerArchivo(1, "B|5");
    const auto dialogo = AbrirOrigen(e, preferencias);
    ASSERT_TRUE(dialogo);
    EXPECT_EQ(dialogo->ComboItabs, "ITAB");
    EXPECT_FALSE(e.documento.especificacion.OrigenUsuario || e.documento.HayCambios());
    CambiarOtroOrigen(e, true);
    EXPECT_TRUE(e.documento.HayCambios());

    const std::pair<bool, std::function<void()>> acciones[] = {
        {false, [&] { ClicModeloArchivo(e, preferencias, *dialogo, FuenteDeModelo::Ninguna); }},
        {true, [&] { ClicModeloOpenSQL(e, preferencias, *dialogo); }},
        {false, [&] { EliminarDeOrigen(e, "000"); }},
        {true, [&] { EliminarDeOrigen(e, "001"); }}};
    for (const auto& [cambia, accion] : acciones) {
        const std::string antes = e.documento.especificacion.OrigenSource;
        e.documento.DarPorGuardado();
        accion();
        EXPECT_EQ(e.documento.HayCambios(), cambia);
        EXPECT_EQ(e.documento.especificacion.OrigenSource != antes, cambia);
    }
    EXPECT_EQ(e.documento.especificacion.OrigenSource, "");
    EXPECT_NE(e.documento.especificacion.OrigenVariables, "");
}

}  // namespace
}  // namespace qor
