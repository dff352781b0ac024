#include "practice/failures.h"

#include <charconv>
#include <optional>

#include "practice/messages.h"

namespace qor {

namespace {

constexpr std::string_view textoDeEncargo = "Asked to fail";

std::optional<std::size_t> LeerNumeroDeRegistro(std::string_view texto) {
    std::size_t numero = 0;
    const auto [fin, error] = std::from_chars(texto.data(), texto.data() + texto.size(), numero);
    if (error != std::errc() || fin != texto.data() + texto.size() || numero == 0) return std::nullopt;
    return numero;
}

}  // namespace

Frase MotivoDeFallo(const FalloDeRegistro& fallo) {
    std::string lugar;
    const auto agregar = [&lugar](std::string_view parte) {
        if (!parte.empty()) lugar.append(lugar.empty() ? "" : ", ").append(parte);
    };
    agregar(fallo.que);
    if (!fallo.esBapi) {
        agregar(fallo.lugar.programa);
        if (!fallo.lugar.dynpro.empty()) lugar.append(fallo.lugar.programa.empty() ? ", " : " ").append(fallo.lugar.dynpro);
        agregar(fallo.lugar.campo);
    }
    lugar.append(": ").append(fallo.mensaje.id).append(" ").append(fallo.mensaje.numero).append(" ");
    return {"%1%2", {lugar, FraseDeMensaje(fallo.mensaje.texto)}};
}

Frase LineaDeFallo(std::size_t registro, Frase motivo) { return {"record %1, %2", {std::to_string(registro), std::move(motivo)}}; }

bool LeerFalloPedido(std::string_view texto, FallosPorRegistro& fallos) {
    const auto igual = texto.find('=');
    const auto numero = LeerNumeroDeRegistro(texto.substr(0, igual));
    if (!numero) return false;
    FalloPedido fallo{'E', std::string(textoDeEncargo)};
    if (igual != std::string_view::npos) {
        auto resto = texto.substr(igual + 1);
        if (resto.starts_with("A:")) {
            fallo.tipo = 'A';
            resto.remove_prefix(2);
        }
        if (!resto.empty()) fallo.texto = resto;
    }
    fallos[*numero] = std::move(fallo);
    return true;
}

bool LeerTramo(std::string_view texto, TramoDeRegistros& tramo) {
    const auto guion = texto.find('-');
    if (guion == std::string_view::npos) return false;
    const auto desde = LeerNumeroDeRegistro(texto.substr(0, guion));
    const auto hasta = LeerNumeroDeRegistro(texto.substr(guion + 1));
    if (!desde || !hasta || *desde > *hasta) return false;
    tramo = {*desde, *hasta};
    return true;
}

}  // namespace qor
