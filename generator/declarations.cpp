#include <algorithm>

#include "base/text.h"
#include "generator/lines.h"
#include "generator/sections.h"
#include "model/cells.h"

namespace qor {

namespace {

bool ConContador(const Generacion& g) { return g.analisis.ArchivoUnico && g.analisis.HayStepSinClave; }

void AgregarLineasDeEstructura(Generacion& g, std::string_view plantilla, ValoresDePlantilla valores = {}) {
    g.valores.TextoEstructuras.Agregar(g.reporte.LugarActual(), g.reporte.Rellenar(plantilla, valores));
}

// A layout row of the Z table: width and name of one field.
void AgregarEstructura(Generacion& g, const std::string& linea) {
    AgregarLineasDeEstructura(g,
                              "  {TablaZ}-LINE = '{t}'.\r\n"
                              "  {TablaZ}-LENGTH = STRLEN( {TablaZ}-LINE ).\r\n"
                              "  INSERT {TablaZ}.\r\n"
                              "  {TablaZ}-SEQUENCE = {TablaZ}-SEQUENCE + 1.\r\n",
                              {{"t", linea}});
}

void EscribirContador(Generacion& g) {
    g.reporte.Linea("        AUTOCOUNTER(10) TYPE N,");
    AgregarEstructura(g, "00010 AUTOCOUNTER");
}

void EscribirCampo(Generacion& g, int fila) {
    g.reporte.Desde(Lugar::EnArchivo(fila, 0));
    const auto& [campo, ancho, nota, conversion] = g.especificacion.TablaArchivo[fila];
    g.reporte.Linea("        {campo}({anchocampo}),{_}", {{"campo", campo}, {"anchocampo", ancho}});
    AgregarEstructura(g, ConCeros(Numero(ancho), 5) + " " + campo);
}

void EscribirRegistroPrincipal(Generacion& g) {
    g.reporte.LineaVacia();
    g.reporte.Linea("DATA: BEGIN OF {GT}ITAB OCCURS 0,");
    AgregarLineasDeEstructura(g,
                              "  {TablaZ}-OPERATION = 1.\r\n"
                              "  {TablaZ}-SEQUENCE = 1.\r\n");
    if (ConContador(g)) EscribirContador(g);
    bool hayCampos = false;
    const int filas = g.especificacion.FilasArchivo();
    for (int f = 0; f < filas; ++f) {
        const auto& fila = g.especificacion.TablaArchivo[f];
        if (fila.ancho.empty()) g.DetenerEnFila(Lugar::EnArchivo(f, 1), {315, " ", fila.campo});
        const auto clase = g.analisis.operaciones.ClaseCampoEnOperacion(f, 1);
        if (clase != ClaseCampo::Ninguna && clase != ClaseCampo::Clave) continue;
        EscribirCampo(g, f);
        hayCampos = true;
    }
    g.reporte.Desde({});
    if (!hayCampos) g.reporte.Linea("        DUMMY(1),");
    g.reporte.Linea("      END OF {GT}ITAB,");
}

void EscribirRegistroDeStepLoop(Generacion& g, int n, int cabeza) {
    const Lugar enCabeza = Lugar::EnPrograma(cabeza, 4);
    g.reporte.Desde(enCabeza);
    if (g.analisis.operaciones.ContarCamposOperacion(n) == 0) {
        g.Avisar(enCabeza, {316, " ", g.especificacion.TablaTransaccion[cabeza].campo, " ", 317});
    }
    g.reporte.Linea("      BEGIN OF {GT}ITABSL_{n} OCCURS 0,", {{"n", std::to_string(n)}});
    AgregarLineasDeEstructura(g,
                              "\r\n"
                              "  {TablaZ}-OPERATION = {TablaZ}-OPERATION + 1.\r\n"
                              "  {TablaZ}-SEQUENCE = 1.\r\n");
    if (ConContador(g)) EscribirContador(g);
    const int filas = g.especificacion.FilasArchivo();
    for (int f = 0; f < filas; ++f) {
        if (g.especificacion.TablaArchivo[f].ancho.empty()) g.Detener(Lugar::EnArchivo(f, 1), {315});
        const auto clase = g.analisis.operaciones.ClaseCampoEnOperacion(f, n);
        const bool claveLeida = clase == ClaseCampo::Clave && !g.opciones.EntradaDeTabla();
        if (clase == ClaseCampo::DelGrupo || claveLeida) EscribirCampo(g, f);
    }
    g.reporte.Desde(enCabeza);
    g.reporte.Linea("      END OF {GT}ITABSL_{n},", {{"n", std::to_string(n)}});
}

// The session name: the user's own, else the document's name without its extension, made short.
std::string NombreDeSesion(const Generacion& g) {
    if (g.opciones.GeneracionManual() && !EstaEnBlanco(g.opciones.NombreManual)) return g.opciones.NombreManual;
    if (g.NombreDocumento.empty()) return g.PorLlamada() ? "ERRORS" : "QORBDC";
    const auto nombre = Tramo(g.NombreDocumento, 1, static_cast<std::ptrdiff_t>(g.NombreDocumento.size()) - 4);
    return (g.PorLlamada() ? "ERR_" : "QOR_") + CompactarTexto(QuitarBlancos(nombre), 8);
}

void EscribirBatchInput(Generacion& g) {
    if (g.analisis.operaciones.HayTransaccion) {
        g.reporte.Lineas(R"(
      BEGIN OF {GT}BDC_TAB OCCURS 0.
        INCLUDE STRUCTURE BDCDATA.
DATA: END OF {GT}BDC_TAB,
      {GS}FIRST_TIME TYPE C VALUE {GC}YES,  "Yes/No
)");
        g.reporte.Desde(Lugar::EnOpcion("NombreManual"));
        g.valores.NombreGrupo = NombreDeSesion(g);
    }
    if (g.analisis.HayJuegoDatos) {
        g.reporte.Linea("      {GS}BDCNAME LIKE APQI-GROUPID VALUE '{NombreGrupo}',", {{"NombreGrupo", g.valores.NombreGrupo}});
    }
    g.reporte.Desde(Lugar::EnOpcion("CallTransaction"));
    if (g.opciones.CallTransaction == 1 || (g.analisis.operaciones.HayBAPI && g.analisis.operaciones.HayTransaccion)) {
        g.reporte.Lineas(R"(
      BEGIN OF {GT}MESSTAB OCCURS 0.
        INCLUDE STRUCTURE BDCMSGCOLL.{_}
DATA: END OF {GT}MESSTAB,
)");
    }
}

void EscribirConvertidos(Generacion& g) {
    if (!g.analisis.HayConversiones && !g.analisis.HayConversionesStep) return;
    for (int f = 0; f <= ultimaFila; ++f) {
        if (!TienePares(g.especificacion.TablaArchivo[f].conversion)) continue;
        g.reporte.Desde(Lugar::EnArchivo(f, 3));
        g.reporte.Linea("      {GS}CONVERTED{fila}(1024),", {{"fila", std::to_string(f)}});
    }
}

// On purpose there is no line for the files of the step-loops here: a report with files of their own takes all their names as
// parameters.
void EscribirArchivosConstantes(Generacion& g) {
    if (!g.EntradaDeArchivo() || g.opciones.FileParameterCh != 0) return;
    g.valores.VariableArchivo = g.nombres.GSprefijo + "FILE";
    g.valores.VariableArchivoStep = g.nombres.GSprefijo + g.nombres.RaizArchivoStep;
    g.reporte.Definir("ARCHIVO", g.valores.VariableArchivo);
    g.reporte.Definir("STEP", g.valores.VariableArchivoStep);
    g.reporte.Desde(Lugar::EnOpcion("ArchivoFuente"));
    g.reporte.Linea("      {ARCHIVO}(128) VALUE '{ArchivoFuente}',");
}

double CalcularAnchoMayor(const Generacion& g) {
    double mayor = 0;
    const int grupos = ContarStepLoops(g.especificacion);
    const int filas = g.especificacion.FilasArchivo();
    for (int k = 0; k <= grupos; ++k) {
        double suma = 0;
        for (int f = 0; f < filas; ++f) {
            if (g.analisis.operaciones.OperacionDeCampo(f) != k &&
                g.analisis.operaciones.ClaseCampoEnOperacion(f, k) != ClaseCampo::Clave)
                continue;
            suma += Numero(g.especificacion.TablaArchivo[f].ancho);
        }
        mayor = std::max(mayor, suma);
    }
    return mayor;
}

void EscribirLineasComunes(Generacion& g) {
    g.reporte.Desde(Lugar::EnOpcion("OneFileOption"));
    double& ancho = g.valores.AnchoMayor;
    ancho = CalcularAnchoMayor(g);
    if (g.analisis.ArchivoUnico) {
        g.reporte.Lineas(R"(
      BEGIN OF {GT}MULTITAB OCCURS 0,
        ID({largo}),
        LINE({ancho}),
      END OF {GT}MULTITAB,
)",
                         {{"largo", std::to_string(g.analisis.LargoIdentificador)}, {"ancho", TextoDeNumero(ancho)}});
    }
    if (!g.analisis.ManejoErrores) return;
    g.reporte.Desde(Lugar::EnOpcion("ErrorHandlingCheck"));
    if (ConContador(g)) ancho += 10;
    ancho = std::max(ancho, 256.0);
    g.reporte.Lineas(R"(
      BEGIN OF {GT}DATAERRORS OCCURS 0,
        ID(3) TYPE N,
        LINE({ancho}),
      END OF {GT}DATAERRORS,
      {GN}PROGID(10) TYPE N,
      {GN}AUXSEQUENCE(10) TYPE N,
      BEGIN OF {GT}ITABOPERS OCCURS 0,
        OPERATION(10) TYPE N,
      END OF {GT}ITABOPERS,
      {GN}ERRORCOUNTER(8) TYPE N,
      {GN}MAXNUM(10) TYPE N,
      {GN}OPERATION(10) TYPE N,
      {GS}DATAERRORSFOUND TYPE C,  "Yes/No
)",
                     {{"ancho", TextoDeNumero(ancho)}});
}

