*---------------------------------------------------------------------*
*   Qor Generator - Batch Input & BAPI-based Interface Generator      *
*   Tessaline. Tools for SAP.                                         *
*---------------------------------------------------------------------*
*   www.tessaline.example                     info@tessaline.example  *
*---------------------------------------------------------------------*
*   Creation date/time: 2004-11-09 11:33:20                           *
*   Main file         : Parameter                                     *
*   Transaction code  : XD01                                          *
*---------------------------------------------------------------------*
*   Status  :   [ ]In process    [ ]Stand by      [x]Finished         *
*   Modified:   [ ]Yes           [x]No                                *
*---------------------------------------------------------------------*
REPORT QOR.

CONSTANTS: GC_YES TYPE C VALUE 'X',
           GC_NO  TYPE C VALUE SPACE.

DATA: BEGIN OF GT_ITAB OCCURS 0,
        KTOKD(4), 
        BUKRS(4), 
        VKORG(4), 
        VTWEG(2), 
        SPART(2), 
        ANRED(15), 
        NAME1(35), 
        SORTL(10), 
        STRAS(35), 
        PSTLZ(10), 
        ORT01(35), 
        LAND1(3), 
        SPRAS(1), 
        STCEG(20), 
        AKONT(10), 
        ZTERM(4), 
      END OF GT_ITAB,
      BEGIN OF GT_BDC_TAB OCCURS 0.
        INCLUDE STRUCTURE BDCDATA.
DATA: END OF GT_BDC_TAB,
      GS_FIRST_TIME TYPE C VALUE GC_YES,  "Yes/No
      GS_BDCNAME LIKE APQI-GROUPID VALUE 'ERR_CSTomers',
      BEGIN OF GT_MESSTAB OCCURS 0.
        INCLUDE STRUCTURE BDCMSGCOLL. 
DATA: END OF GT_MESSTAB,
      GS_CONVERTED5(1024),
      GS_CONVERTED11(1024),
      GS_ERROR TYPE C,  "Yes/No
      GS_PROCESS_FIELDS TYPE C,  "Yes/No
      GS_TCODE LIKE SY-TCODE.

PARAMETERS: PS_FILE(128) DEFAULT 'c:\data\customers.txt'
            OBLIGATORY LOWER CASE.

PARAMETERS: PS_MODE LIKE CTU_PARAMS-DISMODE OBLIGATORY DEFAULT 'N'.

AT SELECTION-SCREEN ON VALUE-REQUEST FOR PS_FILE.
  CALL FUNCTION 'KD_GET_FILENAME_ON_F4'
       CHANGING
         FILE_NAME      = PS_FILE
       EXCEPTIONS
         MASK_TOO_LONG  = 1
         OTHERS         = 2.

START-OF-SELECTION.

  PERFORM READFILE TABLES GT_ITAB USING PS_FILE CHANGING GS_ERROR.
  IF GS_ERROR = GC_YES.
    EXIT.
  ENDIF.

  LOOP AT GT_ITAB.
    PERFORM CONVERSIONS.
    PERFORM GENERATE_BDC_XD01_1 CHANGING GS_TCODE.
    PERFORM INSERT_DATA TABLES GT_BDC_TAB USING GS_TCODE.
  ENDLOOP.

  IF GS_FIRST_TIME = GC_NO.
    CALL FUNCTION  'BDC_CLOSE_GROUP'.
    WRITE: / 'Failed transactions are in session:', GS_BDCNAME.
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
FORM INSERT_DATA TABLES LT_BDC_TAB STRUCTURE GT_BDC_TAB
                  USING LS_TCODE.

  REFRESH GT_MESSTAB.
  CALL TRANSACTION LS_TCODE
       USING LT_BDC_TAB
       MODE PS_MODE
       UPDATE 'S'
       MESSAGES INTO GT_MESSTAB.
  IF SY-SUBRC NE 0.
    IF GS_FIRST_TIME = GC_YES.
      PERFORM OPEN_GROUP USING GS_BDCNAME.
      GS_FIRST_TIME = GC_NO.
    ENDIF.
    CALL FUNCTION 'BDC_INSERT'
         EXPORTING
           TCODE = LS_TCODE
         TABLES
           DYNPROTAB = LT_BDC_TAB.
  ENDIF.
ENDFORM.

