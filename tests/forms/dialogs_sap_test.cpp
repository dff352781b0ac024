#include <gmock/gmock.h>

#include <QPushButton>
#include <QTableWidget>

#include "app/qt/connection_memory.h"
#include "base/files.h"
#include "dataset/FormBDCEditor.h"
#include "dataset/qt/line_view.h"
#include "sap/FormABAP.h"
#include "sap/FormImport.h"
#include "sap/FormLogon.h"
#include "tests/forms/dialog_fixture.h"
#include "tests/support/scripted_service.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class DialogosDeSAP : public ::testing::Test {
protected:
    VentanaDePrueba prueba;
    DirectorioTemporal directorio;
    std::shared_ptr<Guion> guion = std::make_shared<Guion>();
    SesionSAP sesion = SesionConectada(guion);
};

// ---- FormABAP ----

TEST_F(DialogosDeSAP, ProgramNameIsTheCustomers) {
    FormABAP form(sesion, prueba.textos, prueba.vista, "", nullptr);
    const DialogoAbierto dialogo(form);
    EXPECT_FALSE(dialogo.Habilitado("OK"));
    dialogo.Teclear("NombreABAP", "zo-\"n 1*e");
    guion->Responder({"end"});
    dialogo.Clic("OK");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.NombreElegido(), "ZO_N_1_E");
}

// ---- FormImport ----

std::string Pieza(char etiqueta, const std::string& texto) {
    std::string fila = std::string(1, etiqueta) + ' ' + texto;
    fila.resize(64, ' ');
    return fila;
}

