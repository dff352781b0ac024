*---------------------------------------------------------------------*
*   Qor Generator - Batch Input & BAPI-based Interface Generator      *
*   Tessaline. Tools for SAP.                                         *
*---------------------------------------------------------------------*
*   www.tessaline.example                     info@tessaline.example  *
*---------------------------------------------------------------------*
*   Creation date/time: 2004-11-09 11:33:20                           *
*   Main file         : Parameter                                     *
*   Transaction code  : VA01                                          *
*---------------------------------------------------------------------*
*   Status  :   [ ]In process    [ ]Stand by      [x]Finished         *
*   Modified:   [ ]Yes           [x]No                                *
*---------------------------------------------------------------------*
REPORT QOR.

CONSTANTS: YES TYPE C VALUE 'X',
           NO  TYPE C VALUE SPACE.

TABLES: ZDATAERRORS.

DATA: BEGIN OF ITAB OCCURS 0,
        AUTOCOUNTER(10) TYPE N,
        BSTKD(20), 
        AUART(4), 
        VKORG(4), 
        VTWEG(2), 
        SPART(2), 
        KUNNR(10), 
      END OF ITAB,
      BEGIN OF ITABSL_1 OCCURS 0,
        AUTOCOUNTER(10) TYPE N,
        MATNR(18), 
        KWMENG(13), 
        VRKME(3), 
      END OF ITABSL_1,
      BEGIN OF BDC_TAB OCCURS 0.
        INCLUDE STRUCTURE BDCDATA.
DATA: END OF BDC_TAB,
      FIRST_TIME TYPE C VALUE YES,  "Yes/No
      BDCNAME LIKE APQI-GROUPID VALUE 'ERR_ORDERS',
      BEGIN OF MESSTAB OCCURS 0.
        INCLUDE STRUCTURE BDCMSGCOLL. 
DATA: END OF MESSTAB,
      CONVERTED8(1024),
      BEGIN OF MULTITAB OCCURS 0,
        ID(1),
        LINE(42),
      END OF MULTITAB,
      BEGIN OF DATAERRORS OCCURS 0,
        ID(3) TYPE N,
        LINE(256),
      END OF DATAERRORS,
      PROGID(10) TYPE N,
      AUXSEQUENCE(10) TYPE N,
      BEGIN OF ITABOPERS OCCURS 0,
        OPERATION(10) TYPE N,
      END OF ITABOPERS,
      ERRORCOUNTER(8) TYPE N,
      MAXNUM(10) TYPE N,
      OPERATION(10) TYPE N,
      DATAERRORSFOUND TYPE C,  "Yes/No
      AUTOCOUNTER(10) TYPE N,
      ERROR TYPE C,  "Yes/No
      PROCESS_FIELDS TYPE C,  "Yes/No
      TCODE LIKE SY-TCODE.

SELECTION-SCREEN BEGIN OF BLOCK PROGOPT WITH FRAME.
PARAMETERS: NEWBATCH RADIOBUTTON GROUP RADB DEFAULT 'X'.

PARAMETERS: FILE(128) DEFAULT 'c:\data\orders.txt'
            LOWER CASE.

PARAMETERS: CALLMODE LIKE CTU_PARAMS-DISMODE OBLIGATORY DEFAULT 'N'.
SELECTION-SCREEN SKIP 1.
PARAMETERS: OLDBATCH RADIOBUTTON GROUP RADB,
            BATCHNUM(10).
SELECTION-SCREEN END OF BLOCK PROGOPT.

