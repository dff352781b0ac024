#include "base/text.h"
#include "generator/sections.h"

namespace qor {

namespace {

void EscribirSesion(Generacion& g) {
    g.reporte.Lineas(R"(

  IF {GS}FIRST_TIME = {GC}YES.
    PERFORM OPEN_GROUP USING {GS}BDCNAME.
    {GS}FIRST_TIME = {GC}NO.
  ENDIF.
  CALL FUNCTION 'BDC_INSERT'
       EXPORTING
         TCODE = {LS}TCODE
       TABLES
         DYNPROTAB = {LT}BDC_TAB.
)");
}

void EscribirLlamada(Generacion& g) {
    g.reporte.Lineas(R"(

  REFRESH {GT}MESSTAB.
  CALL TRANSACTION {LS}TCODE
       USING {LT}BDC_TAB
       MODE {MODO}
       UPDATE 'S'
       MESSAGES INTO {GT}MESSTAB.
)");
    if (!g.analisis.ManejoErrores && !g.analisis.HayJuegoDatos) return;
    g.reporte.Linea("  IF SY-SUBRC NE 0.");
    if (g.analisis.HayJuegoDatos) {
        g.reporte.Lineas(R"(
    IF {GS}FIRST_TIME = {GC}YES.
      PERFORM OPEN_GROUP USING {GS}BDCNAME.
      {GS}FIRST_TIME = {GC}NO.
    ENDIF.
    CALL FUNCTION 'BDC_INSERT'
         EXPORTING
           TCODE = {LS}TCODE
         TABLES
           DYNPROTAB = {LT}BDC_TAB.
)");
    }
    if (g.analisis.ManejoErrores) RecolectarMensajes(g);
    g.reporte.Linea("  ENDIF.");
}

void EscribirEnvioDeTodo(Generacion& g) {
    g.reporte.Lineas(R"(
      MOVE:  {LS}NAME TO {GT}BDC_TAB-FNAM,
             {LS}FVALUE TO {GT}BDC_TAB-FVAL.
      IF {LS}CONDITION = SPACE.
        APPEND {GT}BDC_TAB.
      ELSE.
        PERFORM COND_CHECK USING {LS}CONDITION CHANGING {LS}RESULT.
        IF {LS}RESULT = {GC}YES.
          APPEND {GT}BDC_TAB.
        ENDIF.
      ENDIF.
)");
}

void EscribirEnvioDeLoLleno(Generacion& g) {
    g.reporte.Linea("      IF {LS}FVALUE NE SPACE.");
    const auto codigo = Recortar(g.opciones.SpaceCode);
    if (!codigo.empty()) {
        g.reporte.Desde(Lugar::EnOpcion("SpaceCode"));
        g.reporte.Lineas(R"(
        IF {LS}FVALUE = '{codigo}'.
          {LS}FVALUE = SPACE.
        ENDIF.
)",
                         {{"codigo", std::string(codigo)}});
        g.reporte.Desde({});
    }
    g.reporte.Lineas(R"(
        MOVE:  {LS}NAME TO {GT}BDC_TAB-FNAM,
               {LS}FVALUE TO {GT}BDC_TAB-FVAL.
        IF {LS}CONDITION = SPACE.
          APPEND {GT}BDC_TAB.
        ELSE.
          PERFORM COND_CHECK USING {LS}CONDITION CHANGING {LS}RESULT.
          IF {LS}RESULT = {GC}YES.
            APPEND {GT}BDC_TAB.
          ENDIF.
        ENDIF.
      ENDIF.
)");
}

}  // namespace

void EscribirInsertData(Generacion& g) {
    g.reporte.Desde(Lugar::EnOpcion("CallTransaction"));
    g.reporte.Lineas(R"(

{RULE}
*       FORM INSERT_DATA                                              *
{RULE}
*  -->  BDC_TAB                                                       *
*  -->  TCODE                                                         *
{RULE}
FORM INSERT_DATA TABLES {LT}BDC_TAB STRUCTURE {GT}BDC_TAB
                  USING {LS}TCODE.
)");
    if (g.analisis.ManejoErrores) {
        g.reporte.Lineas(R"(

  IF {GS}DATAERRORSFOUND = {GC}YES.
    EXIT.
  ENDIF.
)");
    }
    if (g.opciones.CallTransaction == 0 && !g.analisis.operaciones.HayBAPI) {
        EscribirSesion(g);
    } else {
        EscribirLlamada(g);
    }
    g.reporte.Linea("ENDFORM.");
}

void EscribirDynpro(Generacion& g) {
    g.reporte.Desde({});
    g.reporte.Lineas(R"(

{RULE}
*       FORM DYNPRO                                                   *
{RULE}
*  -->  DYNBEGIN                                                      *
*  -->  NAME                                                          *
*  -->  FVALUE                                                        *
*  -->  CONDITION                                                     *
{RULE}
FORM DYNPRO USING {LS}DYNBEGIN {LS}NAME {LS}FVALUE {LS}CONDITION.

  DATA: {LS}RESULT TYPE C.  "Yes/No

  CLEAR {GT}BDC_TAB.
  IF {LS}DYNBEGIN = 'X'.
    {GS}PROCESS_FIELDS = {GC}YES.
    MOVE:  {LS}NAME TO {GT}BDC_TAB-PROGRAM,
           {LS}FVALUE TO {GT}BDC_TAB-DYNPRO,
          'X'  TO {GT}BDC_TAB-DYNBEGIN.
    IF {LS}CONDITION = SPACE.
      APPEND {GT}BDC_TAB.
    ELSE.
      PERFORM COND_CHECK USING {LS}CONDITION CHANGING {LS}RESULT.
      IF {LS}RESULT = {GC}YES.
        APPEND {GT}BDC_TAB.
      ELSE.
        {GS}PROCESS_FIELDS = {GC}NO.
      ENDIF.
    ENDIF.
  ELSE.
    IF {GS}PROCESS_FIELDS = {GC}YES.
)");
    if (g.opciones.ProcesarTodoOpt) {
        EscribirEnvioDeTodo(g);
    } else {
        EscribirEnvioDeLoLleno(g);
    }
    g.reporte.Lineas(R"(
    ENDIF.
  ENDIF.
ENDFORM.
)");
}

void EscribirOpenGroup(Generacion& g) {
    g.reporte.Desde({});
    // The mixed case of "User" and the three blanks behind KEEP are on purpose; ABAP takes both.
    g.reporte.Lineas(R"(

{RULE}
*       FORM OPEN_GROUP                                               *
{RULE}
*  -->  BDCNAME                                                       *
{RULE}
FORM OPEN_GROUP USING {LS}BDCNAME.
  CALL FUNCTION 'BDC_OPEN_GROUP'
       EXPORTING
         CLIENT = SY-MANDT
         GROUP = {LS}BDCNAME
         User = SY-UNAME
         KEEP   = 'X'.
ENDFORM.
)");
}

void ImprimirMensajesBDC(Generacion& g) {
    const bool porLlamada = g.PorLlamada();
    g.reporte.Lineas(R"(

  IF {GS}FIRST_TIME = {GC}NO.
    CALL FUNCTION  'BDC_CLOSE_GROUP'.
    WRITE: / '{conSesion}', {GS}BDCNAME.
  ELSE.
    WRITE: / '{sinSesion}'.
  ENDIF.
)",
                     {{"conSesion", g.Texto(porLlamada ? 500 : 501)}, {"sinSesion", g.Texto(porLlamada ? 502 : 503)}});
}

}  // namespace qor
