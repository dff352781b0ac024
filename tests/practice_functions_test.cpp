#include <gmock/gmock.h>

#include "practice/messages.h"
#include "tests/support/practice_session.h"

namespace qor {
namespace {

using testing::StartsWith;

TEST(PracticeFunctions, AreFoundByName) {
    pruebas::SesionDePractica practica("BAPIDEFS\n1 Thing\n2 Z_IN_CATALOGUE\n");
    practica.opciones.bapis = {"Z_IN_DOCUMENT"};
    practica.Entrar();
    const auto llamar = [&](const std::string& nombre) { return practica.Correr("CALL FUNCTION '" + nombre + "'.\nWRITE 'x'."); };
    for (const char* nombre : {"BAPI_ANY", "/ABC/ANY", "Z_IN_CATALOGUE", "Z_IN_DOCUMENT", "KD_GET_FILENAME_ON_F4"}) {
        EXPECT_EQ(llamar(nombre), "|x") << nombre;
    }
    EXPECT_THAT(llamar("Z_ANY"), StartsWith("CALL_FUNCTION_NOT_FOUND in line 2 of the report: Function module Z_ANY"));
    EXPECT_THAT(llamar("/ANY"), StartsWith("CALL_FUNCTION_NOT_FOUND"));
    EXPECT_THAT(llamar("GUI_UPLOAD"), testing::AllOf(StartsWith("CALL_FUNCTION_PARM_MISSING"), testing::HasSubstr("GUI_UPLOAD")));
    for (const char* que : {"COMMIT", "ROLLBACK"}) {
        const std::string nombre = que;
        practica.Correr("DATA: BEGIN OF T OCCURS 0, L(72), END OF T.\nAPPEND T.\nINSERT REPORT 'Z" + nombre +
                        "' FROM T.\nCALL FUNCTION 'BAPI_TRANSACTION_" + nombre + "'.\nMESSAGE A001(ZZ).");
    }
    EXPECT_EQ(practica.Programa("ZCOMMIT") + practica.Programa("ZROLLBACK"), "\n");
    EXPECT_EQ(practica.Correr("DATA TEXT(50).\nCALL FUNCTION 'MESSAGE_PREPARE' EXPORTING MSG_ID = '00' MSG_NO = '349'\n"
                              "MSG_VAR1 = 'A-B' MSG_VAR2 = 'P  ' IMPORTING MSG_TEXT = TEXT.\nWRITE TEXT."),
              "|Field A-B does not exist in the screen P");
    const std::string variables[] = {"a  ", "", " b  c", ""};
    EXPECT_EQ(TextoDeMensaje("ZZ", "007", variables), "ZZ 007 a b c");
    EXPECT_EQ(TextoDeMensaje("QP", "001", variables), "a b c");
}

TEST(PracticeFunctions, WriteSessions) {
    pruebas::SesionDePractica practica;
    std::string sentencias = "DATA: QID LIKE APQI-QID.\nDATA BEGIN OF D OCCURS 0.\nINCLUDE STRUCTURE BDCDATA.\nDATA END OF D.\n";
    std::string esperada;
    for (const auto& [llamada, excepcion] :
         {std::pair{"INSERT' EXPORTING TCODE = 'MM01' TABLES DYNPROTAB = D", "NOT_OPEN"},
          {"CLOSE_GROUP'", "NOT_OPEN"},
          {"OPEN_GROUP' EXPORTING USER = SY-UNAME", "GROUP_INVALID"},
          {"OPEN_GROUP' EXPORTING GROUP = 'LOAD01' IMPORTING QID = QID", ""},
          {"OPEN_GROUP' EXPORTING GROUP = 'LOAD02'", "RUNNING"},
          {"INSERT' EXPORTING TCODE = ' ' TABLES DYNPROTAB = D", "TCODE_INVALID"},
          {"INSERT' EXPORTING TCODE = 'MM01' TABLES DYNPROTAB = D", ""},
          {"CLOSE_GROUP'", ""},
          {"OBJECT_READ' EXPORTING QUEUE_ID = QID DATATYPE = 'BDC'\nTABLES DYNPROTAB = D", ""}}) {
        const bool falla = *excepcion != '\0';
        sentencias += std::string("CALL FUNCTION\n'BDC_") + llamada + "\nEXCEPTIONS " + (falla ? excepcion : "OTHERS") +
                      " = 7. WRITE / SY-SUBRC.\n";
        esperada += falla ? "|         7" : "|         0";
    }
    EXPECT_EQ(practica.Correr(sentencias + "LOOP AT D.\nWRITE / D-FNAM.\nENDLOOP."), esperada + "|LOAD01|MM01");
}

}  // namespace
}  // namespace qor
