#include "app/journal_compare.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>
#include <string_view>

#include "app/journal_line.h"
#include "base/failure.h"
#include "base/piecewise_reader.h"
#include "base/text.h"

namespace qor {

namespace {

using Clase = ValorDeDiario::Clase;

constexpr std::string_view comienzoDeEvento = "{\"event\":\"";
constexpr std::string_view comienzoDeInicio = "{\"event\":\"start\"";
constexpr std::string_view comienzoDeFinal = "{\"event\":\"end\"";
constexpr std::size_t eventosALaVez = 1000;  // of one record
constexpr std::size_t valoresPorEvento = 3;
constexpr std::size_t largoDeValor = 60;

// Whether brackets, braces and quotation marks of a line open and close as those of one object do.
bool EsUnObjeto(std::string_view linea) {
    std::string abiertos;
    for (std::size_t i = 0; i < linea.size(); ++i) {
        const char c = linea[i];
        if (c == '"') {
            for (++i; i < linea.size() && linea[i] != '"'; ++i) {
                if (linea[i] == '\\') ++i;
            }
            if (i >= linea.size()) return false;
        } else if (c == '{' || c == '[') {
            abiertos += c == '{' ? '}' : ']';
        } else if (c == '}' || c == ']') {
            if (abiertos.empty() || abiertos.back() != c) return false;
            abiertos.pop_back();
            if (abiertos.empty()) return i + 1 == linea.size();
        }
    }
    return false;
}

// ---- Events by records ----

using NumeroDeGrupo = std::int64_t;
constexpr NumeroDeGrupo elInicio = -1;
constexpr NumeroDeGrupo elFinal = std::numeric_limits<NumeroDeGrupo>::max() - 1;
constexpr NumeroDeGrupo ninguno = std::numeric_limits<NumeroDeGrupo>::max();

NumeroDeGrupo GrupoDe(std::string_view linea) {
    constexpr std::string_view clave = "\"record\":";
    if (linea.starts_with(comienzoDeInicio)) return elInicio;
    if (linea.starts_with(comienzoDeFinal)) return elFinal;
    NumeroDeGrupo numero = 0;
    const auto lugar = linea.find(clave);
    if (lugar == std::string_view::npos) return numero;
    std::from_chars(linea.data() + lugar + clave.size(), linea.data() + linea.size(), numero);
    return numero;
}

// The events of a journal, those of a record at a time.
class LectorDeGrupos {
public:
    explicit LectorDeGrupos(const std::filesystem::path& archivo) : lector_(ArchivoAbierto(archivo)) {
        Avanzar();
        Siguiente();
    }

    NumeroDeGrupo Numero() const { return numero_; }
    const std::vector<std::string>& Lineas() const { return lineas_; }
    void Siguiente() {
        lineas_.clear();
        numero_ = hay_ ? GrupoDe(linea_) : ninguno;
        while (hay_ && lineas_.size() < eventosALaVez && GrupoDe(linea_) == numero_) {
            lineas_.emplace_back(linea_);
            Avanzar();
        }
    }

private:
    void Avanzar() { hay_ = lector_.Linea(linea_); }

    LectorPorTrozos lector_;
    std::string_view linea_;
    bool hay_ = false;
    NumeroDeGrupo numero_ = ninguno;
    std::vector<std::string> lineas_;
};

// ---- Words ----

std::string EntreComillas(std::string_view texto) {
    std::string corto(texto.substr(0, largoDeValor));
    if (corto.size() < texto.size()) corto += "...";
    return "\"" + corto + "\"";
}

// A value in short: what a person would ask for when it is missing.
std::string EnPalabras(const ValorDeDiario& valor) {
    if (valor.clase == Clase::Texto) return EntreComillas(valor.texto);
    if (valor.clase == Clase::Numero) return valor.texto;
    return Cuantos(valor.partes.size(), valor.clase == Clase::Lista ? "row" : "field");
}

std::string NombreDeEvento(const ValorDeDiario& evento) {
    const auto clase = evento.TextoDe("event");
    const auto con = [&](const char* delante, const char* miembro) { return delante + std::string(evento.TextoDe(miembro)); };
    if (clase == "transaction") return con("transaction ", "tcode");
    if (clase == "session-insert") return con("session transaction ", "tcode");
    if (clase == "session-open") return con("opening of session ", "group");
    if (clase == "session-close") return con("closing of session ", "group");
    if (clase == "bapi") return con("", "function");
    if (clase == "insert" || clase == "update" || clase == "delete") return std::string(clase) + con(" of ", "table");
    if (clase == "dump") return con("short dump ", "error");
    return std::string(clase);
}

// What differs between two events of the same name.
class Comparacion {
public:
    std::vector<std::string> diferencias;
    std::size_t cuantas = 0;

