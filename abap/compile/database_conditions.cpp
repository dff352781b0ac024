#include "abap/compile/database_conditions.h"

#include <array>
#include <utility>

#include "abap/compile/database_values.h"
#include "abap/values/conversion.h"

namespace qor::abap {

namespace {

// Brackets within brackets.
constexpr int honduraMaxima = 100;

std::string OperadorDe(Clave clave) {
    switch (clave) {
        case "="_c:
        case "EQ"_c: return "=";
        case "<>"_c:
        case "><"_c:
        case "NE"_c: return "<>";
        case "<"_c:
        case "LT"_c: return "<";
        case ">"_c:
        case "GT"_c: return ">";
        case "<="_c:
        case "=<"_c:
        case "LE"_c: return "<=";
        case ">="_c:
        case "=>"_c:
        case "GE"_c: return ">=";
        default: return {};
    }
}

Donde Negar(Donde donde) {
    Donde negada;
    negada.clase = Donde::Clase::No;
    negada.partes.push_back(std::move(donde));
    return negada;
}

// ---- Reading ----

class LectorDeDonde {
public:
    LectorDeDonde(Compilador& c, Lectura& l, const TablaDeBase& tabla, const Entradas* entradas)
        : c_(c), l_(l), tabla_(tabla), entradas_(entradas) {}

    Donde Leer() { return Partes(Donde::Clase::O, "OR"_c); }

private:
    Donde Partes(Donde::Clase clase, Clave enlace) {
        Donde donde;
        donde.clase = clase;
        do {
            donde.partes.push_back(clase == Donde::Clase::O ? Partes(Donde::Clase::Y, "AND"_c) : Una());
        } while (l_.Toma(enlace));
        if (donde.partes.size() > 1) return donde;
        Donde sola = std::move(donde.partes.front());
        return sola;
    }

    Donde Una() {
        if (++hondura_ > honduraMaxima) l_.Fallar("too many brackets within one another");
        Donde donde;
        if (l_.Toma("NOT"_c)) {
            donde = Negar(Una());
        } else if (l_.Toma("("_c)) {
            donde = Leer();
            l_.Exige(")"_c, ")");
        } else {
            donde = LeerRelacion();
        }
        --hondura_;
        return donde;
    }

    Donde LeerRelacion() {
        Donde donde;
        donde.columna = ExigirColumna(c_, tabla_, l_.Actual());
        l_.Avanzar();
        if (l_.Toma("IS"_c)) {
            const bool negada = l_.Toma("NOT"_c);
            l_.Exige("NULL"_c, "NULL");
            donde.clase = Donde::Clase::EsNulo;
            return negada ? Negar(std::move(donde)) : std::move(donde);
        }
        const bool negada = l_.Toma("NOT"_c);
        if (l_.Toma("BETWEEN"_c)) {
            donde.clase = Donde::Clase::Entre;
            donde.valores.push_back(Valor());
            l_.Exige("AND"_c, "AND");
            donde.valores.push_back(Valor());
        } else if (l_.Toma("IN"_c)) {
            LeerEn(donde);
        } else if (l_.Toma("LIKE"_c)) {
            donde.clase = Donde::Clase::Como;
            donde.valores.push_back(Valor());
            if (l_.Toma("ESCAPE"_c)) donde.escape = c_.LeerOperando(l_);
        } else {
            if (negada) l_.NoSePractica();
            LeerComparacion(donde);
        }
        return negada ? Negar(std::move(donde)) : std::move(donde);
    }

    void LeerEn(Donde& donde) {
        if (l_.Actual().EsLiteral() || l_.Actual().texto.front() != '(') {
            donde.clase = Donde::Clase::Rango;
            donde.rango = c_.LeerTabla(l_);
            return;
        }
        donde.clase = Donde::Clase::En;
        for (const auto& palabra : LeerLista(l_)) donde.valores.push_back(ValorDe(palabra));
    }

    void LeerComparacion(Donde& donde) {
        donde.operador = OperadorDe(l_.Actual().clave);
        if (donde.operador.empty()) l_.NoSePractica();
        l_.Avanzar();
        const Palabra& palabra = l_.Actual();
        const bool conTabla = palabra.texto.find('~') != std::string_view::npos && !palabra.EsLiteral();
        const bool variable = !conTabla && (palabra.EsLiteral() || EsDeEntrada(palabra) || c_.BuscarOperando(palabra));
        if (const auto otra = variable ? std::nullopt : BuscarColumna(c_, tabla_, palabra); otra && (conTabla || tabla_.conocida)) {
            donde.clase = Donde::Clase::Columna;
            donde.otraColumna = otra->nombre;
            l_.Avanzar();
            return;
        }
        donde.clase = Donde::Clase::Compara;
        donde.valores.push_back(Valor());
    }

