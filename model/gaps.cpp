#include "model/gaps.h"

namespace qor {

bool TablasOK(const Especificacion& especificacion, const TextosIdioma& textos, Vista& vista) {
    for (int i = 2; i <= ultimaFila; ++i) {
        const bool huecoArchivo = especificacion.FilaArchivoVacia(i - 1) && !especificacion.FilaArchivoVacia(i);
        const bool huecoTransaccion = especificacion.FilaTransaccionVacia(i - 1) && !especificacion.FilaTransaccionVacia(i);
        if (huecoArchivo || huecoTransaccion) {
            vista.Advertir(Componer(textos, {373}));
            return false;
        }
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
