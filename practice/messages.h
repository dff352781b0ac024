#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/phrase.h"

// Messages of the practice system: a class, a number and up to four variables, of which a text is made.
namespace qor {

// The messages that the practice system itself gives.
namespace mensajes {
constexpr std::string_view clase = "00";
constexpr std::string_view hecho = "355";
constexpr std::string_view textoHecho = "Transaction was processed";
constexpr std::string_view sinPantalla = "344";
constexpr std::string_view sinCampo = "349";
constexpr std::string_view malFormado = "352";
constexpr std::string_view sinEntrada = "058";
constexpr std::string_view clasePedida = "QP";
constexpr std::string_view numeroPedido = "001";
}  // namespace mensajes

constexpr std::size_t largoDeVariable = 50;

// Whether the text of a message is known.
bool ConoceMensaje(std::string_view clase, std::string_view numero);

// The text of a message. Each variable and the whole lose the blanks behind them, and several blanks become one. Of a message that
// is not known: class, number and variables.
std::string TextoDeMensaje(std::string_view clase, std::string_view numero, std::span<const std::string> variables);

// The text of a message with its variables, which the practice system may have given, apart.
Frase FraseDeMensaje(std::string_view texto);

}  // namespace qor
