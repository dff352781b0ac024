#include "base/text.h"
#include "generator/sections.h"
#include "model/cells.h"

namespace qor {

namespace {

// The form that sends one step-loop group: once for each line of the group's table that belongs to the current main record.
class FormaDeStepLoop {
public:
    FormaDeStepLoop(Generacion& g, int n, int cabeza, bool esBAPI)
        : g_(g),
          n_(n),
          numero_(std::to_string(n)),
          cabeza_(g.especificacion.TablaTransaccion[cabeza]),
          filaCabeza_(cabeza),
          esBAPI_(esBAPI) {
        pantallaNueva_ = Numero(ValorDeMarca(cabeza_.nota, 3)) == 1;
    }

    void Escribir() {
        const Lugar enCabeza = Lugar::EnPrograma(filaCabeza_, 4);
        g_.reporte.Desde(enCabeza);
        g_.reporte.Lineas(R"(

{RULE}
*       FORM TABFORM_{n}                                                *
{RULE}
FORM TABFORM_{n}.
)",
                          {{"n", numero_}});
        if (esBAPI_) {
            tablaBAPI_ = Recortar(AntesDe(cabeza_.campo, '-'));
            g_.reporte.LineaVacia();
            g_.reporte.Linea("  REFRESH {tabla}.", {{"tabla", tablaBAPI_}});
        } else {
            EscribirPosicion();
        }
        g_.reporte.LineaVacia();
        if (g_.opciones.EntradaDeTabla()) {
            EscribirLecturaDeTabla();
            g_.reporte.Linea("  LOOP AT {GT}ITABSL_{n}.", {{"n", numero_}});
        } else {
            EscribirBucleConClaves();
        }
        EscribirInicioDePaso();
        EscribirCampos();
        g_.reporte.Desde(enCabeza);
        if (esBAPI_) {
            g_.reporte.Linea("    APPEND {tabla}.", {{"tabla", tablaBAPI_}});
        } else {
            EscribirPasoDeLinea();
        }
        g_.reporte.Lineas(R"(

  ENDLOOP.

ENDFORM.
)");
        if (g_.opciones.EntradaDeTabla()) EscribirProcesamiento();
    }

private:
    void EscribirPosicion() {
        if (pantallaNueva_) {
            g_.reporte.Lineas(R"(

  DATA: {LN}POSITION(3) TYPE N.

)");
        } else {
            g_.reporte.Lineas(R"(

  DATA: {LN}ROWSPERSCREEN(3) TYPE N,
        {LN}POSITION(3) TYPE N.

  {LN}ROWSPERSCREEN = {filas}.
)",
                              {{"filas", std::string(ValorDeMarca(cabeza_.nota, 6))}});
        }
        g_.reporte.Linea("  {LN}POSITION = 1.");
        ok_ = BuscarOkCode(g_.especificacion, filaCabeza_);
        if (ok_.valor.empty()) g_.Detener(g_.reporte.LugarActual(), {322, " ", Recortar(cabeza_.campo)});
    }

    // One line for each file field of a class, with an ending behind all but the last and another one behind the last.
    void EscribirCamposDeClase(ClaseCampo clase, int total, std::string_view plantilla, const char* entre, const char* final) {
        int c = 0;
        const int filas = g_.especificacion.FilasArchivo();
        for (int f = 0; f < filas; ++f) {
            if (g_.analisis.operaciones.ClaseCampoEnOperacion(f, n_) != clase) continue;
            const std::string& campo = g_.especificacion.TablaArchivo[f].campo;
            g_.reporte.Linea(plantilla, {{"campo", campo},
                                         {"cortado", std::string(Recortar(campo))},
                                         {"n", numero_},
                                         {"fin", ++c == total ? final : entre}});
        }
    }

    void EscribirLecturaDeTabla() {
        const int campos = g_.analisis.operaciones.ContarCamposOperacion(n_);
        const int claves = g_.analisis.operaciones.ContarCamposClave(n_);
        g_.reporte.Linea("  EXEC SQL PERFORMING SL_PROCESSING_{n}.", {{"n", numero_}});
        g_.reporte.Linea("    SELECT");
        EscribirCamposDeClase(ClaseCampo::DelGrupo, campos, "       {campo}{fin}", ",", "");
        g_.reporte.Linea("    INTO");
        EscribirCamposDeClase(ClaseCampo::DelGrupo, campos, "       :{GT}ITABSL_{n}-{campo}{fin}", ",", "");
        g_.reporte.Linea("    FROM {tabla}", {{"tabla", Mayusculas(Recortar(ValorDeMarca(cabeza_.nota, 2)))}});
        g_.reporte.Linea("    WHERE");
        EscribirCamposDeClase(ClaseCampo::Clave, claves, "       {campo} = :{GT}ITAB-{cortado}{fin}", " AND", "");
        g_.reporte.Linea("  ENDEXEC.");
        g_.reporte.LineaVacia();
    }

