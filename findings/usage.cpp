#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/text.h"
#include "findings/program_rows.h"
#include "findings/rules.h"
#include "findings/user_code.h"
#include "model/cells.h"

namespace qor {

namespace {

// Names without regard to case.
struct SinCaja {
    static unsigned char Igualar(char c) { return static_cast<unsigned char>(c >= 'a' && c <= 'z' ? c - 0x20 : c); }
    std::size_t operator()(std::string_view texto) const {
        std::size_t suma = 1469598103934665603U;
        for (const char c : texto) suma = (suma ^ Igualar(c)) * 1099511628211U;
        return suma;
    }
    bool operator()(std::string_view uno, std::string_view otro) const {
        return std::equal(uno.begin(), uno.end(), otro.begin(), otro.end(),
                          [](char a, char b) { return Igualar(a) == Igualar(b); });
    }
};

bool EsDeNombre(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_'; }

template <typename Funcion>
void PorCadaNombre(std::string_view texto, Funcion funcion) {
    std::size_t i = 0;
    while (i < texto.size()) {
        if (!EsDeNombre(texto[i])) {
            ++i;
            continue;
        }
        const auto inicio = i;
        while (i < texto.size() && EsDeNombre(texto[i])) ++i;
        funcion(texto.substr(inicio, i - inicio));
    }
}

class DeUso {
public:
    DeUso(const Generacion& g, Libreta& libreta)
        : c_(g), e_(g.especificacion), libreta_(libreta), usos_(static_cast<std::size_t>(e_.FilasArchivo())) {}

    void Buscar() {
        IndexarCampos();
        LeerFilasDelPrograma();
        LeerTextos();
        for (std::size_t f = 0; f < usos_.size(); ++f) BuscarCampo(static_cast<int>(f));
        BuscarCondiciones();
    }

private:
    struct Uso {
        bool enFilas = false;   // a value cell names it, or it is a key
        bool enTextos = false;  // a text names it that is not its own conversion
        bool enElSuyo = false;  // its own conversion does
        int siguiente = -1;     // another row of the same name
    };

    void IndexarCampos() {
        campos_.reserve(usos_.size());
        for (std::size_t f = 0; f < usos_.size(); ++f) {
            const auto& campo = e_.TablaArchivo[f].campo;
            const auto [lugar, nuevo] = campos_.try_emplace(Recortar(campo), static_cast<int>(f));
            if (!nuevo) usos_[f].siguiente = std::exchange(lugar->second, static_cast<int>(f));
            // A name that can't be told from the text around it is taken for used.
            if (!std::all_of(campo.begin(), campo.end(), EsDeNombre)) usos_[f].enFilas = true;
        }
    }

    template <typename Funcion>
    void PorCadaCampo(std::string_view nombre, Funcion funcion) {
        const auto lugar = campos_.find(nombre);
        int f = lugar == campos_.end() ? -1 : lugar->second;
        for (; f >= 0; f = usos_[static_cast<std::size_t>(f)].siguiente) funcion(static_cast<std::size_t>(f));
    }

    void LeerFilasDelPrograma() {
        const auto filas = LeerFilas(e_);
        for (std::size_t r = 0; r < filas.size(); ++r) {
            const auto& fila = e_.TablaTransaccion[r];
            PorCadaCampo(Recortar(fila.valor), [&](std::size_t f) { usos_[f].enFilas = true; });
            const auto condicion = DespuesDe(filas[r].clase == FilaLeida::Clase::Campo ? fila.campo : fila.dynpro, ';');
            if (!condicion.empty()) condiciones_.insert(condicion);
        }
        std::unordered_set<std::string_view> textosDeClaves;
        for (const auto& stepLoop : LeerStepLoops(e_, filas)) {
            if (!textosDeClaves.insert(stepLoop.claves).second) continue;
            for (std::size_t f = 0; f < usos_.size(); ++f) {
                if (!usos_[f].enFilas && Contiene(stepLoop.claves, e_.TablaArchivo[f].campo)) usos_[f].enFilas = true;
            }
        }
    }

    void LeerTextos() {
        for (int f = 0; f <= ultimaFila; ++f) LeerTexto(e_.TablaArchivo[f].conversion, f);
        for (const auto& fila : e_.TablaCondiciones) {
            if (fila.nombre.empty()) break;
            LeerTexto(fila.texto);
        }
        for (const auto& fila : e_.TablaBAPIs) LeerTexto(fila.llamada);
        LeerTexto(e_.VariablesGlobales);
        if (!e_.OrigenUsuario) return;
        LeerTexto(e_.OrigenVariables);
        LeerTexto(e_.OrigenForms);
        LeerTexto(e_.OrigenSource);
    }

    void LeerTexto(std::string_view texto, int propio = -1) {
        if (texto.empty()) return;
        PorCadaNombre(texto, [&](std::string_view nombre) {
            PorCadaCampo(nombre,
                         [&](std::size_t f) { (static_cast<int>(f) == propio ? usos_[f].enElSuyo : usos_[f].enTextos) = true; });
        });
        if (Contiene(texto, "ITAB")) LeerRegistrosEnteros(texto);
        if (Contiene(texto, "COND_CHECK") || Contiene(texto, "cond_check")) LeerCondiciones(texto);
    }

    // Where a record is handed on as a whole, all its fields are.
    void LeerRegistrosEnteros(std::string_view texto) {
        const SentenciasABAP sentencias(texto);
        const std::string tabla = Mayusculas(c_.nombres.GTprefijo) + "ITAB";
        for (std::size_t n = 0; n < sentencias.size() && !entero_; ++n) {
            const auto sentencia = sentencias[n];
            if (EsUnaDe(sentencia[0].texto, {"APPEND", "REFRESH", "CLEAR", "FREE", "LOOP", "READ", "SELECT", "FETCH", "SORT",
                                             "DELETE", "MODIFY", "INSERT", "DESCRIBE", "EXEC", "FORM", "DATA"}))
                continue;
            for (std::size_t i = 1; i < sentencia.size() && !entero_; ++i) {
                const auto nombre = NombreEn(sentencia[i].texto);
                const auto antes = sentencia[i - 1].texto;
                entero_ = (Es(nombre, tabla) || EsDeStep(nombre, tabla)) && !EsUnaDe(antes, {"TABLES", "INTO", "TABLE", "TO"});
            }
        }
    }

    static bool EsDeStep(std::string_view nombre, std::string_view tabla) {
        return nombre.size() > tabla.size() + 3 && Es(nombre.substr(0, tabla.size() + 3), std::string(tabla) + "SL_") &&
               nombre.find('-') == std::string_view::npos;
    }

    void LeerCondiciones(std::string_view texto) {
        const SentenciasABAP sentencias(texto);
        for (std::size_t n = 0; n < sentencias.size(); ++n) {
            const auto sentencia = sentencias[n];
            if (!Nombra(sentencia, "COND_CHECK") || !Es(sentencia[0].texto, "PERFORM")) continue;
            bool conLiteral = false;
            for (const auto& palabra : sentencia) {
                if (palabra.texto.size() < 3 || palabra.texto.front() != '\'') continue;
                condiciones_.insert(Recortar(palabra.texto.substr(1, palabra.texto.size() - 2)));
                conLiteral = true;
            }
            if (!conLiteral) cualquierCondicion_ = true;
        }
    }

    void BuscarCampo(int f) {
        const auto& uso = usos_[static_cast<std::size_t>(f)];
        if (uso.enFilas || uso.enTextos || entero_) return;
        const auto& fila = e_.TablaArchivo[f];
        if (!uso.enElSuyo) libreta_.Agregar(601, Lugar::EnArchivo(f, 0), {fila.campo});
        if (!EstaEnBlanco(fila.conversion) && SoloCambia(fila)) libreta_.Agregar(603, Lugar::EnArchivo(f, 3), {fila.campo});
    }

    // All that the field's code does is to change the field.
    static bool SoloCambia(const FilaDeArchivo& fila) {
        const std::string nombre = "#" + Mayusculas(fila.campo);
        const SentenciasABAP sentencias(fila.conversion, true);
        for (std::size_t n = 0; n < sentencias.size(); ++n) {
            const auto sentencia = sentencias[n];
            for (const auto& palabra : sentencia) {
                const auto otro = NombreEn(palabra.texto);
                if (otro.starts_with('#') && !Es(otro, nombre)) return false;
            }
            const auto verbo = sentencia[0].texto;
            if (EsUnaDe(verbo, {"IF", "ELSEIF", "ELSE", "ENDIF", "CASE", "WHEN", "ENDCASE", "DO", "ENDDO", "WHILE", "ENDWHILE"}))
                continue;
            if (Es(verbo, "PERFORM") || !Cambia(sentencia, nombre) || DaAOtro(sentencia, nombre)) return false;
        }
        return true;
    }

    // A function module gives a value to something else.
    static bool DaAOtro(std::span<const Palabra> sentencia, std::string_view nombre) {
        if (!Es(sentencia[0].texto, "CALL")) return false;
        bool recibe = false;
        for (std::size_t i = 0; i + 1 < sentencia.size(); ++i) {
            const auto palabra = sentencia[i].texto;
            if (EsUnaDe(palabra, {"IMPORTING", "CHANGING", "TABLES"})) recibe = true;
            if (EsUnaDe(palabra, {"EXPORTING", "EXCEPTIONS"})) recibe = false;
            if (recibe && palabra == "=" && !Es(NombreEn(sentencia[i + 1].texto), nombre)) return true;
        }
        return false;
    }

    void BuscarCondiciones() {
        if (cualquierCondicion_) return;
        for (int r = 0; r < filasTabla && !e_.TablaCondiciones[r].nombre.empty(); ++r) {
            const std::string& nombre = e_.TablaCondiciones[r].nombre;
            if (!condiciones_.contains(nombre)) libreta_.Agregar(602, Lugar::EnCondicion(r, 0), {nombre});
        }
    }

    const Generacion& c_;
    const Especificacion& e_;
    Libreta& libreta_;
    std::vector<Uso> usos_;                                               // by row of the file side
    std::unordered_map<std::string_view, int, SinCaja, SinCaja> campos_;  // a row of each name
    std::unordered_set<std::string_view> condiciones_;                    // that something refers to
    bool entero_ = false;                                                 // a record is used as a whole
    bool cualquierCondicion_ = false;                                     // which one is asked is not known
};

}  // namespace

void ReglasDeUso(const Generacion& g, Libreta& libreta) { DeUso(g, libreta).Buscar(); }

}  // namespace qor