    void Comparar(const std::string& donde, const ValorDeDiario& esperado, const ValorDeDiario& propio) {
        if (esperado.clase != propio.clase) {
            Decir(donde, EnPalabras(propio) + " instead of " + EnPalabras(esperado));
        } else if (esperado.clase == Clase::Objeto) {
            CompararObjetos(donde, esperado, propio);
        } else if (esperado.clase == Clase::Lista) {
            CompararListas(donde, esperado, propio);
        } else if (esperado.texto != propio.texto) {
            Decir(donde, EnPalabras(propio) + " instead of " + EnPalabras(esperado));
        }
    }

private:
    void Decir(const std::string& donde, const std::string& que) {
        ++cuantas;
        if (diferencias.size() < valoresPorEvento) diferencias.push_back(donde.empty() ? que : donde + ": " + que);
    }

    void Falta(const std::string& donde, const ValorDeDiario& valor) { Decir(donde, EnPalabras(valor) + " missing"); }
    void Sobra(const std::string& donde, const ValorDeDiario& valor) { Decir(donde, EnPalabras(valor) + " not expected"); }

    static std::string Dentro(const std::string& donde, std::string_view que) {
        return donde.empty() ? std::string(que) : donde + ", " + std::string(que);
    }

    void CompararObjetos(const std::string& donde, const ValorDeDiario& esperado, const ValorDeDiario& propio) {
        for (const auto& parte : esperado.partes) {
            const auto* const suya = propio.Buscar(parte.nombre);
            if (parte.nombre == "screens" && suya != nullptr) {
                CompararEnOrden(donde, parte, *suya, NombreDePantalla);
            } else if (parte.nombre == "messages" && suya != nullptr) {
                CompararMensajes(donde, parte, *suya);
            } else if (parte.nombre == "subrc" && suya != nullptr && !MensajesIguales(esperado, propio)) {
                continue;  // the messages tell it
            } else if (suya != nullptr) {
                Comparar(parte.nombre == "exports" || parte.nombre == "tables" || parte.nombre == "row"
                             ? donde
                             : Dentro(donde, parte.nombre),
                         parte, *suya);
            } else {
                Falta(Dentro(donde, parte.nombre), parte);
            }
        }
        for (const auto& parte : propio.partes) {
            if (esperado.Buscar(parte.nombre) == nullptr) Sobra(Dentro(donde, parte.nombre), parte);
        }
    }

    void CompararListas(const std::string& donde, const ValorDeDiario& esperado, const ValorDeDiario& propio) {
        const auto mayor = std::max(esperado.partes.size(), propio.partes.size());
        for (std::size_t i = 0; i < mayor; ++i) {
            const auto aqui = Dentro(donde, "row " + std::to_string(i + 1));
            if (i >= propio.partes.size())
                Falta(aqui, esperado.partes[i]);
            else if (i >= esperado.partes.size())
                Sobra(aqui, propio.partes[i]);
            else
                Comparar(aqui, esperado.partes[i], propio.partes[i]);
        }
    }

    static std::string NombreDePantalla(const ValorDeDiario& pantalla) {
        return std::string(pantalla.TextoDe("program")) + " " + std::string(pantalla.TextoDe("dynpro"));
    }
    static std::string NombreDeCampo(const ValorDeDiario& campo) {
        return campo.partes.size() == 2 ? campo.partes[0].texto : std::string();
    }