START-OF-SELECTION.

  PROGID = 4501.

  PERFORM ADD_STRUCTURES USING PROGID.

  IF NEWBATCH = 'X'.

    PERFORM READFILE TABLES MULTITAB USING FILE CHANGING ERROR.
    IF ERROR = YES.
      EXIT.
    ENDIF.

    AUTOCOUNTER = 0.

    LOOP AT MULTITAB.
      CASE MULTITAB-ID.
      WHEN 'H'.
        AUTOCOUNTER = AUTOCOUNTER + 1.
        MOVE AUTOCOUNTER TO ITAB-AUTOCOUNTER.
        MOVE MULTITAB-LINE TO ITAB+10.
        APPEND ITAB.
      WHEN 'I'.
        MOVE AUTOCOUNTER TO ITABSL_1-AUTOCOUNTER.
        MOVE MULTITAB-LINE TO ITABSL_1+10.
        APPEND ITABSL_1.
      ENDCASE.
    ENDLOOP.

  ELSE.

    IF BATCHNUM = SPACE.
      WRITE: / 'Please enter the number of the run to repeat.'.
      EXIT.
    ENDIF.

    SELECT * FROM ZDATAERRORS WHERE PROGID = PROGID
    AND BATCH = BATCHNUM AND PROCESSED = SPACE
    ORDER BY OPERATION SEQUENCE.
      CASE ZDATAERRORS-ID.
        WHEN 1.
          MOVE ZDATAERRORS-LINE TO ITAB.
          APPEND ITAB.
          MOVE ZDATAERRORS-OPERATION TO ITABOPERS.
          APPEND ITABOPERS.
        WHEN 2.
          MOVE ZDATAERRORS-LINE TO ITABSL_1.
          APPEND ITABSL_1.
      ENDCASE.
    ENDSELECT.

  ENDIF.

  LOOP AT ITAB.
    DATAERRORSFOUND = NO.
    REFRESH DATAERRORS.
    IF NEWBATCH = 'X'.
      OPERATION = OPERATION + 1.
      DATAERRORS-ID = 1.
      MOVE ITAB TO DATAERRORS-LINE.
      APPEND DATAERRORS.
    ELSE.
      READ TABLE ITABOPERS INDEX SY-TABIX.
    ENDIF.
    PERFORM GENERATE_BDC_VA01_1 CHANGING TCODE.
    PERFORM INSERT_DATA TABLES BDC_TAB USING TCODE.
    PERFORM INSERT_DATAERRORS.
  ENDLOOP.

  IF FIRST_TIME = NO.
    CALL FUNCTION  'BDC_CLOSE_GROUP'.
    WRITE: / 'Failed transactions are in session:', BDCNAME.
  ELSE.
    WRITE: / 'No failed transactions, no session created.'.
  ENDIF.

  IF ERRORCOUNTER > 0.
    WRITE: / 'Records with errors:', ERRORCOUNTER.
    IF NEWBATCH = 'X'.
      WRITE: / 'Number of this run in the table:', MAXNUM.
    ENDIF.
  ELSE.
    WRITE: / 'No errors occurred.'.
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

  IF DATAERRORSFOUND = YES.
    EXIT.
  ENDIF.

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
    DATAERRORS-ID = 0.
    LOOP AT MESSTAB.
      CALL FUNCTION 'MESSAGE_PREPARE'
           EXPORTING
                LANGUAGE               = SY-LANGU
                MSG_ID                 = MESSTAB-MSGID
                MSG_NO                 = MESSTAB-MSGNR
                MSG_VAR1               = MESSTAB-MSGV1(50)
                MSG_VAR2               = MESSTAB-MSGV2(50)
                MSG_VAR3               = MESSTAB-MSGV3(50)
                MSG_VAR4               = MESSTAB-MSGV4(50)
           IMPORTING
                MSG_TEXT               = DATAERRORS-LINE
           EXCEPTIONS
                FUNCTION_NOT_COMPLETED = 1
                MESSAGE_NOT_FOUND = 2
                OTHERS = 3.
      IF SY-SUBRC = 0.
        APPEND DATAERRORS.
      ENDIF.
    ENDLOOP.
    DATAERRORSFOUND = YES.
  ENDIF.
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
*       FORM INSERT_DATAERRORS                                        *
*---------------------------------------------------------------------*
FORM INSERT_DATAERRORS.

  IF NEWBATCH = 'X'.

    IF DATAERRORSFOUND = YES.

      ERRORCOUNTER = ERRORCOUNTER + 1.
      IF ERRORCOUNTER = 1.
        SELECT MAX( BATCH ) INTO MAXNUM FROM ZDATAERRORS.
        MAXNUM = MAXNUM + 1.
      ENDIF.

      MOVE PROGID TO ZDATAERRORS-PROGID.
      MOVE MAXNUM TO ZDATAERRORS-BATCH.
      MOVE OPERATION TO ZDATAERRORS-OPERATION.
      MOVE SPACE TO ZDATAERRORS-PROCESSED.
      MOVE SY-UNAME TO ZDATAERRORS-USERNAME.

      LOOP AT DATAERRORS.
        MOVE SY-TABIX TO ZDATAERRORS-SEQUENCE.
        MOVE DATAERRORS-ID TO ZDATAERRORS-ID.
        ZDATAERRORS-LENGTH = STRLEN( DATAERRORS-LINE ).
        MOVE DATAERRORS-LINE TO ZDATAERRORS-LINE.
        INSERT ZDATAERRORS.
      ENDLOOP.

    ENDIF.

  ELSE.

    IF DATAERRORSFOUND = YES.

      ERRORCOUNTER = ERRORCOUNTER + 1.

      DELETE FROM ZDATAERRORS WHERE PROGID = PROGID
                  AND BATCH = BATCHNUM
                  AND OPERATION = ITABOPERS-OPERATION AND ID = 0.

      SELECT MAX( SEQUENCE ) INTO AUXSEQUENCE FROM ZDATAERRORS
                  WHERE PROGID = PROGID
                  AND BATCH = BATCHNUM
                  AND OPERATION = ITABOPERS-OPERATION.

      MOVE ITABOPERS-OPERATION TO ZDATAERRORS-OPERATION.
      MOVE SPACE TO ZDATAERRORS-PROCESSED.
      MOVE SY-UNAME TO ZDATAERRORS-USERNAME.
      AUXSEQUENCE = AUXSEQUENCE + 1.

      LOOP AT DATAERRORS.
        MOVE AUXSEQUENCE TO ZDATAERRORS-SEQUENCE.
        MOVE DATAERRORS-ID TO ZDATAERRORS-ID.
        ZDATAERRORS-LENGTH = STRLEN( DATAERRORS-LINE ).
        MOVE DATAERRORS-LINE TO ZDATAERRORS-LINE.
        INSERT ZDATAERRORS.
        AUXSEQUENCE = AUXSEQUENCE + 1.
      ENDLOOP.

    ELSE.

      UPDATE ZDATAERRORS SET PROCESSED = 'X'
                 WHERE PROGID = PROGID
                 AND BATCH = BATCHNUM
                 AND OPERATION = ITABOPERS-OPERATION.

    ENDIF.
  ENDIF.
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

  DATA: POSITION(3) TYPE N.

  POSITION = 1.

  LOOP AT ITABSL_1 WHERE
       AUTOCOUNTER = ITAB-AUTOCOUNTER.

    IF NEWBATCH = 'X'.
      DATAERRORS-ID = 2.
      MOVE ITABSL_1 TO DATAERRORS-LINE.
      APPEND DATAERRORS.
    ENDIF.

    PERFORM TABCONVERSIONS.
    PERFORM SL_SEND USING 'RV45A-MABNR' POSITION
      ITABSL_1-MATNR ' '.
    PERFORM SL_SEND USING 'RV45A-KWMENG' POSITION
      ITABSL_1-KWMENG ' '.
    PERFORM SL_SEND USING 'VBAP-VRKME' POSITION
      CONVERTED8 ' '.
    PERFORM DYNPRO USING ' ' 'BDC_OKCODE' '=POAN' ''.
    PERFORM DYNPRO USING 'X' 'SAPMV45A' '4001' ' '.
    POSITION = 2.

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

