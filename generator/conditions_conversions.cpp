#include <algorithm>

#include "base/failure.h"
#include "base/text.h"
#include "generator/conversions.h"
#include "generator/sections.h"
#include "model/cells.h"

namespace qor {

namespace {

constexpr int anchoDeCodigo = 50;
constexpr std::size_t largoMaximoDeNombre = 997;

std::ptrdiff_t ContarApostrofos(std::string_view linea) { return std::count(linea.begin(), linea.end(), '\''); }

// One code line; the run ends behind it when it refers to a step-loop field. It comes from where the report says that it does.
void EscribirLineaDeCodigo(Generacion& g, const char* sangria, const std::string& linea, int mensaje, const std::string& nombre) {
    const auto convertida = ConvertirTexto(linea, g.analisis.operaciones, g.nombres.GTprefijo);
    g.reporte.LineaDelUsuario(sangria + convertida.texto);
    if (convertida.CampoDeStep) g.Detener(g.reporte.LugarActual(), {mensaje, " ", nombre, "."});
}

void EscribirCodigoDeCampo(Generacion& g, int f) {
    const auto& fila = g.especificacion.TablaArchivo[f];
    bool hayLineas = false;
    g.reporte.Desde(Lugar::EnArchivo(f, 3));
    for (const auto& [linea, numero] : PartirLineasConNumero(fila.conversion, anchoDeCodigo)) {
        if (TienePares(linea) || EstaEnBlanco(linea)) continue;
        g.reporte.Desde(Lugar::EnArchivo(f, 3, numero));
        if (linea.front() == '*') {
            g.reporte.LineaDelUsuario(linea);
        } else {
            EscribirLineaDeCodigo(g, "  ", linea, 321, fila.campo);
        }
        hayLineas = true;
    }
    if (hayLineas) g.reporte.LineaVacia();
}

// The CASE over the value pairs of a field; `campo` is the component that holds the value.
void EscribirPares(Generacion& g, int f, const std::string& campo) {
    const std::string numero = std::to_string(f);
    g.reporte.Desde(Lugar::EnArchivo(f, 3));
    g.reporte.Linea("  CASE {campo}.", {{"campo", campo}});
    for (const auto& [linea, numeroDeLinea] : PartirLineasConNumero(g.especificacion.TablaArchivo[f].conversion, anchoDeCodigo)) {
        if (!TienePares(linea)) continue;
        const Lugar lugar = Lugar::EnArchivo(f, 3, numeroDeLinea);
        g.reporte.Desde(lugar);
        const auto primero = ExtraerPrimero(linea);
        if (primero.malEscrita) g.Avisar(lugar, {372});
        g.reporte.Linea("    WHEN '{valor}'.", {{"valor", primero.texto}});
        if (primero.malEscrita) {
            if (g.oyente.Sigue()) continue;
            throw FalloDeEjecucion("a value-pair line without exactly four apostrophes");
        }
        if (ContarApostrofos(linea) < 4 && g.oyente.Sigue()) {
            g.Avisar(lugar, {326});
            continue;
        }
        g.reporte.Linea("      {GS}CONVERTED{R} = '{valor}'.", {{"R", numero}, {"valor", ExtraerSegundo(linea)}});
    }
    g.reporte.Desde(Lugar::EnArchivo(f, 3));
    g.reporte.Lineas(R"(
    WHEN OTHERS.
      {GS}CONVERTED{R} = {campo}.
  ENDCASE.

)",
                     {{"R", numero}, {"campo", campo}});
}

}  // namespace

TextoConvertido ConvertirTexto(std::string_view linea, const Operaciones& operaciones, const std::string& GTprefijo) {
    TextoConvertido convertido;
    for (std::size_t i = 0; i < linea.size(); ++i) {
        if (linea[i] != '#') {
            convertido.texto += linea[i];
            continue;
        }
        convertido.texto += GTprefijo + "ITAB-";
        const auto resto = linea.substr(i + 1);
        const auto fin = resto.find_first_of("\r +(<[.,");
        const auto nombre = fin == std::string_view::npos ? resto.substr(0, largoMaximoDeNombre) : resto.substr(0, fin);
        if (operaciones.OperacionDeCampo(Mayusculas(nombre)) != 0) convertido.CampoDeStep = true;
    }
    return convertido;
}

