#include <gmock/gmock.h>
#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "sap/queue_choice.h"
#include "sap/session.h"
#include "sap/temporary_file.h"
#include "tests/support/environment.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/scripted_service.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/window_fixture.h"

namespace qor {
namespace {

using pruebas::DirectorioTemporal;
using pruebas::Guion;
using pruebas::PonerVariable;
using pruebas::SesionConectada;
using pruebas::SesionDeGuion;
using pruebas::VentanaDePrueba;
using testing::ElementsAre;

constexpr const char* avisoModulo = "Invalid RFC Function module. Click Help / Contents > Troubleshooting.";

// A logon with its surroundings.
struct Logon {
    std::shared_ptr<Guion> guion = std::make_shared<Guion>();
    SesionSAP sesion = SesionDeGuion(guion);
    OpcionesDeLogon opciones;
    Preferencias preferencias;
    VentanaDePrueba prueba;

    bool Entrar() { return Logon_Click(sesion, opciones, preferencias, prueba.textos, prueba.vista); }
};

TEST(Session, ALogonReadsRoleAndReleaseThroughTheStandardModule) {
    Logon logon;
    logon.guion->Responder({"T", "DEV", " 46C "});
    ASSERT_TRUE(logon.Entrar());
    EXPECT_THAT(logon.guion->TomarConversacion(),
                ElementsAre("Logon", "Add RFC_ABAP_INSTALL_AND_RUN", "MODE = F", "PROGRAM < inf001", "Call"));
    EXPECT_EQ(logon.sesion.RolSistema, "T");
    EXPECT_EQ(logon.sesion.VersionSistema, "46C");
    EXPECT_EQ(logon.sesion.ConnectionStatus, "<407> 100 <408> DEV");
    EXPECT_TRUE(logon.sesion.Conectado);

    // A second logon replaces the first.
    logon.guion->Responder(std::vector<std::string>{});
    ASSERT_TRUE(logon.Entrar());
    EXPECT_THAT(logon.guion->TomarConversacion(),
                ElementsAre("Logoff", "Logon", "Add RFC_ABAP_INSTALL_AND_RUN", "MODE = F", "PROGRAM < inf001", "Call"));
    EXPECT_EQ(logon.sesion.RolSistema + logon.sesion.VersionSistema, "");

    Logoff_Click(logon.sesion);
    Logoff_Click(logon.sesion);
    EXPECT_THAT(logon.guion->TomarConversacion(), ElementsAre("Logoff"));
    EXPECT_EQ(logon.sesion.ConnectionStatus, "Not connected");
    EXPECT_EQ(logon.sesion.SesionRFC, nullptr);
    EXPECT_EQ(logon.prueba.vista.TomarAvisos(), "");
}

TEST(Session, ARefusedLogonIsToldWhenTheUserWantsIt) {
    struct Caso {
        const char* fallaEn;
        bool logon;
        bool chequear;
        bool avisa;
    };
    const Caso casos[] = {{"Create", true, true, true},
                          {"Logon", true, true, true},
                          {"Logon", true, false, false},
                          {"", false, true, false}};  // the user backed out
    for (const auto& caso : casos) {
        Logon logon;
        logon.guion->fallaEn = caso.fallaEn;
        logon.guion->logon = caso.logon;
        logon.opciones.ChequearErroresLogon = caso.chequear;
        logon.sesion.RolSistema = "T";
        EXPECT_FALSE(logon.Entrar());
        const std::string aviso = logon.prueba.vista.TomarAvisos();
        EXPECT_EQ(!aviso.empty(), caso.avisa) << caso.fallaEn;
        if (caso.avisa) EXPECT_TRUE(aviso.ends_with(std::string("\r\nbroken at ") + caso.fallaEn)) << aviso;
        EXPECT_FALSE(logon.sesion.Conectado);
        EXPECT_EQ(logon.sesion.SesionRFC, nullptr);
        EXPECT_EQ(logon.sesion.RolSistema, "");
    }
}

TEST(Session, TheReleaseSetsTheEncoding) {
    const char* const casos[][3] = {{"46C", "ENCODING DEFAULT.", "NONE"},
                                    {"46C", "IN LEGACY TEXT MODE", "NONE"},
                                    {"", "ENCODING DEFAULT.", "NONE"},
                                    {"470", "NONE", "ENCODING DEFAULT."},
                                    {"620", "NONE", "ENCODING DEFAULT."},
                                    {"470", "IN LEGACY TEXT MODE", "IN LEGACY TEXT MODE"},
                                    {"700", "ENCODING NON-UNICODE.", "ENCODING NON-UNICODE."}};
    for (const auto& [version, antes, despues] : casos) {
        Logon logon;
        logon.preferencias.AdicionesDataset = antes;
        logon.guion->Responder({"T", "DEV", version});
        EXPECT_TRUE(logon.Entrar());
        EXPECT_EQ(logon.preferencias.AdicionesDataset, despues) << version;
    }
    Logon sinDatos;  // the report fails: the logon stands, the choice stays
    sinDatos.guion->Fallar();
    EXPECT_TRUE(sinDatos.Entrar());
    EXPECT_EQ(sinDatos.preferencias.AdicionesDataset, "ENCODING DEFAULT.");
}

// ---- The customer's own module ----

const std::vector<std::string> fuenteEstandar = {"FUNCTION RFC_ABAP_INSTALL_AND_RUN.", "*\"  a comment", "  IF MODE = 'F'.",
                                                 "    PERFORM RUN.  \" it runs",       "  ENDIF.",       "ENDFUNCTION."};

struct Copia {
    const char* que;
    std::vector<std::string> fuente;
    bool aceptada;
};

TEST(Session, ACopyOfTheModuleMayDifferInItsAuthorityCheckOnly) {
    const Copia casos[] = {
        {"the same", fuenteEstandar, true},
        {"name, case, indentation, comments",
         {"function z_run.", "* mine", "if mode = 'f'.", "perform run.", "endif.", "the last row is never looked at"},
         true},
        {"an authority check and what wraps it",
         {"FUNCTION Z_RUN.", "authority-check object 'S_ADMI_FCD'", "  ID 'X' FIELD 'Y'.", "IF SY-SUBRC <> 0.", "MESSAGE E001.",
          "ENDIF.", "IF SY-SUBRC NE 0.", "ENDIF.", "IF MODE = 'F'.", "PERFORM RUN.", ""},
         true},
        {"an authority check without an end takes the rest",
         {"IF MODE = 'F'.", "PERFORM RUN.", "AUTHORITY-CHECK OBJECT 'X'", "DELETE FROM MARA", ""},
         true},
        {"a statement more", {"IF MODE = 'F'.", "PERFORM RUN.", "PERFORM MORE.", ""}, false},
        {"a statement less", {"IF MODE = 'F'.", ""}, false},
        {"one row is none", {"IF MODE = 'F'."}, false},
        {"empty", {}, false},
    };
    for (const auto& caso : casos) {
        Logon logon;
        logon.sesion.nombres.ModuloRFCPropio = "Z_RUN";
        logon.guion->llamadas.emplace_back(Guion::Lista{{{"Z_RUN", " ZFUN "}}});
        logon.guion->Fallar();                // reader B gives nothing
        logon.guion->Responder(caso.fuente);  // reader A does
        if (caso.fuente.size() > 1) logon.guion->Responder(fuenteEstandar);
        logon.guion->Responder({"T", "DEV", "46C"});
        const bool entrada = logon.Entrar();
        EXPECT_EQ(entrada, caso.aceptada) << caso.que;
        EXPECT_EQ(logon.prueba.vista.TomarAvisos(), caso.aceptada ? "" : avisoModulo) << caso.que;
        if (caso.aceptada) EXPECT_EQ(logon.sesion.ModuloRFC, "Z_RUN");
        // A module that is refused closes the session at once.
        if (!caso.aceptada) EXPECT_EQ(logon.guion->conversacion.back(), "Logoff") << caso.que;
        EXPECT_EQ(logon.sesion.SesionRFC != nullptr, caso.aceptada);
    }
}

TEST(Session, TheCopyIsReadByTheSecondReaderFirst) {
    Logon logon;
    logon.sesion.nombres.ModuloRFCPropio = "Z_RUN";
    logon.guion->llamadas.emplace_back(Guion::Lista{{{"Z_RUN", "ZFUN"}}});
    logon.guion->Responder({"X.", ""});
    logon.guion->Responder({"* nothing but comments", ""});
    logon.guion->Responder({"X.", ""});
    logon.guion->Fallar();
    EXPECT_TRUE(logon.Entrar());
    EXPECT_THAT(
        logon.guion->TomarConversacion(),
        ElementsAre("Logon", "Add RFC_FUNCTION_SEARCH", "FUNCNAME = Z_RUN", "Call", "Add RFC_READ_DEVELOPMENT_OBJECT",
                    "PROGRAM = LZFUNU01", "Call", "Add RFC_READ_DEVELOPMENT_OBJECT", "PROGRAM = LSUTLU01", "Call",
                    "Add RFC_READ_REPORT", "PROGRAM = LSUTLU01", "Call", "Add Z_RUN", "MODE = F", "PROGRAM < inf001", "Call"));
}

// ---- Failures and lost connections ----

constexpr const char* perdida = "The connection to the SAP system is lost. Please log on again.";

TEST(Session, ABrokenOperationIsAFailedReadAndALostConnectionTheEndOfTheSession) {
    for (const char* paso : {"Ping", "Add", "Exports", "Tables", "FreeTable", "Data", "Call", "RowCount", "Value"}) {
        for (const bool abierta : {true, false}) {
            const auto guion = std::make_shared<Guion>();
            SesionSAP sesion = SesionConectada(guion);
            guion->Responder({"T", "DEV", "46C"});
            guion->fallaEn = paso;
            guion->abierta = abierta;
            sesion.ConnectionStatus = "connected";
            EXPECT_FALSE(RecuperarDatosSistema(sesion)) << paso;
            EXPECT_EQ(sesion.RolSistema + sesion.VersionSistema, "") << paso;
            EXPECT_EQ(sesion.Motivo, std::string("broken at ") + paso + (abierta ? "" : std::string("\r\n") + perdida));
            EXPECT_EQ(sesion.Conectado, abierta);
            EXPECT_EQ(sesion.ConnectionStatus == "Not connected", !abierta);
            guion->fallaEn = "Logoff";
            Logoff_Click(sesion);
            EXPECT_EQ(sesion.SesionRFC, nullptr);
        }
    }
}

TEST(Session, AConnectionThatIsLostOverTheLogonIsNoLogon) {
    for (const char* modulo : {"", "Z_RUN"}) {
        Logon logon;
        logon.sesion.nombres.ModuloRFCPropio = modulo;
        logon.guion->abierta = false;  // the first call fails
        EXPECT_FALSE(logon.Entrar());
        EXPECT_FALSE(logon.sesion.Conectado);
        EXPECT_TRUE(logon.prueba.vista.TomarAvisos().ends_with(perdida));
    }
}

// The dialog of the queues closes without a word when an entry can't be had; only a lost connection is told.
TEST(Session, AConnectionThatIsLostOverAnEntryIsTold) {
    const auto guion = std::make_shared<Guion>();
    SesionSAP sesion = SesionConectada(guion);
    VentanaDePrueba prueba;
    FormularioImport formulario;
    guion->abierta = false;
    ActivarFila(formulario, "Q1", sesion, prueba.vista);
    EXPECT_EQ(prueba.vista.TomarAvisos(), perdida);
}

// ---- Files of a moment ----

#ifndef LEFT_OUT_Session_FilesOfAMomentAreTheUsersAlone
mode_t Modo(const std::filesystem::path& ruta) {
    struct stat estado {};
    EXPECT_EQ(::lstat(ruta.c_str(), &estado), 0) << ruta;
    return estado.st_mode & 07777;
}

TEST(Session, FilesOfAMomentAreTheUsersAlone) {
    const DirectorioTemporal privado;
    const DirectorioTemporal abierto;
    std::filesystem::permissions(abierto.Ruta(), std::filesystem::perms(0755));
    const mode_t mascara = ::umask(0);
    for (const auto& deEjecucion : {privado.Ruta(), abierto.Ruta(), privado / "absent", std::filesystem::path("relative")}) {
        SCOPED_TRACE(deEjecucion);
        PonerVariable("XDG_RUNTIME_DIR", deEjecucion.string());
        const bool sirve = deEjecucion == privado.Ruta();
        std::filesystem::path directorio;
        {
            SesionSAP sesion;
            const auto uno = CrearTemporal(sesion);
            const auto otro = CrearTemporal(sesion);
            EXPECT_NE(uno, otro);
            directorio = uno.parent_path();
            EXPECT_EQ(directorio == privado.Ruta(), sirve);
            EXPECT_EQ(Modo(directorio), 0700U);
            for (const auto& ruta : {uno, otro}) {
                EXPECT_EQ(ruta.extension(), ".tmp");
                EXPECT_EQ(Modo(ruta), 0600U);
                BorrarTemporal(ruta);
            }
        }
        EXPECT_EQ(std::filesystem::exists(directorio), sirve);  // one of its own goes with the session
    }
    ::umask(mascara);
    PonerVariable("XDG_RUNTIME_DIR", "");
    SesionSAP sinLugar;
    sinLugar.DirectorioTemporal = "/nowhere";
    EXPECT_EQ(CrearTemporal(sinLugar), "");
}
#endif

}  // namespace
}  // namespace qor
