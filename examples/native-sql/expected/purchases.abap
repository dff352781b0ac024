*---------------------------------------------------------------------*
*   Qor Generator - Batch Input & BAPI-based Interface Generator      *
*   Tessaline. Tools for SAP.                                         *
*---------------------------------------------------------------------*
*   www.tessaline.example                     info@tessaline.example  *
*---------------------------------------------------------------------*
*   Creation date/time: 2004-11-09 11:33:20                           *
*   Main table        : zpo_head                                      *
*   Step-Loop table 1 : zpo_item                                      *
*   Transaction code  : ME21                                          *
*---------------------------------------------------------------------*
*   Status  :   [ ]In process    [ ]Stand by      [x]Finished         *
*   Modified:   [ ]Yes           [x]No                                *
*---------------------------------------------------------------------*
REPORT QOR.

CONSTANTS: YES TYPE C VALUE 'X',
           NO  TYPE C VALUE SPACE.

DATA: BEGIN OF ITAB OCCURS 0,
        PONUM(10), 
        LIFNR(10), 
        BSART(4), 
        EKORG(4), 
        EKGRP(3), 
      END OF ITAB,
      BEGIN OF ITABSL_1 OCCURS 0,
        MATNR(18), 
        MENGE(13), 
        WERKS(4), 
        NETPR(11), 
      END OF ITABSL_1,
      BEGIN OF BDC_TAB OCCURS 0.
        INCLUDE STRUCTURE BDCDATA.
DATA: END OF BDC_TAB,
      FIRST_TIME TYPE C VALUE YES,  "Yes/No
      BDCNAME LIKE APQI-GROUPID VALUE 'QOR_PRCHases',
      PROCESS_FIELDS TYPE C,  "Yes/No
      TCODE LIKE SY-TCODE.

START-OF-SELECTION.

  EXEC SQL PERFORMING TABLE_PROCESSING.
    SELECT
       PONUM,
       LIFNR,
       BSART,
       EKORG,
       EKGRP
    INTO
       :ITAB-PONUM,
       :ITAB-LIFNR,
       :ITAB-BSART,
       :ITAB-EKORG,
       :ITAB-EKGRP
    FROM ZPO_HEAD
  ENDEXEC.

  IF FIRST_TIME = NO.
    CALL FUNCTION  'BDC_CLOSE_GROUP'.
    WRITE: / 'Batch input session created:', BDCNAME.
  ELSE.
    WRITE: / 'No data, no session created.'.
  ENDIF.

  WRITE: / 'Processing finished.'.

*---------------------------------------------------------------------*
*       FORM TABLE_PROCESSING                                         *
*---------------------------------------------------------------------*
FORM TABLE_PROCESSING.
  PERFORM CONVERSIONS.
  PERFORM GENERATE_BDC_ME21_1 CHANGING TCODE.
  PERFORM INSERT_DATA TABLES BDC_TAB USING TCODE.
ENDFORM.

*---------------------------------------------------------------------*
*       FORM INSERT_DATA                                              *
*---------------------------------------------------------------------*
*  -->  BDC_TAB                                                       *
*  -->  TCODE                                                         *
*---------------------------------------------------------------------*
FORM INSERT_DATA TABLES BDC_TAB STRUCTURE BDC_TAB
                  USING TCODE.

  IF FIRST_TIME = YES.
    PERFORM OPEN_GROUP USING BDCNAME.
    FIRST_TIME = NO.
  ENDIF.
  CALL FUNCTION 'BDC_INSERT'
       EXPORTING
         TCODE = TCODE
       TABLES
         DYNPROTAB = BDC_TAB.
ENDFORM.

*---------------------------------------------------------------------*
*       FORM GENERATE_BDC_ME21_1                                      *
*---------------------------------------------------------------------*
*  -->  TCODE                                                         *
*---------------------------------------------------------------------*
FORM GENERATE_BDC_ME21_1 CHANGING TCODE.

  TCODE = 'ME21'.
  REFRESH BDC_TAB.
  PROCESS_FIELDS = YES.
  PERFORM DYNPRO USING:
       'X'   'SAPMM06E'     '0100' '',
       ' '   'EKKO-LIFNR'     ITAB-LIFNR '',
       ' '   'RM06E-BSART'     ITAB-BSART '',
       ' '   'EKKO-EKORG'     ITAB-EKORG '',
       ' '   'EKKO-EKGRP'     ITAB-EKGRP '',
       ' '   'BDC_OKCODE'     '=KOPF' '',
       'X'   'SAPMM06E'     '0101' '',
       ' '   'EKKO-IHREZ'     ITAB-PONUM '',
       ' '   'BDC_OKCODE'     '=ENTE' '',
       'X'   'SAPMM06E'     '0120' ''.
  PERFORM TABFORM_1.
  PERFORM DYNPRO USING:
       ' '   'BDC_OKCODE'     '=BU' ''.

ENDFORM.

