REPORT ZBROKEN.
DATA: A, B.
FORM SEND USING A.
ENDFORM.
*<< Identical FORM Names: "SEND"
FORM SEND USING B.
ENDFORM.
*<< Variable name "B" already defined
DATA B.
