REPORT ZBROKEN.
CONSTANTS YES TYPE C VALUE 'X'.
*<< ZNONE not found
*<< Z_TABLE not found
*<< no name of a table: Z_TABLE
TABLES: ZNONE, Z_TABLE.
*<< could not resolve "ZTYPE"
DATA: NEXT LIKE ZTYPE,
      BEGIN OF ITAB OCCURS 0,
        A(10),
        B(4),
        NOT,
      END OF ITAB,
*<< length is no number: COUNT
      TEXT(COUNT).
PARAMETERS P_A(10).

*<< no parameter of the selection screen: P_B
AT SELECTION-SCREEN ON VALUE-REQUEST FOR P_B.
  WRITE / P_A.

START-OF-SELECTION.
*<< "RESULT" not found
  RESULT = YES.
*<< a constant can't be changed: YES
  YES = 'Y'.
*<< Component "C" not found
  ITAB-C = YES.
*<< Component "C" not found
  LOOP AT ITAB WHERE C = 'X' AND
*<< an operator, not a component: NOT
                     NOT = 'X'.
*<< FORM definition "MISSING" not found
    PERFORM MISSING.
  ENDLOOP.
*<< BDC_INSERT has no parameter TRANSACTION behind EXPORTING
  CALL FUNCTION 'BDC_INSERT' EXPORTING TRANSACTION = ITAB-A
*<< no internal table: P_A
                             TABLES DYNPROTAB = P_A.
*<< no internal table: P_A
  REFRESH P_A.
*<< "GLOBAL" not found
  WRITE / GLOBAL.

*<< name of 35 characters
FORM GENERATE_BDC_ABCDEFGHIJKLMNOPQRST_1.
ENDFORM.

DATA GLOBAL.
