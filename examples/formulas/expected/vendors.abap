*---------------------------------------------------------------------*
*   Qor Generator - Batch Input & BAPI-based Interface Generator      *
*   Tessaline. Tools for SAP.                                         *
*---------------------------------------------------------------------*
*   www.tessaline.example                     info@tessaline.example  *
*---------------------------------------------------------------------*
*   Creation date/time: 2004-11-09 11:33:20                           *
*   Main file         : Parameter                                     *
*   Transaction code  : XK01                                          *
*---------------------------------------------------------------------*
*   Status  :   [ ]In process    [ ]Stand by      [x]Finished         *
*   Modified:   [ ]Yes           [x]No                                *
*---------------------------------------------------------------------*
REPORT QOR.

CONSTANTS: YES TYPE C VALUE 'X',
           NO  TYPE C VALUE SPACE.

DATA: BEGIN OF ITAB OCCURS 0,
        LIFNR(10), 
        BUKRS(4), 
        EKORG(4), 
        KTOKK(4), 
        NAME1(35), 
        SORTL(10), 
        STRAS(35), 
        PSTLZ(10), 
        ORT01(35), 
        LAND1(3), 
        SPRAS(1), 
        AKONT(10), 
        CERDT(10), 
        REPRF(3), 
        WAERS(5), 
        MINBW(16), 
      END OF ITAB,
      BEGIN OF BDC_TAB OCCURS 0.
        INCLUDE STRUCTURE BDCDATA.
DATA: END OF BDC_TAB,
      FIRST_TIME TYPE C VALUE YES,  "Yes/No
      BDCNAME LIKE APQI-GROUPID VALUE 'ERR_VENDORS',
      BEGIN OF MESSTAB OCCURS 0.
        INCLUDE STRUCTURE BDCMSGCOLL. 
DATA: END OF MESSTAB,
      ERROR TYPE C,  "Yes/No
      CALLMODE LIKE CTU_PARAMS-DISMODE VALUE 'N',
      PROCESS_FIELDS TYPE C,  "Yes/No
      TCODE LIKE SY-TCODE.

PARAMETERS: FILE(128) DEFAULT 'c:\data\vendors.txt'
            OBLIGATORY LOWER CASE.

START-OF-SELECTION.

  PERFORM READFILE TABLES ITAB USING FILE CHANGING ERROR.
  IF ERROR = YES.
    EXIT.
  ENDIF.

  LOOP AT ITAB.
    PERFORM CONVERSIONS.
    PERFORM GENERATE_BDC_XK01_1 CHANGING TCODE.
    PERFORM INSERT_DATA TABLES BDC_TAB USING TCODE.
  ENDLOOP.

  IF FIRST_TIME = NO.
    CALL FUNCTION  'BDC_CLOSE_GROUP'.
    WRITE: / 'Failed transactions are in session:', BDCNAME.
  ELSE.
    WRITE: / 'No failed transactions, no session created.'.
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

  REFRESH MESSTAB.
  CALL TRANSACTION TCODE
       USING BDC_TAB
       MODE CALLMODE
       UPDATE 'S'
       MESSAGES INTO MESSTAB.
  IF SY-SUBRC NE 0.
    IF FIRST_TIME = YES.
      PERFORM OPEN_GROUP USING BDCNAME.
      FIRST_TIME = NO.
    ENDIF.
    CALL FUNCTION 'BDC_INSERT'
         EXPORTING
           TCODE = TCODE
         TABLES
           DYNPROTAB = BDC_TAB.
  ENDIF.
ENDFORM.