    void EscribirBucleConClaves() {
        g_.reporte.Linea("  LOOP AT {GT}ITABSL_{n} WHERE", {{"n", numero_}});
        if (g_.analisis.HayStepSinClave) {
            g_.reporte.Linea("       AUTOCOUNTER = {GT}ITAB-AUTOCOUNTER.");
        } else {
            EscribirCamposDeClase(ClaseCampo::Clave, g_.analisis.operaciones.ContarCamposClave(n_),
                                  "       {campo} = {GT}ITAB-{cortado}{fin}", " AND", ".");
        }
    }

    void EscribirInicioDePaso() {
        if (g_.analisis.ManejoErrores) {
            g_.reporte.Lineas(R"(

    IF {NEWB} = 'X'.
      {GT}DATAERRORS-ID = {id}.
      MOVE {GT}ITABSL_{n} TO {GT}DATAERRORS-LINE.
      APPEND {GT}DATAERRORS.
    ENDIF.
)",
                              {{"id", std::to_string(n_ + 1)}, {"n", numero_}});
        }
        if (g_.analisis.HayConversionesStep) {
            g_.reporte.LineaVacia();
            g_.reporte.Linea("    PERFORM TABCONVERSIONS.");
        }
    }

    void EscribirCampos() {
        bool enCadena = true;
        const int filas = g_.especificacion.FilasTransaccion();
        for (int r = 0; r < filas; ++r) {
            const auto& fila = g_.especificacion.TablaTransaccion[r];
            if (g_.analisis.operaciones.OperacionFila(r) != n_ || !Contiene(fila.campo, "(")) continue;
            g_.reporte.Desde(Lugar::EnPrograma(r, 3));
            const std::string valor = ValorDeLinea(fila.valor);
            const std::string campo(AntesDe(fila.campo, '('));
            if (esBAPI_) {
                EscribirCampoBAPI(fila.campo, campo, valor, enCadena);
            } else {
                g_.reporte.MPrint("    PERFORM SL_SEND USING '{campo}' {LN}POSITION|", {{"campo", campo}});
                const std::string condicion = Contiene(fila.campo, ";") ? std::string(DespuesDe(fila.campo, ';')) : " ";
                g_.reporte.MPrint("      {valor} '{cond}'.", {{"valor", valor}, {"cond", condicion}});
            }
        }
        g_.reporte.ImprimirMemoria();
    }

    // Constants and variables pass as they stand, with no test of their kind.
    std::string ValorDeLinea(const std::string& celda) const {
        const int fila = g_.FilaDeCampo(celda);
        if (fila < 0) {
            const auto cortada = Recortar(celda);
            return std::string(EsVariable(cortada) ? cortada.substr(1) : cortada);
        }
        if (TienePares(g_.especificacion.TablaArchivo[fila].conversion))
            return g_.nombres.GSprefijo + "CONVERTED" + std::to_string(fila);
        return g_.nombres.GTprefijo + "ITABSL_" + numero_ + "-" + celda;
    }

    void EscribirCampoBAPI(const std::string& columna, const std::string& campo, const std::string& valor, bool& enCadena) {
        if (!Contiene(columna, ";")) {
            if (enCadena) g_.reporte.MPrint("    MOVE:");
            enCadena = false;
            EscribirMoveEnCadena(g_, "         ", valor, campo);
            return;
        }
        g_.reporte.MPrintLineas(R"(
    PERFORM COND_CHECK USING '{cond}' CHANGING {LS}RESULT.
    IF {LS}RESULT = {GC}YES.
)",
                                {{"cond", std::string(DespuesDe(columna, ';'))}});
        EscribirMoveSuelto(g_, "      ", valor, campo);
        g_.reporte.MPrintLineas(R"(
    ELSE.
      CLEAR {campo}.
    ENDIF.
)",
                                {{"campo", campo}});
        enCadena = true;
    }

    void EscribirPasoDeLinea() {
        const std::string lineaOk = "PERFORM DYNPRO USING ' ' 'BDC_OKCODE' " + ok_.valor + " '" + ok_.CondicionOkCode + "'.";
        std::string lineaPantalla = "PERFORM DYNPRO USING 'X' '" + ok_.programa + "' '";
        if (Contiene(ok_.dynpro, ";")) {
            lineaPantalla.append(AntesDe(ok_.dynpro, ';')).append("' '").append(DespuesDe(ok_.dynpro, ';')).append("'.");
        } else {
            lineaPantalla.append(ok_.dynpro).append("' ' '.");
        }
        const double primera = Numero(ValorDeMarca(cabeza_.nota, 5));
        const Lugar enCabeza = Lugar::EnPrograma(filaCabeza_, 4);
        const auto escribirAmbas = [&](const char* sangria) {
            g_.reporte.Desde(ok_.filaDeOkCode < 0 ? enCabeza : Lugar::EnPrograma(ok_.filaDeOkCode, 3));
            g_.reporte.LineaDelUsuario(sangria + lineaOk);
            g_.reporte.Desde(ok_.filaDePantalla < 0 ? enCabeza : Lugar::EnPrograma(ok_.filaDePantalla, 1));
            g_.reporte.LineaDelUsuario(sangria + lineaPantalla);
            g_.reporte.Desde(enCabeza);
        };
        if (pantallaNueva_) {
            escribirAmbas("    ");
            if (primera == 0) g_.reporte.Linea("    {LN}POSITION = 2.");
            return;
        }
        g_.reporte.Lineas(R"(
    {LN}POSITION = {LN}POSITION + 1.
    IF {LN}POSITION > {LN}ROWSPERSCREEN.
)");
        escribirAmbas("      ");
        g_.reporte.Linea(primera == 1 ? "      {LN}POSITION = 1." : "      {LN}POSITION = 2.");
        g_.reporte.Linea("    ENDIF.");
    }

    void EscribirProcesamiento() {
        g_.reporte.Lineas(R"(

{RULE}
*       FORM SL_PROCESSING_{n}                                          *
{RULE}
FORM SL_PROCESSING_{n}.
  APPEND {GT}ITABSL_{n}.
ENDFORM.
)",
                          {{"n", numero_}});
    }

    Generacion& g_;
    int n_;
    std::string numero_;
    const FilaDeTransaccion& cabeza_;
    int filaCabeza_;
    bool esBAPI_;
    bool pantallaNueva_ = false;
    std::string tablaBAPI_;
    OkCode ok_;
};

