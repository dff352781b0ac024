#include <gmock/gmock.h>

#include "editor/FormConditions.h"
#include "editor/FormDataSource.h"
#include "editor/FormNotas.h"
#include "editor/FormNuevasVariables.h"
#include "tests/forms/dialog_fixture.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

using ::testing::HasSubstr;

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

TEST_F(Dialogos, StepLoopIsRefusedUntilItIsComplete) {
    FormNotas form(ventana, {Tabla::Transaccion, 3}, sinAyuda, nullptr);
    const DialogoAbierto dialogo(form);
    dialogo.Teclear("NotaCampo", "It\"e!ms");
    dialogo.Clic("Steploop");
    dialogo.Clic("AvanceOpt");
    form.reject();  // closing in whatever way stores, or refuses
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<352>");
    EXPECT_TRUE(form.isVisible());
    dialogo.Teclear("Filas", "1x23");
    prueba.vista.archivos = {"/in/items.txt"};
    dialogo.Clic("ExaminarStep");
    dialogo.Teclear("Descripcion", " lines ");
    dialogo.Clic("Pos2");
    dialogo.Control<QListWidget>("ListaCampos")->item(0)->setSelected(true);
    dialogo.Clic("Command1");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(Nota(3), "Items!1 1!2/in/items.txt!30!4LINES!50!612!7,KUNNR");
}

// ---- FormConditions ----

TEST_F(Dialogos, ConditionsAreAddedShownAndDeleted) {
    auto& tabla = ventana.documento.especificacion.TablaCondiciones;
    FormConditions form(ventana, sinAyuda, nullptr);
    const DialogoAbierto dialogo(form);
    for (const char* const nombre : {"one", "two"}) {
        dialogo.Teclear("Nuevo", nombre);
        dialogo.Clic("Agregar");
        dialogo.Teclear("Condicional", "IF X.\nENDIF.");
    }
    EXPECT_EQ(tabla[1], (FilaDeCondicion{"TWO", "IF X.\r\nENDIF."}));
    // Showing another condition is no change of it.
    ventana.documento.DarPorGuardado();
    dialogo.Control<QListWidget>("ListaCondiciones")->setCurrentRow(0);
    EXPECT_FALSE(ventana.documento.HayCambios());
    dialogo.Clic("Borrar");
    EXPECT_EQ(tabla[0].nombre, "TWO");
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

    prueba.vista.respuestas = {Respuesta::Si};
    lista->setCurrentRow(1);
    dialogo.Clic("Limpiar");
    EXPECT_EQ(especificacion.TablaBAPIs[0].nombre, "BAPI_TWO");
    EXPECT_EQ(lista->count(), 2);
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

}  // namespace
}  // namespace qor::pruebas