*---------------------------------------------------------------------*
*       FORM ADD_STRUCTURES                                           *
*---------------------------------------------------------------------*
*  -->  PROGID                                                        *
*---------------------------------------------------------------------*
FORM ADD_STRUCTURES USING PROGID.

  SELECT SINGLE * FROM ZDATAERRORS WHERE PROGID = PROGID
  AND BATCH = 0.
  IF SY-SUBRC = 0.
    EXIT.
  ENDIF.

  CLEAR ZDATAERRORS.
  ZDATAERRORS-PROGID = PROGID.
  ZDATAERRORS-BATCH = 0.
  ZDATAERRORS-PROCESSED = SPACE.
  ZDATAERRORS-USERNAME = SPACE.
  ZDATAERRORS-ID = 0.
  ZDATAERRORS-OPERATION = 1.
  ZDATAERRORS-SEQUENCE = 1.
  ZDATAERRORS-LINE = '00010 AUTOCOUNTER'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00020 BSTKD'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00004 AUART'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00004 VKORG'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00002 VTWEG'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00002 SPART'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00010 KUNNR'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.

  ZDATAERRORS-OPERATION = ZDATAERRORS-OPERATION + 1.
  ZDATAERRORS-SEQUENCE = 1.
  ZDATAERRORS-LINE = '00010 AUTOCOUNTER'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00018 MATNR'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00013 KWMENG'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00003 VRKME'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
ENDFORM.    
