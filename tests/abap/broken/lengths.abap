REPORT ZBROKEN.
DATA: BEGIN OF ITAB OCCURS 0,
*<< name of 31 characters
        A_COMPONENT_OF_THIRTY_ONE_LETTE(1),
        DAY(8),
      END OF ITAB,
*<< name with a digit first: 12
      12(3),
*<< length of 65536
      WIDE(65536).
*<< Parameter name too long
PARAMETERS: PARAMETER(3),
*<< radio button group of 5 characters
            P_NEW RADIOBUTTON GROUP RADIO.
START-OF-SELECTION.
  ITAB-DAY+6(2) = ITAB+7(2).
*<< ITAB-DAY+6(4) reaches beyond the 8 characters
  ITAB-DAY+6(4) = 'A'.
*<< ITAB+9 reaches beyond the 9 characters
  MOVE P_NEW TO ITAB+9.
*<< line of 272 characters
*<< literal of 256 characters
  IF 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx' = P_NEW.
  ENDIF.
