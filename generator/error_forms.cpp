#include "base/text.h"
#include "generator/sections.h"

namespace qor {

void InsercionITABDataErrors(Generacion& g) {
    g.reporte.Desde(Lugar::EnOpcion("ErrorHandlingCheck"));
    g.reporte.Lineas(R"(
    {GS}DATAERRORSFOUND = {GC}NO.
    REFRESH {GT}DATAERRORS.
    IF {NEWB} = 'X'.
      {GN}OPERATION = {GN}OPERATION + 1.
      {GT}DATAERRORS-ID = 1.
      MOVE {GT}ITAB TO {GT}DATAERRORS-LINE.
      APPEND {GT}DATAERRORS.
    ELSE.
      READ TABLE {GT}ITABOPERS INDEX SY-TABIX.
    ENDIF.
)");
}

void RecolectarMensajes(Generacion& g) {
    g.reporte.Lineas(R"(
    {GT}DATAERRORS-ID = 0.
    LOOP AT {GT}MESSTAB.
      CALL FUNCTION 'MESSAGE_PREPARE'
           EXPORTING
                LANGUAGE               = SY-LANGU
                MSG_ID                 = {GT}MESSTAB-MSGID
                MSG_NO                 = {GT}MESSTAB-MSGNR
                MSG_VAR1               = {GT}MESSTAB-MSGV1(50)
                MSG_VAR2               = {GT}MESSTAB-MSGV2(50)
                MSG_VAR3               = {GT}MESSTAB-MSGV3(50)
                MSG_VAR4               = {GT}MESSTAB-MSGV4(50)
           IMPORTING
                MSG_TEXT               = {GT}DATAERRORS-LINE
           EXCEPTIONS
                FUNCTION_NOT_COMPLETED = 1
                MESSAGE_NOT_FOUND = 2
                OTHERS = 3.
      IF SY-SUBRC = 0.
        APPEND {GT}DATAERRORS.
      ENDIF.
    ENDLOOP.
    {GS}DATAERRORSFOUND = {GC}YES.
)");
}

void EscribirInsertDataErrors(Generacion& g) {
    g.reporte.Desde(Lugar::EnOpcion("ErrorHandlingCheck"));
    // On purpose DATAERRORS-LINE has no prefix in the first STRLEN, and ITABOPERS has that of a scalar in the UPDATE: under naming
    // conventions these two lines name objects that the report doesn't declare.
    g.reporte.Lineas(R"(

{RULE}
*       FORM INSERT_DATAERRORS                                        *
{RULE}
FORM INSERT_DATAERRORS.

  IF {NEWB} = 'X'.

    IF {GS}DATAERRORSFOUND = {GC}YES.

      {GN}ERRORCOUNTER = {GN}ERRORCOUNTER + 1.
      IF {GN}ERRORCOUNTER = 1.
        SELECT MAX( BATCH ) INTO {GN}MAXNUM FROM {TablaZ}.
        {GN}MAXNUM = {GN}MAXNUM + 1.
      ENDIF.

      MOVE {GN}PROGID TO {TablaZ}-PROGID.
      MOVE {GN}MAXNUM TO {TablaZ}-BATCH.
      MOVE {GN}OPERATION TO {TablaZ}-OPERATION.
      MOVE SPACE TO {TablaZ}-PROCESSED.
      MOVE SY-UNAME TO {TablaZ}-USERNAME.

      LOOP AT {GT}DATAERRORS.
        MOVE SY-TABIX TO {TablaZ}-SEQUENCE.
        MOVE {GT}DATAERRORS-ID TO {TablaZ}-ID.
        {TablaZ}-LENGTH = STRLEN( DATAERRORS-LINE ).
        MOVE {GT}DATAERRORS-LINE TO {TablaZ}-LINE.
        INSERT {TablaZ}.
      ENDLOOP.

    ENDIF.

  ELSE.

    IF {GS}DATAERRORSFOUND = {GC}YES.

      {GN}ERRORCOUNTER = {GN}ERRORCOUNTER + 1.

      DELETE FROM {TablaZ} WHERE PROGID = {GN}PROGID
                  AND BATCH = {BNUM}
                  AND OPERATION = {GT}ITABOPERS-OPERATION AND ID = 0.

      SELECT MAX( SEQUENCE ) INTO {GN}AUXSEQUENCE FROM {TablaZ}
                  WHERE PROGID = {GN}PROGID
                  AND BATCH = {BNUM}
                  AND OPERATION = {GT}ITABOPERS-OPERATION.

      MOVE {GT}ITABOPERS-OPERATION TO {TablaZ}-OPERATION.
      MOVE SPACE TO {TablaZ}-PROCESSED.
      MOVE SY-UNAME TO {TablaZ}-USERNAME.
      {GN}AUXSEQUENCE = {GN}AUXSEQUENCE + 1.

      LOOP AT {GT}DATAERRORS.
        MOVE {GN}AUXSEQUENCE TO {TablaZ}-SEQUENCE.
        MOVE {GT}DATAERRORS-ID TO {TablaZ}-ID.
        {TablaZ}-LENGTH = STRLEN( {GT}DATAERRORS-LINE ).
        MOVE {GT}DATAERRORS-LINE TO {TablaZ}-LINE.
        INSERT {TablaZ}.
        {GN}AUXSEQUENCE = {GN}AUXSEQUENCE + 1.
      ENDLOOP.

    ELSE.

      UPDATE {TablaZ} SET PROCESSED = 'X'
                 WHERE PROGID = {GN}PROGID
                 AND BATCH = {BNUM}
                 AND OPERATION = {GS}ITABOPERS-OPERATION.

    ENDIF.
  ENDIF.
ENDFORM.
)");
}

void ImprimirElseOldBatch(Generacion& g) {
    g.reporte.Desde(Lugar::EnOpcion("ErrorHandlingCheck"));
    g.reporte.Lineas(R"(

  ELSE.

    IF {BNUM} = SPACE.
      WRITE: / '{mensaje}'.
      EXIT.
    ENDIF.

    SELECT * FROM {TablaZ} WHERE PROGID = {GN}PROGID
    AND BATCH = {BNUM} AND PROCESSED = SPACE
    ORDER BY OPERATION SEQUENCE.
      CASE {TablaZ}-ID.
)",
                     {{"mensaje", g.Texto(514)}});
    const int grupos = ContarStepLoops(g.especificacion);
    for (int i = 0; i <= grupos; ++i) {
        g.reporte.Linea("        WHEN {id}.", {{"id", std::to_string(i + 1)}});
        if (i == 0) {
            // The prefix of a scalar in the two APPEND lines is on purpose.
            g.reporte.Lineas(R"(
          MOVE {TablaZ}-LINE TO {GT}ITAB.
          APPEND {GS}ITAB.
          MOVE {TablaZ}-OPERATION TO {GT}ITABOPERS.
          APPEND {GS}ITABOPERS.
)");
        } else {
            g.reporte.Lineas(R"(
          MOVE {TablaZ}-LINE TO {GT}ITABSL_{i}.
          APPEND {GT}ITABSL_{i}.
)",
                             {{"i", std::to_string(i)}});
        }
    }
    g.reporte.Lineas(R"(
      ENDCASE.
    ENDSELECT.

  ENDIF.
)");
}