*---------------------------------------------------------------------*
*       FORM GENERATE_BDC_XK01_1                                      *
*---------------------------------------------------------------------*
*  -->  TCODE                                                         *
*---------------------------------------------------------------------*
FORM GENERATE_BDC_XK01_1 CHANGING TCODE.

  TCODE = 'XK01'.
  REFRESH BDC_TAB.
  PROCESS_FIELDS = YES.
  PERFORM DYNPRO USING:
       'X'   'SAPMF02K'     '0100' '',
       ' '   'RF02K-LIFNR'     ITAB-LIFNR '',
       ' '   'RF02K-BUKRS'     ITAB-BUKRS '',
       ' '   'RF02K-EKORG'     ITAB-EKORG '',
       ' '   'RF02K-KTOKK'     ITAB-KTOKK '',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPMF02K'     '0110' '',
       ' '   'LFA1-NAME1'     ITAB-NAME1 '',
       ' '   'LFA1-SORTL'     ITAB-SORTL '',
       ' '   'LFA1-STRAS'     ITAB-STRAS '',
       ' '   'LFA1-PSTLZ'     ITAB-PSTLZ '',
       ' '   'LFA1-ORT01'     ITAB-ORT01 '',
       ' '   'LFA1-LAND1'     ITAB-LAND1 '',
       ' '   'LFA1-SPRAS'     ITAB-SPRAS '',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPMF02K'     '0120' '',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPMF02K'     '0130' '',
       ' '   'BDC_OKCODE'     '=ENTR' '',
       'X'   'SAPMF02K'     '0210' '',
       ' '   'LFB1-AKONT'     ITAB-AKONT '',
       ' '   'LFB1-CERDT'     ITAB-CERDT '',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPMF02K'     '0215' '',
       ' '   'LFB1-REPRF'     ITAB-REPRF '',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPMF02K'     '0220' '',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPMF02K'     '0310' '',
       ' '   'LFM1-WAERS'     ITAB-WAERS '',
       ' '   'LFM1-MINBW'     ITAB-MINBW '',
       ' '   'BDC_OKCODE'     '/11' ''.

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

* Leading zeros: add, by the ALPHA conversion
  CALL FUNCTION 'CONVERSION_EXIT_ALPHA_INPUT'
    EXPORTING
      INPUT  = ITAB-LIFNR
    IMPORTING
      OUTPUT = ITAB-LIFNR.

* Trim: single blanks between words
  CONDENSE ITAB-NAME1.

* Upper case
  TRANSLATE ITAB-SORTL TO UPPER CASE.
* Accented capitals to plain ones
  TRANSLATE ITAB-SORTL
    USING 'ÀAÁAÂAÃAÄAÅAÇC'.
  TRANSLATE ITAB-SORTL
    USING 'ÈEÉEÊEËEÌIÍIÎIÏI'.
  TRANSLATE ITAB-SORTL
    USING 'ÑNÒOÓOÔOÕOÖOÙUÚUÛUÜUÝY'.

* Blank: leave the field of the screen as it is
  IF ITAB-SPRAS EQ SPACE.
    ITAB-SPRAS = '/'.
  ENDIF.

* Leading zeros: add, fields up to 30 characters
  IF ITAB-AKONT NE SPACE.
    IF ITAB-AKONT CO
      '0123456789 '.
      SHIFT ITAB-AKONT RIGHT
        DELETING TRAILING SPACE.
      OVERLAY ITAB-AKONT
        WITH '000000000000000000000000000000'.
    ENDIF.
  ENDIF.

* Date: YYYYMMDD to DD.MM.YYYY
  IF ITAB-CERDT NE SPACE.
    CONCATENATE
      ITAB-CERDT+6(2)
      ITAB-CERDT+4(2)
      ITAB-CERDT(4)
      INTO ITAB-CERDT
      SEPARATED BY '.'.
  ENDIF.
* Date of the run, where the field is blank
  IF ITAB-CERDT EQ SPACE.
    WRITE SY-DATUM TO ITAB-CERDT.
  ENDIF.

* Check box: Y, YES, 1 to X, all others to blank
  TRANSLATE ITAB-REPRF TO UPPER CASE.
  IF ITAB-REPRF EQ 'Y'
    OR ITAB-REPRF EQ 'YES'
    OR ITAB-REPRF EQ '1'
    OR ITAB-REPRF EQ 'X'.
    ITAB-REPRF = 'X'.
  ELSE.
    CLEAR ITAB-REPRF.
  ENDIF.

* Number: 1,234.56 to 1234,56
  TRANSLATE ITAB-MINBW
    USING ', .,'.
  CONDENSE ITAB-MINBW NO-GAPS.

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
         HAS_FIELD_SEPARATOR = 'X'
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
