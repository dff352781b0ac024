*---------------------------------------------------------------------*
*   Qor Generator - Batch Input & BAPI-based Interface Generator      *
*   Tessaline. Tools for SAP.                                         *
*---------------------------------------------------------------------*
*   www.tessaline.example                     info@tessaline.example  *
*---------------------------------------------------------------------*
*   Creation date/time: 2004-11-09 11:33:20                           *
*   Main file         : Parameter                                     *
*   Transaction code  : MM01                                          *
*---------------------------------------------------------------------*
*   Status  :   [ ]In process    [ ]Stand by      [x]Finished         *
*   Modified:   [ ]Yes           [x]No                                *
*---------------------------------------------------------------------*
REPORT QOR.

CONSTANTS: YES TYPE C VALUE 'X',
           NO  TYPE C VALUE SPACE.

DATA: BEGIN OF ITAB OCCURS 0,
        MATNR(18), 
        MBRSH(1), 
        MTART(4), 
        MAKTX(40), 
        MEINS(3), 
        MATKL(9), 
        BRGEW(17), 
        GEWEI(3), 
      END OF ITAB,
      BEGIN OF BDC_TAB OCCURS 0.
        INCLUDE STRUCTURE BDCDATA.
DATA: END OF BDC_TAB,
      FIRST_TIME TYPE C VALUE YES,  "Yes/No
      BDCNAME LIKE APQI-GROUPID VALUE 'QOR_MTerials',
      ERROR TYPE C,  "Yes/No
      PROCESS_FIELDS TYPE C,  "Yes/No
      TCODE LIKE SY-TCODE.

PARAMETERS: DIVISION LIKE MARA-SPART DEFAULT '01'.

PARAMETERS: FILE(128) DEFAULT 'c:\data\materials.txt'
            OBLIGATORY LOWER CASE.

START-OF-SELECTION.

  PERFORM READFILE TABLES ITAB USING FILE CHANGING ERROR.
  IF ERROR = YES.
    EXIT.
  ENDIF.

  LOOP AT ITAB.
    PERFORM CONVERSIONS.
    PERFORM GENERATE_BDC_MM01_1 CHANGING TCODE.
    PERFORM INSERT_DATA TABLES BDC_TAB USING TCODE.
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
*       FORM GENERATE_BDC_MM01_1                                      *
*---------------------------------------------------------------------*
*  -->  TCODE                                                         *
*---------------------------------------------------------------------*
FORM GENERATE_BDC_MM01_1 CHANGING TCODE.

  TCODE = 'MM01'.
  REFRESH BDC_TAB.
  PROCESS_FIELDS = YES.
  PERFORM DYNPRO USING:
       'X'   'SAPLMGMM'     '0060' '',
       ' '   'RMMG1-MATNR'     ITAB-MATNR '',
       ' '   'RMMG1-MBRSH'     ITAB-MBRSH '',
       ' '   'RMMG1-MTART'     ITAB-MTART '',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPLMGMM'     '0070' '',
       ' '   'MSICHTAUSW-KZSEL(1)'     'X' '',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPLMGMM'     '4004' '',
       ' '   'MAKT-MAKTX'     ITAB-MAKTX '',
       ' '   'MARA-MEINS'     ITAB-MEINS '',
       ' '   'MARA-MATKL'     ITAB-MATKL '',
       ' '   'MARA-SPART'     DIVISION '',
       ' '   'MARA-BRGEW'     ITAB-BRGEW 'WITH_WEIGHT',
       ' '   'MARA-GEWEI'     ITAB-GEWEI 'WITH_WEIGHT',
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
  CASE CONDITION.
    WHEN 'WITH_WEIGHT'.
      IF ITAB-BRGEW NE SPACE.
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

  TRANSLATE ITAB-MAKTX TO UPPER CASE.

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
