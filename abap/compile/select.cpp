// Reads SELECT.
#include <algorithm>

#include "abap/compile/open_sql_selection.h"
#include "base/text.h"

namespace qor::abap {

namespace {

class LectorDeSelect {
public:
    LectorDeSelect(Compilador& c, Lectura& l) : c_(c), l_(l) {}

    Seleccion Leer() {
        if (l_.Toma("SINGLE"_c)) {
            s_.unica = true;
            if (l_.Toma("FOR"_c)) l_.Exige("UPDATE"_c, "UPDATE");
        }
        s_.distinta = l_.Toma("DISTINCT"_c);
        LeerColumnas();
        while (l_.Hay()) LeerClausula();
        if (s_.tabla.estructura == nullptr) l_.Fallar("FROM was expected");
        ResolverColumnas();
        ResolverOrden();
        Revisar();
        return std::move(s_);
    }

private:
    // A column as it stands in the list, until the table is known.
    struct Escrita {
        Palabra palabra;
        std::string funcion;
        bool distinta = false;
        std::string alias;
    };

    bool EsClausula() const {
        return l_.EsAlguna({"INTO"_c, "APPENDING"_c, "FROM"_c, "WHERE"_c, "GROUP"_c, "HAVING"_c, "ORDER"_c, "UP"_c, "BYPASSING"_c,
                            "CLIENT"_c, "FOR"_c, "PACKAGE"_c, "CONNECTION"_c});
    }

    static std::string FuncionDe(Clave clave) {
        switch (clave) {
            case "COUNT("_c: return "COUNT";
            case "MAX("_c: return "MAX";
            case "MIN("_c: return "MIN";
            case "SUM("_c: return "SUM";
            case "AVG("_c: return "AVG";
            default: return {};
        }
    }

    void LeerColumnas() {
        if (l_.Toma("*"_c)) {
            s_.todas = true;
            return;
        }
        while (l_.Hay() && !EsClausula()) {
            Escrita escrita;
            escrita.funcion = FuncionDe(l_.Actual().clave);
            if (l_.Es("COUNT(*)"_c)) {
                escrita.funcion = "COUNT";
                escrita.palabra = ConTexto(l_.Actual(), l_.Actual().texto.substr(6, 1));
                l_.Avanzar();
            } else if (!escrita.funcion.empty()) {
                l_.Avanzar();
                escrita.distinta = l_.Toma("DISTINCT"_c);
                escrita.palabra = l_.Tomada();
                l_.Exige(")"_c, ")");
            } else {
                escrita.palabra = l_.Tomada();
            }
            if (l_.Toma("AS"_c)) escrita.alias = Mayusculas(l_.Tomada().texto);
            escritas_.push_back(std::move(escrita));
        }
        if (escritas_.empty()) l_.Fallar("columns were expected");
    }

    void LeerClausula() {
        if (l_.Es("INTO"_c) || l_.Es("APPENDING"_c)) return LeerDestino();
        if (l_.Toma("FROM"_c)) {
            Una(s_.tabla.estructura != nullptr);
            palabraDeTabla_ = l_.Actual();
            s_.tabla = LeerTablaDeBase(c_, l_);
            if (l_.Toma("AS"_c)) s_.tabla.alias = Mayusculas(l_.Tomada().texto);
            return;
        }
        if (l_.Toma("WHERE"_c)) {
            Una(s_.donde.has_value());
            if (s_.tabla.estructura == nullptr) l_.Fallar("FROM was expected in front of WHERE");
            s_.donde = LeerDonde(c_, l_, s_.tabla, s_.entradas ? &*s_.entradas : nullptr);
            return;
        }
        if (l_.Toma("FOR"_c)) {
            l_.Exige("ALL"_c, "ALL");
            l_.Exige("ENTRIES"_c, "ENTRIES");
            l_.Exige("IN"_c, "IN");
            // The words of the condition are read with it.
            Una(s_.entradas.has_value() || s_.donde.has_value());
            std::string nombre(l_.Actual().texto.substr(0, l_.Actual().largoBase));
            s_.entradas = Entradas{std::move(nombre), c_.LeerTabla(l_)};
            return;
        }
        if (l_.Toma("GROUP"_c, "BY"_c)) {
            Una(!grupo_.empty());
            while (l_.Hay() && !EsClausula()) grupo_.push_back(l_.Tomada());
            if (grupo_.empty()) l_.Fallar("columns were expected");
            return;
        }
        if (l_.Toma("ORDER"_c, "BY"_c)) return LeerOrden();
        if (l_.Toma("UP"_c, "TO"_c)) {
            Una(s_.limite.has_value());
            s_.limite = c_.LeerOperando(l_);
            return l_.Exige("ROWS"_c, "ROWS");
        }
        if (l_.Toma("BYPASSING"_c)) return l_.Exige("BUFFER"_c, "BUFFER");
        if (l_.Toma("CLIENT"_c)) {
            l_.Exige("SPECIFIED"_c, "SPECIFIED");
            s_.delCliente = false;
            return;
        }
        l_.NoSePractica();
    }