*---------------------------------------------------------------------*
*       FORM GENERATE_BDC_XD01_1                                      *
*---------------------------------------------------------------------*
*  -->  TCODE                                                         *
*---------------------------------------------------------------------*
FORM GENERATE_BDC_XD01_1 CHANGING LS_TCODE.

  LS_TCODE = 'XD01'.
  REFRESH GT_BDC_TAB.
  GS_PROCESS_FIELDS = GC_YES.
  PERFORM DYNPRO USING:
       'X'   'SAPMF02D'     '0100' '',
       ' '   'RF02D-BUKRS'     GT_ITAB-BUKRS '',
       ' '   'RF02D-VKORG'     GT_ITAB-VKORG '',
       ' '   'RF02D-VTWEG'     GT_ITAB-VTWEG '',
       ' '   'RF02D-SPART'     GT_ITAB-SPART '',
       ' '   'RF02D-KTOKD'     GT_ITAB-KTOKD '',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPMF02D'     '0110' '',
       ' '   'KNA1-ANRED'     GS_CONVERTED5 '',
       ' '   'KNA1-NAME1'     GT_ITAB-NAME1 '',
       ' '   'KNA1-SORTL'     GT_ITAB-SORTL '',
       ' '   'KNA1-STRAS'     GT_ITAB-STRAS '',
       ' '   'KNA1-PSTLZ'     GT_ITAB-PSTLZ '',
       ' '   'KNA1-ORT01'     GT_ITAB-ORT01 '',
       ' '   'KNA1-LAND1'     GS_CONVERTED11 '',
       ' '   'KNA1-SPRAS'     GT_ITAB-SPRAS '',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPMF02D'     '0120' '',
       ' '   'KNA1-STCEG'     GT_ITAB-STCEG 'IN_THE_UNION',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPMF02D'     '0130' '',
       ' '   'BDC_OKCODE'     '=ENTR' '',
       'X'   'SAPMF02D'     '0210' 'WITH_COMPANY',
       ' '   'KNB1-AKONT'     GT_ITAB-AKONT '',
       ' '   'BDC_OKCODE'     '/00' '',
       'X'   'SAPMF02D'     '0215' 'WITH_COMPANY',
       ' '   'KNB1-ZTERM'     GT_ITAB-ZTERM '',
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
FORM DYNPRO USING LS_DYNBEGIN LS_NAME LS_FVALUE LS_CONDITION.

  DATA: LS_RESULT TYPE C.  "Yes/No

  CLEAR GT_BDC_TAB.
  IF LS_DYNBEGIN = 'X'.
    GS_PROCESS_FIELDS = GC_YES.
    MOVE:  LS_NAME TO GT_BDC_TAB-PROGRAM,
           LS_FVALUE TO GT_BDC_TAB-DYNPRO,
          'X'  TO GT_BDC_TAB-DYNBEGIN.
    IF LS_CONDITION = SPACE.
      APPEND GT_BDC_TAB.
    ELSE.
      PERFORM COND_CHECK USING LS_CONDITION CHANGING LS_RESULT.
      IF LS_RESULT = GC_YES.
        APPEND GT_BDC_TAB.
      ELSE.
        GS_PROCESS_FIELDS = GC_NO.
      ENDIF.
    ENDIF.
  ELSE.
    IF GS_PROCESS_FIELDS = GC_YES.
      MOVE:  LS_NAME TO GT_BDC_TAB-FNAM,
             LS_FVALUE TO GT_BDC_TAB-FVAL.
      IF LS_CONDITION = SPACE.
        APPEND GT_BDC_TAB.
      ELSE.
        PERFORM COND_CHECK USING LS_CONDITION CHANGING LS_RESULT.
        IF LS_RESULT = GC_YES.
          APPEND GT_BDC_TAB.
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
FORM COND_CHECK USING LS_CONDITION CHANGING LS_RESULT.
  LS_RESULT = GC_NO.
  CASE LS_CONDITION.
    WHEN 'IN_THE_UNION'.
      CASE GT_ITAB-LAND1.
        WHEN 'CH'.
          LS_RESULT = GC_NO.
        WHEN OTHERS.
          LS_RESULT = GC_YES.
      ENDCASE.
    WHEN 'WITH_COMPANY'.
      IF GT_ITAB-BUKRS NE SPACE.
        LS_RESULT = GC_YES.
      ENDIF.
  ENDCASE.
ENDFORM.

*---------------------------------------------------------------------*
*       FORM OPEN_GROUP                                               *
*---------------------------------------------------------------------*
*  -->  BDCNAME                                                       *
*---------------------------------------------------------------------*
FORM OPEN_GROUP USING LS_BDCNAME.
  CALL FUNCTION 'BDC_OPEN_GROUP'
       EXPORTING
         CLIENT = SY-MANDT
         GROUP = LS_BDCNAME
         User = SY-UNAME
         KEEP   = 'X'.
ENDFORM.

*---------------------------------------------------------------------*
*       FORM CONVERSIONS                                              *
*---------------------------------------------------------------------*
FORM CONVERSIONS.

  TRANSLATE GT_ITAB-SORTL TO UPPER CASE.

  CASE GT_ITAB-ANRED.
    WHEN '1'.
      GS_CONVERTED5 = 'Firma'.
    WHEN '2'.
      GS_CONVERTED5 = 'Herr'.
    WHEN '3'.
      GS_CONVERTED5 = 'Frau'.
    WHEN OTHERS.
      GS_CONVERTED5 = GT_ITAB-ANRED.
  ENDCASE.

  CASE GT_ITAB-LAND1.
    WHEN 'D'.
      GS_CONVERTED11 = 'DE'.
    WHEN 'A'.
      GS_CONVERTED11 = 'AT'.
    WHEN 'CH'.
      GS_CONVERTED11 = 'CH'.
    WHEN 'E'.
      GS_CONVERTED11 = 'ES'.
    WHEN OTHERS.
      GS_CONVERTED11 = GT_ITAB-LAND1.
  ENDCASE.

ENDFORM.

*---------------------------------------------------------------------*
*       FORM READFILE                                                 *
*---------------------------------------------------------------------*
*  -->  AUXITAB                                                       *
*  -->  AUXFILE                                                       *
*  -->  AUXERROR                                                      *
*---------------------------------------------------------------------*
FORM READFILE TABLES LT_AUXITAB USING LS_AUXFILE
              CHANGING LS_AUXERROR.

  DATA: LS_FILESTRING TYPE STRING.

  LS_FILESTRING = LS_AUXFILE.

  CALL FUNCTION 'GUI_UPLOAD'
       EXPORTING
         FILENAME = LS_FILESTRING
         FILETYPE = 'ASC'
         HAS_FIELD_SEPARATOR = 'X'
       TABLES
         DATA_TAB = LT_AUXITAB
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
             LS_AUXFILE.
    LS_AUXERROR = GC_YES.
    EXIT.
  ELSE.
    LS_AUXERROR = GC_NO.
  ENDIF.
ENDFORM.
