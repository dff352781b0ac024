// The practice system as a service to log on to.
#include <gmock/gmock.h>

#include "practice/role.h"
#include "practice/service.h"
#include "practice/table_load.h"
#include "sap/publish.h"
#include "tests/support/left_out_on_windows.h"
#include "tests/support/practice_session.h"

namespace qor {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

struct PruebaDeServicio : testing::Test, pruebas::SesionDePractica {
    NombresRFC nombres = ConNombresConocidos({});

    PruebaDeServicio()
        : SesionDePractica("BAPIDEFS\n0 46C\n1 Material\n2 BAPI_MAT_SAVE\n2 BAPI_MAT_GET\n1 Sales order\n2 BAPI_ORDER\n") {}

    // The answer to one call, each row behind "|"; or why there is none.
    std::string Llamar(const std::string& modulo, const char* parametro, const std::string& valor, const char* salida) {
        try {
            const auto funcion = sesion.SesionRFC->Add(modulo);
            funcion->Exports(parametro, valor);
            auto& tabla = funcion->Tables(salida);
            if (!funcion->Call()) return "failed: " + sesion.SesionRFC->UltimoError();
            std::string filas;
            for (int fila = 1; fila <= tabla.RowCount(); ++fila) {
                filas += "|" + tabla.Value(fila, 1) + (modulo == nombres.BusquedaDeFunciones ? "," + tabla.Value(fila, 2) : "");
            }
            return filas;
        } catch (const FalloDelServicio& fallo) {
            return fallo.what();
        }
    }
    std::string Programas() { return Correr("TABLES TRDIR.\nSELECT * FROM TRDIR.\nWRITE / TRDIR-NAME.\nENDSELECT."); }
    std::string Insertar(const std::string& nombre, const std::string& final = "") {
        return Correr("DATA: BEGIN OF T OCCURS 0, L(72), END OF T.\nT-L = 'REPORT ZX.'.\nAPPEND T.\nINSERT REPORT '" + nombre +
                      "' FROM T.\nWRITE / SY-SUBRC.\n" + final);
    }
};

TEST_F(PruebaDeServicio, TheReportRunnerAnswersAListOrTheReason) {
    const std::string s72(72, '*');
    const std::pair<std::string, const char*> casos[] = {
        // statements, and the beginning of what comes of them
        {"WRITE: / 'a', SY-MANDT, SY-SAPRL.\n" + s72 + "\nWRITE / 'b'.", "|a 000 46C|b"},
        {"WRITE 'a'." + std::string(80, ' '), "|a"},
        {"WRITE 'a'.\n" + s72 + "*", "Row 3 of the table PROGRAM has more than 72 characters"},
        {"WRITE 'a'.\nFOO.\nBAR.", "Line 3 of the report: "},
        {"WRITE 'a'.\nCALL FUNCTION 'Z_NO'.", "CALL_FUNCTION_NOT_FOUND in line 3 of the report: Function module Z_NO "},
        {"MESSAGE I001(ZZ).\nMESSAGE S001(ZZ).\nWRITE 'a'.", "|a"},
        {"MESSAGE A001(ZZ) WITH 'gone'.", "Message A: ZZ 001 gone"},
        {"WRITE 'a'.\nMESSAGE E001(ZZ) WITH 'gone'.", "Message E: ZZ 001 gone"},
        {"PARAMETERS P(3) OBLIGATORY.", "The parameter P is obligatory"},
    };
    for (const auto& [sentencias, respuesta] : casos) {
        EXPECT_THAT(Correr(sentencias), StartsWith(respuesta));
        EXPECT_EQ(Correr("WRITE 'next'."), "|next");  // nothing of one call gets into the next one
        EXPECT_EQ(sesion.SesionRFC->UltimoError(), "");
    }
}

TEST_F(PruebaDeServicio, ACallIsAUnitOfWork) {
    EXPECT_EQ(Insertar("zkept"), "|         0");
    for (const auto& nombre : {std::string(), std::string(41, 'Z')}) EXPECT_EQ(Insertar(nombre), "|         4");
    Insertar("ZABORT", "MESSAGE A001(ZZ).");
    Insertar("ZDUMP", "CALL FUNCTION 'Z_NO'.");
    Insertar("ZBACK", "ROLLBACK WORK.");
    Insertar("ZERROR", "MESSAGE E001(ZZ).");  // keeps what stands before it, as the end of a report does
    EXPECT_EQ(Programas(), "|ZERROR|ZKEPT");
    EXPECT_EQ(Programa("ZKEPT"), "REPORT ZX.\n");
}

TEST_F(PruebaDeServicio, ProgramsAreToldFromTables) {
    OtroPrograma([](BaseDePractica& base) { return CargarTabla(base, "REPORT", "L\na\n"); });
    EXPECT_EQ(
        Correr("TABLES REPORT.\nDATA: BEGIN OF T OCCURS 0, L(1), END OF T, FROM(5) VALUE 'zfrom'.\nREPORT-L = 'b'.\nT-L = 'c'.\n"
               "APPEND T.\nAPPEND T.\nINSERT REPORT.\nINSERT REPORT FROM TABLE T.\nINSERT REPORT FROM FROM T.\n"
               "SELECT * FROM REPORT.\nWRITE / REPORT-L.\nENDSELECT."),
        "|a|b|c|c");
    EXPECT_EQ(Programa("ZFROM"), "c\nc\n");
    EXPECT_EQ(Correr("DATA: BEGIN OF REPORT OCCURS 0, L, END OF REPORT.\nREPORT-L = 'a'.\nINSERT REPORT INDEX 1.\n"
                     "INSERT REPORT INTO REPORT INDEX 1.\nLOOP AT REPORT.\nWRITE / REPORT-L.\nENDLOOP."),
              "|a|a");
    EXPECT_EQ(Correr("DATA T.\nINSERT REPORT 'Z' FROM T."), "Line 3 of the report: T is no internal table");
}

TEST_F(PruebaDeServicio, FunctionsAndSourcesAreFound) {
    PonerPrograma("LZFUNU01", {"FUNCTION Z_RUN.", "", "ENDFUNCTION."});
    const auto& busqueda = nombres.BusquedaDeFunciones;
    const auto& lector = nombres.LectorFuenteA;
    const struct {
        std::string modulo;
        const char* parametro;
        const char* valor;
        const char* tabla;
        const char* respuesta;
    } casos[] = {
        {busqueda, "FUNCNAME", "bapi_order", "FUNCTIONS", "|BAPI_ORDER,SALES_ORDER"},
        {busqueda, "FUNCNAME", "BAPI_+AT*", "FUNCTIONS", "|BAPI_MAT_GET,MATERIAL|BAPI_MAT_SAVE,MATERIAL"},
        {busqueda, "FUNCNAME", "BAPI%", "FUNCTIONS", "failed: NO_FUNCTION_FOUND"},
        {lector, "PROGRAM", "LZFUNU01", "QTAB", "|FUNCTION Z_RUN.||ENDFUNCTION."},
        {nombres.LectorFuenteB, "PROGRAM", "lzfunu01 ", "QTAB", "|FUNCTION Z_RUN.||ENDFUNCTION."},
        {lector, "PROGRAM", "ZNONE", "QTAB", "failed: PROGRAM_NOT_FOUND"},
        {"rfc_abap_install_and_run", "MODE", "", "WRITES", "failed: The parameter MODE has to be \"F\""},
        {"Z_NONE", "MODE", "F", "WRITES", "The practice system has no function module Z_NONE"},
        {lector, "MODE", "F", "QTAB", "The parameter MODE of RFC_READ_REPORT is not known"},
        {lector, "PROGRAM", "Z", "WRITES", "The table WRITES of RFC_READ_REPORT is not known"},
    };
    for (const auto& caso : casos) EXPECT_EQ(Llamar(caso.modulo, caso.parametro, caso.valor, caso.tabla), caso.respuesta);
    EXPECT_THROW(sesion.SesionRFC->Add(lector)->Tables("QTAB").Value(1, 1), FalloDelServicio);
}

#ifndef LEFT_OUT_PruebaDeServicio_ItSeesWhatOthersDoBetweenTwoCalls
TEST_F(PruebaDeServicio, ItSeesWhatOthersDoBetweenTwoCalls) {
    const auto rol = [&] { return Correr("TABLES T000.\nSELECT SINGLE * FROM T000.\nWRITE T000-CCCATEGORY."); };
    EXPECT_EQ(rol() + Programas(), "|T");
    PonerPrograma("ZNEW");
    OtroPrograma([](BaseDePractica& base) { return PonerRolDeSistema(base, "C"), true; });
    EXPECT_EQ(rol() + Programas(), "|C|ZNEW");
    OtroPrograma([&](BaseDePractica& base) {
        base.EmpezarUnidad();
        EXPECT_THAT(Insertar("ZX"), HasSubstr("Another program is using it"));
        return true;
    });
    // Another file in its place is the system from then on; without one the session is at its end.
    const auto quitar = [&] {
        for (const auto& archivo : ArchivosDeSistema(opciones.archivo)) std::filesystem::remove(archivo);
    };
    quitar();
    PonerPrograma("ZOTHER");
    EXPECT_EQ(rol() + Programas(), "|T|ZOTHER");
    quitar();
    EXPECT_THAT(Programas(),
                StartsWith("The file of the practice system is gone\r\nThe connection to the practice system is lost."));
    EXPECT_FALSE(sesion.Conectado || std::filesystem::exists(opciones.archivo));
}
#endif

// ---- The logon ----

TEST_F(PruebaDeServicio, ALogonSetsTheRoleAndLeavesWhatIsMadeForRealSystems) {
    const auto fuente = directorio.Escribir("z.abap", "REPORT ZOWN.");
    for (const auto& [rol, avisos] : {std::pair{"P", "<416> <417>"}, {"", "<418>"}, {"C", "<410>"}}) {
        AjustesDelPrograma ajustes;
        ajustes.nombresRFC.ModuloRFCPropio = "Z_OWN_MODULE";  // of a real system
        ajustes.preferencias.AdicionesDataset = "ENCODING UTF-8.";
        const auto elegir = [rol = rol](EleccionDeLogon& eleccion) {
            eleccion.practica = true;
            eleccion.rol = rol;
            return true;
        };
        sesion = NuevaSesionSAP(ajustes, DirectorioDeDatos(), elegir, [&] { return opciones; });
        EXPECT_FALSE(sesion.EsDePractica());
        ASSERT_TRUE(Logon_Click(sesion, {}, ajustes.preferencias, prueba.textos, prueba.vista));
        EXPECT_TRUE(sesion.EsDePractica());
        EXPECT_EQ(ajustes.preferencias.AdicionesDataset, "ENCODING UTF-8.");
        EXPECT_EQ(sesion.ConnectionStatus + sesion.VersionSistema + sesion.RolSistema, "<407> 000 <408> PRA46C" + std::string(rol));
        const auto nombrar = [](const std::string&) { return "ZOWN"; };
        PublicarArchivo(sesion, fuente, "", nombrar, prueba.textos, prueba.vista);
        EXPECT_EQ(prueba.vista.TomarAvisos(), avisos);
        EXPECT_EQ(Programa("ZOWN"), *rol == 'C' ? "REPORT ZOWN.\n" : "");
        Logoff_Click(sesion);
        EXPECT_EQ(LeerRolDeSistema(opciones.archivo), rol);
    }
}

TEST_F(PruebaDeServicio, AFileThatIsNoSystemIsNamed) {
    const std::string texto = directorio.Escribir("text", "hello").string();
    for (const auto& [archivo, motivo] :
         {std::pair{texto, "It is no practice system: " + texto}, {"/nowhere/s", "No such file or directory: /nowhere/s"}}) {
        opciones.archivo = archivo;
        EXPECT_FALSE(Entrar());
        EXPECT_EQ(prueba.vista.TomarAvisos(), "The practice system can't be opened.\r\n" + motivo);
        EXPECT_EQ(sesion.SesionRFC, nullptr);
    }
}

}  // namespace
}  // namespace qor
