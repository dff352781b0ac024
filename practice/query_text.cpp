#include "practice/query_text.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "abap/short_dump.h"

namespace qor {

namespace {

using abap::CondicionDeBase;
using abap::Tipo;
using abap::ValorDeBase;

constexpr std::size_t muchosValores = 1000;  // more of them become one list, as a text of JSON

std::string EnJson(const std::vector<ValorDeBase>& valores) {
    constexpr const char* cifras = "0123456789abcdef";
    std::string texto = "[";
    for (const auto& valor : valores) {
        if (texto.size() > 1) texto += ',';
        if (std::holds_alternative<std::int64_t>(valor) || std::holds_alternative<double>(valor)) {
            texto += TextoDeValor(valor);
            continue;
        }
        texto += '"';
        const auto* const letras = std::get_if<std::string>(&valor);
        for (const char c : letras == nullptr ? std::string{} : *letras) {
            if (c == '"' || c == '\\') texto += '\\';
            if (static_cast<unsigned char>(c) < 0x20) {
                texto += "\\u00";
                texto += cifras[c >> 4];
                texto += cifras[c & 0xF];
            } else {
                texto += c;
            }
        }
        texto += '"';
    }
    return texto + "]";
}

class Escritor {
public:
    Escritor(const DefinicionDeTabla& tabla, TextoDeConsulta& salida) : tabla_(tabla), salida_(salida) {}

    void Mas(std::string_view texto) { salida_.texto += texto; }

    std::string Columna(std::string_view nombre) const {
        if (tabla_.Columna(nombre) < 0) {
            throw abap::Volcado("SAPSQL_INVALID_FIELDNAME",
                                "The table " + tabla_.estructura.nombre + " has no column " + std::string(nombre));
        }
        return Entrecomillado(nombre);
    }

    const abap::TipoDeCampo& TipoDeColumna(std::string_view nombre) const {
        return tabla_.estructura.componentes[static_cast<std::size_t>(tabla_.Columna(nombre))].tipo;
    }

    void Valor(const ValorDeBase& valor) {
        Mas("?");
        salida_.valores.push_back(&valor);
    }

    void ValorPropio(ValorDeBase valor) {
        salida_.propios.push_back(std::make_unique<ValorDeBase>(std::move(valor)));
        Valor(*salida_.propios.back());
    }

    void Donde(const CondicionDeBase& donde, const std::string* cliente) {
        const bool conCliente = cliente != nullptr && tabla_.cliente >= 0;
        const bool todas = donde.clase == CondicionDeBase::Clase::Y && donde.partes.empty();
        if (!conCliente && todas) return;
        Mas(" WHERE ");
        if (conCliente) {
            Mas(Entrecomillado(tabla_.estructura.componentes[static_cast<std::size_t>(tabla_.cliente)].nombre) + " = ");
            ValorPropio(*cliente);
            if (todas) return;
            Mas(" AND ");
        }
        Condicion(donde);
    }

    // The order in which rows come by themselves.
    void OrdenPropio(bool primero) {
        bool hay = false;
        for (const auto& columna : tabla_.estructura.componentes) {
            if (!columna.clave) continue;
            Mas(primero && !hay ? " ORDER BY " : ", ");
            Mas(Entrecomillado(columna.nombre));
            hay = true;
        }
        if (!hay && !tabla_.vista) Mas(primero ? " ORDER BY rowid" : ", rowid");
    }

private:
    // Brackets are put around halves, so that many parts don't lie deep in one another.
    void Partes(std::span<const CondicionDeBase> partes, std::string_view entre) {
        if (partes.size() == 1) return Condicion(partes.front());
        Mas("(");
        Partes(partes.first(partes.size() / 2), entre);
        Mas(entre);
        Partes(partes.subspan(partes.size() / 2), entre);
        Mas(")");
    }

