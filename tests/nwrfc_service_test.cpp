#include "sap/nwrfc_service.h"

#include <gmock/gmock.h>

#include <chrono>
#include <thread>

#include "base/library.h"
#include "sap/remote_reports.h"
#include "sap/utf16.h"
#include "tests/nwrfc/standin.h"

namespace qor {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

template <typename Funcion>
Funcion* DelSustituto(const char* nombre) {
    std::string motivo;
    return reinterpret_cast<Funcion*>(BuscarEnBiblioteca(CargarBiblioteca(QOR_TEST_NWRFC, "none", motivo).get(), nombre));
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

// What was left to itself ends a moment later.
bool TodoCerrado() {
    for (int i = 0; i < 500 && (ConexionesAbiertas() > 0 || FuncionesVivas() > 0); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return ConexionesAbiertas() == 0 && FuncionesVivas() == 0;
}

using Plazo = std::chrono::milliseconds;

std::unique_ptr<ServicioRFC> Conectado(Plazo deLlamada = {}, Plazo deConexion = {}) {
    auto servicio = CrearServicioNWRFC({QOR_TEST_NWRFC, deLlamada, deConexion}, [](ParametrosDeLogon& parametros) {
        Llenar(parametros);
        return true;
    });
    EXPECT_TRUE(servicio->Connection().Logon(false));
    return servicio;
}

constexpr Plazo largo{60000};

SesionSAP Sesion(Plazo deLlamada = {}, Plazo deConexion = {}) {
    SesionSAP sesion;
    sesion.SesionRFC = Conectado(deLlamada, deConexion);
    sesion.Conectado = true;
    sesion.ModuloRFC = "RFC_ABAP_INSTALL_AND_RUN";
    return sesion;
}

template <typename Accion>
std::string TextoDelFallo(Accion accion) {
    try {
        accion();
        return "";
    } catch (const FalloDelServicio& fallo) {
        return fallo.what();
    }
}

std::string FalloAlCrear(const char* ruta) {
    return TextoDelFallo([&] { CrearServicioNWRFC({ruta, {}, {}}, [](ParametrosDeLogon&) { return true; }); });
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
        const auto servicio = CrearServicioNWRFC({QOR_TEST_NWRFC, {}, {}}, [&](ParametrosDeLogon& parametros) {
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
    const auto servicio = CrearServicioNWRFC({QOR_TEST_NWRFC, {}, {}}, [](ParametrosDeLogon&) { return false; });
    EXPECT_FALSE(servicio->Connection().Logon(false));
    EXPECT_FALSE(servicio->Connection().Logon(true));
    EXPECT_THROW(servicio->Add("RFC_FUNCTION_SEARCH"), FalloDelServicio);
}

TEST(NwrfcService, ThePasswordIsOverwritten) {
    ParametrosDeLogon parametros;
    parametros.clave = "a secret of some length that lies on the heap";
    const char* const lugar = parametros.clave.data();
    const std::size_t cantidad = parametros.clave.size();
    parametros.BorrarClave();
    EXPECT_EQ(std::string(lugar, cantidad), std::string(cantidad, '\0'));
}

TEST(NwrfcService, ReportsGoThereAndBack) {
    {
        SesionSAP sesion = Sesion(largo, largo);
        EXPECT_THAT(EjecutarReporte(sesion, {"WRITE: / 'caf\xE9 \x80'.", "", "  X"}),
                    testing::Optional(ElementsAre("WRITE: / 'caf\xE9 \x80'.", "", "  X")));
        EXPECT_THAT(EjecutarReporte(sesion, {}), testing::Optional(testing::IsEmpty()));
        EXPECT_THAT(EjecutarReporte(sesion, {"REPORT LONG."}),
                    testing::Optional(ElementsAre(std::string(999, 'x') + "y", "REPORT LONG.")));
        EXPECT_EQ(sesion.Motivo, "");
        EXPECT_EQ(FuncionesVivas(), 0);
    }
    EXPECT_EQ(ConexionesAbiertas(), 0);  // a service closes what it opened
}

constexpr const char* perdida = "\r\nThe connection to the SAP system is lost. Please log on again.";

// The codes with which the library closes a connection end the session; with the others it goes on.
TEST(NwrfcService, AFailureIsToldInTheLibrarysWordsAndSoIsALostConnection) {
    for (int codigo = 1; codigo <= 29; ++codigo) {
        SesionSAP sesion = Sesion();
        const bool pierde = testing::Matches(testing::AnyOf(1, 3, 4, 6, 7, 8, 13, 15))(codigo);
        EXPECT_FALSE(EjecutarReporte(sesion, {"REPORT CODE " + std::to_string(codigo) + "."}));
        EXPECT_EQ(sesion.Motivo, "CODE: " + std::to_string(codigo) + "." + (pierde ? perdida : "")) << codigo;
        EXPECT_EQ(sesion.Conectado, !pierde);
        EXPECT_EQ(ConexionesAbiertas(), pierde ? 0 : 1);
        EXPECT_EQ(EjecutarReporte(sesion, {"X"}).has_value(), !pierde);
    }
}

// ---- Time limits ----

constexpr Plazo corto{150};
const std::string sinRespuesta = "The SAP system has not answered within 0.15 seconds";

TEST(NwrfcService, WhateverGoesOverTheWireHasALimit) {
    struct Caso {
        const char* que;
        Plazo deLlamada;
        Plazo deConexion;
        const char* reporte;
        const char* modulo;
    };
    const Caso casos[] = {
        {"a call", corto, largo, "REPORT HANG.", "RFC_ABAP_INSTALL_AND_RUN"},
        // Its connection was cancelled, so it can't count as one that went well.
        {"a call that ends well behind its limit", corto, largo, "REPORT LATE.", "RFC_ABAP_INSTALL_AND_RUN"},
        {"a test", largo, corto, "REPORT MUTE.", "RFC_ABAP_INSTALL_AND_RUN"},
        {"a description", largo, corto, "X", "Z_HANG"},
    };
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.que);
        SesionSAP sesion = Sesion(caso.deLlamada, caso.deConexion);
        sesion.ModuloRFC = caso.modulo;
        if (EjecutarReporte(sesion, {caso.reporte})) EXPECT_FALSE(EjecutarReporte(sesion, {"X"}));
        EXPECT_THAT(sesion.Motivo, testing::EndsWith(sinRespuesta + perdida));
        EXPECT_FALSE(sesion.Conectado);
        EXPECT_TRUE(TodoCerrado());
    }
}

TEST(NwrfcService, AConnectionThatOpensTooLateIsClosed) {
    const auto servicio = CrearServicioNWRFC({QOR_TEST_NWRFC, {}, Plazo(20)}, [](ParametrosDeLogon& parametros) {
        Llenar(parametros);
        parametros.servidor = "slow";
        return true;
    });
    EXPECT_EQ(TextoDelFallo([&] { servicio->Connection().Logon(false); }), "The SAP system has not answered within 0.02 seconds");
    EXPECT_FALSE(servicio->Connection().Abierta());
    std::this_thread::sleep_for(std::chrono::milliseconds(250));
    EXPECT_TRUE(TodoCerrado());
}

// A call that ends at the limit is either in time, and its connection stays as it is, or it counts as failed.
TEST(NwrfcService, NoCallIsCancelledBehindItsEnd) {
    for (int i = 0; i < 24; ++i) {
        SesionSAP sesion = Sesion(Plazo(20), largo);
        const bool bien = EjecutarReporte(sesion, {"REPORT WAIT " + std::to_string(14 + i % 12) + "."}).has_value();
        EXPECT_EQ(sesion.Conectado, bien) << sesion.Motivo;
        if (!bien) continue;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        EXPECT_TRUE(SesionActiva(sesion)) << sesion.Motivo;
    }
    EXPECT_TRUE(TodoCerrado());
}

TEST(NwrfcService, WhatTheSystemDoesNotKnowThrows) {
    const auto servicio = Conectado();
    EXPECT_EQ(TextoDelFallo([&] { servicio->Add("Z_ABSENT"); }),
              "The function module Z_ABSENT can't be called: FU_NOT_FOUND: ID:FL Type:E Number:046 Z_ABSENT");
    const auto funcion = servicio->Add("RFC_FUNCTION_SEARCH");
    EXPECT_THAT(TextoDelFallo([&] { funcion->Exports("ABSENT", "X"); }), HasSubstr("The parameter ABSENT of RFC_FUNCTION_SEARCH"));
    EXPECT_THAT(TextoDelFallo([&] { funcion->Tables("ABSENT"); }), HasSubstr("The table ABSENT of RFC_FUNCTION_SEARCH"));
    funcion->Exports("FUNCNAME", "Z_RUN");
    EXPECT_TRUE(funcion->Call());
    const auto& tabla = funcion->Tables("FUNCTIONS");
    EXPECT_EQ(tabla.Value(1, 1) + tabla.Value(1, 2), "Z_RUNSUTL");
    EXPECT_THAT(TextoDelFallo([&] { tabla.Value(2, 1); }), HasSubstr("Row 2 of the table FUNCTIONS"));
    EXPECT_THAT(TextoDelFallo([&] { tabla.Value(1, 3); }), HasSubstr("line type"));
}

}  // namespace
}  // namespace qor