void EscribirModo(Generacion& g) {
    g.reporte.Definir("M", std::string(1, g.opciones.Modo));
    if (!g.ConModo() || g.opciones.ModeAsParameter != 0) return;
    g.reporte.Desde(Lugar::EnOpcion("ModeAsParameter"));
    g.valores.VariableModo = g.nombres.GSprefijo + g.nombres.RaizModo;
    g.reporte.Definir("MODO", g.valores.VariableModo);
    g.reporte.Linea("      {MODO} LIKE CTU_PARAMS-DISMODE VALUE '{M}',");
}

void EscribirTextoDelUsuario(Generacion& g, const std::string& texto, Lugar::Parte parte) {
    g.reporte.Desde(Lugar::EnTexto(parte, 0));
    g.reporte.LineaVacia();
    for (const auto& [linea, numero] : PartirLineasConNumero(texto, 71)) {
        if (EstaEnBlanco(linea)) continue;
        g.reporte.Desde(Lugar::EnTexto(parte, numero));
        g.reporte.LineaDelUsuario(linea);
    }
}

}  // namespace

void EscribirDeclaraciones(Generacion& g) {
    g.reporte.Desde({});
    g.reporte.Lineas(R"(
REPORT QOR.

CONSTANTS: {GC}YES TYPE C VALUE 'X',
           {GC}NO  TYPE C VALUE SPACE.
)");
    if (g.analisis.ManejoErrores) {
        g.reporte.LineaVacia();
        g.reporte.Desde(Lugar::EnOpcion("TablaZ"));
        g.reporte.Linea("TABLES: {TablaZ}.");
        g.reporte.Desde({});
    }
    EscribirRegistroPrincipal(g);
    int n = 0;
    for (const int cabeza : CabezasStepLoop(g.especificacion)) EscribirRegistroDeStepLoop(g, ++n, cabeza);
    EscribirBatchInput(g);
    EscribirConvertidos(g);
    EscribirArchivosConstantes(g);
    EscribirLineasComunes(g);
    g.reporte.Desde({});
    if (ConContador(g)) g.reporte.Linea("      {GN}AUTOCOUNTER(10) TYPE N,");
    if (g.EntradaDeArchivo()) g.reporte.Linea("      {GS}ERROR TYPE C,  \"Yes/No");
    EscribirModo(g);
    g.reporte.Desde({});
    g.reporte.Lineas(R"(
      {GS}PROCESS_FIELDS TYPE C,  "Yes/No
      {GS}TCODE LIKE SY-TCODE.
)");
    if (!EstaEnBlanco(g.especificacion.VariablesGlobales)) {
        EscribirTextoDelUsuario(g, g.especificacion.VariablesGlobales, Lugar::Parte::VariablesGlobales);
    }
    if (g.especificacion.OrigenUsuario) {
        EscribirTextoDelUsuario(g, g.especificacion.OrigenVariables, Lugar::Parte::OrigenVariables);
    }
}

}  // namespace qor
