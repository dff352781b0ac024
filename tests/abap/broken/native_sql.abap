REPORT ZBROKEN.
DATA: BEGIN OF ITAB OCCURS 0,
        A(10),
        B(10),
      END OF ITAB.
START-OF-SELECTION.
*<< FORM definition "MISSING" not found
  EXEC SQL PERFORMING MISSING.
*<< native SQL: 2 columns into 1 host variables
    SELECT A, B INTO
*<< host variable "ITAB-C" not found
      :ITAB-C
    FROM ZTAB
  ENDEXEC.
*<< SEND has parameters
  EXEC SQL PERFORMING SEND.
*<< column expected, and "INTO" is a word of the language
    SELECT INTO :ITAB-A FROM ZTAB
  ENDEXEC.
  EXEC SQL.
    SELECT A,
*<< column expected, and "ORDER" is a word of the language
           ORDER INTO :ITAB-A, :ITAB-B FROM ZTAB
  ENDEXEC.
  EXEC SQL.
    SELECT A
*<< comma or end of the columns expected, not "B"
           B INTO :ITAB-A, :ITAB-B FROM ZTAB
  ENDEXEC.
  EXEC SQL.
    SELECT A, B INTO :ITAB-A
*<< comma or end of the host variables expected, not ":ITAB-B"
           :ITAB-B FROM ZTAB
  ENDEXEC.
  EXEC SQL.
*<< column expected, and "INTO" is a word of the language
    SELECT A, INTO :ITAB-A FROM ZTAB
  ENDEXEC.
  EXEC SQL.
    SELECT A INTO :ITAB-A FROM ZTAB
    WHERE
*<< column or value expected at the end
  ENDEXEC.
  EXEC SQL.
    SELECT A INTO :ITAB-A FROM ZTAB
    WHERE A = :ITAB-A AND
*<< column or value expected, and "AND" is a word of the language
          AND B = :ITAB-B
  ENDEXEC.
  EXEC SQL.
*<< end expected, not "B"
    SELECT A INTO :ITAB-A FROM ZTAB WHERE A = :ITAB-A B = 1
  ENDEXEC.
  EXEC SQL.
*<< literal not closed
    UPDATE ZTAB SET A = 'it's not'
  ENDEXEC.
  EXEC SQL.
*<< native SQL: no statement
  ENDEXEC.

FORM SEND USING A.
ENDFORM.