    ValorDeDonde Valor() { return ValorDe(l_.Tomada()); }

    bool EsDeEntrada(const Palabra& palabra) const {
        return entradas_ != nullptr && !palabra.EsLiteral() && palabra.base == ClaveDe(entradas_->nombre) &&
               palabra.largoBase < palabra.texto.size() && palabra.texto[palabra.largoBase] == '-';
    }

    ValorDeDonde ValorDe(const Palabra& palabra) {
        if (!EsDeEntrada(palabra)) return {LeerPalabra(c_, palabra), std::nullopt};
        const auto componente = ConTexto(palabra, palabra.texto.substr(palabra.largoBase + 1));
        return {{}, c_.ComponenteDe(componente, entradas_->tabla.linea)};
    }

    Compilador& c_;
    Lectura& l_;
    const TablaDeBase& tabla_;
    const Entradas* entradas_;
    int hondura_ = 0;
};

// ---- Evaluating ----

CondicionDeBase Hacer(CondicionDeBase::Clase clase, const std::string& columna = {}) {
    CondicionDeBase condicion;
    condicion.clase = clase;
    condicion.columna = columna;
    return condicion;
}

CondicionDeBase Comparar(const std::string& columna, const char* operador, ValorDeBase valor) {
    auto condicion = Hacer(CondicionDeBase::Clase::Compara, columna);
    condicion.operador = operador;
    condicion.valores.push_back(std::move(valor));
    return condicion;
}

CondicionDeBase NoVale(CondicionDeBase condicion) {
    auto negada = Hacer(CondicionDeBase::Clase::No);
    negada.partes.push_back(std::move(condicion));
    return negada;
}

constexpr char escapeDeRango = '#';

// The pattern of CP as one of LIKE.
std::string PatronDe(std::string_view patron) {
    std::string como;
    const auto literal = [&como](char c) {
        if (c == '%' || c == '_' || c == escapeDeRango) como += escapeDeRango;
        como += c;
    };
    for (std::size_t i = 0; i < patron.size(); ++i) {
        const char c = patron[i];
        if (c == '#' && i + 1 < patron.size()) {
            literal(patron[++i]);
        } else if (c == '*') {
            como += '%';
        } else if (c == '+') {
            como += '_';
        } else {
            literal(c);
        }
    }
    return como;
}

// The lines of a table of ranges.
class LectorDeRango {
public:
    LectorDeRango(const ColumnaDeBase& columna, const TablaInterna& tabla) : columna_(columna), tabla_(tabla), partes_(tabla) {}

    CondicionDeBase Leer() const {
        auto incluidas = Hacer(CondicionDeBase::Clase::O);
        auto iguales = Hacer(CondicionDeBase::Clase::En, columna_.nombre);
        auto todas = Hacer(CondicionDeBase::Clase::Y);
        for (std::size_t i = 0; i < tabla_.Filas(); ++i) {
            std::uint8_t* const fila = tabla_.Fila(i);
            const auto signo = TextoPlano(partes_.Signo(fila));
            const auto opcion = TextoPlano(partes_.Opcion(fila));
            if (signo == "I" && opcion == "EQ") {
                iguales.valores.push_back(Valor(partes_.Bajo(fila)));
            } else if (signo == "I") {
                incluidas.partes.push_back(Linea(fila, opcion));
            } else if (signo == "E") {
                todas.partes.push_back(NoVale(Linea(fila, opcion)));
            } else {
                throw Volcado("SAPSQL_IN_ITAB_ILLEGAL_SIGN", "A line of ranges has the sign \"" + signo + "\"");
            }
        }
        if (!iguales.valores.empty()) incluidas.partes.push_back(std::move(iguales));
        if (!incluidas.partes.empty()) todas.partes.push_back(std::move(incluidas));
        return todas;
    }

private:
    ValorDeBase Valor(const Campo& parte) const { return ValorParaColumna(parte, columna_.tipo); }

