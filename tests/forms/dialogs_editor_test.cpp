#include <gmock/gmock.h>

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

#include "editor/FormABAPWindow.h"
#include "editor/FormConditions.h"
#include "editor/FormConsultaOrigen.h"
#include "editor/FormConsultadeEliminar.h"
#include "editor/FormDataSource.h"
#include "editor/FormNotas.h"
#include "editor/FormNuevasVariables.h"
#include "tests/forms/dialog_fixture.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const AbrirAyuda sinAyuda;

class Dialogos : public ::testing::Test {
protected:
    Dialogos() {
        prueba.Archivo({"KUNNR|10|A note", "MATNR|18"});
        prueba.Transaccion({"TRANS|VA01", "SAPMV45A|4001", "||VBKD-BSTKD|KUNNR", "||RV45A-MABNR(1)|MATNR"});
        ventana.documento.DarPorGuardado();
    }

    std::string Nota(int fila) const { return ventana.documento.especificacion.TablaTransaccion[fila].nota; }

    VentanaDePrueba prueba;
    Ventana& ventana = prueba.ventana;
};

// ---- FormNotas ----

TEST_F(Dialogos, NoteHasTheShapeOfItsRow) {
    struct Caso {
        FilaDeTabla fila;
        std::string marcas;
        bool cabeza;  // the box "head of a step-loop" is offered
        bool lista;   // the step-loop's part is seen
        bool filas;   // so is the number of rows per screen
    };
    for (const auto& caso :
         {Caso{{Tabla::Archivo, 0}, "", false, false, false}, Caso{{Tabla::Transaccion, 2}, "", false, false, false},
          Caso{{Tabla::Transaccion, 3}, "", true, false, false},
          Caso{{Tabla::Transaccion, 3}, "!1 1!2F.TXT!31!4!51!6!7,MATNR", true, true, false},
          Caso{{Tabla::Transaccion, 3}, "!1 1!2F.TXT!30!4!51!65!7,MATNR", true, true, true}}) {
        ventana.documento.especificacion.TablaTransaccion[3].nota = caso.marcas;
        FormNotas form(ventana, caso.fila, sinAyuda, nullptr);
        const DialogoAbierto dialogo(form);
        SCOPED_TRACE(caso.marcas);
        EXPECT_EQ(dialogo.Visible("Steploop"), caso.cabeza);
        for (const char* const nombre :
             {"ListaCampos", "NombreArchivo", "ExaminarStep", "Descripcion", "FrameParametros", "ModoFrame"}) {
            EXPECT_EQ(dialogo.Visible(nombre), caso.lista) << nombre;
        }
        EXPECT_EQ(dialogo.Visible("Filas"), caso.filas);
    }
}

TEST_F(Dialogos, NoteOfAFileRowIsOneLineWithoutQuotesAndMarks) {
    FormNotas form(ventana, {Tabla::Archivo, 0}, sinAyuda, nullptr);
    const DialogoAbierto dialogo(form);
    dialogo.Vaciar("NotaCampo");
    dialogo.Teclear("NotaCampo", "a\"b!c\nd");
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<354>");
    form.reject();  // closing in whatever way stores
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(prueba.FilaArchivo(0), "KUNNR|10|abcd");
    EXPECT_TRUE(ventana.documento.HayCambios());
}

TEST_F(Dialogos, StepLoopIsRefusedUntilItIsComplete) {
    FormNotas form(ventana, {Tabla::Transaccion, 3}, sinAyuda, nullptr);
    const DialogoAbierto dialogo(form);
    dialogo.Teclear("NotaCampo", "Items");
    dialogo.Clic("Steploop");
    dialogo.Clic("AvanceOpt");
    dialogo.Clic("Command1");
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<352>");
    dialogo.Teclear("Filas", "1x23");
    EXPECT_EQ(dialogo.Texto("Filas"), "12");
    dialogo.Clic("Command1");
    EXPECT_THAT(prueba.vista.TomarAvisos(), StartsWith("<353>"));
    EXPECT_THAT(prueba.vista.focos, ElementsAre("Filas", "ListaCampos"));
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Nota(3), "");

    prueba.vista.archivos = {"/in/items.txt"};
    dialogo.Clic("ExaminarStep");
    dialogo.Teclear("Descripcion", " lines ");
    dialogo.Clic("Pos2");
    dialogo.Control<QListWidget>("ListaCampos")->item(0)->setSelected(true);
    dialogo.Clic("Command1");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(Nota(3), "Items!1 1!2/in/items.txt!30!4LINES!50!612!7,KUNNR");
}

TEST_F(Dialogos, NoteWithMarksInDisorderIsNotOpened) {
    ventana.documento.especificacion.TablaTransaccion[3].nota = "a!2b!1 1";
    EXPECT_ANY_THROW(FormNotas(ventana, {Tabla::Transaccion, 3}, sinAyuda, nullptr));
}

// ---- FormConditions ----

