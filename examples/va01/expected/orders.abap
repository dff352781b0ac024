*---------------------------------------------------------------------*
*   Qor Generator - Batch Input & BAPI-based Interface Generator      *
*   Tessaline. Tools for SAP.                                         *
*---------------------------------------------------------------------*
*   www.tessaline.example                     info@tessaline.example  *
*---------------------------------------------------------------------*
*   Creation date/time: 2004-11-09 11:33:20                           *
*   Main file         : Parameter                                     *
*   Step-Loop file 1  : Parameter                                     *
*   Transaction code  : VA01                                          *
*---------------------------------------------------------------------*
*   Status  :   [ ]In process    [ ]Stand by      [x]Finished         *
*   Modified:   [ ]Yes           [x]No                                *
*---------------------------------------------------------------------*
REPORT QOR.

CONSTANTS: YES TYPE C VALUE 'X',
           NO  TYPE C VALUE SPACE.

DATA: BEGIN OF ITAB OCCURS 0,
        BSTKD(20), 
        AUART(4), 
        VKORG(4), 
        VTWEG(2), 
        SPART(2), 
        KUNNR(10), 
      END OF ITAB,
      BEGIN OF ITABSL_1 OCCURS 0,
        BSTKD(20), 
        MATNR(18), 
        KWMENG(13), 
        VRKME(3), 
      END OF ITABSL_1,
      BEGIN OF BDC_TAB OCCURS 0.
        INCLUDE STRUCTURE BDCDATA.
DATA: END OF BDC_TAB,
      FIRST_TIME TYPE C VALUE YES,  "Yes/No
      BEGIN OF MESSTAB OCCURS 0.
        INCLUDE STRUCTURE BDCMSGCOLL. 
DATA: END OF MESSTAB,
      CONVERTED8(1024),
      ERROR TYPE C,  "Yes/No
      CALLMODE LIKE CTU_PARAMS-DISMODE VALUE 'E',
      PROCESS_FIELDS TYPE C,  "Yes/No
      TCODE LIKE SY-TCODE.

PARAMETERS: FILE(128) DEFAULT 'c:\data\orders.txt'
            OBLIGATORY LOWER CASE,
            SLOOP_1(128) DEFAULT 'c:\data\items.txt'
            OBLIGATORY LOWER CASE.

START-OF-SELECTION.

  PERFORM READFILE TABLES ITAB USING FILE CHANGING ERROR.
  IF ERROR = YES.
    EXIT.
  ENDIF.

  PERFORM READFILE TABLES ITABSL_1 USING SLOOP_1 CHANGING ERROR.
  IF ERROR = YES.
    EXIT.
  ENDIF.

  LOOP AT ITAB.
    PERFORM GENERATE_BDC_VA01_1 CHANGING TCODE.
    PERFORM INSERT_DATA TABLES BDC_TAB USING TCODE.
  ENDLOOP.

  WRITE: / 'Processing finished.'.

*---------------------------------------------------------------------*
*       FORM INSERT_DATA                                              *
*---------------------------------------------------------------------*
*  -->  BDC_TAB                                                       *
*  -->  TCODE                                                         *
*---------------------------------------------------------------------*
FORM INSERT_DATA TABLES BDC_TAB STRUCTURE BDC_TAB
                  USING TCODE.

  REFRESH MESSTAB.
  CALL TRANSACTION TCODE
       USING BDC_TAB
       MODE CALLMODE
       UPDATE 'S'
       MESSAGES INTO MESSTAB.
ENDFORM.

