#include "editor/window.h"

namespace qor {

void Ventana::Reiniciar() {
    archivo = {};
    transaccion = {};
    busquedas = {};
    foco.reset();
    filasMarcadas.reset();
    aviso.clear();
    DuplicadoRevisado = false;
    ExpandirCampo = false;
    SSTab1 = SSTab2 = 0;
    ReporteTrans.clear();
}

}  // namespace qor