TEST_F(DialogosDeSAP, ImportTakesTheActivatedRow) {
    sesion.DirectorioTemporal = directorio.Ruta().string();
    FormularioImport formulario;
    guion->Responder({"ZMM01       0123456789ABCDEF0123JSMITH      20240131101500100", "end"});
    FormImport form(formulario, sesion, prueba.textos, prueba.vista, nullptr);
    const DialogoAbierto dialogo(form);
    auto* const grilla = dialogo.Control<QTableWidget>("Grilla");
    ASSERT_EQ(grilla->rowCount(), 1);
    const std::vector<std::string> celdas = {"", "100", "ZMM01", "JSMITH", "20240131", "101500", "0123456789ABCDEF0123"};
    for (int c = 0; c < grilla->columnCount(); ++c)
        EXPECT_EQ(grilla->item(0, c)->text().toStdString(), celdas[static_cast<std::size_t>(c)]);
    EXPECT_EQ(grilla->horizontalHeaderItem(6)->text(), QStringLiteral("<234>"));
    guion->Responder({Pieza('1', "RECORD"), Pieza('2', ""), Pieza('3', ""), Pieza('4', ""), Pieza('5', "END"), "end"});
    dialogo.Pulsar("Grilla", Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(LeerArchivo(formulario.ArchivoImportado).substr(0, 6), "RECORD");
}

// ---- FormLogon ----

TEST_F(DialogosDeSAP, LogonIsCompleteByOneOfTwoWays) {
    EleccionDeLogon eleccion;
    auto& parametros = eleccion.parametros;
    parametros.usuario = "SMITH";
    parametros.cliente = "100";
    FormLogon form(eleccion, "", prueba.textos, prueba.vista, nullptr);
    const DialogoAbierto dialogo(form);
    EXPECT_TRUE(dialogo.Control("Clave")->hasFocus()) << "the rest is known";
    dialogo.Teclear("Clave", "pa\"ss");
    dialogo.Teclear("Servidor", "host");
    EXPECT_FALSE(dialogo.Habilitado("OK"));
    dialogo.Teclear("NumeroDeSistema", "001");
    EXPECT_EQ(dialogo.Texto("NumeroDeSistema"), "00");
    EXPECT_TRUE(dialogo.Habilitado("OK"));
    EXPECT_FALSE(dialogo.Habilitado("Grupo"));
    dialogo.Clic("OptionMensajes");
    EXPECT_FALSE(dialogo.Habilitado("OK"));
    EXPECT_FALSE(dialogo.Habilitado("Servidor"));
    dialogo.Teclear("ServidorDeMensajes", " msg ");
    dialogo.Teclear("Sistema", "DEV");
    dialogo.Teclear("Grupo", "SPACE");
    dialogo.Teclear("Idioma", "en");
    dialogo.Clic("Cancel");
    EXPECT_EQ(parametros.servidorDeMensajes + parametros.clave, "") << "the parameters stay as they were";
    form.show();
    dialogo.Clic("OK");
    EXPECT_EQ(parametros.servidor, "");
    EXPECT_EQ(parametros.servidorDeMensajes, "msg");
    EXPECT_EQ(parametros.sistema + parametros.grupo + parametros.cliente + parametros.usuario, "DEVSPACE100SMITH");
    EXPECT_EQ(parametros.clave, "pa\"ss");
    EXPECT_EQ(parametros.idioma, "EN");
}

// The practice system needs nothing; what is known of a real one stays known.
TEST_F(DialogosDeSAP, LogonToThePracticeSystemHasARole) {
    const auto memoria = directorio / "qor-connection.ini";
    EleccionDeLogon eleccion;
    eleccion.rol = "C";
    eleccion.parametros.servidor = "host";
    FormLogon form(eleccion, "", prueba.textos, prueba.vista, nullptr);
    const DialogoAbierto dialogo(form);
    EXPECT_FALSE(dialogo.Habilitado("Rol") || dialogo.Habilitado("OK"));
    dialogo.Clic("OptionPractica");
    EXPECT_FALSE(dialogo.Habilitado("Servidor") || dialogo.Habilitado("Usuario") || dialogo.Habilitado("Ruta"));
    EXPECT_EQ(dialogo.Texto("Rol"), "Customizing");
    dialogo.Pulsar("Rol", 0, QStringLiteral("P"));
    dialogo.Clic("OK");
    RecordarConexion(memoria, eleccion);
    EleccionDeLogon recordada;
    RecuperarConexion(memoria, recordada);
    EXPECT_TRUE(recordada.practica);
    EXPECT_EQ(recordada.parametros.servidor, "host");
    EXPECT_EQ(eleccion.rol, "P");
}

// Nothing is sent shortened: neither by what the code page lacks, nor at the zero at which the library's texts end.
TEST_F(DialogosDeSAP, LogonRefusesWhatCanNotBeSentWhole) {
    EleccionDeLogon eleccion;
    auto& parametros = eleccion.parametros;
    parametros.servidor = "host";
    parametros.numeroDeSistema = "00";
    parametros.cliente = "100";
    parametros.usuario = "SMITH";
    FormLogon form(eleccion, "", prueba.textos, prueba.vista, nullptr);
    const DialogoAbierto dialogo(form);
    dialogo.Control<QLineEdit>("Clave")->setText(QStringLiteral("caf\u00E9\u20AC"));
    const std::pair<const char*, const char*> casos[] = {{"Clave", "Password"},
                                                         {"Usuario", "User"},
                                                         {"Cliente", "Client"},
                                                         {"Idioma", "Language"},
                                                         {"Servidor", "Host"},
                                                         {"Ruta", "SAP router"},
                                                         {"NumeroDeSistema", "System number"}};
    for (const auto& [control, nombre] : casos) {
        auto* const caja = dialogo.Control<QLineEdit>(control);
        const QString antes = caja->text();
        for (const QString& malo : {QString(QChar(0x0416)), QString(QChar(0)), QStringLiteral("\U0001F511")}) {
            caja->setText(malo);
            dialogo.Clic("OK");
            EXPECT_THAT(prueba.vista.TomarAvisos(), StartsWith("The field \"" + std::string(nombre) + "\" holds a character"));
            EXPECT_TRUE(form.isVisible() && caja->hasFocus()) << nombre;
            EXPECT_EQ(parametros.clave, "");
        }
        caja->setText(antes);
    }
    dialogo.Clic("OK");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(parametros.clave, "caf\xE9\x80");
}

TEST_F(DialogosDeSAP, TheLastConnectionIsRememberedWithoutAnyPassword) {
    const auto ruta = directorio / "qor-connection.ini";
    const auto recordada = [&] {
        EleccionDeLogon leida;
        RecuperarConexion(ruta, leida);
        const auto& leidos = leida.parametros;
        return leidos.usuario + "|" + leidos.ruta + "|" + leidos.clave;
    };
    EleccionDeLogon eleccion;
    auto& parametros = eleccion.parametros;
    parametros.usuario = "SM\xCDTH";
    parametros.clave = "secret";
    const std::pair<const char*, bool> casos[] = {
        {"/H/router/S/3299/H/", true}, {"/H/router/W/secret/H/", false}, {"", true},
        {"/h/router/p/secret", false}, {"/H/r1/w/secret/H/r2", false},   {"/H/ /W /secret", false}};
    for (const auto& [router, seRecuerda] : casos) {
        SCOPED_TRACE(router);
        directorio.Escribir("qor-connection.ini", "[General]\nRouter=/H/old/W/secret\nUser=\\x416\\x416\n");
        EXPECT_EQ(recordada(), "|/H/old/W/secret|");
        parametros.ruta = router;
        RecordarConexion(ruta, eleccion);
        EXPECT_EQ(recordada(), "SM\xCDTH|" + std::string(seRecuerda ? router : "") + "|");
        EXPECT_THAT(LeerArchivo(ruta), Not(HasSubstr("secret")));
        EXPECT_EQ(std::filesystem::status(ruta).permissions(), std::filesystem::perms(0600));
    }
}

// ---- FormBDCEditor ----

std::string Registro(const std::string& clase, const std::string& campo, const std::string& valor) {
    std::string linea(40, ' ');
    linea += "0000" + clase + campo;
    linea.resize(177, ' ');
    return linea + valor + "\r\n";
}

class EditorDeDatos : public ::testing::Test {
protected:
    std::string EscribirSesion(int transacciones = 2) {
        std::string texto = Registro("M", "", "");
        for (int n = 0; n < transacciones; ++n) {
            texto += Registro("T", n % 2 == 0 ? "VA01" : "MM01", "") + Registro(" ", "VBAK-AUART", "OR") +
                     Registro(" ", "BDC_OKCODE", "/00");
        }
        return directorio.Escribir("session.txt", texto).string();
    }

    VentanaDePrueba prueba;
    DirectorioTemporal directorio;
};

TEST_F(EditorDeDatos, ReplacesUnderConditions) {
    const std::string ruta = EscribirSesion();
    FormBDCEditor form(prueba.textos, prueba.vista, {}, nullptr);
    const DialogoAbierto dialogo(form);
    form.Abrir(ruta);
    dialogo.Clic("Ejecutar");
    EXPECT_THAT(prueba.vista.TomarAvisos(), HasSubstr("Choose the field")) << "no field is chosen";

    EXPECT_FALSE(dialogo.Habilitado("ValorCampo"));
    dialogo.Clic("OptionValor");
    EXPECT_TRUE(dialogo.Habilitado("ValorCampo"));
    dialogo.Teclear("ValorCampo", "r");
    dialogo.Clic("OptionParte");
    dialogo.Control<QComboBox>("ComboField")->setCurrentIndex(0);
    dialogo.Teclear("NuevoValorCampo", "x");
    dialogo.Control<QComboBox>("TransaccionCombo")->setCurrentIndex(2);
    dialogo.Control<QComboBox>("Campo1Combo")->setCurrentIndex(1);
    dialogo.Control<QComboBox>("Accion1Combo")->setCurrentIndex(1);
    dialogo.Teclear("Valor1Texto", "or");
    dialogo.Teclear("Valor2Texto", "no field");
    prueba.vista.respuestas = {Respuesta::Si};
    dialogo.Clic("Ejecutar");
    EXPECT_EQ(prueba.vista.TomarAvisos(), "<359> <361>");
    EXPECT_EQ(dialogo.Texto("Valor2Texto"), "");
    const std::string texto = LeerArchivo(ruta);
    EXPECT_THAT(texto, HasSubstr(Registro("T", "MM01", "") + Registro(" ", "VBAK-AUART", "Ox")));
    EXPECT_THAT(texto, HasSubstr(Registro("T", "VA01", "") + Registro(" ", "VBAK-AUART", "OR")));
}

TEST_F(EditorDeDatos, ARunIsStoppedByItsButtonAndByClosing) {
    const std::string ruta = EscribirSesion(20000);
    const auto antes = std::filesystem::file_size(ruta);
    FormBDCEditor form(prueba.textos, prueba.vista, {}, nullptr);
    const DialogoAbierto dialogo(form);
    form.Abrir(ruta);
    dialogo.Control<QComboBox>("ComboField")->setCurrentIndex(0);
    dialogo.Teclear("NuevoValorCampo", "LONGER");
    for (const bool conBoton : {true, false}) {
        QTimer::singleShot(0, &form, [&] {
            EXPECT_FALSE(dialogo.Habilitado("Ejecutar"));
            conBoton ? dialogo.Control<QPushButton>("Detener")->click() : form.reject();
        });
        dialogo.Control<QPushButton>("Ejecutar")->click();
        EXPECT_EQ(prueba.vista.TomarAvisos(), "");
        EXPECT_TRUE(form.isVisible());
        EXPECT_TRUE(dialogo.Habilitado("Ejecutar"));
        EXPECT_FALSE(dialogo.Habilitado("Detener"));
    }
    EXPECT_EQ(std::filesystem::file_size(ruta), antes);
    form.reject();
    EXPECT_FALSE(form.isVisible());
}

TEST_F(EditorDeDatos, ShowsTheLinesOfTheFile) {
    FormBDCEditor form(prueba.textos, prueba.vista, {}, nullptr);
    const DialogoAbierto dialogo(form);
    form.Abrir(EscribirSesion(20000));
    prueba.vista.respuestas = {Respuesta::No, Respuesta::Si, Respuesta::No};
    dialogo.Clic("EdicionButton");
    EXPECT_TRUE(dialogo.Visible("FrameManual"));
    EXPECT_FALSE(dialogo.Visible("FrameSeleccionar") || dialogo.Visible("FrameReemplazar"));
    EXPECT_EQ(dialogo.Texto("EdicionButton"), "<206>");
    auto* const lineas = dialogo.Control<VistaDeLineas>("TextoManual");
    for (int i = 0; i < 500 && lineas->Lineas() < 60001; ++i) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(lineas->Lineas(), 60001U);
    dialogo.Pulsar("TextoManual", Qt::Key_Down);
    EXPECT_EQ(dialogo.Texto("PosicionManual"), "Line 2 of 60001");
    lineas->IrALinea(60000);
    ASSERT_FALSE(lineas->Visibles().empty());
    EXPECT_THAT(lineas->Visibles().back(), HasSubstr("BDC_OKCODE"));
    EXPECT_LT(lineas->Visibles().size(), 200U) << "reads what is shown";

    dialogo.Clic("EdicionButton");
    EXPECT_THAT(prueba.vista.TomarAvisos(), HasSubstr("<325>")) << "no text editor here";
    dialogo.Clic("EdicionButton");
    EXPECT_FALSE(dialogo.Visible("FrameManual"));
    EXPECT_EQ(dialogo.Texto("EdicionButton"), "<205>");
}

}  // namespace
}  // namespace qor::pruebas
