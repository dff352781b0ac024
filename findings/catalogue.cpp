#include "findings/catalogue.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "base/words.h"

namespace qor {

namespace {

using G = Gravedad;

// In the order of the codes.
constexpr TipoDeHallazgo tipos[] = {
    // Generate refuses.
    {101, G::Error, 1},
    {102, G::Error},
    {103, G::Error},
    {104, G::Error},
    {105, G::Error},
    {106, G::Error},
    {107, G::Error, 1},
    {108, G::Error},
    {109, G::Error},
    {110, G::Error},
    {111, G::Error},
    {112, G::Error},
    {113, G::Error},
    {114, G::Error},
    {115, G::Error},
    {116, G::Error},
    {117, G::Error},
    {118, G::Error},
    {119, G::Error, 1},
    {120, G::Error, 1},
    {121, G::Error},
    {201, G::Error},
    {202, G::Error},
    {203, G::Error},
    {204, G::Error},
    {205, G::Error},
    {206, G::Error},
    {207, G::Error},
    {208, G::Error},
    {209, G::Error},
    {210, G::Error},

    // The report does not compile.
    {301, G::Error, 1},
    {302, G::Error, 1},
    {303, G::Error, 1},
    {304, G::Error, 1},
    {305, G::Error, 1},
    {306, G::Error, 1},
    {307, G::Error, 3},
    {308, G::Error, 5},
    {309, G::Error, 1},
    {310, G::Error, 2},
    {311, G::Error, 1},
    {312, G::Error, 4},
    {313, G::Error, 1},
    {314, G::Error, 5},
    {315, G::Error, 1},
    {316, G::Error, 3},
    {317, G::Error, 1},
    {318, G::Error, 1},
    {320, G::Error, 1},
    {321, G::Error, 1},
    {322, G::Aviso, 1},
    {323, G::Error, 5},
    {324, G::Aviso, 4},
    {325, G::Error, 1},
    {326, G::Error, 1},
    {327, G::Error, 1},
    {328, G::Error, 1},
    {329, G::Aviso, 1},
    {330, G::Error, 1},
    {399, G::Error, 1},

    // The report does something else than was meant.
    {401, G::Aviso, 1},
    {402, G::Aviso, 3},
    {403, G::Aviso, 2},
    {404, G::Aviso, 1},
    {405, G::Aviso, 3},
    {406, G::Aviso, 2},
    {407, G::Aviso},
    {408, G::Aviso, 1},
    {409, G::Aviso, 2},
    {410, G::Aviso, 1},
    {411, G::Aviso, 1},
    {414, G::Aviso, 1},
    {415, G::Aviso, 1},
    {417, G::Aviso, 1},
    {418, G::Aviso, 1},
    {419, G::Aviso, 1},
    {420, G::Aviso, 2},
    {421, G::Aviso, 1},
    {422, G::Aviso, 1},
    {423, G::Aviso, 1},
    {424, G::Nota},
    {425, G::Aviso},
    {426, G::Aviso},
    {427, G::Aviso, 1},
    {428, G::Aviso, 1},

    // What nothing uses.
    {601, G::Nota, 1},
    {602, G::Nota, 1},
    {603, G::Nota, 1},
};

// Values are never searched for placeholders.
std::string Rellenar(std::string_view frase, std::initializer_list<std::string_view> valores) {
    std::string texto;
    for (std::size_t i = 0; i < frase.size(); ++i) {
        const bool esLugar = frase[i] == '{' && i + 2 < frase.size() && frase[i + 2] == '}';
        if (!esLugar) {
            texto += frase[i];
            continue;
        }
        const auto n = static_cast<std::size_t>(frase[i + 1] - '1');
        i += 2;
        if (n >= valores.size()) continue;
        auto valor = *(valores.begin() + n);
        // A statement's own point is not one of the sentence.
        if (valor.ends_with('.') && frase.substr(i + 1, 1) == ".") valor.remove_suffix(1);
        texto.append(valor);
    }
    return texto;
}

}  // namespace

std::span<const TipoDeHallazgo> TiposDeHallazgo() { return tipos; }

const TipoDeHallazgo& TipoDe(int codigo) {
    const auto tipo = std::lower_bound(std::begin(tipos), std::end(tipos), codigo,
                                       [](const TipoDeHallazgo& uno, int buscado) { return uno.codigo < buscado; });
    if (tipo == std::end(tipos) || tipo->codigo != codigo) {
        throw std::logic_error("no finding has the code " + std::to_string(codigo));
    }
    return *tipo;
}

Hallazgo NuevoHallazgo(const TextosIdioma& textos, int codigo, const Lugar& lugar, std::string_view celda,
                       std::initializer_list<std::string_view> valores, int variante) {
    const auto& tipo = TipoDe(codigo);
    if (variante < 0 || variante >= std::max(1, tipo.variantes)) throw std::logic_error("a finding without this variant");
    const std::string& frase = textos.Palabra(palabra::DeHallazgo(codigo, variante));
    Hallazgo hallazgo;
    hallazgo.codigo = codigo;
    hallazgo.gravedad = tipo.gravedad;
    hallazgo.lugar = lugar;
    hallazgo.celda = celda;
    hallazgo.texto = Rellenar(frase, valores);
    return hallazgo;
}

std::string CodigoDeHallazgo(int codigo) { return "Q" + std::to_string(codigo); }

std::string PaginaDeHallazgo(int codigo) { return "findings.html#" + CodigoDeHallazgo(codigo); }

std::string_view PalabraDeGravedad(Gravedad gravedad) {
    switch (gravedad) {
        case Gravedad::Error: return "error";
        case Gravedad::Aviso: return "warning";
        case Gravedad::Nota: break;
    }
    return "note";
}

}  // namespace qor
