REPORT ZBROKEN.
FORM A.
*<< IF without its ENDIF
  IF SY-SUBRC = 0.
    WRITE: / 'Año'.
ENDFORM.
*<< FORM without its ENDFORM
FORM B.
