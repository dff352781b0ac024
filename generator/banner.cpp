#include "base/text.h"
#include "generator/sections.h"
#include "model/cells.h"

namespace qor {

namespace {

constexpr std::ptrdiff_t columnaFinal = 70;

// A field line: head, value, blanks up to column 70, "*". A value that is too long makes the run fail.
void LineaDeCampo(Generacion& g, const std::string& cabeza, std::string_view valor) {
    std::string linea = cabeza;
    linea.append(valor);
    linea += Blancos(columnaFinal - static_cast<std::ptrdiff_t>(linea.size())) + "*";
    g.reporte.LineaDelUsuario(linea);
}

std::string Acortar(std::string_view ruta) {
    if (ruta.size() <= 41) return std::string(ruta);
    return std::string(ruta.substr(0, 3)) + ".." + std::string(ruta.substr(ruta.size() - 36));
}

std::string TextoDocumento(const Generacion& g) {
    if (g.RutaDocumento.empty()) return {};
    return Acortar(Tramo(g.RutaDocumento, 1, static_cast<std::ptrdiff_t>(g.RutaDocumento.size()) - 4));
}

void EscribirArchivos(Generacion& g) {
    g.reporte.Desde(Lugar::EnOpcion("ArchivoFuente"));
    const bool deTabla = g.opciones.EntradaDeTabla();
    const bool esParametro = g.opciones.FileParameterCh == 1 && g.opciones.TablaCh == 0;
    LineaDeCampo(g, deTabla ? "*   Main table        : " : "*   Main file         : ",
                 esParametro ? "Parameter" : Acortar(g.opciones.ArchivoFuente));
    if (g.analisis.ArchivoUnico) return;
    int k = 1;
    const int filas = g.especificacion.FilasTransaccion();
    for (int r = 0; r < filas; ++r) {
        const std::string& marcas = g.especificacion.TablaTransaccion[r].nota;
        if (!Contiene(marcas, "!1 1")) continue;
        g.reporte.Desde(Lugar::EnPrograma(r, 4));
        const std::string numero = std::to_string(k) + (k < 10 ? " " : "");
        LineaDeCampo(g, deTabla ? "*   Step-Loop table " + numero + ": " : "*   Step-Loop file " + numero + " : ",
                     esParametro ? "Parameter" : ValorDeMarca(marcas, 2));
        ++k;
    }
}

void EscribirCodigos(Generacion& g) {
    const int filas = g.especificacion.FilasTransaccion();
    for (int r = 0; r < filas; ++r) {
        const auto& fila = g.especificacion.TablaTransaccion[r];
        g.reporte.Desde(Lugar::EnPrograma(r, 1));
        if (fila.EsCabezaTransaccion()) LineaDeCampo(g, "*   Transaction code  : ", Recortar(fila.dynpro));
        if (fila.EsCabezaBAPI()) LineaDeCampo(g, "*   Bapi name         : ", Recortar(fila.dynpro));
    }
}

}  // namespace

void EscribirTitulos(Generacion& g) {
    const auto& o = g.opciones;
    g.reporte.Desde({});
    g.reporte.Lineas(R"(
{RULE}
*   Qor Generator - Batch Input & BAPI-based Interface Generator      *
*   Tessaline. Tools for SAP.                                         *
{RULE}
*   www.tessaline.example                     info@tessaline.example  *
{RULE}
)");
    if (o.DiaCheck == 1) LineaDeCampo(g, "*   Creation date/time: ", g.valores.FechaCreacion);
    if (o.QORCheck == 1) LineaDeCampo(g, "*   Qor-format file   : ", TextoDocumento(g));
    if (o.ArchivosCheck == 1 && !g.especificacion.OrigenUsuario) EscribirArchivos(g);
    if (o.TCodeCheck == 1) EscribirCodigos(g);
    g.reporte.Desde({});
    if (o.DiaCheck == 1 || o.QORCheck == 1 || o.ArchivosCheck == 1 || o.TCodeCheck == 1) g.reporte.Linea("{RULE}");
    if (o.StatusCheck == 1) {
        g.reporte.Lineas(R"(
*   Status  :   [ ]In process    [ ]Stand by      [x]Finished         *
*   Modified:   [ ]Yes           [x]No                                *
{RULE}
)");
    }
}

}  // namespace qor