    // Lists whose elements have names: where the names differ, one that comes later on the other side tells what is missing.
    template <class Nombre>
    void CompararEnOrden(const std::string& donde, const ValorDeDiario& esperado, const ValorDeDiario& propio, Nombre nombre) {
        const auto& suyos = esperado.partes;
        const auto& mios = propio.partes;
        const auto esta = [&](const std::string& cual, const std::vector<ValorDeDiario>& lista, std::size_t desde) {
            return std::any_of(lista.begin() + static_cast<std::ptrdiff_t>(std::min(desde, lista.size())), lista.end(),
                               [&](const auto& uno) { return nombre(uno) == cual; });
        };
        std::size_t i = 0;
        std::size_t j = 0;
        while (i < suyos.size() || j < mios.size()) {
            if (i < suyos.size() && j < mios.size() && nombre(suyos[i]) == nombre(mios[j])) {
                CompararConNombre(Dentro(donde, nombre(suyos[i])), suyos[i], mios[j]);
                ++i, ++j;
            } else if (i < suyos.size() && (j == mios.size() || !esta(nombre(suyos[i]), mios, j))) {
                FaltaConNombre(Dentro(donde, nombre(suyos[i])), suyos[i], " missing");
                ++i;
            } else {
                FaltaConNombre(Dentro(donde, nombre(mios[j])), mios[j], " not expected");
                ++j;
            }
        }
    }

    void CompararConNombre(const std::string& donde, const ValorDeDiario& esperado, const ValorDeDiario& propio) {
        if (esperado.clase == Clase::Lista && esperado.partes.size() == 2 && propio.partes.size() == 2)
            return Comparar(donde, esperado.partes[1], propio.partes[1]);
        if (const auto* suyos = esperado.Buscar("fields"), *mios = propio.Buscar("fields"); suyos != nullptr && mios != nullptr)
            return CompararEnOrden(donde, *suyos, *mios, NombreDeCampo);
        Comparar(donde, esperado, propio);
    }
    void FaltaConNombre(const std::string& donde, const ValorDeDiario& valor, const char* que) {
        Decir(donde, (valor.clase == Clase::Lista && valor.partes.size() == 2 ? EnPalabras(valor.partes[1]) : "the screen") + que);
    }

    static std::string TextoDeMensajes(const std::vector<ValorDeDiario>& mensajes) {
        std::string todos;
        for (const auto& mensaje : mensajes) {
            if (!todos.empty()) todos += "; ";
            todos += TextoDeMensajeDeDiario(mensaje);
        }
        return todos;
    }
    static bool MensajesIguales(const ValorDeDiario& uno, const ValorDeDiario& otro) {
        return TextoDeMensajes(uno.PartesDe("messages")) == TextoDeMensajes(otro.PartesDe("messages"));
    }
    void CompararMensajes(const std::string& donde, const ValorDeDiario& esperado, const ValorDeDiario& propio) {
        const auto suyo = TextoDeMensajes(esperado.partes);
        const auto mio = TextoDeMensajes(propio.partes);
        if (suyo != mio) Decir(Dentro(donde, "message"), EntreComillas(mio) + " instead of " + EntreComillas(suyo));
    }
};

// ---- Records beside each other ----

class Comparador {
public:
    explicit Comparador(const std::filesystem::path& esperado, const std::filesystem::path& propio)
        : archivo_(esperado), esperado_(esperado), propio_(propio) {}

    DiferenciasDeDiarios Comparar() {
        while (esperado_.Numero() != ninguno || propio_.Numero() != ninguno) {
            const auto suyo = esperado_.Numero();
            const auto mio = propio_.Numero();
            if (suyo == mio) {
                if (esperado_.Lineas() != propio_.Lineas()) CompararGrupos();
                esperado_.Siguiente();
                propio_.Siguiente();
            } else if (VaDelante(suyo, mio)) {
                for (std::size_t i = 0; i < esperado_.Lineas().size(); ++i) Suelto(suyo, i, esperado_.Lineas()[i], " missing");
                esperado_.Siguiente();
            } else {
                for (std::size_t i = 0; i < propio_.Lineas().size(); ++i) Suelto(mio, i, propio_.Lineas()[i], " not expected");
                propio_.Siguiente();
            }
        }
        return std::move(resultado_);
    }

private:
    // Records go up. What happens outside of them is in front of them or behind, and waits for the other side to come there.
    static bool VaDelante(NumeroDeGrupo uno, NumeroDeGrupo otro) {
        if (uno == 0) return otro == elFinal || otro == ninguno;
        if (otro == 0) return uno != elFinal && uno != ninguno;
        return uno < otro;
    }

