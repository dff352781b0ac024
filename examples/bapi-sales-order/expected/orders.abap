*---------------------------------------------------------------------*
*   Qor Generator - Batch Input & BAPI-based Interface Generator      *
*   Tessaline. Tools for SAP.                                         *
*---------------------------------------------------------------------*
*   www.tessaline.example                     info@tessaline.example  *
*---------------------------------------------------------------------*
*   Creation date/time: 2004-11-09 11:33:20                           *
*   Main file         : Parameter                                     *
*   Step-Loop file 1  : Parameter                                     *
*   Step-Loop file 2  : Parameter                                     *
*   Bapi name         : BAPI_SALESORDER_CREATEFROMDAT2;NUMBERED       *
*---------------------------------------------------------------------*
*   Status  :   [ ]In process    [ ]Stand by      [x]Finished         *
*   Modified:   [ ]Yes           [x]No                                *
*---------------------------------------------------------------------*
REPORT QOR.

CONSTANTS: YES TYPE C VALUE 'X',
           NO  TYPE C VALUE SPACE.

TABLES: ZDATAERRORS.

DATA: BEGIN OF ITAB OCCURS 0,
        ORDERNO(20), 
        DOC_TYPE(4), 
        SALES_ORG(4), 
        DISTR_CHAN(2), 
        DIVISION(2), 
        REQ_DATE_H(8), 
      END OF ITAB,
      BEGIN OF ITABSL_1 OCCURS 0,
        ORDERNO(20), 
        MATERIAL(18), 
        TARGET_QTY(13), 
        PLANT(4), 
      END OF ITABSL_1,
      BEGIN OF ITABSL_2 OCCURS 0,
        ORDERNO(20), 
        PARTN_ROLE(2), 
        PARTN_NUMB(10), 
      END OF ITABSL_2,
      CONVERTED9(1024),
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
      ERROR TYPE C,  "Yes/No
      PROCESS_FIELDS TYPE C,  "Yes/No
      TCODE LIKE SY-TCODE.

*---------------------------------------------------------------------*
*   BAPI_SALESORDER_CREATEFROMDAT2 STRUCTURES                         *
*---------------------------------------------------------------------*
DATA: ORDER_HEADER_IN LIKE BAPISDHD1.
DATA: SALESDOCUMENT LIKE BAPIVBELN-VBELN.
DATA: RETURN LIKE BAPIRET2
      OCCURS 0 WITH HEADER LINE.
DATA: ORDER_ITEMS_IN LIKE BAPISDITM
      OCCURS 0 WITH HEADER LINE.
DATA: ORDER_PARTNERS LIKE BAPIPARNR
      OCCURS 0 WITH HEADER LINE.
DATA: RESULT TYPE C.
PARAMETERS: PLANTS AS CHECKBOX.

SELECTION-SCREEN BEGIN OF BLOCK PROGOPT WITH FRAME.
PARAMETERS: NEWBATCH RADIOBUTTON GROUP RADB DEFAULT 'X'.

PARAMETERS: FILE(128) DEFAULT 'c:\data\orders.txt'
            LOWER CASE,
            SLOOP_1(128) DEFAULT 'c:\data\items.txt'
            LOWER CASE,
            SLOOP_2(128) DEFAULT 'c:\data\partners.txt'
            LOWER CASE.
SELECTION-SCREEN SKIP 1.
PARAMETERS: OLDBATCH RADIOBUTTON GROUP RADB,
            BATCHNUM(10).
SELECTION-SCREEN END OF BLOCK PROGOPT.

START-OF-SELECTION.

  PROGID = 1001.

  PERFORM ADD_STRUCTURES USING PROGID.

  IF NEWBATCH = 'X'.

    PERFORM READFILE TABLES ITAB USING FILE CHANGING ERROR.
    IF ERROR = YES.
      EXIT.
    ENDIF.

    PERFORM READFILE TABLES ITABSL_1 USING SLOOP_1 CHANGING ERROR.
    IF ERROR = YES.
      EXIT.
    ENDIF.

    PERFORM READFILE TABLES ITABSL_2 USING SLOOP_2 CHANGING ERROR.
    IF ERROR = YES.
      EXIT.
    ENDIF.

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
        WHEN 3.
          MOVE ZDATAERRORS-LINE TO ITABSL_2.
          APPEND ITABSL_2.
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
    PERFORM COND_CHECK USING 'NUMBERED' CHANGING RESULT.
    IF RESULT = YES.
      PERFORM BAPI_SALESORDER_CREATEFROM_1.
    ENDIF.
    PERFORM INSERT_DATAERRORS.
    COMMIT WORK.
  ENDLOOP.

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
*       FORM BAPI_SALESORDER_CREATEFROM_1                             *
*---------------------------------------------------------------------*
FORM BAPI_SALESORDER_CREATEFROM_1.

  MOVE:
       ITAB-DOC_TYPE TO ORDER_HEADER_IN-DOC_TYPE,
       ITAB-SALES_ORG TO ORDER_HEADER_IN-SALES_ORG,
       ITAB-DISTR_CHAN TO ORDER_HEADER_IN-DISTR_CHAN,
       ITAB-DIVISION TO ORDER_HEADER_IN-DIVISION.
  PERFORM COND_CHECK USING 'WITH_DATE' CHANGING RESULT.
  IF RESULT = YES.
    MOVE ITAB-REQ_DATE_H TO ORDER_HEADER_IN-REQ_DATE_H.
  ELSE.
    CLEAR ORDER_HEADER_IN-REQ_DATE_H.
  ENDIF.
  MOVE:
       ITAB-ORDERNO TO ORDER_HEADER_IN-PURCH_NO_C,
       '01' TO ORDER_HEADER_IN-SHIP_COND.
  PERFORM TABFORM_1.
  PERFORM TABFORM_2.

  IF DATAERRORSFOUND = YES.
    EXIT.
  ENDIF.

  CALL FUNCTION 'BAPI_SALESORDER_CREATEFROMDAT2'
       EXPORTING
         ORDER_HEADER_IN = ORDER_HEADER_IN
       IMPORTING
         SALESDOCUMENT = SALESDOCUMENT
       TABLES
         RETURN = RETURN
         ORDER_ITEMS_IN = ORDER_ITEMS_IN
         ORDER_PARTNERS = ORDER_PARTNERS.

  DATAERRORS-ID = 0.
  LOOP AT RETURN.
    IF RETURN-TYPE = 'E'.
      IF DATAERRORSFOUND = NO.
        ROLLBACK WORK.
      ENDIF.
      DATAERRORSFOUND = YES.
      MOVE RETURN-MESSAGE TO DATAERRORS-LINE.
      APPEND DATAERRORS.
    ENDIF.
  ENDLOOP.

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
*       FORM COND_CHECK                                               *
*---------------------------------------------------------------------*
*  -->  CONDITION                                                     *
*  -->  RESULT                                                        *
*---------------------------------------------------------------------*
FORM COND_CHECK USING CONDITION CHANGING RESULT.
  RESULT = NO.
  CASE CONDITION.
    WHEN 'NUMBERED'.
      IF ITAB-ORDERNO NE SPACE.
        RESULT = YES.
      ENDIF.
    WHEN 'WITH_DATE'.
      IF ITAB-REQ_DATE_H NE SPACE.
        RESULT = YES.
      ENDIF.
    WHEN 'WITH_PLANT'.
      IF PLANTS = YES.
        RESULT = YES.
      ENDIF.
  ENDCASE.
