#include <algorithm>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "base/failure.h"
#include "base/text.h"
#include "findings/program_rows.h"
#include "findings/rules.h"
#include "findings/user_code.h"
#include "model/cells.h"

namespace qor {

namespace {

using Parte = Lugar::Parte;

constexpr std::size_t anchoDeCodigo = 50;
constexpr std::size_t anchoEnForma = 69;
constexpr std::size_t anchoDeDeclaraciones = 71;

// What the wrapping does to a line that it breaks; the numbers are the variants of the finding.
enum class Rotura { Literal = 0, Comentario = 1, Caracter = 2, Pares = 3, Estrella = 4 };

// How the report writes a text.
struct Escritura {
    std::size_t ancho;
    bool enColumna1;        // as it stands, so that a line may begin with "*"
    bool conPares = false;  // lines that hold a pair of values are no code
    bool conCodigo = true;  // lines that hold none are written
};

// The pieces of one line of the text, as the report has them, with their places in the line.
struct Pieza {
    std::size_t inicio;
    std::string texto;
};

struct LineaPartida {
    int numero;
    std::string_view texto;
    std::vector<Pieza> piezas;
    bool sinPrimero = false;  // a line end of one character takes the character behind it along
};

// A line is never broken when no more characters than these stand in it.
bool CabeEntero(std::string_view texto, std::size_t ancho) {
    while (texto.size() > ancho) {
        const auto fin = texto.find('\r');
        if (std::min(fin, texto.size()) > ancho) return false;
        if (fin == std::string_view::npos) return true;
        if (fin + 1 < texto.size() && texto[fin + 1] != '\n') return false;
        texto.remove_prefix(std::min(fin + 2, texto.size()));
    }
    // A short rest may still hold line ends.
    for (auto fin = texto.find('\r'); fin != std::string_view::npos; fin = texto.find('\r', fin + 1)) {
        if (fin + 1 < texto.size() && texto[fin + 1] != '\n') return false;
    }
    return true;
}

// What stands at a place of a line: code, the inside of a literal that is closed further on, or a comment.
enum class Estado { Codigo, Literal, Comentario };

Estado EstadoEn(std::string_view linea, std::size_t lugar) {
    bool enLiteral = false;
    for (std::size_t i = 0; i < lugar; ++i) {
        if (linea[i] == '\'') enLiteral = !enLiteral;
        if (linea[i] == '"' && !enLiteral) return Estado::Comentario;
    }
    return enLiteral && linea.find('\'', lugar) != std::string_view::npos ? Estado::Literal : Estado::Codigo;
}

class DeTextos {
public:
    DeTextos(const Generacion& g, Libreta& libreta) : c_(g), libreta_(libreta) {}

    void Buscar() {
        const auto& e = c_.especificacion;
        BuscarConversiones();
        for (int r = 0; r < filasTabla && !e.TablaCondiciones[r].nombre.empty(); ++r) {
            BuscarEn(e.TablaCondiciones[r].texto, {anchoDeCodigo, false},
                     [&](int linea) { return Lugar::EnCondicion(r, 1, linea); });
        }
        BuscarLlamadas();
        BuscarDelUsuario(e.VariablesGlobales, {anchoDeDeclaraciones, true}, Parte::VariablesGlobales);
        if (!e.OrigenUsuario) return;
        BuscarDelUsuario(e.OrigenVariables, {anchoDeDeclaraciones, true}, Parte::OrigenVariables);
        BuscarDelUsuario(e.OrigenForms, {anchoDeDeclaraciones, true}, Parte::OrigenForms);
        BuscarDelUsuario(e.OrigenSource, {anchoEnForma, false}, Parte::OrigenSource);
    }

private:
    // Code is written where there is a form for it; pairs are, wherever they stand.
    void BuscarConversiones() {
        for (int f = 0; f <= ultimaFila; ++f) {
            const std::string& texto = c_.especificacion.TablaArchivo[f].conversion;
            if (texto.empty()) continue;
            BuscarEn(texto, {anchoDeCodigo, true, true, c_.analisis.HayConversiones},
                     [&](int linea) { return Lugar::EnArchivo(f, 3, linea); });
        }
    }

    // A call text is written when a row names its BAPI; of two with one name, the first one.
    void BuscarLlamadas() {
        std::unordered_set<std::string_view> codigos;
        for (const auto& fila : c_.especificacion.TablaTransaccion) {
            if (fila.EsCabezaBAPI()) codigos.insert(Recortar(AntesDe(fila.dynpro, ';')));
        }
        for (int r = 0; r < filasTablaBAPIs && !codigos.empty(); ++r) {
            const auto& bapi = c_.especificacion.TablaBAPIs[r];
            if (codigos.erase(Recortar(bapi.nombre)) == 0) continue;
            BuscarEn(bapi.llamada, {anchoEnForma, false}, [&](int linea) { return Lugar::EnBAPI(r, 1, linea); });
        }
    }