*---------------------------------------------------------------------*
*       FORM DYNPRO                                                   *
*---------------------------------------------------------------------*
*  -->  DYNBEGIN                                                      *
*  -->  NAME                                                          *
*  -->  FVALUE                                                        *
*  -->  CONDITION                                                     *
*---------------------------------------------------------------------*
FORM DYNPRO USING DYNBEGIN NAME FVALUE CONDITION.

  DATA: RESULT TYPE C.  "Yes/No

  CLEAR BDC_TAB.
  IF DYNBEGIN = 'X'.
    PROCESS_FIELDS = YES.
    MOVE:  NAME TO BDC_TAB-PROGRAM,
           FVALUE TO BDC_TAB-DYNPRO,
          'X'  TO BDC_TAB-DYNBEGIN.
    IF CONDITION = SPACE.
      APPEND BDC_TAB.
    ELSE.
      PERFORM COND_CHECK USING CONDITION CHANGING RESULT.
      IF RESULT = YES.
        APPEND BDC_TAB.
      ELSE.
        PROCESS_FIELDS = NO.
      ENDIF.
    ENDIF.
  ELSE.
    IF PROCESS_FIELDS = YES.
      MOVE:  NAME TO BDC_TAB-FNAM,
             FVALUE TO BDC_TAB-FVAL.
      IF CONDITION = SPACE.
        APPEND BDC_TAB.
      ELSE.
        PERFORM COND_CHECK USING CONDITION CHANGING RESULT.
        IF RESULT = YES.
          APPEND BDC_TAB.
        ENDIF.
      ENDIF.
    ENDIF.
  ENDIF.
ENDFORM.

*---------------------------------------------------------------------*
*       FORM COND_CHECK                                               *
*---------------------------------------------------------------------*
*  -->  CONDITION                                                     *
*  -->  RESULT                                                        *
*---------------------------------------------------------------------*
FORM COND_CHECK USING CONDITION CHANGING RESULT.
  RESULT = NO.
ENDFORM.

*---------------------------------------------------------------------*
*       FORM OPEN_GROUP                                               *
*---------------------------------------------------------------------*
*  -->  BDCNAME                                                       *
*---------------------------------------------------------------------*
FORM OPEN_GROUP USING BDCNAME.
  CALL FUNCTION 'BDC_OPEN_GROUP'
       EXPORTING
         CLIENT = SY-MANDT
         GROUP = BDCNAME
         User = SY-UNAME
         KEEP   = 'X'.
ENDFORM.

*---------------------------------------------------------------------*
*       FORM CONVERSIONS                                              *
*---------------------------------------------------------------------*
FORM CONVERSIONS.

* Only the items of this order are sent:
* forget those of the one before.
  REFRESH ITABSL_1.

ENDFORM.

*---------------------------------------------------------------------*
*       FORM TABFORM_1                                                *
*---------------------------------------------------------------------*
FORM TABFORM_1.

  DATA: ROWSPERSCREEN(3) TYPE N,
        POSITION(3) TYPE N.

  ROWSPERSCREEN = 12.
  POSITION = 1.

  EXEC SQL PERFORMING SL_PROCESSING_1.
    SELECT
       MATNR,
       MENGE,
       WERKS,
       NETPR
    INTO
       :ITABSL_1-MATNR,
       :ITABSL_1-MENGE,
       :ITABSL_1-WERKS,
       :ITABSL_1-NETPR
    FROM ZPO_ITEM
    WHERE
       PONUM = :ITAB-PONUM
  ENDEXEC.

  LOOP AT ITABSL_1.
    PERFORM SL_SEND USING 'EKPO-EMATN' POSITION
      ITABSL_1-MATNR ' '.
    PERFORM SL_SEND USING 'EKPO-MENGE' POSITION
      ITABSL_1-MENGE ' '.
    PERFORM SL_SEND USING 'EKPO-WERKS' POSITION
      ITABSL_1-WERKS ' '.
    PERFORM SL_SEND USING 'EKPO-NETPR' POSITION
      ITABSL_1-NETPR ' '.
    POSITION = POSITION + 1.
    IF POSITION > ROWSPERSCREEN.
      PERFORM DYNPRO USING ' ' 'BDC_OKCODE' '=NP' ''.
      PERFORM DYNPRO USING 'X' 'SAPMM06E' '0120' ' '.
      POSITION = 1.
    ENDIF.

  ENDLOOP.

ENDFORM.

*---------------------------------------------------------------------*
*       FORM SL_PROCESSING_1                                          *
*---------------------------------------------------------------------*
FORM SL_PROCESSING_1.
  APPEND ITABSL_1.
ENDFORM.

*---------------------------------------------------------------------*
*       FORM SL_SEND                                                  *
*---------------------------------------------------------------------*
*  -->  FIELD                                                         *
*  -->  POSITION                                                      *
*  -->  FVALUE                                                        *
*  -->  CONDITION                                                     *
*---------------------------------------------------------------------*
FORM SL_SEND USING FIELD POSITION FVALUE CONDITION.
  DATA: SLFIELD(1024),
        POS(3).
  WRITE POSITION TO POS.
  SHIFT POS LEFT DELETING LEADING '0'.
  CONCATENATE FIELD '(' POS ')' INTO SLFIELD.
  PERFORM DYNPRO USING SPACE SLFIELD FVALUE CONDITION.
ENDFORM.
