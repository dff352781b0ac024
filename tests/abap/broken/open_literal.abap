REPORT ZBROKEN.
*<< Statement does not exist
WRITE: / 'It''s closed', "isn't asked for
* isn't asked for
*<< literal not closed
         'it's not'.