TEST_F(Dialogos, ConditionsAreAddedShownAndDeleted) {
    auto& tabla = ventana.documento.especificacion.TablaCondiciones;
    FormConditions form(ventana, sinAyuda, nullptr);
    const DialogoAbierto dialogo(form);
    dialogo.Teclear("Condicional", "x");
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<358>");
    EXPECT_EQ(dialogo.Texto("Condicional"), "");

    dialogo.Control("Nuevo")->setFocus();
    EXPECT_TRUE(dialogo.Control<QPushButton>("Agregar")->isDefault());
    dialogo.Teclear("Nuevo", "one");
    dialogo.Clic("Agregar");
    dialogo.Teclear("Condicional", "IF X.\nENDIF.");
    EXPECT_EQ(tabla[0].nombre, "ONE");
    EXPECT_EQ(tabla[0].texto, "IF X.\r\nENDIF.");
    dialogo.Teclear("Nuevo", "two");
    dialogo.Clic("Agregar");
    dialogo.Teclear("Nuevo", "ONE");
    dialogo.Clic("Agregar");
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<357>");
    EXPECT_THAT(prueba.vista.focos, ElementsAre("Condicional", "Condicional", "Nuevo"));

    // Showing another condition is no change of it.
    ventana.documento.DarPorGuardado();
    dialogo.Control<QListWidget>("ListaCondiciones")->setCurrentRow(0);
    EXPECT_EQ(dialogo.Texto("Condicional"), "IF X.\r\nENDIF.");
    EXPECT_FALSE(ventana.documento.HayCambios());

    dialogo.Clic("Borrar");
    EXPECT_EQ(dialogo.Control<QListWidget>("ListaCondiciones")->count(), 1);
    EXPECT_EQ(dialogo.Texto("Condicional"), "");
    EXPECT_EQ(tabla[0].nombre, "TWO");
    dialogo.Clic("OK");
    EXPECT_FALSE(form.isVisible());
}

// ---- ABAPWindow ----

TEST_F(Dialogos, FormulasStackInFrontOfTheCode) {
    prueba.Transaccion({"TRANS|VA01"});
    DirectorioTemporal directorio;
    directorio.Escribir("formulas.txt", "[First]\r\nA = !.\r\n[Second]\r\nB = !.\r\n");
    FormABAPWindow form(ventana, 0, directorio.Ruta(), sinAyuda, nullptr);
    const DialogoAbierto dialogo(form);
    auto* const combo = dialogo.Control<QComboBox>("FormulaCombo");
    dialogo.Clic("Aplicar");
    EXPECT_EQ(dialogo.Texto("ABAPText"), "");
    for (const int formula : {0, 1}) {
        combo->setCurrentIndex(formula);
        dialogo.Clic("Aplicar");
        EXPECT_EQ(combo->currentIndex(), -1) << "back at rest";
    }
    dialogo.Clic("Command1");
    EXPECT_EQ(ventana.documento.especificacion.TablaArchivo[0].conversion, "* Second\r\nB = #KUNNR.\r\n* First\r\nA = #KUNNR.\r\n");
    EXPECT_TRUE(ventana.documento.HayCambios());
}

TEST_F(Dialogos, CodeIsOfferedWithoutFormulasAndRefusedWhenTooLong) {
    FormABAPWindow form(ventana, 0, "/nowhere", sinAyuda, nullptr);
    EXPECT_THAT(prueba.vista.TomarAvisos(), HasSubstr("<356>"));
    const DialogoAbierto dialogo(form);
    dialogo.Control<QPlainTextEdit>("ABAPText")->setPlainText(QString(600, QLatin1Char('\n')) + "X");
    dialogo.Clic("Command1");
    EXPECT_TRUE(form.isVisible());
    dialogo.Vaciar("ABAPText");
    form.reject();
    EXPECT_FALSE(form.isVisible());
    EXPECT_FALSE(ventana.documento.HayCambios());
}

// ---- FormNuevasVariables ----

TEST_F(Dialogos, DefinitionsAreEditedInsertedAndRemoved) {
    auto& especificacion = ventana.documento.especificacion;
    especificacion.TablaBAPIs[0] = {"BAPI_ONE", "CALL ONE."};
    int abierto = 0;
    const auto navegador = [&](QWidget*) {
        ++abierto;
        especificacion.TablaBAPIs[1] = {"BAPI_TWO", "CALL TWO."};
    };
    FormNuevasVariables form(ventana, navegador, sinAyuda, nullptr);
    const DialogoAbierto dialogo(form);
    auto* const lista = dialogo.Control<QListWidget>("ListaDefiniciones");
    dialogo.Teclear("Vars", "DATA: \"X.");
    EXPECT_EQ(especificacion.VariablesGlobales, "DATA: X.");
    ventana.documento.DarPorGuardado();
    lista->setCurrentRow(1);
    EXPECT_EQ(dialogo.Texto("Vars"), "CALL ONE.");
    EXPECT_FALSE(ventana.documento.HayCambios());
    dialogo.Clic("InsertBAPIButton");
    EXPECT_EQ(abierto, 1);
    EXPECT_EQ(lista->count(), 3);
    EXPECT_EQ(lista->currentRow(), 0);
    EXPECT_EQ(dialogo.Texto("Vars"), "DATA: X.");

    prueba.vista.respuestas = {Respuesta::No, Respuesta::Si, Respuesta::Si};
    dialogo.Clic("Limpiar");
    EXPECT_EQ(especificacion.VariablesGlobales, "DATA: X.");
    lista->setCurrentRow(1);
    dialogo.Clic("Limpiar");
    EXPECT_EQ(especificacion.TablaBAPIs[0].nombre, "BAPI_TWO");
    EXPECT_EQ(lista->count(), 2);
    EXPECT_EQ(lista->currentRow(), 0);
    dialogo.Clic("Limpiar");
    EXPECT_EQ(especificacion.VariablesGlobales, "");
}