PrimerTexto ExtraerPrimero(std::string_view linea) {
    const auto apostrofos = ContarApostrofos(linea);
    if (apostrofos < 2 || apostrofos > 4) return {{}, true};
    return {std::string(AntesDe(DespuesDe(linea, '\''), '\'')), false};
}

std::string ExtraerSegundo(std::string_view linea) {
    if (ContarApostrofos(linea) < 4) throw FalloDeEjecucion("a line with fewer than four apostrophes where two texts belong");
    const auto desdeSegundo = DespuesDe(DespuesDe(linea, '\''), '\'');
    return std::string(AntesDe(DespuesDe(desdeSegundo, '\''), '\''));
}

void EscribirCondCheck(Generacion& g) {
    g.reporte.Desde({});
    g.reporte.Lineas(R"(

{RULE}
*       FORM COND_CHECK                                               *
{RULE}
*  -->  CONDITION                                                     *
*  -->  RESULT                                                        *
{RULE}
FORM COND_CHECK USING {LS}CONDITION CHANGING {LS}RESULT.
  {LS}RESULT = {GC}NO.
)");
    const bool hayCondiciones = !g.especificacion.TablaCondiciones[0].nombre.empty();
    if (hayCondiciones) g.reporte.Linea("  CASE {LS}CONDITION.");
    int condicion = 0;
    for (const auto& [nombre, texto] : g.especificacion.TablaCondiciones) {
        if (nombre.empty()) break;
        g.reporte.Desde(Lugar::EnCondicion(condicion, 0));
        g.reporte.Linea("    WHEN '{nombre}'.", {{"nombre", nombre}});
        for (const auto& [linea, numero] : PartirLineasConNumero(texto, anchoDeCodigo)) {
            if (EstaEnBlanco(linea)) continue;
            g.reporte.Desde(Lugar::EnCondicion(condicion, 1, numero));
            EscribirLineaDeCodigo(g, "      ", linea, 320, nombre);
        }
        ++condicion;
    }
    g.reporte.Desde({});
    if (hayCondiciones) g.reporte.Linea("  ENDCASE.");
    g.reporte.Linea("ENDFORM.");
}

void EscribirConversions(Generacion& g) {
    g.reporte.Desde({});
    g.reporte.Lineas(R"(

{RULE}
*       FORM CONVERSIONS                                              *
{RULE}
FORM CONVERSIONS.

)");
    const auto& tabla = g.especificacion.TablaArchivo;
    for (int f = 0; f <= ultimaFila; ++f) {
        if (!EstaEnBlanco(tabla[f].conversion)) EscribirCodigoDeCampo(g, f);
    }
    for (int f = 0; f <= ultimaFila; ++f) {
        const auto campo = Recortar(tabla[f].campo);
        if (!TienePares(tabla[f].conversion) || g.analisis.operaciones.OperacionDeCampo(campo) != 0) continue;
        EscribirPares(g, f, g.nombres.GTprefijo + "ITAB-" + std::string(campo));
    }
    g.reporte.Desde({});
    g.reporte.Linea("ENDFORM.");
}

void EscribirTabConversions(Generacion& g) {
    g.reporte.Desde({});
    g.reporte.Lineas(R"(

{RULE}
*       FORM TABCONVERSIONS                                           *
{RULE}
FORM TABCONVERSIONS.

)");
    const auto& tabla = g.especificacion.TablaArchivo;
    for (int f = 0; f <= ultimaFila; ++f) {
        const auto campo = Recortar(tabla[f].campo);
        if (!TienePares(tabla[f].conversion)) continue;
        const int grupo = g.analisis.operaciones.OperacionDeCampo(campo);
        if (grupo != 0) EscribirPares(g, f, g.nombres.GTprefijo + "ITABSL_" + std::to_string(grupo) + "-" + std::string(campo));
    }
    g.reporte.Desde({});
    g.reporte.Linea("ENDFORM.");
}

}  // namespace qor