    void CompararGrupos() {
        const auto& suyas = esperado_.Lineas();
        const auto& mias = propio_.Lineas();
        std::size_t i = 0;
        std::size_t j = 0;
        while (i < suyas.size() || j < mias.size()) {
            if (i < suyas.size() && j < mias.size() && suyas[i] == mias[j]) {
                ++i, ++j;
                continue;
            }
            const auto quedan = [](std::size_t lugar, const auto& lineas) { return lineas.size() - lugar; };
            const bool otro = i < suyas.size() && j < mias.size() && Nombre(suyas[i]) != Nombre(mias[j]);
            if (j == mias.size() || (otro && quedan(i, suyas) > quedan(j, mias))) {
                Suelto(esperado_.Numero(), i, suyas[i], " missing");
                ++i;
            } else if (i == suyas.size() || (otro && quedan(i, suyas) < quedan(j, mias))) {
                Suelto(propio_.Numero(), j, mias[j], " not expected");
                ++j;
            } else {
                Pareja(esperado_.Numero(), j, suyas[i++], mias[j]);
                ++j;
            }
        }
    }

    // The kind of an event with its transaction or function.
    static std::string Nombre(const std::string& linea) {
        const auto evento = LeerLineaDeDiario(linea);
        return evento ? NombreDeEvento(*evento) : std::string();
    }

    static std::string Lugar(NumeroDeGrupo grupo, std::size_t evento) {
        if (grupo == elInicio || grupo == elFinal) return {};
        return (grupo == 0 ? "outside of records" : "record " + std::to_string(grupo)) + ", event " + std::to_string(evento + 1) +
               ", ";
    }

    void Suelto(NumeroDeGrupo grupo, std::size_t evento, const std::string& linea, const char* que) {
        ++resultado_.cuantas;
        if (Lleno()) return;
        Decir(Lugar(grupo, evento) + NombreDeEvento(Leer(linea)) + que);
    }

    void Pareja(NumeroDeGrupo grupo, std::size_t evento, const std::string& suya, const std::string& mia) {
        ++resultado_.cuantas;
        if (Lleno()) return;
        const auto esperado = Leer(suya);
        const auto propio = Leer(mia);
        const auto nombre = NombreDeEvento(propio);
        const auto lugar = Lugar(grupo, evento);
        if (nombre != NombreDeEvento(esperado)) return Decir(lugar + nombre + " instead of " + NombreDeEvento(esperado));
        Comparacion comparacion;
        comparacion.Comparar({}, esperado, propio);
        if (comparacion.diferencias.empty()) return Decir(lugar + nombre + ": written in another way");
        for (const auto& diferencia : comparacion.diferencias) Decir(lugar + nombre + ", " + diferencia);
        if (comparacion.cuantas > comparacion.diferencias.size()) {
            Decir(lugar + nombre + ": and " + Cuantos(comparacion.cuantas - comparacion.diferencias.size(), "other value"));
        }
    }

    ValorDeDiario Leer(const std::string& linea) const {
        auto evento = LeerLineaDeDiario(linea);
        if (!evento) throw FalloDeArchivo("A line is no event of a journal", archivo_);
        return std::move(*evento);
    }

    bool Lleno() {
        resultado_.hayMas = resultado_.hayMas || resultado_.primeras.size() >= maximoDeDiferencias;
        return resultado_.hayMas;
    }
    void Decir(std::string texto) { resultado_.primeras.push_back(std::move(texto)); }

    std::filesystem::path archivo_;
    LectorDeGrupos esperado_;
    LectorDeGrupos propio_;
    DiferenciasDeDiarios resultado_;
};

}  // namespace

void ChequearDiarioEsperado(const std::filesystem::path& diario) {
    LectorPorTrozos lector{ArchivoAbierto(diario)};
    std::string_view linea;
    std::size_t numero = 0;
    bool terminado = false;
    while (lector.Linea(linea)) {
        ++numero;
        const bool bien = numero == 1 ? linea.starts_with(comienzoDeInicio) : linea.starts_with(comienzoDeEvento);
        if (!bien || terminado || !EsUnObjeto(linea)) {
            throw FalloDeArchivo(
                numero == 1 ? "The file is no journal of a run" : "Line " + std::to_string(numero) + " is no event of a journal",
                diario);
        }
        terminado = linea.starts_with(comienzoDeFinal);
    }
    if (numero == 0) throw FalloDeArchivo("The file is no journal of a run", diario);
    if (!terminado) throw FalloDeArchivo("The journal has no end", diario);
}

DiferenciasDeDiarios CompararDiarios(const std::filesystem::path& esperado, const std::filesystem::path& propio) {
    return Comparador(esperado, propio).Comparar();
}

}  // namespace qor
