#include "model/gaps.h"

namespace qor {

namespace {

// `vacia` answers for a row; `lugar` is the place of one.
template <typename Vacia, typename LugarDeFila>
void BuscarEnTabla(int primera, Vacia vacia, LugarDeFila lugar, std::vector<Lugar>& huecos) {
    int primeraVacia = -1;
    for (int r = primera; r <= ultimaFila; ++r) {
        if (vacia(r)) {
            if (primeraVacia < 0) primeraVacia = r;
        } else if (primeraVacia >= 0) {
            huecos.push_back(lugar(primeraVacia));
            primeraVacia = -1;
        }
    }
}

}  // namespace

std::vector<Lugar> BuscarHuecos(const Especificacion& especificacion, int primera) {
    std::vector<Lugar> huecos;
    BuscarEnTabla(
        primera, [&](int r) { return especificacion.FilaArchivoVacia(r); }, [](int r) { return Lugar::EnArchivo(r, 0); }, huecos);
    BuscarEnTabla(
        primera, [&](int r) { return especificacion.FilaTransaccionVacia(r); }, [](int r) { return Lugar::EnPrograma(r, 0); },
        huecos);
    return huecos;
}

bool TablasOK(const Especificacion& especificacion, const TextosIdioma& textos, Vista& vista) {
    if (BuscarHuecos(especificacion).empty()) return true;
    vista.Advertir(Componer(textos, {373}));
    return false;
}

std::vector<FilaDeArchivo> ArchivoSinHuecos(const Especificacion& especificacion) {
    const auto& antes = especificacion.TablaArchivo;
    int ultima = ultimaFila;
    while (ultima >= 0 && especificacion.FilaArchivoVacia(ultima)) --ultima;
    std::vector<FilaDeArchivo> tabla;
    for (int r = 0; r < filasTabla; ++r) {
        if (r > ultima || !especificacion.FilaArchivoVacia(r)) tabla.push_back(antes[r]);
    }
    tabla.resize(filasTabla);
    return tabla;
}

std::vector<FilaDeTransaccion> SinFilasEnBlanco(const Especificacion& especificacion, int primera) {
    const auto& antes = especificacion.TablaTransaccion;
    std::vector<FilaDeTransaccion> tabla(antes.begin(), antes.begin() + primera);
    for (int r = primera; r < filasTabla; ++r) {
        if (!especificacion.FilaTransaccionVacia(r)) tabla.push_back(antes[r]);
    }
    tabla.resize(filasTabla);
    return tabla;
}

}  // namespace qor
