#include "base/text.h"
#include "generator/lines.h"
#include "generator/sections.h"
#include "model/cells.h"

namespace qor {

namespace {

struct LlamadaBAPI {
    std::vector<LineaPartida> lineas;
    std::string SeccionReturn;
    std::string VariableReturn;
};

LlamadaBAPI LeerLlamada(const std::string& texto) {
    LlamadaBAPI llamada;
    std::string seccion;
    for (auto& partida : PartirLineasConNumero(texto, 69)) {
        const std::string_view linea = partida.texto;
        const auto cortada = Recortar(linea);
        if (cortada.empty()) continue;
        if (cortada == "EXPORTING" || cortada == "IMPORTING" || cortada == "TABLES") seccion = cortada;
        if (const auto p = Posicion(linea, "RETURN = "); p != 0) {
            llamada.SeccionReturn = seccion;
            auto variable = Recortar(TramoDesde(linea, p + 9));
            if (!variable.empty() && variable.back() == '.') variable.remove_suffix(1);
            llamada.VariableReturn = Recortar(variable);
        }
        llamada.lineas.push_back(std::move(partida));
    }
    return llamada;
}

// ROLLBACK WORK is only for a report without transactions.
bool DeshaceEnError(const Generacion& g) { return !g.analisis.operaciones.HayTransaccion && g.opciones.CommitCheck == 1; }

void ProbarEstructura(Generacion& g, const std::string& variable) {
    g.reporte.MPrint("  IF {variable}-TYPE = 'E'.", {{"variable", variable}});
    if (DeshaceEnError(g)) g.reporte.MPrint("    ROLLBACK WORK.");
    g.reporte.MPrintLineas(R"(
    {GS}DATAERRORSFOUND = {GC}YES.
    {GT}DATAERRORS-ID = 0.
    MOVE {variable}-MESSAGE TO {GT}DATAERRORS-LINE.
    APPEND {GT}DATAERRORS.
  ENDIF.
)",
                           {{"variable", variable}});
}

void ProbarTabla(Generacion& g, const std::string& variable) {
    g.reporte.MPrintLineas(R"(
  {GT}DATAERRORS-ID = 0.
  LOOP AT {variable}.
    IF {variable}-TYPE = 'E'.
)",
                           {{"variable", variable}});
    if (DeshaceEnError(g)) {
        g.reporte.MPrintLineas(R"(
      IF {GS}DATAERRORSFOUND = {GC}NO.
        ROLLBACK WORK.
      ENDIF.
)");
    }
    // On purpose the flag has the prefix of a table and the target of the move has none: under naming conventions these two lines
    // name objects that the report doesn't declare.
    g.reporte.MPrintLineas(R"(
      {GT}DATAERRORSFOUND = {GC}YES.
      MOVE {variable}-MESSAGE TO DATAERRORS-LINE.
      APPEND {GT}DATAERRORS.
    ENDIF.
  ENDLOOP.
)",
                           {{"variable", variable}});
}

void AvisarSinReturn(Generacion& g, const std::string& nombre) {
    g.Avisar(g.reporte.LugarActual(), {nombre, " ", 395});
    const std::string estrellas = std::string(columnasABAP, '*') + "|";
    g.reporte.MPrintDelUsuario(estrellas);
    for (const int numero : {509, 510, 511, 512}) g.reporte.MPrintDelUsuario(" " + g.Texto(numero) + "|");
    g.reporte.MPrintDelUsuario(estrellas);
}

void ImprimirLlamadaBAPI(Generacion& g, const std::string& nombre) {
    const Lugar enCabeza = g.reporte.LugarActual();
    g.reporte.MPrint("");
    const auto& bapis = g.especificacion.TablaBAPIs;
    std::size_t fila = 0;
    while (fila < bapis.size() && Recortar(bapis[fila].nombre) != nombre) ++fila;
    if (fila == bapis.size()) {
        g.Detener(enCabeza, {384, " ", nombre, " ", 385});
        return;
    }
    g.reporte.Desde(Lugar::EnBAPI(static_cast<int>(fila), 1));
    const LlamadaBAPI llamada = LeerLlamada(bapis[fila].llamada);
    for (const auto& [linea, numero] : llamada.lineas) {
        g.reporte.Desde(Lugar::EnBAPI(static_cast<int>(fila), 1, numero));
        g.reporte.MPrintDelUsuario("  " + linea + "|");
    }
    g.reporte.Desde(enCabeza);
    g.reporte.MPrint("");
    if (!g.analisis.ManejoErrores) return;
    if (llamada.SeccionReturn == "IMPORTING") {
        ProbarEstructura(g, llamada.VariableReturn);
    } else if (llamada.SeccionReturn == "TABLES") {
        ProbarTabla(g, llamada.VariableReturn);
    } else {
        AvisarSinReturn(g, nombre);
    }
}

