#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "abap/short_dump.h"
#include "practice/functions.h"
#include "practice/messages.h"
#include "tests/support/practice_fixture.h"
#include "tests/support/recording_surroundings.h"

namespace qor {
namespace {

using pruebas::FilasDe;
using pruebas::LlamadaDePrueba;
using ::testing::ElementsAre;

class SinCola : public ColaDeSesiones {
    std::string Abrir(std::string_view, std::string_view, std::string_view) override { return {}; }
    void Insertar(std::string_view, std::span<const FilaDeBDC>) override {}
    void Cerrar() override {}
    bool Leer(std::string_view, std::string_view, const Registro&) override { return false; }
};

TEST(PracticeFunctions, AreFoundByName) {
    pruebas::OyenteQueApunta oyente;
    pruebas::FalloFijo fallos;
    Grabaciones grabaciones;
    ListasDeValores listas({}, [](const std::string&, const std::string&) {});
    ProbadorDeTransacciones probador(grabaciones, listas, {});
    SinCola cola;
    FuncionesDeSesion sesiones(cola, probador, fallos, oyente);
    CatalogoDeLlamadas catalogo("BAPIDEFS\n1 Thing\n2 Z_IN_CATALOGUE\n3 First line\n3 Second line\n");
    LlamadasDeBapi bapis(catalogo, listas, fallos, oyente);
    NombresDeArchivos archivos({}, {}, oyente);
    abap::BaseDePrueba base;
    FuncionesDePractica funciones(sesiones, bapis, catalogo, archivos, base);
    funciones.AgregarBapi("Z_IN_DOCUMENT");

    for (const char* nombre : {"BAPI_ANY", "/ABC/ANY", "Z_IN_CATALOGUE", "Z_IN_DOCUMENT", "BAPI_TRANSACTION_COMMIT",
                               "BAPI_TRANSACTION_ROLLBACK", "KD_GET_FILENAME_ON_F4"}) {
        EXPECT_EQ(funciones.Llamar(LlamadaDePrueba(nombre).llamada), "") << nombre;
    }
    EXPECT_THAT(oyente.dichos,
                ElementsAre("BAPI_ANY: Transaction was processed", "/ABC/ANY: Transaction was processed",
                            "Z_IN_CATALOGUE: Transaction was processed", "Z_IN_DOCUMENT: Transaction was processed"));
    EXPECT_THAT(base.pedidos, ElementsAre("COMMIT", "ROLLBACK"));
    for (const auto& [nombre, volcado] : {std::pair{"Z_ANY", "CALL_FUNCTION_NOT_FOUND"},
                                          {"/ANY", "CALL_FUNCTION_NOT_FOUND"},
                                          {"GUI_UPLOAD", "CALL_FUNCTION_PARM_MISSING"}}) {
        try {
            funciones.Llamar(LlamadaDePrueba(nombre).llamada);
            ADD_FAILURE() << nombre;
        } catch (const abap::Volcado& fallo) {
            EXPECT_EQ(fallo.Nombre(), volcado);
            EXPECT_THAT(fallo.what(), ::testing::HasSubstr(nombre));
        }
    }

    LlamadaDePrueba mensaje("MESSAGE_PREPARE");
    mensaje.Exporta("MSG_ID", "00   ").Exporta("MSG_NO", "349").Exporta("MSG_VAR1", "A-B  ").Exporta("MSG_VAR2", "P   ");
    mensaje.Importa("MSG_TEXT", std::string(50, '?'));
    EXPECT_EQ(funciones.Llamar(mensaje.llamada), "");
    EXPECT_EQ(SinBlancosDetras(mensaje.Valor("MSG_TEXT")), "Field A-B does not exist in the screen P");
    const std::string variables[] = {"a  ", "", " b  c", ""};
    EXPECT_EQ(TextoDeMensaje("ZZ", "007", variables), "ZZ 007 a b c");
    EXPECT_EQ(TextoDeMensaje("QP", "001", variables), "a b c");

    abap::TablaInterna lineas({abap::Tipo::C, 12, 0, nullptr});
    LlamadaDePrueba texto("DOCU_GET");
    texto.Exporta("ID", "FU").Exporta("OBJECT", "Z_IN_CATALOGUE").ConTabla("LINE", lineas);
    EXPECT_EQ(funciones.Llamar(texto.llamada), "");
    EXPECT_THAT(FilasDe(lineas), ElementsAre("First line  ", "Second line "));
}

}  // namespace
}  // namespace qor
