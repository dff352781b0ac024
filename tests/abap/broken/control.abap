REPORT ZBROKEN.
DATA: BEGIN OF ITAB OCCURS 0,
        A(10),
      END OF ITAB.
*<< BEGIN OF BLOCK without its END: A
SELECTION-SCREEN BEGIN OF BLOCK A.
*<< END OF BLOCK without its BEGIN: B
SELECTION-SCREEN: BEGIN OF BLOCK A, END OF BLOCK B.

START-OF-SELECTION.
  CASE ITAB-A.
*<< statement between CASE and WHEN
    CLEAR ITAB.
    WHEN 'A'.
  ENDCASE.
*<< Missing space
  IF ITAB-A ='A'.
  ENDIF.
*<< SEND has 1 tables, not 0
  PERFORM SEND USING 'A' ITAB-A.
  PERFORM SEND TABLES ITAB USING: 'A' ITAB-A,
*<< SEND has 2 parameters, not 1
                                  'A'.

FORM SEND TABLES LINES USING A CHANGING B.
ENDFORM.
*<< statement behind a form that no event reaches
  CLEAR ITAB.