    // A clause that stands there once.
    void Una(bool hayYa) const {
        if (hayYa) l_.Fallar("this addition stands there already, or in front of what it belongs to");
    }

    void LeerDestino() {
        Una(s_.area || !s_.lista.empty() || s_.enTabla);
        s_.agregar = l_.Es("APPENDING"_c);
        l_.Avanzar();
        if (l_.Toma("CORRESPONDING"_c)) {
            l_.Exige("FIELDS"_c, "FIELDS");
            l_.Exige("OF"_c, "OF");
            s_.correspondiente = true;
        }
        if (l_.Toma("TABLE"_c)) {
            s_.enTabla = c_.LeerTabla(l_);
        } else if (s_.agregar) {
            l_.Fallar("TABLE was expected");
        } else if (!s_.correspondiente && !l_.Actual().EsLiteral() && l_.Actual().texto.front() == '(') {
            palabraDeLista_ = l_.Actual();
            for (const auto& palabra : LeerLista(l_)) s_.lista.push_back(LeerDestinoDe(c_, palabra));
        } else {
            s_.area = c_.LeerDestino(l_);
        }
    }

    void LeerOrden() {
        Una(ordenada_);
        ordenada_ = true;
        if (l_.Toma("PRIMARY"_c, "KEY"_c)) {
            if (!s_.todas) l_.Fallar("ORDER BY PRIMARY KEY needs all columns: SELECT *");
            return;
        }
        while (l_.Hay() && !EsClausula()) {
            orden_.emplace_back(l_.Tomada(), false);
            if (l_.Toma("DESCENDING"_c)) {
                orden_.back().second = true;
            } else {
                l_.Toma("ASCENDING"_c);
            }
        }
        if (orden_.empty()) l_.Fallar("columns were expected");
    }

    // ---- When all is read ----

    void ResolverColumnas() {
        if (s_.todas) {
            for (const auto& componente : s_.tabla.estructura->componentes) {
                s_.columnas.push_back({{componente.nombre, {}, false}, componente.tipo, componente.nombre});
            }
        }
        for (const auto& escrita : escritas_) {
            Seleccion::Columna columna;
            columna.pedida.funcion = escrita.funcion;
            columna.pedida.distinta = escrita.distinta;
            columna.nombre = escrita.alias;
            if (escrita.funcion == "COUNT" && escrita.palabra.clave == "*"_c && !escrita.distinta) {
                columna.pedida.columna = "*";
                columna.tipo = TipoDeCampo{Tipo::I, 4};
            } else {
                const auto suya = ExigirColumna(c_, s_.tabla, escrita.palabra);
                columna.pedida.columna = suya.nombre;
                columna.tipo = TipoDeFuncion(escrita.funcion, suya.tipo);
                if (escrita.funcion.empty() && escrita.alias.empty()) columna.nombre = suya.nombre;
            }
            s_.columnas.push_back(std::move(columna));
        }
        s_.soloCuenta = s_.columnas.size() == 1 && !s_.todas && s_.columnas[0].pedida.columna == "*";
    }

    static TipoDeCampo TipoDeFuncion(const std::string& funcion, const TipoDeCampo& tipo) {
        if (funcion == "COUNT") return TipoDeCampo{Tipo::I, 4};
        if (funcion == "AVG") return TipoDeCampo{Tipo::F, 8};
        if (funcion == "SUM" && tipo.tipo == Tipo::P) return TipoDeCampo{Tipo::P, 16, tipo.decimales};
        return tipo;
    }

