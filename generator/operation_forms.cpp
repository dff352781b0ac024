#include "base/text.h"
#include "generator/sections.h"
#include "model/cells.h"

namespace qor {

namespace {

// The walk over the program side that writes one form for each operation.
class FormasDeOperacion {
public:
    explicit FormasDeOperacion(Generacion& g) : g_(g), tabla_(g.especificacion.TablaTransaccion) {}

    void Escribir() {
        // This test doesn't cut blanks, unlike all other walks.
        for (int r = 0; r <= ultimaFila && !(tabla_[r].SinNombres()); ++r) {
            const auto& fila = tabla_[r];
            g_.reporte.Desde(Lugar::EnPrograma(r, 3));
            if (fila.EsCabezaTransaccion() || fila.EsCabezaBAPI()) {
                EmpezarOperacion(r);
            } else if (esBAPI_) {
                EscribirFilaBAPI(g_, r, enCadena_);
            } else {
                EscribirFila(r);
            }
        }
        CerrarOperacion();
        g_.reporte.ImprimirMemoria();
        g_.reporte.Desde({});
    }

private:
    void EmpezarOperacion(int r) {
        if (numero_ > 1) CerrarOperacion();
        g_.reporte.Desde(Lugar::EnPrograma(r, 1));
        cabeza_ = r;
        g_.reporte.MPrint("");
        codigo_ = Recortar(AntesDe(tabla_[r].dynpro, ';'));
        esBAPI_ = tabla_[r].EsCabezaBAPI();
        if (esBAPI_) {
            EscribirCabezaBAPI(g_, codigo_, numero_);
        } else {
            EscribirCabeza();
        }
        ++numero_;
        enCadena_ = true;
    }

    void EscribirCabeza() {
        // The padding counts the code alone: from operation 10 on this comment is a column wider, on purpose.
        g_.reporte.MPrintLineas(R"(
{RULE}
*       FORM GENERATE_BDC_{codigo}_{N}{relleno}*
{RULE}
*  -->  TCODE                                                         *
{RULE}
FORM GENERATE_BDC_{codigo}_{N} CHANGING {LS}TCODE.

  {LS}TCODE = '{codigo}'.
  REFRESH {GT}BDC_TAB.
  {GS}PROCESS_FIELDS = {GC}YES.
)",
                                {{"codigo", codigo_},
                                 {"N", std::to_string(numero_)},
                                 {"relleno", Blancos(42 - static_cast<std::ptrdiff_t>(codigo_.size()))}});
    }

    void CerrarOperacion() {
        g_.reporte.Desde(Lugar::EnPrograma(cabeza_, 1));
        if (esBAPI_) CerrarBAPI(g_, codigo_);
        g_.reporte.MPrint("");
        g_.reporte.MPrint("ENDFORM.");
    }

    void EscribirFila(int r) {
        const auto& fila = tabla_[r];
        if (g_.analisis.operaciones.FilaEnStepLoop(r)) {
            // The other rows of a group are sent by its own form.
            if (!Contiene(fila.nota, "!1")) return;
            g_.reporte.MPrint("  PERFORM TABFORM_{n}.", {{"n", std::to_string(g_.analisis.operaciones.OperacionFila(r))}});
            enCadena_ = true;
        } else if (!fila.programa.empty()) {
            g_.reporte.Desde(Lugar::EnPrograma(r, 1));
            if (fila.dynpro.empty()) g_.Detener(Lugar::EnPrograma(r, 1), {318});
            AbrirCadena();
            g_.reporte.MPrint("       'X'   '{programa}'     '{dynpro}' '{cond}'",
                              {{"programa", fila.programa},
                               {"dynpro", std::string(AntesDe(fila.dynpro, ';'))},
                               {"cond", std::string(DespuesDe(fila.dynpro, ';'))}});
        } else {
            if (fila.valor.empty()) {
                g_.DetenerEnFila(Lugar::EnPrograma(r, 3), {319});
                return;
            }
            AbrirCadena();
            g_.reporte.MPrint("       ' '   '{campo}'     {valor} '{cond}'", {{"campo", std::string(AntesDe(fila.campo, ';'))},
                                                                              {"valor", ValorDeCampo(g_, fila.valor)},
                                                                              {"cond", std::string(DespuesDe(fila.campo, ';'))}});
        }
    }

    void AbrirCadena() {
        if (enCadena_) g_.reporte.MPrint("  PERFORM DYNPRO USING:");
        enCadena_ = false;
    }

    Generacion& g_;
    const std::vector<FilaDeTransaccion>& tabla_;
    int numero_ = 1;
    int cabeza_ = 0;
    bool esBAPI_ = false;
    bool enCadena_ = false;
    std::string codigo_;
};

}  // namespace

void EscribirOperaciones(Generacion& g) { FormasDeOperacion(g).Escribir(); }

std::string ValorDeCampo(const Generacion& g, std::string_view celda) {
    if (EsVariable(celda)) return std::string(celda.substr(1));
    if (celda.front() == '\'') return std::string(celda);
    const int fila = g.FilaDeCampo(celda);
    if (fila >= 0 && TienePares(g.especificacion.TablaArchivo[fila].conversion))
        return g.nombres.GSprefijo + "CONVERTED" + std::to_string(fila);
    return g.nombres.GTprefijo + "ITAB-" + std::string(celda);
}

}  // namespace qor
