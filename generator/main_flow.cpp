#include "base/text.h"
#include "generator/checks.h"
#include "generator/sections.h"

namespace qor {

namespace {

void EscribirLectura(Generacion& g, const std::string& tabla, const std::string& archivo) {
    g.reporte.Lineas(R"(

{s}  PERFORM READFILE TABLES {GT}{tabla} USING {archivo} CHANGING {GS}ERROR.
{s}  IF {GS}ERROR = {GC}YES.
{s}    EXIT.
{s}  ENDIF.
)",
                     {{"tabla", tabla}, {"archivo", archivo}});
}

// Spreads the lines of the one file over the internal tables by their ids. Without keys each main record raises a counter, and the
// step-loop records that follow it take its value; the component of 10 characters stands in front of the line.
void EscribirReparto(Generacion& g) {
    g.reporte.Desde(Lugar::EnOpcion("Identificadores"));
    const bool conContador = g.analisis.HayStepSinClave;
    if (conContador) {
        g.reporte.Lineas(R"(

{s}  {GN}AUTOCOUNTER = 0.
)");
    }
    g.reporte.Lineas(R"(

{s}  LOOP AT {GT}MULTITAB.
{s}    CASE {GT}MULTITAB-ID.
)");
    const int grupos = ContarStepLoops(g.especificacion);
    for (int k = 0; k <= grupos; ++k) {
        g.reporte.Linea("{s}    WHEN '{id}'.", {{"id", std::string(ObtenerIdentificador(g.opciones.Identificadores, k))}});
        const std::string numero = std::to_string(k);
        if (k == 0 && conContador) {
            g.reporte.Lineas(R"(
{s}      {GN}AUTOCOUNTER = {GN}AUTOCOUNTER + 1.
{s}      MOVE {GN}AUTOCOUNTER TO {GT}ITAB-AUTOCOUNTER.
{s}      MOVE {GT}MULTITAB-LINE TO {GT}ITAB+10.
{s}      APPEND {GT}ITAB.
)");
        } else if (k == 0) {
            g.reporte.Lineas(R"(
{s}      MOVE {GT}MULTITAB-LINE TO {GT}ITAB.
{s}      APPEND {GT}ITAB.
)");
        } else if (conContador) {
            g.reporte.Lineas(R"(
{s}      MOVE {GN}AUTOCOUNTER TO {GT}ITABSL_{k}-AUTOCOUNTER.
{s}      MOVE {GT}MULTITAB-LINE TO {GT}ITABSL_{k}+10.
{s}      APPEND {GT}ITABSL_{k}.
)",
                             {{"k", numero}});
        } else {
            // On purpose the target of the move has no prefix: under naming conventions the report doesn't declare it.
            g.reporte.Lineas(R"(
{s}      MOVE {GT}MULTITAB-LINE TO ITABSL_{k}.
{s}      APPEND {GT}ITABSL_{k}.
)",
                             {{"k", numero}});
        }
    }
    g.reporte.Lineas(R"(
{s}    ENDCASE.
{s}  ENDLOOP.
)");
}

void EscribirEntradaDeArchivos(Generacion& g) {
    g.reporte.Desde(Lugar::EnOpcion("FileParameterCh"));
    if (g.analisis.ArchivoUnico) {
        EscribirLectura(g, "MULTITAB", g.valores.VariableArchivo);
        EscribirReparto(g);
        return;
    }
    EscribirLectura(g, "ITAB", g.valores.VariableArchivo);
    int n = 0;
    for (const int cabeza : CabezasStepLoop(g.especificacion)) {
        const std::string numero = std::to_string(++n);
        g.reporte.Desde(Lugar::EnPrograma(cabeza, 4));
        EscribirLectura(g, "ITABSL_" + numero, g.valores.VariableArchivoStep + numero);
    }
}

void EscribirColumnas(Generacion& g, const std::string& plantilla) {
    const int total = g.analisis.operaciones.ContarCamposOperacion(0);
    const int filas = g.especificacion.FilasArchivo();
    int c = 1;
    for (int f = 0; f < filas; ++f) {
        const auto clase = g.analisis.operaciones.ClaseCampoEnOperacion(f, 1);
        if (clase != ClaseCampo::Ninguna && clase != ClaseCampo::Clave) continue;
        g.reporte.Desde(Lugar::EnArchivo(f, 0));
        g.reporte.Linea(plantilla, {{"campo", g.especificacion.TablaArchivo[f].campo}, {"coma", c < total ? "," : ""}});
        ++c;
    }
    g.reporte.Desde(Lugar::EnOpcion("ArchivoFuente"));
}