    void ResolverOrden() {
        for (const auto& palabra : grupo_) s_.grupo.push_back(ExigirColumna(c_, s_.tabla, palabra).nombre);
        for (const auto& [palabra, descendente] : orden_) {
            s_.orden.push_back({ExigirColumna(c_, s_.tabla, palabra).nombre, descendente});
        }
        if (!ordenada_ || !orden_.empty()) return;
        for (const auto& componente : s_.tabla.estructura->componentes) {
            if (componente.clave) s_.orden.push_back({componente.nombre, false});
        }
    }

    void Revisar() {
        if (s_.unica && s_.enTabla) Fallar("SELECT SINGLE reads one row and fills no table");
        if (s_.unica && ordenada_) Fallar("SELECT SINGLE has no order");
        if (s_.entradas && !s_.donde) Fallar("FOR ALL ENTRIES needs a condition");
        if (s_.todas && !s_.grupo.empty()) Fallar("SELECT * has no groups");
        const bool hayDestino = s_.area || !s_.lista.empty() || s_.enTabla;
        if (!hayDestino && !s_.todas && !s_.soloCuenta) Fallar("INTO was expected");
        if (!hayDestino && s_.todas) PonerAreaDeTrabajo();
        RevisarGrupos();
        RevisarDestino();
    }

    void PonerAreaDeTrabajo() {
        s_.area = c_.BuscarOperando(palabraDeTabla_);
        if (!s_.area || (s_.area->estructura == nullptr && !s_.area->dinamico)) {
            throw FallaDeSentencia{palabraDeTabla_, s_.tabla.nombre + " has no work area: it is not declared with TABLES"};
        }
    }

    // Beside aggregates, columns are those of the groups.
    void RevisarGrupos() const {
        const bool agregados = std::any_of(s_.columnas.begin(), s_.columnas.end(),
                                           [](const auto& columna) { return !columna.pedida.funcion.empty(); });
        if (!agregados && s_.grupo.empty()) return;
        for (std::size_t i = 0; i < s_.columnas.size(); ++i) {
            const auto& pedida = s_.columnas[i].pedida;
            if (!pedida.funcion.empty() || std::count(s_.grupo.begin(), s_.grupo.end(), pedida.columna) > 0) continue;
            throw FallaDeSentencia{escritas_[i].palabra, pedida.columna + " should stand behind GROUP BY"};
        }
    }

    void RevisarDestino() const {
        if (!s_.lista.empty() && (s_.todas || s_.lista.size() != s_.columnas.size())) {
            throw FallaDeSentencia{palabraDeLista_,
                                   "as many fields as columns were expected: " + std::to_string(s_.columnas.size())};
        }
        if (s_.correspondiente || s_.todas) return;
        const bool dinamico = s_.area ? s_.area->dinamico : s_.enTabla && s_.enTabla->dinamica;
        if (dinamico || (!s_.area && !s_.enTabla)) return;
        const auto* estructura = s_.area ? s_.area->estructura : s_.enTabla->linea.estructura;
        const std::size_t campos = estructura == nullptr ? 1 : estructura->componentes.size();
        if (s_.columnas.size() > campos) Fallar("there are more columns than fields for them");
    }

    [[noreturn]] void Fallar(const char* texto) const { throw FallaDeSentencia{l_.Primera(), texto}; }

    Compilador& c_;
    Lectura& l_;
    Seleccion s_;
    std::vector<Escrita> escritas_;
    std::vector<Palabra> grupo_;
    std::vector<std::pair<Palabra, bool>> orden_;
    bool ordenada_ = false;
    Palabra palabraDeTabla_;
    Palabra palabraDeLista_;
};

}  // namespace

bool Seleccion::SoloAgregados() const {
    return !todas && std::all_of(columnas.begin(), columnas.end(), [](const auto& c) { return !c.pedida.funcion.empty(); });
}

bool LeerSELECT(Compilador& c, Lectura& l) {
    EmitirSeleccion(c, l.Primera(), LectorDeSelect(c, l).Leer());
    return true;
}

}  // namespace qor::abap
