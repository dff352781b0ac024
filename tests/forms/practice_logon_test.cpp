#include <gmock/gmock.h>

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "app/qt/sap_actions.h"
#include "tests/forms/dialog_fixture.h"
#include "tests/forms/principal_fixture.h"

namespace qor::pruebas {
namespace {

using ::testing::HasSubstr;

// The program on a machine without a library for connections, and a user with a practice system.
class EntradaEnPractica : public ::testing::Test {
protected:
    EntradaEnPractica() {
        qputenv("XDG_DATA_HOME", datos.Ruta().c_str());
        p.directorio.Escribir("Tessaline.ini", "Language=English\r\nRFC Library=/no/such/library\r\n");
        p.Abrir(ConexionSAP);
    }

    ~EntradaEnPractica() override { qunsetenv("XDG_DATA_HOME"); }

    // What is enabled and shown: first what a real system has too, then what the practice system alone has.
    std::string Estado() const {
        std::string texto;
        for (const char* const nombre : {"ButtonLogon", "ButtonLogoff", "ButtonOnlineSHDB", "ImportTrans", "ImportInfo"}) {
            texto += p.Control(nombre)->isEnabled() ? '1' : '0';
        }
        for (const char* const nombre : {"ConnectionStatus", "Programa"}) texto += p.Control(nombre)->isHidden() ? '0' : '1';
        texto += p.Control<QAction>("KeepRecordingOption")->isEnabled() ? '1' : '0';
        return texto + (p.principal->windowTitle().endsWith("[*]  -  Practice system") ? '1' : '0');
    }

    void Conectar(const std::function<void(const DialogoAbierto&)>& elegir) {
        EnElSiguiente([elegir](const DialogoAbierto& dialogo) {
            elegir(dialogo);
            dialogo.Clic("OK");
        });
        p.Control<QPushButton>("ButtonLogon")->click();
    }

    static void DobleClic(const DialogoAbierto& importar) {
        auto* const grilla = importar.Control<QTableWidget>("Grilla");
        ASSERT_EQ(grilla->rowCount(), 1);
        const QPoint lugar = grilla->visualItemRect(grilla->item(0, 2)).center();
        QTest::mouseClick(grilla->viewport(), Qt::LeftButton, {}, lugar);
        QTest::mouseDClick(grilla->viewport(), Qt::LeftButton, {}, lugar);
    }

    DirectorioTemporal datos;
    ProgramaDePrueba p;
};

TEST_F(EntradaEnPractica, ImportsARecordingThatWasKeptThere) {
    p.principal->ActivarPorPrimeraVez({false, ""});
    EXPECT_EQ(Estado(), "100110100") << "there is nothing to log on to by oneself";
    Conectar([](const DialogoAbierto& dialogo) { dialogo.Clic("OptionPractica"); });
    EXPECT_EQ(Estado(), "011001011");
    EXPECT_EQ(p.Control<QLabel>("ConnectionStatus")->text(), "Connected to client 000 of system PRA - Practice system");
    p.Control<QPushButton>("ButtonOnlineSHDB")->click();
    EXPECT_THAT(p.vista->ultimo, HasSubstr("holds no recording yet"));
    p.vista->archivos = {QOR_TEST_SOURCE_DIR "/examples/recording/zmmrec.txt"};
    p.Control<QAction>("KeepRecordingOption")->trigger();
    EXPECT_THAT(p.vista->ultimo, HasSubstr("zmmrec.txt.\r\nTransactions: 2."));
    p.Control<QAction>("Logoff")->trigger();
    EXPECT_EQ(Estado(), "100110100");

    // The system that was chosen last is offered at the start.
    p.Abrir(ConexionSAP);
    EnElSiguiente([](const DialogoAbierto& dialogo) {
        EXPECT_TRUE(dialogo.Control("OK")->hasFocus());
        EnElSiguiente(DobleClic);
        dialogo.Pulsar("OK", Qt::Key_Return);
    });
    p.principal->ActivarPorPrimeraVez({false, ""});
    EXPECT_EQ(Estado(), "011001011");
    EXPECT_EQ(p.LaVentana().documento.especificacion.TablaTransaccion[0].dynpro, "MM01");
    p.vista->respuestas = {Respuesta::No};
    EXPECT_TRUE(p.principal->close());
    EXPECT_EQ(Estado(), "100110100");
}

TEST_F(EntradaEnPractica, IsNoWayOutWhereALogonFails) {
    const auto archivo = datos.Escribir("qor-generator/practice.sqlite", "no database");
    Conectar([](const DialogoAbierto& dialogo) { dialogo.Clic("OptionPractica"); });
    EXPECT_THAT(p.vista->ultimo,
                HasSubstr("The practice system can't be opened.\r\nIt is no practice system: " + archivo.string()));
    EXPECT_EQ(Estado(), "100110100");
    std::filesystem::remove(archivo);
    Conectar([](const DialogoAbierto& dialogo) {
        dialogo.Clic("OptionServidor");
        for (const char* const caja : {"Servidor", "NumeroDeSistema", "Cliente", "Usuario", "Clave"}) dialogo.Teclear(caja, "1");
    });
    EXPECT_THAT(p.vista->ultimo, HasSubstr("/no/such/library"));
    EXPECT_EQ(Estado(), "100110100");
    EXPECT_FALSE(std::filesystem::exists(archivo));
}

}  // namespace
}  // namespace qor::pruebas
