*---------------------------------------------------------------------*
*   Qor Generator - Batch Input & BAPI-based Interface Generator      *
*   Tessaline. Tools for SAP.                                         *
*---------------------------------------------------------------------*
*   www.tessaline.example                     info@tessaline.example  *
*---------------------------------------------------------------------*
*   Creation date/time: 2004-11-09 11:33:20                           *
*   Main file         : /data/in/postings.txt                         *
*   Transaction code  : FB01;COMPLETE                                 *
*---------------------------------------------------------------------*
*   Status  :   [ ]In process    [ ]Stand by      [x]Finished         *
*   Modified:   [ ]Yes           [x]No                                *
*---------------------------------------------------------------------*
REPORT QOR.

CONSTANTS: YES TYPE C VALUE 'X',
           NO  TYPE C VALUE SPACE.

DATA: BEGIN OF ITAB OCCURS 0,
        BLDAT(8), 
        BLART(2), 
        BUKRS(4), 
        BUDAT(8), 
        WAERS(5), 
        XBLNR(16), 
        BKTXT(25), 
        ACCT_DR(10), 
        ACCT_CR(10), 
        WRBTR(16), 
        KOSTL(10), 
        SGTXT(50), 
      END OF ITAB,
      BEGIN OF BDC_TAB OCCURS 0.
        INCLUDE STRUCTURE BDCDATA.
DATA: END OF BDC_TAB,
      FIRST_TIME TYPE C VALUE YES,  "Yes/No
      BDCNAME LIKE APQI-GROUPID VALUE 'GL_POSTINGS',
      FILE(128) VALUE '/data/in/postings.txt',
      ERROR TYPE C,  "Yes/No
      PROCESS_FIELDS TYPE C,  "Yes/No
      TCODE LIKE SY-TCODE.

DATA: RESULT TYPE C.  "Of the conditions of operations

START-OF-SELECTION.

  PERFORM READFILE TABLES ITAB USING FILE CHANGING ERROR.
  IF ERROR = YES.
    EXIT.
  ENDIF.

  LOOP AT ITAB.
    PERFORM CONVERSIONS.
    PERFORM COND_CHECK USING 'COMPLETE' CHANGING RESULT.
    IF RESULT = YES.
      PERFORM GENERATE_BDC_FB01_1 CHANGING TCODE.
      PERFORM INSERT_DATA TABLES BDC_TAB USING TCODE.
    ENDIF.
  ENDLOOP.

  IF FIRST_TIME = NO.
    CALL FUNCTION  'BDC_CLOSE_GROUP'.
    WRITE: / 'Batch input session created:', BDCNAME.
  ELSE.
    WRITE: / 'No data, no session created.'.
  ENDIF.

  WRITE: / 'Processing finished.'.

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
*       FORM GENERATE_BDC_FB01_1                                      *
*---------------------------------------------------------------------*
*  -->  TCODE                                                         *
*---------------------------------------------------------------------*
FORM GENERATE_BDC_FB01_1 CHANGING TCODE.

  TCODE = 'FB01'.
  REFRESH BDC_TAB.
  PROCESS_FIELDS = YES.
  PERFORM DYNPRO USING:
       'X'   'SAPMF05A'     '0100' '',
       ' '   'BKPF-BLDAT'     ITAB-BLDAT '',
       ' '   'BKPF-BLART'     ITAB-BLART '',
       ' '   'BKPF-BUKRS'     ITAB-BUKRS '',
       ' '   'BKPF-BUDAT'     ITAB-BUDAT '',
       ' '   'BKPF-WAERS'     ITAB-WAERS '',
       ' '   'BKPF-XBLNR'     ITAB-XBLNR '',
       ' '   'BKPF-BKTXT'     ITAB-BKTXT '',
       ' '   'RF05A-NEWBS'     '40' '',
       ' '   'RF05A-NEWKO'     ITAB-ACCT_DR '',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPMF05A'     '0300' '',
       ' '   'BSEG-WRBTR'     ITAB-WRBTR '',
       ' '   'BSEG-SGTXT'     ITAB-SGTXT '',
       ' '   'RF05A-NEWBS'     '50' '',
       ' '   'RF05A-NEWKO'     ITAB-ACCT_CR '',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPLKACB'     '0002' '',
       ' '   'COBL-KOSTL'     ITAB-KOSTL '',
       ' '   'BDC_OKCODE'     '=ENTE' '',
       'X'   'SAPMF05A'     '0300' '',
       ' '   'BSEG-WRBTR'     '*' '',
       ' '   'BSEG-SGTXT'     '+' '',
       ' '   'BDC_OKCODE'     '/11' '',
       'X'   'SAPLKACB'     '0002' '',
       ' '   'BDC_OKCODE'     '=ENTE' ''.

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
      IF FVALUE NE SPACE.
        IF FVALUE = '$'.
          FVALUE = SPACE.
        ENDIF.
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
  CASE CONDITION.
    WHEN 'COMPLETE'.
      IF ITAB-ACCT_DR NE SPACE AND ITAB-ACCT_CR NE SPACE
         AND ITAB-WRBTR NE SPACE.
        RESULT = YES.
      ENDIF.
  ENDCASE.
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

  TRANSLATE ITAB-WRBTR USING '.,'.

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
  AUXERROR = NO.
  OPEN DATASET AUXFILE FOR INPUT IN TEXT MODE  ENCODING DEFAULT.
  IF SY-SUBRC NE 0.
    WRITE: / 'The file could not be opened:',
             AUXFILE.
    AUXERROR = YES.
    EXIT.
  ENDIF.
  DO.
    READ DATASET AUXFILE INTO AUXITAB.
    IF SY-SUBRC NE 0.
      CLOSE DATASET AUXFILE.
      EXIT.
    ENDIF.
    APPEND AUXITAB.
  ENDDO.
ENDFORM.
