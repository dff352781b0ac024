#include "model/one_file.h"

namespace qor {

namespace {

bool EntradaPlana(const Opciones& opciones, bool tabla) { return opciones.ClienteOp ? opciones.AnchoFijo : !tabla; }

}  // namespace

bool AdmiteArchivoUnico(const Especificacion& especificacion, const Opciones& opciones) {
    return EntradaPlana(opciones, opciones.TablaCh != 0) && !especificacion.OrigenUsuario;
}

bool StepsSinArchivo(const Especificacion& especificacion, const Opciones& opciones) {
    return opciones.OneFileOption() && EntradaPlana(opciones, opciones.TablaCh == 1) && !especificacion.OrigenUsuario;
}

}  // namespace qor
