#include "input/value_pattern.h"

#include <algorithm>
#include <bitset>
#include <map>
#include <string>

#include "base/failure.h"

namespace qor {

namespace {

constexpr std::size_t maximoDeNodos = 4000;
constexpr std::size_t maximoDeEstados = 1500;
constexpr std::size_t maximoDePasos = 20'000'000;  // of the making
constexpr int maximoDeVeces = 1000;
constexpr int maximoDeGrupos = 100;

using Clase = std::bitset<256>;

[[noreturn]] void Rechazar(const std::string& motivo) { throw FalloDeEjecucion("the pattern " + motivo); }

// Places of an automaton: each leads by one character to the next one, or without a character to others.
struct Nodo {
    enum class Paso : std::uint8_t { Caracter, Libre, AlPrincipio, AlFinal };
    Paso paso = Paso::Libre;
    Clase caracteres;
    std::vector<std::size_t> salidas;
};

class Automata {
public:
    std::size_t Agregar(Nodo::Paso paso = Nodo::Paso::Libre) {
        if (nodos_.size() >= maximoDeNodos) Rechazar("is too large");
        nodos_.emplace_back().paso = paso;
        return nodos_.size() - 1;
    }
    Nodo& operator[](std::size_t nodo) { return nodos_[nodo]; }
    void Unir(std::size_t desde, std::size_t hasta) { nodos_[desde].salidas.push_back(hasta); }

    // The nodes that are reached from some without a character.
    std::vector<std::size_t> Cerrar(std::vector<std::size_t> nodos, bool alPrincipio, bool alFinal) const {
        std::vector<bool> vistos(nodos_.size());
        std::vector<std::size_t> cerrados;
        while (!nodos.empty()) {
            const auto nodo = nodos.back();
            nodos.pop_back();
            if (vistos[nodo]) continue;
            vistos[nodo] = true;
            cerrados.push_back(nodo);
            const auto paso = nodos_[nodo].paso;
            const bool pasa = paso == Nodo::Paso::Libre || (paso == Nodo::Paso::AlPrincipio && alPrincipio) ||
                              (paso == Nodo::Paso::AlFinal && alFinal);
            if (pasa) nodos.insert(nodos.end(), nodos_[nodo].salidas.begin(), nodos_[nodo].salidas.end());
        }
        std::sort(cerrados.begin(), cerrados.end());
        return cerrados;
    }

    std::vector<std::size_t> Avanzar(const std::vector<std::size_t>& nodos, std::size_t caracter) const {
        std::vector<std::size_t> siguientes;
        for (const auto nodo : nodos) {
            const auto& este = nodos_[nodo];
            if (este.paso == Nodo::Paso::Caracter && este.caracteres[caracter])
                siguientes.insert(siguientes.end(), este.salidas.begin(), este.salidas.end());
        }
        return siguientes;
    }

    // One character of each kind that no node tells apart, and for every character the one of its kind.
    std::array<std::size_t, 256> Representantes() const {
        std::array<std::size_t, 256> representantes{};
        for (const auto& nodo : nodos_) {
            if (nodo.paso != Nodo::Paso::Caracter) continue;
            // Each kind is parted into what the node takes and what not.
            std::map<std::pair<std::size_t, bool>, std::size_t> primeros;
            for (std::size_t c = 0; c < 256; ++c) {
                representantes[c] = primeros.try_emplace({representantes[c], nodo.caracteres[c]}, c).first->second;
            }
        }
        return representantes;
    }

private:
    std::vector<Nodo> nodos_;
};

// A part of an expression, as often as it may come.
struct Parte {
    enum class Tipo : std::uint8_t { Caracter, Principio, Fin, Alternativas };
    Tipo tipo = Tipo::Caracter;
    Clase caracteres;
    std::vector<std::vector<Parte>> alternativas;
    int minimo = 1;
    int maximo = 1;  // -1: any number
};
using Alternativas = std::vector<std::vector<Parte>>;

Clase Rango(int desde, int hasta) {
    Clase clase;
    for (int c = desde; c <= hasta; ++c) clase.set(static_cast<std::size_t>(c));
    return clase;
}
Clase Digitos() { return Rango('0', '9'); }
Clase DePalabra() { return Rango('A', 'Z') | Rango('a', 'z') | Digitos() | Rango('_', '_'); }
Clase Espacios() { return Rango('\t', '\r') | Rango(' ', ' ') | Rango(0xA0, 0xA0); }

class LectorDePatron {
public:
    explicit LectorDePatron(std::string_view texto) : resto_(texto) {}

