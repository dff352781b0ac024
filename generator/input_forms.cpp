#include "generator/input_forms.h"

#include "generator/sections.h"

namespace qor {

namespace {

void EscribirWS_UPLOAD(Reporte& reporte, bool anchoFijo) {
    reporte.Lineas(R"(

  CALL FUNCTION 'WS_UPLOAD'
       EXPORTING
         FILENAME = {LS}AUXFILE
)");
    reporte.Linea(anchoFijo ? "         FILETYPE = 'ASC'" : "         FILETYPE = 'DAT'");
    reporte.Lineas(R"(
       TABLES
         DATA_TAB = {LT}AUXITAB
       EXCEPTIONS
         CONVERSION_ERROR = 1
         FILE_OPEN_ERROR = 2
         FILE_READ_ERROR = 3
         INVALID_TABLE_WIDTH = 4
         INVALID_TYPE = 5
         NO_BATCH = 6
         UNKNOWN_ERROR = 7
         GUI_REFUSE_FILETRANSFER = 8
         OTHERS = 9.
)");
}

void EscribirGUI_UPLOAD(Reporte& reporte, bool anchoFijo) {
    reporte.Lineas(R"(

  DATA: {LS}FILESTRING TYPE STRING.

  {LS}FILESTRING = {LS}AUXFILE.

  CALL FUNCTION 'GUI_UPLOAD'
       EXPORTING
         FILENAME = {LS}FILESTRING
         FILETYPE = 'ASC'
)");
    reporte.Linea(anchoFijo ? "         HAS_FIELD_SEPARATOR = SPACE" : "         HAS_FIELD_SEPARATOR = 'X'");
    reporte.Lineas(R"(
       TABLES
         DATA_TAB = {LT}AUXITAB
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
)");
}

void EscribirOpenDataset(Reporte& reporte, const std::string& adiciones, const std::string& mensaje) {
    reporte.Linea("  {LS}AUXERROR = {GC}NO.");
    const Lugar antes = reporte.LugarActual();
    reporte.Desde(Lugar::EnPreferencia("EncodingAdditional"));
    if (adiciones == "NONE") {
        reporte.Linea("  OPEN DATASET {LS}AUXFILE FOR INPUT IN TEXT MODE.");
    } else {
        // The addition brings its own closing point.
        reporte.Linea("  OPEN DATASET {LS}AUXFILE FOR INPUT IN TEXT MODE  {adiciones}", {{"adiciones", adiciones}});
    }
    reporte.Desde(antes);
    reporte.Lineas(R"(
  IF SY-SUBRC NE 0.
    WRITE: / '{msg}',
             {LS}AUXFILE.
    {LS}AUXERROR = {GC}YES.
    EXIT.
  ENDIF.
  DO.
    READ DATASET {LS}AUXFILE INTO {LT}AUXITAB.
    IF SY-SUBRC NE 0.
      CLOSE DATASET {LS}AUXFILE.
      EXIT.
    ENDIF.
    APPEND {LT}AUXITAB.
  ENDDO.
)",
                   {{"msg", mensaje}});
}

}  // namespace

void EscribirCuerpoDeLectura(Reporte& reporte, FuenteDeArchivo fuente, const Preferencias& preferencias,
                             const std::string& mensaje) {
    if (fuente == FuenteDeArchivo::Servidor) {
        EscribirOpenDataset(reporte, preferencias.AdicionesDataset, mensaje);
        return;
    }
    const bool anchoFijo = fuente == FuenteDeArchivo::ClientePlano;
    if (preferencias.OptionWS_UPLOAD) {
        EscribirWS_UPLOAD(reporte, anchoFijo);
    } else {
        EscribirGUI_UPLOAD(reporte, anchoFijo);
    }
    reporte.Lineas(R"(

  IF SY-SUBRC NE 0.
    WRITE: / '{msg}',
             {LS}AUXFILE.
    {LS}AUXERROR = {GC}YES.
    EXIT.
  ELSE.
    {LS}AUXERROR = {GC}NO.
  ENDIF.
)",
                   {{"msg", mensaje}});
}

void EscribirTableProcessing(Generacion& g) {
    g.reporte.Desde({});
    g.reporte.Lineas(R"(

{RULE}
*       FORM TABLE_PROCESSING                                         *
{RULE}
FORM TABLE_PROCESSING.
)");
    if (g.PorLlamada()) {
        g.reporte.Linea("  APPEND {GT}ITAB.");
    } else {
        Generate_Insert(g, "  ");
    }
    g.reporte.Desde({});
    g.reporte.Linea("ENDFORM.");
}

void EscribirReadFile(Generacion& g) {
    if (!g.EntradaDeArchivo()) return;
    g.reporte.Desde({});
    g.reporte.Lineas(R"(

{RULE}
*       FORM READFILE                                                 *
{RULE}
*  -->  AUXITAB                                                       *
*  -->  AUXFILE                                                       *
*  -->  AUXERROR                                                      *
{RULE}
FORM READFILE TABLES {LT}AUXITAB USING {LS}AUXFILE
              CHANGING {LS}AUXERROR.
)");
    const auto delCliente = g.opciones.AnchoFijo ? FuenteDeArchivo::ClientePlano : FuenteDeArchivo::ClienteTabuladores;
    EscribirCuerpoDeLectura(g.reporte, g.opciones.ClienteOp ? delCliente : FuenteDeArchivo::Servidor, g.preferencias, g.Texto(505));
    g.reporte.Linea("ENDFORM.");
}

}  // namespace qor
