#include "sap/nwrfc_service.h"

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sap/remote_reports.h"
#include "sap/utf16.h"
#include "tests/nwrfc/standin.h"

namespace qor {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

template <typename Funcion>
Funcion* DelSustituto(const char* nombre) {
    return reinterpret_cast<Funcion*>(::dlsym(::dlopen(QOR_TEST_NWRFC, RTLD_NOW), nombre));
}

int ConexionesAbiertas() { return DelSustituto<StandInConexiones>("ConexionesAbiertas")(); }
int FuncionesVivas() { return DelSustituto<StandInFunciones>("FuncionesVivas")(); }
std::string UltimosParametros() { return DesdeUtf16(DelSustituto<StandInParametros>("UltimosParametros")()); }

void Llenar(ParametrosDeLogon& parametros) {
    parametros.servidor = "host";
    parametros.numeroDeSistema = "00";
    parametros.cliente = "100";
    parametros.usuario = "SMITH";
    parametros.clave = "right";
}

std::unique_ptr<ServicioRFC> Conectado(int segundos = 0) {
    auto servicio = CrearServicioNWRFC({QOR_TEST_NWRFC, segundos}, [](ParametrosDeLogon& parametros) {
        Llenar(parametros);
        return true;
    });
    EXPECT_TRUE(servicio->Connection().Logon(false));
    return servicio;
}

// Runs a report and answers its list; the session's `Motivo` is put into `motivo`.
std::optional<FilasDeLista> Correr(std::unique_ptr<ServicioRFC> servicio, const LineasABAP& reporte, std::string& motivo) {
    SesionSAP sesion;
    sesion.SesionRFC = std::move(servicio);
    sesion.ModuloRFC = "RFC_ABAP_INSTALL_AND_RUN";
    auto filas = EjecutarReporte(sesion, reporte);
    motivo = sesion.Motivo;
    EXPECT_EQ(FuncionesVivas(), 0);
    return filas;
}

std::string FalloAlCrear(const char* ruta) {
    try {
        CrearServicioNWRFC({ruta, 0}, [](ParametrosDeLogon&) { return true; });
        return "";
    } catch (const FalloDelServicio& fallo) {
        return fallo.what();
    }
}

TEST(NwrfcService, ALibraryThatIsMissingOrTooOldIsTold) {
    EXPECT_THAT(FalloAlCrear("/nowhere/libsapnwrfc.so"),
                testing::AllOf(HasSubstr("library can't be loaded"), HasSubstr("/nowhere/libsapnwrfc.so")));
    EXPECT_EQ(FalloAlCrear(QOR_TEST_NWRFC_OLD),
              "The SAP NetWeaver RFC library (version 7500.0.1) has no function RfcInvoke. Please install a newer release of it.");
    EXPECT_EQ(FalloAlCrear(QOR_TEST_NWRFC), "");
}

TEST(NwrfcService, ALogonSendsWhatWasFilledIn) {
    struct Caso {
        std::function<void(ParametrosDeLogon&)> llenar;
        std::string parametros;
        std::string fallo;
    };
    const Caso casos[] = {
        {Llenar, "ASHOST=host;SYSNR=00;CLIENT=100;USER=SMITH;PASSWD=right;", ""},
        {[](ParametrosDeLogon& p) {
             Llenar(p);
             p.servidor.clear();
             p.servidorDeMensajes = "msg";
             p.sistema = "PRD";
             p.grupo = "SPACE";
             p.idioma = "EN";
             p.ruta = "/H/router/S/3299";
         },
         "MSHOST=msg;R3NAME=PRD;GROUP=SPACE;CLIENT=100;USER=SMITH;LANG=EN;SAPROUTER=/H/router/S/3299;PASSWD=right;", ""},
        {[](ParametrosDeLogon& p) {
             Llenar(p);
             p.clave = "wr\xF3ng\x80";
         },
         "ASHOST=host;SYSNR=00;CLIENT=100;USER=SMITH;PASSWD=wr\xF3ng\x80;",
         "RFC_LOGON_FAILURE: Name or password is incorrect (caf\xE9 \x80 #)"},
        {[](ParametrosDeLogon& p) {
             Llenar(p);
             p.servidor = "down";
         },
         "ASHOST=down;SYSNR=00;CLIENT=100;USER=SMITH;PASSWD=right;", "RFC_COMMUNICATION_FAILURE: partner 'down' not reached"},
    };
    for (const auto& caso : casos) {
        const auto servicio = CrearServicioNWRFC({QOR_TEST_NWRFC, 0}, [&](ParametrosDeLogon& parametros) {
            caso.llenar(parametros);
            return true;
        });
        std::string fallo;
        try {
            EXPECT_TRUE(servicio->Connection().Logon(false));
            EXPECT_TRUE(servicio->Connection().Logon(true));
            EXPECT_EQ(servicio->Connection().Client() + servicio->Connection().System(), "100DEV");
            EXPECT_EQ(ConexionesAbiertas(), 1);
        } catch (const FalloDelServicio& error) {
            fallo = error.what();
            EXPECT_FALSE(servicio->Connection().Logon(true));
        }
        EXPECT_EQ(fallo, caso.fallo);
        EXPECT_EQ(UltimosParametros(), caso.parametros);
        servicio->Connection().Logoff();
        EXPECT_EQ(ConexionesAbiertas(), 0);
    }
}

TEST(NwrfcService, BackingOutOfTheDialogConnectsNothing) {
    const auto servicio = CrearServicioNWRFC({QOR_TEST_NWRFC, 0}, [](ParametrosDeLogon&) { return false; });
    EXPECT_FALSE(servicio->Connection().Logon(false));
    EXPECT_FALSE(servicio->Connection().Logon(true));
    EXPECT_THROW(servicio->Add("RFC_FUNCTION_SEARCH"), FalloDelServicio);
}

TEST(NwrfcService, ThePasswordIsOverwritten) {
    ParametrosDeLogon parametros;
    parametros.clave = "a secret of some length that lies on the heap";
    const char* const lugar = parametros.clave.data();
    const std::size_t largo = parametros.clave.size();
    parametros.BorrarClave();
    EXPECT_EQ(std::string(lugar, largo), std::string(largo, '\0'));
}

TEST(NwrfcService, ReportsGoThereAndBack) {
    std::string motivo;
    EXPECT_THAT(Correr(Conectado(), {"WRITE: / 'caf\xE9 \x80'.", "", "  X"}, motivo),
                testing::Optional(ElementsAre("WRITE: / 'caf\xE9 \x80'.", "", "  X")));
    EXPECT_THAT(Correr(Conectado(), {}, motivo), testing::Optional(testing::IsEmpty()));
    EXPECT_THAT(Correr(Conectado(), {"REPORT LONG."}, motivo),
                testing::Optional(ElementsAre(std::string(999, 'x') + "y", "REPORT LONG.")));
    EXPECT_EQ(motivo, "");
    EXPECT_EQ(ConexionesAbiertas(), 0);  // a service closes what it opened
}

TEST(NwrfcService, FailuresAreToldInTheLibrarysWords) {
    struct Caso {
        const char* reporte;
        const char* motivo;
    };
    const Caso casos[] = {
        {"REPORT DENIED.", "NO_AUTHORITY"},
        {"REPORT LOST.", "RFC_COMMUNICATION_FAILURE: connection to partner broken"},
        {"REPORT HANG.", "The call took longer than 1 seconds and was stopped (RFC_CANCELED: cancelled)"},
    };
    for (const auto& caso : casos) {
        std::string motivo;
        EXPECT_FALSE(Correr(Conectado(1), {caso.reporte}, motivo));
        EXPECT_EQ(motivo, caso.motivo);
    }
    EXPECT_EQ(ConexionesAbiertas(), 0);
}

TEST(NwrfcService, ABrokenConnectionIsGivenUp) {
    auto servicio = Conectado();
    {
        const auto funcion = servicio->Add("RFC_ABAP_INSTALL_AND_RUN");
        funcion->Exports("MODE", "F");
        funcion->Tables("PROGRAM").Data({"REPORT LOST."});
        EXPECT_FALSE(funcion->Call());
        EXPECT_FALSE(funcion->Call());
    }
    EXPECT_FALSE(servicio->Connection().Logon(true));
    EXPECT_EQ(servicio->UltimoError(), "RFC_COMMUNICATION_FAILURE: connection to partner broken");
    EXPECT_EQ(ConexionesAbiertas(), 0);
}

TEST(NwrfcService, WhatTheSystemDoesNotKnowThrows) {
    const auto servicio = Conectado();
    const auto texto = [](const auto& accion) -> std::string {
        try {
            accion();
            return "";
        } catch (const FalloDelServicio& fallo) {
            return fallo.what();
        }
    };
    EXPECT_EQ(texto([&] { servicio->Add("Z_ABSENT"); }),
              "The function module Z_ABSENT can't be called: FU_NOT_FOUND: ID:FL Type:E Number:046 Z_ABSENT");
    const auto funcion = servicio->Add("RFC_FUNCTION_SEARCH");
    EXPECT_THAT(texto([&] { funcion->Exports("ABSENT", "X"); }), HasSubstr("The parameter ABSENT of RFC_FUNCTION_SEARCH"));
    EXPECT_THAT(texto([&] { funcion->Tables("ABSENT"); }), HasSubstr("The table ABSENT of RFC_FUNCTION_SEARCH"));
    funcion->Exports("FUNCNAME", "Z_RUN");
    EXPECT_TRUE(funcion->Call());
    const auto& tabla = funcion->Tables("FUNCTIONS");
    EXPECT_EQ(tabla.Value(1, 1) + tabla.Value(1, 2), "Z_RUNSUTL");
    EXPECT_THAT(texto([&] { tabla.Value(2, 1); }), HasSubstr("Row 2 of the table FUNCTIONS"));
    EXPECT_THAT(texto([&] { tabla.Value(1, 3); }), HasSubstr("line type"));
}

}  // namespace
}  // namespace qor