    void Condicion(const CondicionDeBase& donde) {
        using Clase = CondicionDeBase::Clase;
        switch (donde.clase) {
            case Clase::Y: return donde.partes.empty() ? Mas("1") : Partes(donde.partes, " AND ");
            case Clase::O: return donde.partes.empty() ? Mas("0") : Partes(donde.partes, " OR ");
            case Clase::No:
                Mas("NOT (");
                Condicion(donde.partes.at(0));
                return Mas(")");
            case Clase::Compara: return Comparacion(donde);
            case Clase::Entre:
                Mas("(" + Columna(donde.columna) + " BETWEEN ");
                Valor(donde.valores.at(0));
                Mas(" AND ");
                Valor(donde.valores.at(1));
                return Mas(")");
            case Clase::En: return Lista(donde);
            case Clase::Como: {
                Mas(Columna(donde.columna) + " GLOB ");
                const auto* const patron = std::get_if<std::string>(&donde.valores.at(0));
                return ValorPropio(PatronDeGlob(patron == nullptr ? std::string_view{} : *patron, donde.escape));
            }
            case Clase::EsNulo: return Mas(Columna(donde.columna) + " IS NULL");
        }
    }

    void Comparacion(const CondicionDeBase& donde) {
        constexpr std::array operadores = {"=", "<>", "<", "<=", ">", ">="};
        if (std::find(operadores.begin(), operadores.end(), donde.operador) == operadores.end()) {
            throw abap::Volcado("SAPSQL_WHERE_ILLEGAL_OPERATOR", "There is no comparison \"" + donde.operador + "\"");
        }
        Mas(Columna(donde.columna) + " " + donde.operador + " ");
        if (donde.otraColumna.empty()) return Valor(donde.valores.at(0));
        Mas(Columna(donde.otraColumna));
    }

    void Lista(const CondicionDeBase& donde) {
        Mas(Columna(donde.columna) + " IN (");
        if (donde.valores.size() > muchosValores) {
            Mas("SELECT value FROM json_each(");
            ValorPropio(EnJson(donde.valores));
            return Mas("))");
        }
        for (std::size_t i = 0; i < donde.valores.size(); ++i) {
            if (i > 0) Mas(",");
            Valor(donde.valores[i]);
        }
        Mas(")");
    }

