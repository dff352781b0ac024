#pragma once

#include "practice/session_queue.h"

namespace qor {

// A queue of sessions that nobody will look into: it numbers them and keeps nothing, so that a million transactions take no room.
class ColaSinGuardar : public ColaDeSesiones {
public:
    std::string Abrir(std::string_view /*grupo*/, std::string_view /*usuario*/, std::string_view /*conservar*/) override {
        const std::string numero = std::to_string(++sesiones_);
        return std::string(20 - numero.size(), '0') + numero;
    }
    void Insertar(std::string_view /*transaccion*/, std::span<const FilaDeBDC> /*filas*/) override {}
    void Cerrar() override {}
    bool Leer(std::string_view /*id*/, std::string_view /*tipoDeDatos*/, const Registro& /*registro*/) override { return false; }

private:
    std::size_t sesiones_ = 0;
};

}  // namespace qor
