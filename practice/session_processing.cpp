#include "practice/session_processing.h"

#include <array>

namespace qor {

bool ProcesarSesion(SistemaDePractica& sistema, Curso& curso, const EntradaDeCola& entrada) {
    std::size_t numero = 0;
    sistema.Cola().CadaTransaccion(entrada.numero, [&](const TransaccionDeCola& transaccion) {
        if (!curso.Registro(++numero)) return !curso.Parado();
        const auto& resultado = sistema.Probador().Probar(transaccion.transaccion, transaccion.filas, curso.Pedido());
        const std::array mensajes = {resultado.Mensaje()};
        curso.Transaccion({transaccion.transaccion, 'N', 'S', transaccion.filas, resultado.Subrc(), mensajes, resultado.lugar});
        return true;
    });
    curso.FinDeRegistros();
    const auto& cuenta = curso.Cuenta();
    if (curso.Parado()) return false;
    if (cuenta.fallados == 0 && !entrada.conservar) {
        sistema.Cola().Borrar(entrada.numero);
    } else {
        sistema.Cola().PonerEstado(entrada.numero, cuenta.fallados == 0 ? "F" : "E");
    }
    sistema.TerminarUnidad();
    return cuenta.registros > 0 && cuenta.fallados == 0;
}

}  // namespace qor
