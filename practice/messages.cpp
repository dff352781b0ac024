#include "practice/messages.h"

#include "practice/batch_rows.h"

namespace qor {

namespace {

struct Conocido {
    std::string_view clase;
    std::string_view numero;
    std::string_view texto;  // & takes the next variable, &1 to &4 the one of that number
};

// What the practice system itself says, as sentences.
constexpr const char* frases[] = {
    "Entry %1 does not exist",
    "No batch input data for screen %1 %2",
    "Field %1 does not exist in the screen %2 %3",
    "Formatting error in the field %1",
    "Parameter %1 is missing or initial",
    "Transaction was processed",
    "Asked to fail",
};

constexpr Conocido conocidos[] = {
    {"00", "001", "&1&2&3&4"},
    {"00", "058", "Entry & does not exist"},
    {"00", "208", "&"},
    {"00", "344", "No batch input data for screen & &"},
    {"00", "349", "Field & does not exist in the screen & &"},
    {"00", "352", "Formatting error in the field &"},
    {"00", "355", mensajes::textoHecho},
    {"00", "398", "& & & &"},
    {"QP", "001", "&1&2&3&4"},
};

const Conocido* Buscar(std::string_view clase, std::string_view numero) {
    for (const auto& conocido : conocidos) {
        if (conocido.clase == clase && conocido.numero == numero) return &conocido;
    }
    return nullptr;
}

std::string ConBlancosSimples(std::string_view texto) {
    std::string resultado;
    resultado.reserve(texto.size());
    for (const char c : texto) {
        if (c != ' ' || resultado.empty() || resultado.back() != ' ') resultado += c;
    }
    resultado.resize(SinBlancosDetras(resultado).size());
    return resultado;
}

}  // namespace

bool ConoceMensaje(std::string_view clase, std::string_view numero) { return Buscar(clase, numero) != nullptr; }

std::string TextoDeMensaje(std::string_view clase, std::string_view numero, std::span<const std::string> variables) {
    const auto variable = [&variables](std::size_t i) {
        return i < variables.size() ? SinBlancosDetras(variables[i]) : std::string_view();
    };
    std::string texto;
    const auto* conocido = Buscar(clase, numero);
    if (!conocido && clase.empty()) return std::string(variable(0));
    if (!conocido) {
        texto.append(clase).append(" ").append(numero);
        for (std::size_t i = 0; i < variables.size(); ++i) texto.append(" ").append(variable(i));
        return ConBlancosSimples(texto);
    }
    std::size_t siguiente = 0;
    for (std::size_t i = 0; i < conocido->texto.size(); ++i) {
        const char c = conocido->texto[i];
        if (c != '&') {
            texto += c;
            continue;
        }
        const char cual = i + 1 < conocido->texto.size() ? conocido->texto[i + 1] : ' ';
        if (cual >= '1' && cual <= '4') {
            texto += variable(static_cast<std::size_t>(cual - '1'));
            ++i;
        } else {
            texto += variable(siguiente++);
        }
    }
    return ConBlancosSimples(texto);
}

Frase FraseDeMensaje(std::string_view texto) {
    for (const auto* const frase : frases) {
        if (auto reconocida = ReconocerFrase(texto, frase)) return *reconocida;
    }
    return std::string(texto);
}

}  // namespace qor