    Alternativas Leer() {
        auto todo = LeerAlternativas(0);
        if (!resto_.empty()) Rechazar("has a \")\" too many");
        return todo;
    }

private:
    bool Empieza(char c) const { return !resto_.empty() && resto_.front() == c; }
    bool Pasar(char c) {
        if (!Empieza(c)) return false;
        resto_.remove_prefix(1);
        return true;
    }
    char Tomar() {
        if (resto_.empty()) Rechazar("ends too early");
        const char c = resto_.front();
        resto_.remove_prefix(1);
        return c;
    }

    Alternativas LeerAlternativas(int nivel) {
        if (nivel > maximoDeGrupos) Rechazar("is too deep");
        Alternativas alternativas(1);
        while (!resto_.empty() && !Empieza(')')) {
            if (Pasar('|')) {
                alternativas.emplace_back();
            } else {
                alternativas.back().push_back(LeerParte(nivel));
            }
        }
        return alternativas;
    }

    Parte LeerParte(int nivel) {
        Parte parte;
        switch (const char c = Tomar()) {
            case '^': parte.tipo = Parte::Tipo::Principio; return parte;
            case '$': parte.tipo = Parte::Tipo::Fin; return parte;
            case '(':
                if (Pasar('?') && !Pasar(':')) Rechazar("has a \"(?\" that is not supported");
                parte.tipo = Parte::Tipo::Alternativas;
                parte.alternativas = LeerAlternativas(nivel + 1);
                if (!Pasar(')')) Rechazar("lacks a \")\"");
                break;
            case '[': parte.caracteres = LeerClase(); break;
            case '.': parte.caracteres = ~(Rango('\n', '\n') | Rango('\r', '\r')); break;
            case '\\': parte.caracteres = LeerEscape(); break;
            case '*':
            case '+':
            case '?':
            case '{': Rechazar(std::string("has a \"") + c + "\" behind nothing");
            default: parte.caracteres.set(static_cast<unsigned char>(c));
        }
        LeerVeces(parte);
        return parte;
    }