    CondicionDeBase Linea(std::uint8_t* fila, const std::string& opcion) const {
        static constexpr std::array<std::pair<std::string_view, const char*>, 6> operadores = {
            {{"EQ", "="}, {"NE", "<>"}, {"LT", "<"}, {"LE", "<="}, {"GT", ">"}, {"GE", ">="}}};
        for (const auto& [nombre, operador] : operadores) {
            if (opcion == nombre) return Comparar(columna_.nombre, operador, Valor(partes_.Bajo(fila)));
        }
        if (opcion == "BT" || opcion == "NB") {
            auto entre = Hacer(CondicionDeBase::Clase::Entre, columna_.nombre);
            entre.valores.push_back(Valor(partes_.Bajo(fila)));
            entre.valores.push_back(Valor(partes_.Alto(fila)));
            return opcion == "NB" ? NoVale(std::move(entre)) : entre;
        }
        if (opcion == "CP" || opcion == "NP") {
            auto como = Hacer(CondicionDeBase::Clase::Como, columna_.nombre);
            como.valores.emplace_back(PatronDe(TextoPlano(partes_.Bajo(fila))));
            como.escape = escapeDeRango;
            return opcion == "NP" ? NoVale(std::move(como)) : como;
        }
        throw Volcado("SAPSQL_IN_ITAB_ILLEGAL_OPTION", "A line of ranges has the option \"" + opcion + "\"");
    }

    const ColumnaDeBase& columna_;
    const TablaInterna& tabla_;
    PartesDeRango partes_;
};

Campo CampoDe(Maquina& maquina, const ValorDeDonde& valor, const std::uint8_t* entrada) {
    if (!valor.deEntrada) return maquina.Resolver(valor.operando);
    return CampoDeComponente(*valor.deEntrada, const_cast<std::uint8_t*>(entrada));
}

CondicionDeBase EvaluarPartes(Maquina& maquina, const Donde& donde, CondicionDeBase::Clase clase, const std::uint8_t* entrada) {
    auto condicion = Hacer(clase);
    condicion.partes.reserve(donde.partes.size());
    for (const auto& parte : donde.partes) condicion.partes.push_back(Evaluar(maquina, parte, entrada));
    return condicion;
}

CondicionDeBase EvaluarValores(Maquina& maquina, const Donde& donde, CondicionDeBase::Clase clase, const std::uint8_t* entrada) {
    auto condicion = Hacer(clase, donde.columna.nombre);
    condicion.operador = donde.operador;
    condicion.valores.reserve(donde.valores.size());
    for (const auto& valor : donde.valores) {
        condicion.valores.push_back(ValorParaColumna(CampoDe(maquina, valor, entrada), donde.columna.tipo));
    }
    return condicion;
}

}  // namespace

Donde LeerDonde(Compilador& c, Lectura& l, const TablaDeBase& tabla, const Entradas* entradas) {
    return LectorDeDonde(c, l, tabla, entradas).Leer();
}

CondicionDeBase Evaluar(Maquina& maquina, const Donde& donde, const std::uint8_t* entrada) {
    using Clase = CondicionDeBase::Clase;
    switch (donde.clase) {
        case Donde::Clase::Y: return EvaluarPartes(maquina, donde, Clase::Y, entrada);
        case Donde::Clase::O: return EvaluarPartes(maquina, donde, Clase::O, entrada);
        case Donde::Clase::No: return EvaluarPartes(maquina, donde, Clase::No, entrada);
        case Donde::Clase::Compara: return EvaluarValores(maquina, donde, Clase::Compara, entrada);
        case Donde::Clase::Entre: return EvaluarValores(maquina, donde, Clase::Entre, entrada);
        case Donde::Clase::En: return EvaluarValores(maquina, donde, Clase::En, entrada);
        case Donde::Clase::Columna: {
            auto condicion = Hacer(Clase::Compara, donde.columna.nombre);
            condicion.operador = donde.operador;
            condicion.otraColumna = donde.otraColumna;
            return condicion;
        }
        case Donde::Clase::Rango: return LectorDeRango(donde.columna, maquina.Tabla(*donde.rango)).Leer();
        case Donde::Clase::Como: {
            auto condicion = Hacer(Clase::Como, donde.columna.nombre);
            condicion.valores.emplace_back(TextoPlano(CampoDe(maquina, donde.valores.front(), entrada)));
            const std::string escape = donde.escape ? TextoPlano(maquina.Resolver(*donde.escape)) : std::string();
            if (!escape.empty()) condicion.escape = escape.front();
            return condicion;
        }
        case Donde::Clase::EsNulo: break;
    }
    return Hacer(Clase::EsNulo, donde.columna.nombre);
}

}  // namespace qor::abap