void ImprimirMensajesManejoErrores(Generacion& g) {
    g.reporte.Desde(Lugar::EnOpcion("ErrorHandlingCheck"));
    g.reporte.Lineas(R"(

  IF {GN}ERRORCOUNTER > 0.
    WRITE: / '{fallados}', {GN}ERRORCOUNTER.
    IF {NEWB} = 'X'.
      WRITE: / '{numero}', {GN}MAXNUM.
    ENDIF.
  ELSE.
    WRITE: / '{ninguno}'.
  ENDIF.
)",
                     {{"fallados", g.Texto(506)}, {"numero", g.Texto(507)}, {"ninguno", g.Texto(508)}});
}

void EscribirAddStructures(Generacion& g) {
    g.reporte.Desde(Lugar::EnOpcion("ErrorHandlingCheck"));
    g.reporte.Lineas(R"(

{RULE}
*       FORM ADD_STRUCTURES                                           *
{RULE}
*  -->  PROGID                                                        *
{RULE}
FORM ADD_STRUCTURES USING {LN}PROGID.

  SELECT SINGLE * FROM {TablaZ} WHERE PROGID = {LN}PROGID
  AND BATCH = 0.
  IF SY-SUBRC = 0.
    EXIT.
  ENDIF.

  CLEAR {TablaZ}.
  {TablaZ}-PROGID = {LN}PROGID.
  {TablaZ}-BATCH = 0.
  {TablaZ}-PROCESSED = SPACE.
  {TablaZ}-USERNAME = SPACE.
  {TablaZ}-ID = 0.
)");
    g.reporte.Agregar(g.valores.TextoEstructuras);
    g.reporte.Linea("ENDFORM.{_}{_}{_}{_}");
}

std::string TextoDeTablaZ(const Generacion& g) {
    Reporte texto;
    texto.Definir("titulo", g.Texto(323));
    texto.Definir("antes", g.Texto(396));
    texto.Definir("TablaZ", g.opciones.TablaZ);
    texto.Definir("detras", g.Texto(397));
    texto.Definir("largo", ConCeros(g.valores.AnchoMayor, 5));
    texto.Lineas(R"(
{titulo}

{antes} {TablaZ} {detras}

  FIELD      KEY   DATA ELEM   DTYPE   LENGTH
  -----      ---   ---------   -----   ------{_}
  MANDT       X      MANDT
  PROGID      X                NUMC    00010
  BATCH       X                NUMC    00010
  OPERATION   X                NUMC    00010
  SEQUENCE    X                NUMC    00010
  PROCESSED                    CHAR    00001
  USERNAME           USNAM
  ID                           NUMC    00003
  LENGTH                       INT2    00005
  LINE                         LCHR    {largo}

)");
    return texto.Texto() + g.Texto(398);
}

}  // namespace qor