    const DefinicionDeTabla& tabla_;
    TextoDeConsulta& salida_;
};

std::string ColumnaPedida(const Escritor& escritor, const abap::ColumnaPedida& pedida) {
    if (pedida.funcion.empty()) return escritor.Columna(pedida.columna);
    const std::string columna = pedida.columna == "*" ? "*" : escritor.Columna(pedida.columna);
    const bool decimal = pedida.columna != "*" && ClaseDe(escritor.TipoDeColumna(pedida.columna)) == ClaseDeColumna::Decimal;
    const std::string funcion = pedida.funcion == "SUM" && decimal ? "QOR_SUM" : pedida.funcion;
    return funcion + "(" + (pedida.distinta ? "DISTINCT " : "") + columna + ")";
}

// What an assignment puts into its column, with "?" for its value.
std::string ValorNuevo(const std::string& columna, const abap::TipoDeCampo& tipo, char operacion) {
    if (operacion != '+' && operacion != '-') return "?";
    switch (ClaseDe(tipo)) {
        case ClaseDeColumna::Decimal: return (operacion == '+' ? "QOR_ADD(" : "QOR_SUBTRACT(") + columna + ", ?)";
        case ClaseDeColumna::Texto:  // digits
            return "printf('%0" + std::to_string(tipo.largo) + "d', CAST(" + columna + " AS INTEGER) " + operacion + " ?)";
        default: return columna + " " + operacion + " ?";
    }
}

void SeparadasPorComas(std::string& texto, const std::vector<std::string>& partes, std::string_view entre = ", ") {
    for (std::size_t i = 0; i < partes.size(); ++i) {
        if (i > 0) texto += entre;
        texto += partes[i];
    }
}

std::vector<std::string> Iguales(const DefinicionDeTabla& tabla, bool clave) {
    std::vector<std::string> partes;
    for (const auto& columna : tabla.estructura.componentes) {
        if (columna.clave == clave) partes.push_back(Entrecomillado(columna.nombre) + " = ?");
    }
    return partes;
}

}  // namespace

ClaseDeColumna ClaseDe(const abap::TipoDeCampo& tipo) {
    switch (tipo.tipo) {
        case Tipo::I: return ClaseDeColumna::Entero;
        case Tipo::X: return tipo.largo <= 8 ? ClaseDeColumna::Entero : ClaseDeColumna::Texto;
        case Tipo::F: return ClaseDeColumna::Flotante;
        case Tipo::P: return ClaseDeColumna::Decimal;
        default: return ClaseDeColumna::Texto;
    }
}

std::string TextoDeValor(const ValorDeBase& valor) {
    if (const auto* const texto = std::get_if<std::string>(&valor)) return *texto;
    if (const auto* const entero = std::get_if<std::int64_t>(&valor)) return std::to_string(*entero);
    if (const auto* const flotante = std::get_if<double>(&valor)) {
        std::array<char, 32> cifras{};
        return {cifras.data(), std::to_chars(cifras.data(), cifras.data() + cifras.size(), *flotante).ptr};
    }
    return {};
}

void LigarValor(Sentencia& sentencia, int lugar, const ValorDeBase& valor, const abap::TipoDeCampo& tipo) {
    const auto clase = ClaseDe(tipo);
    if (const auto* const texto = std::get_if<std::string>(&valor)) return sentencia.LigarTexto(lugar, *texto);
    if (const auto* const flotante = std::get_if<double>(&valor)) return sentencia.Ligar(lugar, *flotante);
    const auto* const entero = std::get_if<std::int64_t>(&valor);
    if (clase == ClaseDeColumna::Entero) return sentencia.Ligar(lugar, entero == nullptr ? 0 : *entero);
    if (clase == ClaseDeColumna::Flotante) return sentencia.Ligar(lugar, entero == nullptr ? 0.0 : static_cast<double>(*entero));
    if (entero != nullptr) return sentencia.LigarTexto(lugar, std::to_string(*entero), true);
    if (clase == ClaseDeColumna::Decimal) return sentencia.LigarTexto(lugar, "0");
    const bool cifras = tipo.tipo == Tipo::N || tipo.tipo == Tipo::D || tipo.tipo == Tipo::T || tipo.tipo == Tipo::X;
    const std::size_t largo = tipo.tipo == Tipo::X ? tipo.largo * std::size_t{2} : tipo.largo;
    sentencia.LigarTexto(lugar, cifras ? std::string(largo, '0') : std::string{}, true);
}

void TextoDeConsulta::Ligar(Sentencia& sentencia, bool copia) const {
    for (std::size_t i = 0; i < valores.size(); ++i) {
        const int lugar = static_cast<int>(i);
        if (const auto* const texto_ = std::get_if<std::string>(valores[i])) {
            sentencia.LigarTexto(lugar, *texto_, copia);
        } else if (const auto* const entero = std::get_if<std::int64_t>(valores[i])) {
            sentencia.Ligar(lugar, *entero);
        } else if (const auto* const flotante = std::get_if<double>(valores[i])) {
            sentencia.Ligar(lugar, *flotante);
        } else {
            sentencia.LigarNada(lugar);
        }
    }
}

TextoDeConsulta EscribirSeleccion(const DefinicionDeTabla& tabla, const std::string& lugar, const abap::ConsultaDeBase& consulta,
                                  const std::string& cliente) {
    TextoDeConsulta salida;
    Escritor escritor(tabla, salida);
    escritor.Mas(consulta.distinta ? "SELECT DISTINCT " : "SELECT ");
    std::vector<std::string> columnas;
    bool agregada = !consulta.grupo.empty();
    for (const auto& pedida : consulta.columnas) {
        columnas.push_back(ColumnaPedida(escritor, pedida));
        agregada = agregada || !pedida.funcion.empty();
    }
    if (consulta.columnas.empty()) {
        for (const auto& columna : tabla.estructura.componentes) columnas.push_back(Entrecomillado(columna.nombre));
    }
    SeparadasPorComas(salida.texto, columnas);
    escritor.Mas(" FROM " + lugar);
    escritor.Donde(consulta.donde, consulta.delCliente ? &cliente : nullptr);
    std::vector<std::string> grupo;
    for (const auto& columna : consulta.grupo) grupo.push_back(escritor.Columna(columna));
    if (!grupo.empty()) {
        escritor.Mas(" GROUP BY ");
        SeparadasPorComas(salida.texto, grupo);
    }
    std::vector<std::string> orden;
    for (const auto& pedido : consulta.orden) {
        orden.push_back(escritor.Columna(pedido.columna) + (pedido.descendente ? " DESC" : ""));
    }
    if (orden.empty()) orden = grupo;
    if (!orden.empty()) {
        escritor.Mas(" ORDER BY ");
        SeparadasPorComas(salida.texto, orden);
    }
    if (!agregada && !consulta.distinta) escritor.OrdenPropio(orden.empty());
    if (consulta.limite > 0) escritor.Mas(" LIMIT " + std::to_string(consulta.limite));
    return salida;
}

TextoDeConsulta EscribirActualizacion(const DefinicionDeTabla& tabla, const std::string& lugar,
                                      std::span<const abap::AsignacionDeBase> cambios, const CondicionDeBase& donde,
                                      const std::string& cliente) {
    TextoDeConsulta salida;
    Escritor escritor(tabla, salida);
    escritor.Mas("UPDATE " + lugar + " SET ");
    for (std::size_t i = 0; i < cambios.size(); ++i) {
        const std::string columna = escritor.Columna(cambios[i].columna);
        if (i > 0) escritor.Mas(", ");
        escritor.Mas(columna + " = " + ValorNuevo(columna, escritor.TipoDeColumna(cambios[i].columna), cambios[i].operacion));
        salida.valores.push_back(&cambios[i].valor);
    }
    escritor.Donde(donde, &cliente);
    return salida;
}

TextoDeConsulta EscribirBorrado(const DefinicionDeTabla& tabla, const std::string& lugar, const CondicionDeBase& donde,
                                const std::string& cliente) {
    TextoDeConsulta salida;
    Escritor escritor(tabla, salida);
    escritor.Mas("DELETE FROM " + lugar);
    escritor.Donde(donde, &cliente);
    return salida;
}

std::string EscribirCreacion(const DefinicionDeTabla& tabla, const std::string& lugar) {
    std::string texto = "CREATE TABLE " + lugar + " (";
    std::vector<std::string> partes;
    std::vector<std::string> clave;
    for (const auto& columna : tabla.estructura.componentes) {
        const std::string nombre = Entrecomillado(columna.nombre);
        switch (ClaseDe(columna.tipo)) {
            case ClaseDeColumna::Texto: partes.push_back(nombre + " TEXT NOT NULL"); break;
            case ClaseDeColumna::Decimal: partes.push_back(nombre + " TEXT NOT NULL COLLATE QOR_DECIMAL"); break;
            case ClaseDeColumna::Entero: partes.push_back(nombre + " INTEGER NOT NULL"); break;
            case ClaseDeColumna::Flotante: partes.push_back(nombre + " REAL NOT NULL"); break;
        }
        if (columna.clave) clave.push_back(nombre);
    }
    SeparadasPorComas(texto, partes);
    if (clave.empty()) return texto + ")";
    texto += ", PRIMARY KEY (";
    SeparadasPorComas(texto, clave);
    return texto + ")) WITHOUT ROWID";
}

std::string EscribirInsercion(const DefinicionDeTabla& tabla, const std::string& lugar) {
    std::string texto = "INSERT INTO " + lugar + " VALUES (";
    SeparadasPorComas(texto, std::vector<std::string>(tabla.estructura.componentes.size(), "?"));
    return texto + ") ON CONFLICT DO NOTHING";
}

std::string EscribirActualizacionDeFila(const DefinicionDeTabla& tabla, const std::string& lugar) {
    std::string texto = "UPDATE " + lugar + " SET ";
    SeparadasPorComas(texto, Iguales(tabla, false));
    texto += " WHERE ";
    SeparadasPorComas(texto, Iguales(tabla, true), " AND ");
    return texto;
}

std::string EscribirBorradoDeFila(const DefinicionDeTabla& tabla, const std::string& lugar) {
    std::string texto = "DELETE FROM " + lugar + " WHERE ";
    SeparadasPorComas(texto, Iguales(tabla, true), " AND ");
    return texto;
}

std::string PatronDeGlob(std::string_view patron, char escape) {
    std::string glob;
    for (std::size_t i = 0; i < patron.size(); ++i) {
        char c = patron[i];
        const bool literal = escape != 0 && c == escape && i + 1 < patron.size();
        if (literal) c = patron[++i];
        if (!literal && c == '%') {
            glob += '*';
        } else if (!literal && c == '_') {
            glob += '?';
        } else if (c == '*' || c == '?' || c == '[') {
            glob += '[';
            glob += c;
            glob += ']';
        } else {
            glob += c;
        }
    }
    return glob;
}

}  // namespace qor
