#include "practice/recordings.h"

#include "base/text.h"
#include "practice/recording_reader.h"

namespace qor {

namespace {

std::string ClaveDePantalla(std::string_view programa, std::string_view dynpro) {
    std::string clave(programa);
    clave += '\n';
    if (dynpro.size() < 4) clave.append(4 - dynpro.size(), '0');
    clave += dynpro;
    return clave;
}

}  // namespace

const TransaccionGrabada::Campos* TransaccionGrabada::Buscar(std::string_view programa, std::string_view dynpro) const {
    const auto lugar = pantallas_.find(ClaveDePantalla(programa, dynpro));
    return lugar == pantallas_.end() ? nullptr : &lugar->second;
}

TransaccionGrabada::Campos& TransaccionGrabada::Agregar(std::string_view programa, std::string_view dynpro) {
    return pantallas_[ClaveDePantalla(programa, dynpro)];
}

int Grabaciones::Agregar(std::string_view texto) {
    int cuantas = 0;
    LeerGrabacion(texto, [&](const TransaccionLeida& leida) {
        ++cuantas;
        auto& transaccion = transacciones_[Mayusculas(Recortar(leida.codigo))];
        TransaccionGrabada::Campos* campos = nullptr;
        for (const auto& fila : leida.filas) {
            if (fila.abre) {
                campos = &transaccion.Agregar(fila.programa, fila.dynpro);
            } else if (campos != nullptr) {
                campos->emplace(SinNumeroDeFila(fila.campo));
            }
        }
    });
    return cuantas;
}

const TransaccionGrabada* Grabaciones::Buscar(std::string_view transaccion) const {
    const auto lugar = transacciones_.find(Mayusculas(transaccion));
    return lugar == transacciones_.end() ? nullptr : &lugar->second;
}

}  // namespace qor
