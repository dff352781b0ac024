#include "model/specification.h"

#include <algorithm>

#include "base/text.h"

namespace qor {

bool Especificacion::FilaArchivoVacia(int fila) const { return EstaEnBlanco(TablaArchivo[fila][0]); }

bool Especificacion::FilaTransaccionVacia(int fila) const {
    return EstaEnBlanco(TablaTransaccion[fila][0]) && EstaEnBlanco(TablaTransaccion[fila][2]);
}

int Especificacion::FilasArchivo() const {
    int fila = 0;
    while (fila <= ultimaFila && !FilaArchivoVacia(fila)) ++fila;
    return fila;
}

int Especificacion::FilasTransaccion() const {
    int fila = 0;
    while (fila <= ultimaFila && !FilaTransaccionVacia(fila)) ++fila;
    return fila;
}

int Especificacion::PrimeraPosicionLibreTransaccion() const {
    int fila = ultimaFila;
    const auto vacia = [](const std::string& celda) { return celda.empty(); };
    while (fila >= 0 && std::all_of(TablaTransaccion[fila].begin(), TablaTransaccion[fila].end(), vacia)) --fila;
    return fila + 1;
}

bool EsCabezaTransaccion(const std::array<std::string, 5>& fila) { return Recortar(fila[0]) == "TRANS"; }

bool EsCabezaBAPI(const std::array<std::string, 5>& fila) { return Recortar(fila[0]) == "BAPI"; }

}  // namespace qor
