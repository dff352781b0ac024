#include "abap/check/rules.h"

namespace qor::abap {

namespace {

using Clase = Falta::Clase;

// What a SELECT says of the block that it may open.
struct Seleccion {
    bool unica = false;         // SINGLE
    bool soloAgregados = true;  // one row, whatever there is
    bool dinamica = false;      // its columns are in a table
    bool todas = false;         // *
    bool conDestino = false;
    bool enTabla = false;
    bool porPaquetes = false;
    bool agrupada = false;
    bool contable = true;           // its columns are nothing but names and aggregates
    std::size_t columnas = 0;       // then
    std::size_t destinos = 0;       // of INTO (A, B); 0 for any other form
    const Palabra* into = nullptr;  // in front of that
    Palabra sobrante;               // the first destination that has no column
};

bool EsClausula(const Frase& f) {
    return f.EsAlguna({"INTO"_c, "APPENDING"_c, "FROM"_c, "WHERE"_c, "GROUP"_c, "HAVING"_c, "ORDER"_c, "UP"_c, "BYPASSING"_c,
                       "CLIENT"_c, "PACKAGE"_c, "CONNECTION"_c}) ||
           (f.Es("FOR"_c) && f.Es("ALL"_c, 1));
}

bool EsAgregado(Clave palabra) {
    switch (palabra) {
        case "COUNT("_c:
        case "MAX("_c:
        case "MIN("_c:
        case "SUM("_c:
        case "AVG("_c: return true;
        default: return false;
    }
}

bool LeerColumnas(Frase& f, Seleccion& s) {
    if (!f.Hay() || EsClausula(f)) return f.Falla(Clase::OperandoAusente);
    while (f.Hay() && !EsClausula(f)) {
        const Palabra& palabra = f.Actual();
        if (palabra.EsLiteral()) return f.Falla(Clase::NoEsSentencia);
        if (palabra.clave == "*"_c) s.todas = true;
        f.Avanzar();
        if (palabra.clave != ","_c) ++s.columnas;
        const bool agregado = EsAgregado(palabra.clave) || palabra.clave == "COUNT(*)"_c;
        s.contable = s.contable && (agregado || palabra.texto.find_first_of("(),*@+&:") == std::string_view::npos);
        if (EsAgregado(palabra.clave)) {
            while (f.Hay() && !f.Es(")"_c)) f.Avanzar();
            if (!f.Exige(")"_c)) return false;
        } else if (palabra.clave == "COUNT(*)"_c || palabra.clave == ","_c) {
            continue;
        } else if (palabra.texto.front() == '(') {
            s.dinamica = true;
        } else {
            s.soloAgregados = false;
        }
        if (f.Toma("AS"_c) && !f.Algo()) return false;
    }
    return true;
}

// (A, B): the brackets and commas may be glued to the names.
bool LeerDestinos(Frase& f, Seleccion& s) {
    s.into = &f.Palabras()[f.Lugar() - 1];
    bool cerrada = false;
    while (f.Hay() && !cerrada) {
        Palabra valor = f.Actual();
        if (valor.EsLiteral()) return f.Falla(Clase::NoEsSentencia);
        f.Avanzar();
        if (valor.texto.front() == '(') valor.Acortar(1);
        cerrada = !valor.texto.empty() && valor.texto.back() == ')' && valor.texto.find('(') == std::string_view::npos;
        if (cerrada || valor.texto.ends_with("))")) {
            cerrada = true;
            valor.texto.remove_suffix(1);
        }
        if (valor.texto.empty() || valor.texto == ",") continue;
        const auto base = valor.texto.substr(0, valor.texto.find_first_of("-+(["));
        valor.base = ClaveDe(base);
        valor.largoBase = static_cast<std::uint32_t>(base.size());
        f.Revisar(valor);
        f.RevisarDestino(valor);
        if (++s.destinos == s.columnas + 1) s.sobrante = valor;
    }
    return cerrada || f.Falla(Clase::OperandoAusente);
}

bool LeerDestino(Frase& f, Seleccion& s) {
    s.conDestino = true;
    if (f.Toma("CORRESPONDING"_c) && !f.Exige("FIELDS"_c, "OF"_c)) return false;
    if (f.Toma("TABLE"_c)) {
        s.enTabla = true;
        return f.Variable();
    }
    if (f.Hay() && !f.Actual().EsLiteral() && f.Actual().texto.front() == '(') return LeerDestinos(f, s);
    return f.Destino();
}

bool LeerOrigen(Frase& f, Seleccion& s) {
    if (!f.Hay()) return f.Falla(Clase::OperandoAusente);
    const Palabra tabla = f.Actual();
    if (tabla.EsLiteral()) return f.Falla(Clase::NoEsSentencia);
    if (EsClausula(f)) return f.Falla(Clase::OperandoAusente);
    f.Avanzar();
    bool sola = tabla.texto.front() != '(';
    if (f.Toma("AS"_c) && !f.Algo()) return false;
    if (!sola || f.EsAlguna({"INNER"_c, "LEFT"_c, "JOIN"_c, "RIGHT"_c})) {
        sola = false;
        while (f.Hay() && !EsClausula(f)) f.Avanzar();
    }
    bool destino = s.conDestino;
    for (std::size_t n = 0; f.Hay(n); ++n) destino = destino || f.EsAlguna({"INTO"_c, "APPENDING"_c}, n);
    if (sola && s.todas && !destino) f.Revisar(tabla);  // its work area is the one of TABLES
    return true;
}

bool LeerLista(Frase& f) {
    if (!f.Hay() || EsClausula(f)) return f.Falla(Clase::OperandoAusente);
    while (f.Hay() && !EsClausula(f)) f.Avanzar();
    return true;
}

bool LeerClausula(Frase& f, Seleccion& s) {
    if (f.Toma("INTO"_c) || f.Toma("APPENDING"_c)) return LeerDestino(f, s);
    if (f.Toma("FROM"_c)) return LeerOrigen(f, s);
    if (f.Toma("WHERE"_c)) return f.Condicion(ClaseDeCondicion::DeBase);
    if (f.Toma("FOR"_c)) return f.Exige("ALL"_c) && f.Exige("ENTRIES"_c, "IN"_c) && f.Variable();
    if (f.Toma("GROUP"_c)) {
        s.agrupada = true;
        return f.Exige("BY"_c) && LeerLista(f);
    }
    if (f.Toma("HAVING"_c)) return LeerLista(f);
    if (f.Toma("ORDER"_c)) return f.Exige("BY"_c) && LeerLista(f);
    if (f.Toma("UP"_c)) return f.Exige("TO"_c) && f.Operando() && f.Exige("ROWS"_c);
    if (f.Toma("BYPASSING"_c)) return f.Exige("BUFFER"_c);
    if (f.Toma("CLIENT"_c)) return f.Exige("SPECIFIED"_c);
    if (f.Toma("CONNECTION"_c)) return f.Algo();
    if (f.Toma("PACKAGE"_c)) {
        s.porPaquetes = true;
        return f.Exige("SIZE"_c) && f.Operando();
    }
    return f.Falla(Clase::PalabrasDeMas);
}

// As many columns as destinations.
void RevisarCantidad(Frase& f, const Seleccion& s) {
    if (!s.contable || s.destinos == 0 || s.destinos == s.columnas) return;
    if (s.destinos < s.columnas) return f.Decir(Clase::OperandoAusente, *s.into, s.into->texto);
    f.Decir(Clase::PalabrasDeMas, s.sobrante, s.sobrante.texto);
}

bool LeerSeleccion(Frase& f, Seleccion& s) {
    if (f.Toma("SINGLE"_c)) {
        s.unica = true;
        if (f.Toma("FOR"_c) && !f.Exige("UPDATE"_c)) return false;
    }
    f.Toma("DISTINCT"_c);
    if (!LeerColumnas(f, s)) return false;
    bool conOrigen = false;
    while (f.Hay()) {
        conOrigen = conOrigen || f.Es("FROM"_c);
        if (!LeerClausula(f, s)) return false;
    }
    return conOrigen || f.Falla(Clase::OperandoAusente);
}

}  // namespace

bool LeerSELECT(Frase& f) {
    Seleccion s;
    const bool bien = LeerSeleccion(f, s);
    if (bien) RevisarCantidad(f, s);
    const bool sinBloque = s.unica || (s.enTabla && !s.porPaquetes) || (s.soloAgregados && !s.agrupada && !s.dinamica && !s.todas);
    if (!bien || s.dinamica) {
        f.Entorno().bloques.Abrir(f.Primera(), "ENDSELECT"_c, true);
    } else if (!sinBloque) {
        f.Entorno().bloques.Abrir(f.Primera(), "ENDSELECT"_c);
    }
    return bien;
}

}  // namespace qor::abap
