// Names and lists of Open SQL.
#include "abap/compile/database_conditions.h"
#include "base/text.h"

namespace qor::abap {

namespace {

ColumnaDeBase HacerColumna(const Componente& componente) { return {componente.nombre, componente.tipo}; }

}  // namespace

Operando LeerPalabra(Compilador& c, const Palabra& palabra) {
    Lectura una({&palabra, 1});
    Operando operando = c.LeerOperando(una);
    una.Fin();
    return operando;
}

Operando LeerDestinoDe(Compilador& c, const Palabra& palabra) {
    Lectura una({&palabra, 1});
    Operando operando = c.LeerDestino(una);
    una.Fin();
    return operando;
}

std::vector<Palabra> LeerLista(Lectura& l) {
    if (l.Actual().EsLiteral() || l.Actual().texto.front() != '(') l.Fallar("( was expected");
    std::vector<Palabra> valores;
    bool primera = true;
    while (true) {
        Palabra valor = l.Tomada();
        if (valor.EsLiteral()) {
            valores.push_back(valor);
            continue;
        }
        auto texto = valor.texto;
        if (primera) texto.remove_prefix(1);
        primera = false;
        const bool cierra = texto.ends_with(')') && (texto.find('(') == std::string_view::npos || texto.ends_with("))"));
        if (cierra) texto.remove_suffix(1);
        if (!texto.empty() && texto != ",") valores.push_back(ConTexto(valor, texto));
        if (cierra) break;
    }
    if (valores.empty()) l.Fallar("the brackets are empty");
    return valores;
}

TablaDeBase LeerTablaDeBase(Compilador& c, Lectura& l) {
    const Palabra& palabra = l.Actual();
    if (palabra.EsLiteral() || !EsNombreDeDato(palabra.texto)) l.NoSePractica();
    TablaDeBase tabla;
    tabla.nombre = Mayusculas(palabra.texto);
    tabla.estructura = &c.BuscarEnDiccionario(tabla.nombre);
    tabla.conocida = c.SuDiccionario().EsTabla(tabla.nombre);
    l.Avanzar();
    return tabla;
}

std::optional<ColumnaDeBase> BuscarColumna(Compilador& c, const TablaDeBase& tabla, const Palabra& palabra) {
    if (palabra.EsLiteral()) return std::nullopt;
    auto texto = palabra.texto;
    if (const auto lugar = texto.find('~'); lugar != std::string_view::npos) {
        const auto delante = ClaveDe(texto.substr(0, lugar));
        if (delante != ClaveDe(tabla.nombre) && (tabla.alias.empty() || delante != ClaveDe(tabla.alias))) return std::nullopt;
        texto.remove_prefix(lugar + 1);
    }
    const std::string nombre = Mayusculas(texto);
    if (const auto* componente = tabla.estructura->Buscar(nombre)) return HacerColumna(*componente);
    if (tabla.conocida || !EsNombreDeDato(nombre)) return std::nullopt;
    return ColumnaDeBase{nombre, c.SuDiccionario().BuscarCampo(tabla.nombre, nombre)};
}

ColumnaDeBase ExigirColumna(Compilador& c, const TablaDeBase& tabla, const Palabra& palabra) {
    if (auto columna = BuscarColumna(c, tabla, palabra)) return *columna;
    throw FallaDeSentencia{palabra, std::string(palabra.texto) + " is no column of " + tabla.nombre};
}

}  // namespace qor::abap