    void BuscarDelUsuario(const std::string& texto, const Escritura& escritura, Parte parte) {
        BuscarEn(texto, escritura, [&](int linea) { return Lugar::EnTexto(parte, linea); });
    }

    template <typename LugarDeLinea>
    void BuscarEn(std::string_view texto, const Escritura& escritura, LugarDeLinea lugar) {
        if (!escritura.enColumna1) BuscarEstrellas(texto, lugar);
        if (CabeEntero(texto, escritura.ancho)) return;
        for (const auto& linea : Partir(texto, escritura.ancho)) {
            const auto rotura = RoturaDe(linea, escritura);
            if (!rotura) continue;
            libreta_.Agregar(308, lugar(linea.numero), {std::to_string(escritura.ancho), Resto(linea)}, static_cast<int>(*rotura));
        }
    }

    // A comment line that comes out with blanks in front is none.
    template <typename LugarDeLinea>
    void BuscarEstrellas(std::string_view texto, LugarDeLinea lugar) {
        if (texto.find('*') == std::string_view::npos) return;
        PorCadaLinea(texto, [&](std::string_view linea, int numero) {
            if (linea.starts_with('*')) libreta_.Agregar(309, lugar(numero), {linea});
        });
    }

    // The lines with the pieces in which the report gets them. Between two pieces the wrapping drops one character: a blank, or
    // what stands there.
    static std::vector<LineaPartida> Partir(std::string_view texto, std::size_t ancho) {
        std::vector<LineaPartida> lineas;
        std::vector<std::string> piezas;
        try {
            piezas = PartirLineas(texto, static_cast<int>(ancho));
        } catch (const FalloDeEjecucion&) {
            return lineas;  // of a text with too many lines none is written
        }
        std::size_t lugar = 0;
        std::size_t inicio = 0;
        const auto empezar = [&] {
            inicio = lugar;
            const auto fin = std::min(texto.find('\r', lugar), texto.size());
            lineas.push_back({static_cast<int>(lineas.size()) + 1, texto.substr(lugar, fin - lugar), {}});
        };
        empezar();
        for (auto& pieza : piezas) {
            const auto fin = lugar + pieza.size();
            lineas.back().piezas.push_back({lugar - inicio, std::move(pieza)});
            if (fin >= texto.size()) break;
            const bool finDeLinea = texto[fin] == '\r';
            lugar = std::min(fin + (finDeLinea ? 2 : 1), texto.size());
            if (!finDeLinea) continue;
            empezar();
            lineas.back().sinPrimero = fin + 1 < texto.size() && texto[fin + 1] != '\n';
        }
        return lineas;
    }

    static std::optional<Rotura> RoturaDe(const LineaPartida& linea, const Escritura& escritura) {
        if (linea.sinPrimero) return Rotura::Caracter;
        if (linea.piezas.size() < 2) return std::nullopt;
        const bool pares = escritura.conPares && TienePares(linea.texto);
        if (!pares && !escritura.conCodigo) return std::nullopt;
        const bool estrella = escritura.enColumna1 && linea.texto.starts_with('*');
        if (!escritura.enColumna1 && linea.texto.starts_with('*')) return std::nullopt;  // told as what it is
        bool hayAntes = !EstaEnBlanco(linea.piezas.front().texto);
        for (std::size_t i = 1; i < linea.piezas.size(); ++i) {
            const auto& pieza = linea.piezas[i];
            const auto corte = pieza.inicio - 1;
            if (linea.texto[corte] != ' ') return Rotura::Caracter;
            if (EstaEnBlanco(pieza.texto)) continue;
            if (pares && hayAntes) return Rotura::Pares;
            hayAntes = true;
            if (pares) continue;
            const bool conEstrella = escritura.enColumna1 && pieza.texto.starts_with('*');
            const bool esComentario = conEstrella || Recortar(pieza.texto).starts_with('"');
            const auto estado = estrella ? Estado::Comentario : EstadoEn(linea.texto, corte);
            if (estado == Estado::Literal) return Rotura::Literal;
            if (estado == Estado::Comentario && !esComentario) return Rotura::Comentario;
            if (estado == Estado::Codigo && conEstrella) return Rotura::Estrella;
        }
        return std::nullopt;
    }

    // What comes to stand on a line of its own.
    static std::string_view Resto(const LineaPartida& linea) {
        const auto& piezas = linea.piezas;
        for (std::size_t i = 1; i < piezas.size(); ++i) {
            if (!EstaEnBlanco(piezas[i].texto)) return Recortar(piezas[i].texto);
        }
        return {};
    }

    const Generacion& c_;
    Libreta& libreta_;
};

}  // namespace

void ReglasDeTextos(const Generacion& g, Libreta& libreta) { DeTextos(g, libreta).Buscar(); }

}  // namespace qor