*---------------------------------------------------------------------*
*       FORM GENERATE_BDC_VA01_1                                      *
*---------------------------------------------------------------------*
*  -->  TCODE                                                         *
*---------------------------------------------------------------------*
FORM GENERATE_BDC_VA01_1 CHANGING TCODE.

  TCODE = 'VA01'.
  REFRESH BDC_TAB.
  PROCESS_FIELDS = YES.
  PERFORM DYNPRO USING:
       'X'   'SAPMV45A'     '0101' '',
       ' '   'VBAK-AUART'     ITAB-AUART '',
       ' '   'VBAK-VKORG'     ITAB-VKORG '',
       ' '   'VBAK-VTWEG'     ITAB-VTWEG '',
       ' '   'VBAK-SPART'     ITAB-SPART '',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPMV45A'     '4001' '',
       ' '   'VBKD-BSTKD'     ITAB-BSTKD '',
       ' '   'KUAGV-KUNNR'     ITAB-KUNNR ''.
  PERFORM TABFORM_1.
  PERFORM DYNPRO USING:
       ' '   'BDC_OKCODE'     '=SICH' ''.

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
*       FORM TABCONVERSIONS                                           *
*---------------------------------------------------------------------*
FORM TABCONVERSIONS.

  CASE ITABSL_1-VRKME.
    WHEN 'PC'.
      CONVERTED8 = 'ST'.
    WHEN 'BX'.
      CONVERTED8 = 'KAR'.
    WHEN OTHERS.
      CONVERTED8 = ITABSL_1-VRKME.
  ENDCASE.

ENDFORM.

*---------------------------------------------------------------------*
*       FORM READFILE                                                 *
*---------------------------------------------------------------------*
*  -->  AUXITAB                                                       *
*  -->  AUXFILE                                                       *
*  -->  AUXERROR                                                      *
*---------------------------------------------------------------------*
FORM READFILE TABLES AUXITAB USING AUXFILE
              CHANGING AUXERROR.

  DATA: FILESTRING TYPE STRING.

  FILESTRING = AUXFILE.

  CALL FUNCTION 'GUI_UPLOAD'
       EXPORTING
         FILENAME = FILESTRING
         FILETYPE = 'ASC'
         HAS_FIELD_SEPARATOR = SPACE
       TABLES
         DATA_TAB = AUXITAB
       EXCEPTIONS
         FILE_OPEN_ERROR = 1
         FILE_READ_ERROR = 2
         NO_BATCH = 3
         GUI_REFUSE_FILETRANSFER = 4
         INVALID_TYPE = 5
         NO_AUTHORITY = 6
         UNKNOWN_ERROR = 7
         BAD_DATA_FORMAT = 8
         HEADER_NOT_ALLOWED = 9
         SEPARATOR_NOT_ALLOWED = 10
         HEADER_TOO_LONG = 11
         UNKNOWN_DP_ERROR = 12
         ACCESS_DENIED = 13
         DP_OUT_OF_MEMORY = 14
         DISK_FULL = 15
         DP_TIMEOUT = 16
         OTHERS = 17.

  IF SY-SUBRC NE 0.
    WRITE: / 'The file could not be opened:',
             AUXFILE.
    AUXERROR = YES.
    EXIT.
  ELSE.
    AUXERROR = NO.
  ENDIF.
ENDFORM.

*---------------------------------------------------------------------*
*       FORM TABFORM_1                                                *
*---------------------------------------------------------------------*
FORM TABFORM_1.

  DATA: ROWSPERSCREEN(3) TYPE N,
        POSITION(3) TYPE N.

  ROWSPERSCREEN = 5.
  POSITION = 1.

  LOOP AT ITABSL_1 WHERE
       BSTKD = ITAB-BSTKD.

    PERFORM TABCONVERSIONS.
    PERFORM SL_SEND USING 'RV45A-MABNR' POSITION
      ITABSL_1-MATNR ' '.
    PERFORM SL_SEND USING 'RV45A-KWMENG' POSITION
      ITABSL_1-KWMENG ' '.
    PERFORM SL_SEND USING 'VBAP-VRKME' POSITION
      CONVERTED8 ' '.
    POSITION = POSITION + 1.
    IF POSITION > ROWSPERSCREEN.
      PERFORM DYNPRO USING ' ' 'BDC_OKCODE' '=POAN' ''.
      PERFORM DYNPRO USING 'X' 'SAPMV45A' '4001' ' '.
      POSITION = 2.
    ENDIF.

  ENDLOOP.

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