void EscribirEntradaDeTabla(Generacion& g) {
    g.reporte.Desde(Lugar::EnOpcion("ArchivoFuente"));
    g.reporte.Lineas(R"(

{s}  EXEC SQL PERFORMING TABLE_PROCESSING.
{s}    SELECT
)");
    EscribirColumnas(g, "{s}       {campo}{coma}");
    g.reporte.Linea("{s}    INTO");
    EscribirColumnas(g, "{s}       :{GT}ITAB-{campo}{coma}");
    g.reporte.Linea("{s}    FROM {tabla}", {{"tabla", Mayusculas(Recortar(g.opciones.ArchivoFuente))}});
    g.reporte.Linea("{s}  ENDEXEC.");
}

void EscribirBucle(Generacion& g) {
    g.reporte.Desde({});
    g.reporte.Lineas(R"(

  LOOP AT {GT}ITAB.
)");
    if (g.analisis.ManejoErrores) InsercionITABDataErrors(g);
    Generate_Insert(g, "    ");
    g.reporte.Desde({});
    if (g.analisis.ManejoErrores) g.reporte.Linea("    PERFORM INSERT_DATAERRORS.");
    if (g.opciones.CommitCheck == 1 && g.analisis.operaciones.HayBAPI) g.reporte.Linea("    COMMIT WORK.");
    g.reporte.Linea("  ENDLOOP.");
}

}  // namespace

void EscribirFlujoPrincipal(Generacion& g) {
    g.reporte.Desde({});
    g.reporte.Lineas(R"(

START-OF-SELECTION.
)");
    if (g.analisis.ManejoErrores) {
        g.reporte.Desde(Lugar::EnOpcion("ProgID"));
        g.reporte.Lineas(R"(

  {GN}PROGID = {ProgID}.

  PERFORM ADD_STRUCTURES USING {GN}PROGID.

  IF {NEWB} = 'X'.
)");
    }
    const bool deTabla = !g.EntradaDeArchivo() && !g.especificacion.OrigenUsuario;
    if (deTabla) {
        EscribirEntradaDeTabla(g);
    } else if (g.especificacion.OrigenUsuario) {
        g.reporte.Lineas(R"(

{s}  PERFORM USER_FORM.
)");
    } else {
        EscribirEntradaDeArchivos(g);
    }
    if (g.analisis.ManejoErrores) ImprimirElseOldBatch(g);
    // A table that feeds a session only is worked off row by row in TABLE_PROCESSING.
    if (!deTabla || g.PorLlamada()) EscribirBucle(g);
    g.reporte.Desde({});
    if (g.analisis.HayJuegoDatos) ImprimirMensajesBDC(g);
    if (g.analisis.ManejoErrores) ImprimirMensajesManejoErrores(g);
    g.reporte.Desde({});
    g.reporte.LineaVacia();
    g.reporte.Linea("  WRITE: / '{mensaje}'.", {{"mensaje", g.Texto(504)}});
    if (deTabla) EscribirTableProcessing(g);
}

void Generate_Insert(Generacion& g, std::string_view sangria) {
    g.reporte.Desde({});
    if (g.analisis.HayConversiones) g.reporte.Linea("{i}PERFORM CONVERSIONS.", {{"i", std::string(sangria)}});
    int k = 0;
    const int filas = g.especificacion.FilasTransaccion();
    for (int r = 0; r < filas; ++r) {
        const auto& fila = g.especificacion.TablaTransaccion[r];
        const bool esTransaccion = fila.programa == "TRANS";
        if (!esTransaccion && fila.programa != "BAPI") continue;
        ++k;
        g.reporte.Desde(Lugar::EnPrograma(r, 1));
        const bool conCondicion = Contiene(fila.dynpro, ";");
        const std::string codigo(Recortar(AntesDe(fila.dynpro, ';')));
        std::string i(sangria);
        if (conCondicion) {
            // On purpose RESULT has no prefix here and one in the test: a specification with such conditions declares it itself.
            g.reporte.Lineas(R"(
{i}PERFORM COND_CHECK USING '{cond}' CHANGING RESULT.
{i}IF {GS}RESULT = {GC}YES.
)",
                             {{"i", i}, {"cond", std::string(DespuesDe(fila.dynpro, ';'))}});
            i += "  ";
        }
        if (esTransaccion) {
            g.reporte.Lineas(R"(
{i}PERFORM GENERATE_BDC_{codigo}_{k} CHANGING {GS}TCODE.
{i}PERFORM INSERT_DATA TABLES {GT}BDC_TAB USING {GS}TCODE.
)",
                             {{"i", i}, {"codigo", codigo}, {"k", std::to_string(k)}});
        } else {
            g.reporte.Linea("{i}PERFORM {codigo}_{k}.",
                            {{"i", i}, {"codigo", codigo.substr(0, largoFormaBAPI)}, {"k", std::to_string(k)}});
        }
        if (conCondicion) g.reporte.Linea("{i}ENDIF.", {{"i", std::string(sangria)}});
    }
}

}  // namespace qor
