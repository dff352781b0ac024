#include "model/specification.h"

#include "base/text.h"

namespace qor {

bool FilaDeTransaccion::EsCabezaTransaccion() const { return Recortar(programa) == "TRANS"; }

bool FilaDeTransaccion::EsCabezaBAPI() const { return Recortar(programa) == "BAPI"; }

bool Especificacion::FilaArchivoVacia(int fila) const { return EstaEnBlanco(TablaArchivo[fila].campo); }

bool Especificacion::FilaTransaccionVacia(int fila) const {
    return EstaEnBlanco(TablaTransaccion[fila].programa) && EstaEnBlanco(TablaTransaccion[fila].campo);
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

int Especificacion::FilasBAPIs() const {
    int fila = 0;
    while (fila <= ultimaFilaBAPIs && !TablaBAPIs[fila].nombre.empty()) ++fila;
    return fila;
}

int Especificacion::PrimeraPosicionLibreTransaccion() const {
    int fila = ultimaFila;
    while (fila >= 0 && TablaTransaccion[fila].Vacia()) --fila;
    return fila + 1;
}

}  // namespace qor
