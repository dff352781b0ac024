#include "model/gaps.h"

namespace qor {

bool TablasOK(const Especificacion& especificacion, const TextosIdioma& textos, Vista& vista) {
    bool finArchivo = especificacion.FilaArchivoVacia(1);
    bool finTransaccion = especificacion.FilaTransaccionVacia(1);
    for (int i = 2; i <= ultimaFila; ++i) {
        const bool vaciaArchivo = especificacion.FilaArchivoVacia(i);
        const bool vaciaTransaccion = especificacion.FilaTransaccionVacia(i);
        if ((finArchivo && !vaciaArchivo) || (finTransaccion && !vaciaTransaccion)) {
            vista.Advertir(Componer(textos, {373}));
            return false;
        }
        finArchivo = vaciaArchivo;
        finTransaccion = vaciaTransaccion;
    }
    return true;
}

std::vector<FilaDeTransaccion> SinFilasEnBlanco(const Especificacion& especificacion) {
    std::vector<FilaDeTransaccion> tabla;
    tabla.push_back(especificacion.TablaTransaccion[0]);
    for (int r = 1; r < filasTabla; ++r) {
        if (!especificacion.FilaTransaccionVacia(r)) tabla.push_back(especificacion.TablaTransaccion[r]);
    }
    tabla.resize(filasTabla);
    return tabla;
}

}  // namespace qor