// A file field of the record.
void EscribirCampoDeArchivo(Generacion& g, const FilaDeTransaccion& fila, bool& enCadena) {
    const std::string valor = ValorDeCampo(g, fila.valor);
    if (!Contiene(fila.campo, ";")) {
        if (enCadena) g.reporte.MPrint("  MOVE:");
        enCadena = false;
        EscribirMoveEnCadena(g, "       ", valor, fila.campo);
        return;
    }
    const std::string campo(AntesDe(fila.campo, ';'));
    g.reporte.MPrintLineas(R"(
  PERFORM COND_CHECK USING '{cond}' CHANGING {GS}RESULT.
  IF {GS}RESULT = {GC}YES.
)",
                           {{"cond", std::string(DespuesDe(fila.campo, ';'))}});
    EscribirMoveSuelto(g, "    ", valor, campo);
    g.reporte.MPrintLineas(R"(
  ELSE.
    CLEAR {campo}.
  ENDIF.
)",
                           {{"campo", campo}});
    enCadena = true;
}

}  // namespace

void EscribirMoveEnCadena(Generacion& g, const std::string& sangria, const std::string& valor, const std::string& campo) {
    const std::string linea = sangria + valor + " TO " + campo;
    if (linea.size() + 1 > columnasABAP) {
        g.reporte.MPrintDelUsuario(sangria + valor + " TO|");
        g.reporte.MPrintDelUsuario(sangria + campo);
    } else {
        g.reporte.MPrintDelUsuario(linea);
    }
}

void EscribirMoveSuelto(Generacion& g, const std::string& sangria, const std::string& valor, const std::string& campo) {
    const std::string linea = sangria + "MOVE " + valor + " TO " + campo + ".";
    if (linea.size() > columnasABAP) {
        g.reporte.MPrintDelUsuario(sangria + "MOVE " + valor + " TO|");
        g.reporte.MPrintDelUsuario(sangria + campo + ".");
    } else {
        g.reporte.MPrintDelUsuario(linea);
    }
}

void EscribirCabezaBAPI(Generacion& g, const std::string& codigo, int numero) {
    const std::string forma = codigo.substr(0, largoFormaBAPI);
    g.reporte.MPrintLineas(
        R"(
{RULE}
*       FORM {forma}_{N}{relleno}*
{RULE}
FORM {forma}_{N}.

)",
        {{"forma", forma}, {"N", std::to_string(numero)}, {"relleno", Blancos(55 - static_cast<std::ptrdiff_t>(forma.size()))}});
}

void EscribirFilaBAPI(Generacion& g, int fila, bool& enCadena) {
    const auto& celdas = g.especificacion.TablaTransaccion[fila];
    if (g.analisis.operaciones.FilaEnStepLoop(fila)) {
        if (!Contiene(celdas.nota, "!1")) return;
        g.reporte.MPrint("  PERFORM TABFORM_{n}.", {{"n", std::to_string(g.analisis.operaciones.OperacionFila(fila))}});
        enCadena = true;
        return;
    }
    if (!celdas.programa.empty()) return;
    if (celdas.valor.empty()) {
        g.DetenerEnFila(Lugar::EnPrograma(fila, 3), {319});
        return;
    }
    if (celdas.valor.front() != '\'' && celdas.valor.front() != '@') {
        EscribirCampoDeArchivo(g, celdas, enCadena);
        return;
    }
    // A constant or a variable opens no chain and prints its condition as a mere word, on purpose: such a row is valid ABAP only
    // behind a file field of the same chain.
    std::string linea = "       " + ValorDeCampo(g, celdas.valor) + " TO " + std::string(AntesDe(celdas.campo, ';'));
    if (Contiene(celdas.campo, ";")) linea += " " + std::string(DespuesDe(celdas.campo, ';'));
    g.reporte.MPrintDelUsuario(linea);
}

void CerrarBAPI(Generacion& g, const std::string& codigo) {
    if (g.analisis.ManejoErrores) {
        g.reporte.MPrintLineas(R"(

  IF {GS}DATAERRORSFOUND = {GC}YES.
    EXIT.
  ENDIF.
)");
    }
    ImprimirLlamadaBAPI(g, codigo);
}

}  // namespace qor
