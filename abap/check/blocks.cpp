#include "abap/check/blocks.h"

#include <algorithm>

namespace qor::abap {

void Bloques::Abrir(const Palabra& palabra, Clave final, bool opcional) {
    abiertos_.push_back({palabra, final, opcional, informe_.Sentencia()});
}

// The innermost block has no end.
void Bloques::Abandonar() {
    const Bloque& bloque = abiertos_.back();
    if (!bloque.opcional) informe_.AgregarDe(bloque.sentencia, Falta::Clase::BloqueAbierto, bloque.palabra);
    abiertos_.pop_back();
}

// Makes the block that `final` closes the innermost one.
bool Bloques::Buscar(const Palabra& palabra, Clave final) {
    const auto es = [final](const Bloque& bloque) { return bloque.final == final; };
    if (std::none_of(abiertos_.begin(), abiertos_.end(), es)) {
        informe_.Agregar(Falta::Clase::BloqueAbierto, palabra);
        return false;
    }
    while (!es(abiertos_.back())) Abandonar();
    return true;
}

void Bloques::Cerrar(const Palabra& palabra, Clave final) {
    if (Buscar(palabra, final)) abiertos_.pop_back();
}

void Bloques::Continuar(const Palabra& palabra, Clave final) { Buscar(palabra, final); }

void Bloques::CerrarTodos() {
    while (!abiertos_.empty()) Abandonar();
}

}  // namespace qor::abap
