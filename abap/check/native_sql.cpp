#include "abap/check/native_sql.h"

#include <vector>

namespace qor::abap {

namespace {

using Clase = Falta::Clase;

// A word, a literal, one of the signs , ( ) or a variable of the report with its colon.
struct Pieza {
    Palabra palabra;
    bool variable = false;

    bool Es(Clave clave) const { return !variable && palabra.clave == clave; }
};

bool EsBlanco(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

bool EsSuelto(char c) { return c == ',' || c == '(' || c == ')' || c == ';' || c == '=' || c == '<' || c == '>'; }

bool EmpiezaNombre(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '<' || c == '/' || c == '*' || c == '%';
}

class Cortador {
public:
    explicit Cortador(const TextoAjeno& ajeno) : texto_(ajeno.texto), linea_(ajeno.linea), columna_(ajeno.columna) {}

    std::vector<Pieza> Cortar() {
        std::vector<Pieza> piezas;
        while (PasarBlancos()) piezas.push_back(Siguiente());
        return piezas;
    }

private:
    bool PasarBlancos() {
        while (lugar_ < texto_.size()) {
            const char c = texto_[lugar_];
            const bool enPrincipio = lugar_ > 0 && (texto_[lugar_ - 1] == '\n' || texto_[lugar_ - 1] == '\r');
            if (c == '*' && enPrincipio) {
                while (lugar_ < texto_.size() && texto_[lugar_] != '\n' && texto_[lugar_] != '\r') ++lugar_;
                continue;
            }
            if (!EsBlanco(c)) return true;
            ++lugar_;
            if (c == '\n' || (c == '\r' && (lugar_ == texto_.size() || texto_[lugar_] != '\n'))) {
                ++linea_;
                columna_ = 1;
                principio_ = lugar_;
            }
        }
        return false;
    }

    Pieza Siguiente() {
        Pieza pieza;
        const std::size_t inicio = lugar_;
        const char c = texto_[lugar_];
        pieza.palabra.linea = linea_;
        pieza.palabra.columna = columna_ + static_cast<int>(lugar_ - principio_);
        if (c == '\'') {
            const auto fin = texto_.find_first_of("'\r\n", lugar_ + 1);
            lugar_ = fin == std::string_view::npos ? texto_.size() : fin + (texto_[fin] == '\'' ? 1 : 0);
            pieza.palabra.tipo = Palabra::Tipo::Literal;
        } else if (c == ':' && lugar_ + 1 < texto_.size() && EmpiezaNombre(texto_[lugar_ + 1]) &&
                   (lugar_ == 0 || texto_[lugar_ - 1] != ':')) {
            pieza.variable = true;
            const bool simbolo = texto_[++lugar_] == '<';
            do {
                ++lugar_;
            } while (lugar_ < texto_.size() && EsDeVariable(texto_[lugar_], simbolo));
        } else if (EsSuelto(c)) {
            ++lugar_;
        } else {
            while (lugar_ < texto_.size() && !EsBlanco(texto_[lugar_]) && !EsSuelto(texto_[lugar_]) && texto_[lugar_] != '\'' &&
                   (lugar_ == inicio || texto_[lugar_] != ':'))
                ++lugar_;
        }
        pieza.palabra.texto = texto_.substr(inicio, lugar_ - inicio);
        if (pieza.variable) pieza.palabra.Acortar(1);
        if (pieza.palabra.tipo == Palabra::Tipo::Nombre) pieza.palabra.clave = ClaveDe(pieza.palabra.texto);
        return pieza;
    }

    static bool EsDeVariable(char c, bool simbolo) {
        if (EmpiezaNombre(c) || (c >= '0' && c <= '9') || static_cast<unsigned char>(c) >= 0x80) return c != '<' && c != '*';
        return c == '-' || c == '$' || c == '&' || c == '#' || c == '?' || (simbolo && c == '>');
    }

    std::string_view texto_;
    std::size_t lugar_ = 0;
    std::size_t principio_ = 0;  // of the line
    int linea_;
    int columna_;  // of that
};

class RevisionDeSQL {
public:
    RevisionDeSQL(std::vector<Pieza> piezas, Contexto& contexto) : piezas_(std::move(piezas)), contexto_(contexto) {}

    void Revisar() {
        RevisarVariables();
        if (piezas_.empty() || !piezas_[0].Es("SELECT"_c) || Buscar("SELECT"_c, 1) != piezas_.size()) return;
        const std::size_t into = Buscar("INTO"_c, 1);
        const std::size_t from = Buscar("FROM"_c, 1);
        if (into > from || from == piezas_.size()) return;
        std::size_t primera = 1;
        if (Es(1, "DISTINCT"_c) || Es(1, "ALL"_c)) ++primera;
        if (!RevisarLista(primera, into, piezas_[0]) || !RevisarLista(into + 1, from, piezas_[into])) return;
        if (!RevisarCantidad(primera, into, from)) return;
        const std::size_t where = Buscar("WHERE"_c, from + 1);
        if (from + 1 == where || (from + 1 < piezas_.size() && EsClausula(from + 1))) return Decir(piezas_[from]);
        if (piezas_[from + 1].palabra.texto.find_first_of("\\:") != std::string_view::npos) return Decir(piezas_[from + 1]);
        if (where < piezas_.size()) RevisarCondicion(where);
    }

private:
    bool Es(std::size_t i, Clave clave) const { return i < piezas_.size() && piezas_[i].Es(clave); }

    std::size_t Buscar(Clave clave, std::size_t desde) const {
        std::size_t i = desde;
        while (i < piezas_.size() && !piezas_[i].Es(clave)) ++i;
        return i;
    }

    bool EsClausula(std::size_t i) const {
        return Es(i, "ORDER"_c) || Es(i, "GROUP"_c) || Es(i, "HAVING"_c) || Es(i, "FOR"_c) || Es(i, "UNION"_c) || Es(i, "WITH"_c) ||
               Es(i, "FETCH"_c) || Es(i, ";"_c);
    }

    void Decir(const Pieza& pieza) { contexto_.informe.Agregar(Clase::SQLNativo, pieza.palabra); }

    void RevisarVariables() {
        std::vector<Palabra> nombres;
        for (auto& pieza : piezas_) {
            if (!pieza.variable) continue;
            auto& palabra = pieza.palabra;
            palabra.largoBase = static_cast<std::uint32_t>(std::min(palabra.texto.size(), palabra.texto.find('-')));
            palabra.base = ClaveDe(palabra.texto.substr(0, palabra.largoBase));
            nombres.push_back(palabra);
        }
        if (nombres.empty()) return;
        Frase frase(nombres, contexto_);
        for (const auto& nombre : nombres) {
            const bool conocida = contexto_.datos.Buscar(nombre.base) != nullptr || contexto_.incierto ||
                                  contexto_.perdidas.contains(nombre.base) || nombre.texto.front() == '<' ||
                                  nombre.texto.front() == '*' || nombre.texto.front() == '%';
            if (conocida) {
                frase.Revisar(nombre);
            } else {
                frase.Decir(Clase::SQLNativo, nombre, nombre.texto.substr(0, nombre.largoBase));
            }
        }
    }

    // Between its elements there is one comma each. `antes` is the word in front of it.
    bool RevisarLista(std::size_t desde, std::size_t hasta, const Pieza& antes) {
        if (desde == hasta) return Decir(antes), false;
        int parentesis = 0;
        for (std::size_t i = desde; i < hasta; ++i) {
            parentesis += Es(i, "("_c) ? 1 : Es(i, ")"_c) ? -1 : 0;
            if (parentesis != 0) continue;
            const bool coma = Es(i, ","_c);
            if (coma && (i == desde || i + 1 == hasta || Es(i + 1, ","_c))) return Decir(piezas_[i]), false;
            if (piezas_[i].variable && i + 1 < hasta && piezas_[i + 1].variable) return Decir(piezas_[i + 1]), false;
        }
        return true;
    }

    // As many columns as variables, where the columns are nothing but names and the variables are no records.
    bool RevisarCantidad(std::size_t primera, std::size_t into, std::size_t from) {
        std::size_t columnas = 1;
        std::size_t variables = 1;
        for (std::size_t i = primera; i < into; ++i) {
            if (Es(i, "("_c) || Es(i, "*"_c) || piezas_[i].palabra.texto.ends_with(".*")) return true;
            if (Es(i, ","_c)) ++columnas;
        }
        for (std::size_t i = into + 1; i < from; ++i) {
            if (Es(i, ","_c)) {
                ++variables;
            } else if (!piezas_[i].variable) {
                return true;
            }
        }
        if (columnas == variables || (variables == 1 && EsRegistro(piezas_[into + 1].palabra))) return true;
        Decir(piezas_[into]);
        return false;
    }

    bool EsRegistro(const Palabra& palabra) const {
        if (palabra.texto.find('-') != std::string_view::npos) return false;
        const Dato* dato = contexto_.datos.Buscar(palabra.base);
        return dato == nullptr || dato->abierto || dato->registro != sinRegistro;
    }

    void RevisarCondicion(std::size_t where) {
        const std::size_t fin = piezas_.size();
        if (where + 1 == fin || EsClausula(where + 1)) return Decir(piezas_[where]);
        // One word alone is no condition.
        if (where + 2 == fin && !piezas_[where + 1].variable) return Decir(piezas_[where + 1]);
        for (std::size_t i = where + 1; i < fin; ++i) {
            const bool enlace = Es(i, "AND"_c) || Es(i, "OR"_c);
            if (enlace && (i == where + 1 || i + 1 == fin || Es(i + 1, "AND"_c) || Es(i + 1, "OR"_c))) return Decir(piezas_[i]);
            const bool pegada = piezas_[i].variable && i + 2 < fin && Es(i + 2, "="_c) && !piezas_[i + 1].variable;
            if (pegada && !Es(i + 1, "AND"_c) && !Es(i + 1, "OR"_c) && EmpiezaNombre(piezas_[i + 1].palabra.texto.front()) &&
                piezas_[i + 1].palabra.tipo == Palabra::Tipo::Nombre && !EsSuelto(piezas_[i + 1].palabra.texto.front()))
                return Decir(piezas_[i + 1]);
        }
    }

    std::vector<Pieza> piezas_;
    Contexto& contexto_;
};

}  // namespace

void RevisarSQLNativo(const TextoAjeno& texto, Contexto& contexto) { RevisionDeSQL(Cortador(texto).Cortar(), contexto).Revisar(); }

}  // namespace qor::abap