    int LeerNumero() {
        int numero = 0;
        const auto antes = resto_.size();
        while (!resto_.empty() && resto_.front() >= '0' && resto_.front() <= '9') {
            numero = std::min(numero * 10 + (Tomar() - '0'), maximoDeVeces + 1);
        }
        if (resto_.size() == antes) Rechazar(R"(has no number behind a "{" or ",")");
        if (numero > maximoDeVeces) Rechazar("has a number beyond " + std::to_string(maximoDeVeces));
        return numero;
    }

    void LeerVeces(Parte& parte) {
        if (Pasar('*')) {
            parte.minimo = 0, parte.maximo = -1;
        } else if (Pasar('+')) {
            parte.maximo = -1;
        } else if (Pasar('?')) {
            parte.minimo = 0;
        } else if (Pasar('{')) {
            parte.minimo = parte.maximo = LeerNumero();
            if (Pasar(',')) parte.maximo = Empieza('}') ? -1 : LeerNumero();
            if (!Pasar('}')) Rechazar("lacks a \"}\"");
            if (parte.maximo >= 0 && parte.maximo < parte.minimo) Rechazar("has its numbers in the wrong order");
        } else {
            return;
        }
        Pasar('?');  // as few as possible: for a whole value it makes no difference
    }

    Clase LeerEscape() {
        const char c = Tomar();
        switch (c) {
            case 'd': return Digitos();
            case 'D': return ~Digitos();
            case 'w': return DePalabra();
            case 'W': return ~DePalabra();
            case 's': return Espacios();
            case 'S': return ~Espacios();
            case 't': return Rango('\t', '\t');
            case 'n': return Rango('\n', '\n');
            case 'r': return Rango('\r', '\r');
            case 'f': return Rango('\f', '\f');
            case 'v': return Rango('\v', '\v');
            case '0': return Rango(0, 0);
            case 'x': {
                const int alto = Hexadecimal(Tomar());
                const int byte = alto * 16 + Hexadecimal(Tomar());
                return Rango(byte, byte);
            }
            default: break;
        }
        const bool deLetra = (DePalabra() | Rango(0x80, 0xFF))[static_cast<unsigned char>(c)];
        if (deLetra) Rechazar(std::string("has a \"\\") + c + "\" that is not supported");
        return Rango(static_cast<unsigned char>(c), static_cast<unsigned char>(c));
    }

    static int Hexadecimal(char c) {
        if (c >= '0' && c <= '9') return c - '0';
        if (c >= 'A' && c <= 'F') return c - 'A' + 10;
        if (c >= 'a' && c <= 'f') return c - 'a' + 10;
        Rechazar(R"(has no two hexadecimal digits behind "\x")");
    }

    Clase LeerDeClase() {
        const char c = Tomar();
        if (c != '\\') return Rango(static_cast<unsigned char>(c), static_cast<unsigned char>(c));
        return Pasar('b') ? Rango('\b', '\b') : LeerEscape();
    }

    Clase LeerClase() {
        const bool menos = Pasar('^');
        Clase clase;
        while (!Pasar(']')) {
            const auto uno = LeerDeClase();
            if (!Empieza('-') || resto_.substr(0, 2) == "-]") {
                clase |= uno;
                continue;
            }
            Pasar('-');
            const auto otro = LeerDeClase();
            if (uno.count() != 1 || otro.count() != 1) Rechazar("has a range of what is no single character");
            const auto desde = static_cast<int>(Primero(uno));
            const auto hasta = static_cast<int>(Primero(otro));
            if (desde > hasta) Rechazar("has a range in the wrong order");
            clase |= Rango(desde, hasta);
        }
        return menos ? ~clase : clase;
    }

    static std::size_t Primero(const Clase& clase) {
        std::size_t c = 0;
        while (!clase[c]) ++c;
        return c;
    }

    std::string_view resto_;
};

// Puts the parts into the automaton, from a node on; answers the node where they end.
std::size_t Poner(Automata& automata, const Alternativas& alternativas, std::size_t desde);

std::size_t PonerUnaVez(Automata& automata, const Parte& parte, std::size_t desde) {
    if (parte.tipo == Parte::Tipo::Alternativas) return Poner(automata, parte.alternativas, desde);
    const auto paso = parte.tipo == Parte::Tipo::Caracter    ? Nodo::Paso::Caracter
                      : parte.tipo == Parte::Tipo::Principio ? Nodo::Paso::AlPrincipio
                                                             : Nodo::Paso::AlFinal;
    const auto nodo = automata.Agregar(paso);
    automata[nodo].caracteres = parte.caracteres;
    automata.Unir(desde, nodo);
    const auto fin = automata.Agregar();
    automata.Unir(nodo, fin);
    return fin;
}

std::size_t PonerParte(Automata& automata, const Parte& parte, std::size_t desde) {
    for (int vez = 0; vez < parte.minimo; ++vez) desde = PonerUnaVez(automata, parte, desde);
    if (parte.maximo == parte.minimo) return desde;
    const auto fin = automata.Agregar();
    automata.Unir(desde, fin);
    if (parte.maximo < 0) {
        const auto principio = automata.Agregar();
        automata.Unir(desde, principio);
        const auto tras = PonerUnaVez(automata, parte, principio);
        automata.Unir(tras, principio);
        automata.Unir(tras, fin);
        return fin;
    }
    for (int vez = parte.minimo; vez < parte.maximo; ++vez) {
        desde = PonerUnaVez(automata, parte, desde);
        automata.Unir(desde, fin);
    }
    return fin;
}

std::size_t Poner(Automata& automata, const Alternativas& alternativas, std::size_t desde) {
    const auto fin = automata.Agregar();
    for (const auto& partes : alternativas) {
        auto aqui = automata.Agregar();
        automata.Unir(desde, aqui);
        for (const auto& parte : partes) aqui = PonerParte(automata, parte, aqui);
        automata.Unir(aqui, fin);
    }
    return fin;
}

}  // namespace

PatronDeValor::PatronDeValor(std::string_view expresion) {
    Automata automata;
    const auto principio = automata.Agregar();
    const auto fin = Poner(automata, LectorDePatron(expresion).Leer(), principio);

    // Each set of nodes that can be reached together becomes a state.
    std::map<std::vector<std::size_t>, std::uint16_t> numeros;
    std::vector<std::vector<std::size_t>> conjuntos(1);
    estados_.resize(1);
    const auto numeroDe = [&](const std::vector<std::size_t>& conjunto) {
        if (conjunto.empty()) return ninguno;
        const auto [lugar, nuevo] = numeros.emplace(conjunto, static_cast<std::uint16_t>(estados_.size()));
        if (!nuevo) return lugar->second;
        if (estados_.size() > maximoDeEstados) Rechazar("is too large");
        conjuntos.push_back(conjunto);
        estados_.emplace_back();
        return lugar->second;
    };
    numeroDe(automata.Cerrar({principio}, true, false));
    const auto representantes = automata.Representantes();
    std::size_t pasos = 0;
    for (std::size_t estado = inicio; estado < estados_.size(); ++estado) {
        const auto conjunto = conjuntos[estado];
        const auto alFinal = automata.Cerrar(conjunto, estado == inicio, true);
        estados_[estado].final = std::binary_search(alFinal.begin(), alFinal.end(), fin);
        for (std::size_t c = 0; c < 256; ++c) {
            std::uint16_t siguiente = estados_[estado].siguiente[representantes[c]];
            if (representantes[c] == c) {
                const auto siguientes = automata.Cerrar(automata.Avanzar(conjunto, c), false, false);
                siguiente = numeroDe(siguientes);
                pasos += conjunto.size() + siguientes.size();
                if (pasos > maximoDePasos) Rechazar("is too large");
            }
            estados_[estado].siguiente[c] = siguiente;
        }
    }
}

}  // namespace qor