void EscribirSlSend(Generacion& g) {
    g.reporte.Desde({});
    g.reporte.Lineas(R"(

{RULE}
*       FORM SL_SEND                                                  *
{RULE}
*  -->  FIELD                                                         *
*  -->  POSITION                                                      *
*  -->  FVALUE                                                        *
*  -->  CONDITION                                                     *
{RULE}
FORM SL_SEND USING {LS}FIELD {LN}POSITION {LS}FVALUE {LS}CONDITION.
  DATA: {LS}SLFIELD(1024),
        {LS}POS(3).
  WRITE {LN}POSITION TO {LS}POS.
  SHIFT {LS}POS LEFT DELETING LEADING '0'.
  CONCATENATE {LS}FIELD '(' {LS}POS ')' INTO {LS}SLFIELD.
  PERFORM DYNPRO USING SPACE {LS}SLFIELD {LS}FVALUE {LS}CONDITION.
ENDFORM.
)");
}

}  // namespace

void EscribirStepLoops(Generacion& g) {
    if (ContarStepLoops(g.especificacion) == 0) return;
    bool esBAPI = false;
    int n = 0;
    const int filas = g.especificacion.FilasTransaccion();
    for (int r = 0; r < filas; ++r) {
        const auto& fila = g.especificacion.TablaTransaccion[r];
        if (fila.EsCabezaTransaccion()) esBAPI = false;
        if (fila.EsCabezaBAPI()) esBAPI = true;
        if (EsCabezaStepLoop(fila.nota)) FormaDeStepLoop(g, ++n, r, esBAPI).Escribir();
    }
    if (g.analisis.operaciones.HayTransaccion) EscribirSlSend(g);
}

}  // namespace qor