ENDFORM.

*---------------------------------------------------------------------*
*       FORM TABCONVERSIONS                                           *
*---------------------------------------------------------------------*
FORM TABCONVERSIONS.

  CASE ITABSL_2-PARTN_ROLE.
    WHEN 'SP'.
      CONVERTED9 = 'AG'.
    WHEN 'SH'.
      CONVERTED9 = 'WE'.
    WHEN OTHERS.
      CONVERTED9 = ITABSL_2-PARTN_ROLE.
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

  REFRESH ORDER_ITEMS_IN.

  LOOP AT ITABSL_1 WHERE
       ORDERNO = ITAB-ORDERNO.

    IF NEWBATCH = 'X'.
      DATAERRORS-ID = 2.
      MOVE ITABSL_1 TO DATAERRORS-LINE.
      APPEND DATAERRORS.
    ENDIF.

    PERFORM TABCONVERSIONS.
    MOVE:
         ITABSL_1-MATERIAL TO ORDER_ITEMS_IN-MATERIAL,
         ITABSL_1-TARGET_QTY TO ORDER_ITEMS_IN-TARGET_QTY.
    PERFORM COND_CHECK USING 'WITH_PLANT' CHANGING RESULT.
    IF RESULT = YES.
      MOVE ITABSL_1-PLANT TO ORDER_ITEMS_IN-PLANT.
    ELSE.
      CLEAR ORDER_ITEMS_IN-PLANT.
    ENDIF.
    APPEND ORDER_ITEMS_IN.

  ENDLOOP.

ENDFORM.

*---------------------------------------------------------------------*
*       FORM TABFORM_2                                                *
*---------------------------------------------------------------------*
FORM TABFORM_2.

  REFRESH ORDER_PARTNERS.

  LOOP AT ITABSL_2 WHERE
       ORDERNO = ITAB-ORDERNO.

    IF NEWBATCH = 'X'.
      DATAERRORS-ID = 3.
      MOVE ITABSL_2 TO DATAERRORS-LINE.
      APPEND DATAERRORS.
    ENDIF.

    PERFORM TABCONVERSIONS.
    MOVE:
         CONVERTED9 TO ORDER_PARTNERS-PARTN_ROLE,
         ITABSL_2-PARTN_NUMB TO ORDER_PARTNERS-PARTN_NUMB.
    APPEND ORDER_PARTNERS.

  ENDLOOP.

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
  ZDATAERRORS-LINE = '00020 ORDERNO'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00004 DOC_TYPE'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00004 SALES_ORG'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00002 DISTR_CHAN'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00002 DIVISION'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00008 REQ_DATE_H'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.

  ZDATAERRORS-OPERATION = ZDATAERRORS-OPERATION + 1.
  ZDATAERRORS-SEQUENCE = 1.
  ZDATAERRORS-LINE = '00020 ORDERNO'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00018 MATERIAL'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00013 TARGET_QTY'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00004 PLANT'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.

  ZDATAERRORS-OPERATION = ZDATAERRORS-OPERATION + 1.
  ZDATAERRORS-SEQUENCE = 1.
  ZDATAERRORS-LINE = '00020 ORDERNO'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00002 PARTN_ROLE'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
  ZDATAERRORS-LINE = '00010 PARTN_NUMB'.
  ZDATAERRORS-LENGTH = STRLEN( ZDATAERRORS-LINE ).
  INSERT ZDATAERRORS.
  ZDATAERRORS-SEQUENCE = ZDATAERRORS-SEQUENCE + 1.
ENDFORM.    