// ---- FormDataSource ----

class OrigenDeDatos : public Dialogos {
protected:
    OrigenDeDatos() : estado(AbrirOrigen(ventana, preferencias).value()) {}

    Preferencias preferencias;
    DialogoDeOrigen estado;
};

TEST_F(OrigenDeDatos, IsEditedOnlyWhileItIsOn) {
    std::string mostrado;
    FormDataSource form(
        ventana, preferencias, estado, [&](const std::string& texto, QWidget*) { mostrado = texto; }, sinAyuda, nullptr);
    const DialogoAbierto dialogo(form);
    const std::vector<const char*> nombres = {"Variables",       "Forms",         "Source",        "ComboItabs", "ModeloArchivo",
                                              "ModeloSQLNativo", "ModeloOpenSQL", "PreviewButton", "Eliminar"};
    for (const char* const nombre : nombres) EXPECT_FALSE(dialogo.Habilitado(nombre)) << nombre;
    dialogo.Clic("CheckOtroOrigen");
    EXPECT_TRUE(ventana.documento.especificacion.OrigenUsuario);
    for (const char* const nombre : nombres) EXPECT_TRUE(dialogo.Habilitado(nombre)) << nombre;
    EXPECT_EQ(dialogo.Texto("ComboItabs"), "ITAB");
    dialogo.Teclear("Source", "A.\"");
    EXPECT_EQ(ventana.documento.especificacion.OrigenSource, "A.");
    dialogo.Clic("PreviewButton");
    EXPECT_THAT(mostrado, HasSubstr("BEGIN OF ITAB"));
    dialogo.Clic("ModeloOpenSQL");
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<364>");
    EXPECT_THAT(dialogo.Texto("Source"), HasSubstr("FROM YOURTABLE"));
    EXPECT_EQ(dialogo.Texto("Source"), ventana.documento.especificacion.OrigenSource);
}

TEST_F(OrigenDeDatos, AsksForTheKindOfFileAndForWhatToClear) {
    ventana.documento.especificacion.OrigenUsuario = true;
    FormDataSource form(ventana, preferencias, estado, {}, sinAyuda, nullptr);
    const DialogoAbierto dialogo(form);
    EnElSiguiente([](const DialogoAbierto& consulta) { consulta.Pulsar("OKButton", Qt::Key_Escape); });
    dialogo.Clic("ModeloArchivo");
    EXPECT_EQ(dialogo.Texto("Forms"), "") << "closed without an answer";
    EnElSiguiente([](const DialogoAbierto& consulta) {
        consulta.Clic("ServerOp");
        consulta.Clic("OKButton");
    });
    dialogo.Clic("ModeloArchivo");
    EXPECT_THAT(dialogo.Texto("Forms"), HasSubstr("READFILE_SERVER"));

    const std::string rutinas = dialogo.Texto("Forms");
    EnElSiguiente([](const DialogoAbierto& consulta) {
        consulta.Clic("CheckUsuario");
        consulta.Clic("OKButton");
    });
    dialogo.Clic("Eliminar");
    EXPECT_EQ(dialogo.Texto("Source"), "");
    EXPECT_EQ(dialogo.Texto("Forms"), rutinas);
    EXPECT_EQ(ventana.documento.especificacion.OrigenSource, "");
}

TEST(Consultas, AnswerOnlyBehindTheirButton) {
    const TextosIdioma textos;
    struct Caso {
        const char* opcion;
        FuenteDeModelo fuente;
    };
    for (const auto& [opcion, fuente] :
         {Caso{"ClientFlatOp", FuenteDeModelo::ClientFlat}, Caso{"ClientTabOp", FuenteDeModelo::ClientTab},
          Caso{"ServerOp", FuenteDeModelo::Server}}) {
        FormConsultaOrigen form(textos, nullptr);
        const DialogoAbierto dialogo(form);
        dialogo.Clic(opcion);
        EXPECT_EQ(form.Fuente(), FuenteDeModelo::Ninguna);
        dialogo.Clic("OKButton");
        EXPECT_EQ(form.Fuente(), fuente) << opcion;
    }
    FormConsultadeEliminar form(textos, nullptr);
    const DialogoAbierto dialogo(form);
    dialogo.Clic("CheckVariables");
    dialogo.Clic("CheckUsuario");
    EXPECT_EQ(form.Eleccion(), "000");
    dialogo.Clic("OKButton");
    EXPECT_EQ(form.Eleccion(), "101");
}

}  // namespace
}  // namespace qor::pruebas
