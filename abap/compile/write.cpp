// WRITE and ULINE.
#include <algorithm>

#include "abap/compile/list_statements.h"
#include "abap/values/conversion.h"
#include "base/text.h"

namespace qor::abap {

namespace {

constexpr int decimalesMaximos = 14;

// Where an output goes: /COLUMN(WIDTH).
struct Sitio {
    bool lineaNueva = false;
    std::optional<Operando> columna;
    std::optional<Operando> ancho;

    void Ir(Maquina& maquina) const {
        if (lineaNueva) maquina.Salida().NuevaLinea();
        if (columna) maquina.Salida().Posicion(static_cast<int>(maquina.Entero(*columna)));
    }
};

// How a value is shown; what only the run knows is put in then.
struct Formato {
    FormatoDeSalida fijo;
    std::optional<Operando> decimales;
    std::optional<Operando> mascara;

    FormatoDeSalida Completo(Maquina& maquina) const {
        FormatoDeSalida formato = fijo;
        if (decimales)
            formato.decimales = static_cast<int>(std::clamp<std::int64_t>(maquina.Entero(*decimales), 0, decimalesMaximos));
        if (mascara) formato.mascara = std::string(SinBlancosDetras(maquina.Resolver(*mascara).Texto()));
        return formato;
    }
    bool EsFijo() const { return !decimales && !mascara; }
};

class Escritura : public Instruccion {
public:
    Sitio sitio;
    std::optional<Operando> valor;
    Formato formato;
    bool conHueco = true;

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        sitio.Ir(maquina);
        if (!valor) return siguiente;
        const Campo campo = maquina.Resolver(*valor);
        // No output is wider than a line.
        const auto pedido = sitio.ancho ? std::clamp<std::int64_t>(maquina.Entero(*sitio.ancho), 0, maquina.Salida().Ancho()) : 0;
        const int ancho = sitio.ancho ? static_cast<int>(pedido) : AnchoDeSalida(campo);
        const auto texto = TextoDeSalida(campo, ancho, formato.EsFijo() ? formato.fijo : formato.Completo(maquina));
        maquina.Salida().Escribir(texto, conHueco);
        return siguiente;
    }
};

class EscrituraEn : public Instruccion {
public:
    Operando valor;
    Operando destino;
    Formato formato;

    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        EscribirEn(maquina.Resolver(valor), maquina.Destino(destino), formato.EsFijo() ? formato.fijo : formato.Completo(maquina));
        return siguiente;
    }
};

class Rayado : public Instruccion {
public:
    explicit Rayado(Sitio sitio) : sitio_(std::move(sitio)) {}
    std::size_t Ejecutar(Maquina& maquina, std::size_t siguiente) const override {
        Lista& lista = maquina.Salida();
        if (!sitio_.lineaNueva && !sitio_.columna && !sitio_.ancho) {
            lista.RayaEntera();
            return siguiente;
        }
        sitio_.Ir(maquina);
        const int ancho = sitio_.ancho ? static_cast<int>(maquina.Entero(*sitio_.ancho)) : lista.Ancho();
        lista.Raya(lista.Columna(), ancho);
        return siguiente;
    }

private:
    Sitio sitio_;
};

bool EsFormatoDeFecha(Clave clave) {
    switch (clave) {
        case "DD/MM/YY"_c:
        case "MM/DD/YY"_c:
        case "DD/MM/YYYY"_c:
        case "MM/DD/YYYY"_c:
        case "DDMMYY"_c:
        case "MMDDYY"_c:
        case "YYMMDD"_c: return true;
        default: return false;
    }
}

bool EsAdicion(const Lectura& l, std::size_t n) {
    if (!l.Hay(n)) return true;
    return EsFormatoDeFecha(l.Mirar(n).clave) ||
           l.EsAlguna({"NO-GAP"_c,   "NO-ZERO"_c,  "NO-SIGN"_c, "NO-GROUPING"_c, "LEFT-JUSTIFIED"_c, "RIGHT-JUSTIFIED"_c,
                       "CENTERED"_c, "DECIMALS"_c, "USING"_c,   "TO"_c,          "COLOR"_c,          "INTENSIFIED"_c,
                       "INVERSE"_c,  "HOTSPOT"_c,  "INPUT"_c,   "RESET"_c,       "FRAMES"_c,         "AS"_c,
                       "UNDER"_c,    "CURRENCY"_c, "UNIT"_c,    "ROUND"_c,       "EXPONENT"_c,       "QUICKINFO"_c},
                      n);
}

// A part of a place: a number, or behind AT a field.
Operando LeerMedida(Compilador& c, const Lectura& l, const Palabra& palabra, std::string_view texto, bool conNombres) {
    if (EsEntero(texto)) return c.Numero(texto);
    auto operando = conNombres ? c.BuscarOperando(ConTexto(palabra, texto)) : std::nullopt;
    if (!operando) l.Fallar("this is no place in the list");
    return *operando;
}

Sitio LeerPartes(Compilador& c, Lectura& l, bool conNombres) {
    Sitio sitio;
    const Palabra palabra = l.Actual();
    auto texto = palabra.texto;
    if (texto.starts_with('/')) {
        sitio.lineaNueva = true;
        texto.remove_prefix(1);
    }
    if (texto.ends_with(')')) {
        const auto parentesis = texto.find('(');
        if (parentesis == std::string_view::npos) l.NoSePractica();
        const auto ancho = texto.substr(parentesis + 1, texto.size() - parentesis - 2);
        if (ancho.empty()) l.NoSePractica();
        sitio.ancho = LeerMedida(c, l, palabra, ancho, conNombres);
        texto = texto.substr(0, parentesis);
    }
    if (!texto.empty()) sitio.columna = LeerMedida(c, l, palabra, texto, conNombres);
    l.Avanzar();
    return sitio;
}

// A word that begins with a digit or a bracket and can't be a value, or a number with a value behind it.
bool EsSitio(const Lectura& l) {
    if (!l.Hay() || l.Actual().EsLiteral()) return false;
    const auto texto = l.Actual().texto;
    const auto parentesis = texto.find('(');
    if (parentesis == std::string_view::npos) return EsEntero(texto) && !EsAdicion(l, 1);
    const auto ancho = texto.substr(parentesis + 1, texto.size() - parentesis - 2);
    return texto.ends_with(')') && EsEntero(ancho) && (parentesis == 0 || EsEntero(texto.substr(0, parentesis)));
}

Sitio LeerSitio(Compilador& c, Lectura& l) {
    if (l.Es("AT"_c) && l.Hay(1)) {
        l.Avanzar();
        return LeerPartes(c, l, true);
    }
    Sitio sitio;
    if (l.Hay() && !l.Actual().EsLiteral() && l.Actual().texto.starts_with('/')) sitio = LeerPartes(c, l, false);
    if (sitio.columna || sitio.ancho || !EsSitio(l)) return sitio;
    Sitio resto = LeerPartes(c, l, false);
    resto.lineaNueva = sitio.lineaNueva;
    return resto;
}

bool TomarAjuste(Lectura& l, FormatoDeSalida& formato) {
    using Ajuste = FormatoDeSalida::Ajuste;
    if (l.Toma("LEFT-JUSTIFIED"_c)) {
        formato.ajuste = Ajuste::Izquierda;
    } else if (l.Toma("RIGHT-JUSTIFIED"_c)) {
        formato.ajuste = Ajuste::Derecha;
    } else if (l.Toma("CENTERED"_c)) {
        formato.ajuste = Ajuste::Centro;
    } else {
        return false;
    }
    return true;
}

bool TomarFormato(Compilador& c, Lectura& l, Formato& formato) {
    auto& fijo = formato.fijo;
    if (l.Toma("NO-ZERO"_c)) return fijo.sinCero = true;
    if (l.Toma("NO-SIGN"_c)) return fijo.sinSigno = true;
    if (l.Toma("NO-GROUPING"_c)) return fijo.sinGrupos = true;
    if (TomarAjuste(l, fijo)) return true;
    if (l.Toma("DECIMALS"_c)) {
        formato.decimales = c.LeerOperando(l);
        return true;
    }
    if (l.Toma("USING"_c)) {
        const bool sin = l.Toma("NO"_c);
        l.Exige("EDIT"_c, "EDIT MASK");
        l.Exige("MASK"_c, "MASK");
        if (!sin) formato.mascara = c.LeerOperando(l);
        return true;
    }
    if (!l.Hay() || !EsFormatoDeFecha(l.Actual().clave)) return false;
    fijo.mascara = Mayusculas(l.Tomada().texto);
    return true;
}

}  // namespace

void CompilarWRITE(Compilador& c, Lectura& l) {
    Sitio sitio = LeerSitio(c, l);
    std::optional<Operando> valor;
    const bool hayValor = !EsAdicion(l, 0) || (l.Hay() && c.BuscarNombre(l.Actual().base) != nullptr);
    if (hayValor) {
        valor = c.LeerOperando(l);
    } else if (!sitio.lineaNueva) {
        l.Fallar("a value was expected");
    }
    Formato formato;
    std::optional<Operando> destino;
    bool conHueco = true;
    while (l.Hay()) {
        if (!destino && l.Toma("TO"_c)) {
            destino = c.LeerDestino(l);
        } else if (l.Toma("NO-GAP"_c)) {
            conHueco = false;
        } else if (l.Toma("AS"_c)) {
            if (!l.EsAlguna({"CHECKBOX"_c, "ICON"_c, "SYMBOL"_c, "LINE"_c})) l.NoSePractica();
            l.Avanzar();
        } else if (l.Toma("QUICKINFO"_c)) {
            c.LeerOperando(l);
        } else if (!TomarFormato(c, l, formato) && !TomarApariencia(c, l)) {
            l.NoSePractica();
        }
    }
    if (destino) {
        if (!valor || sitio.lineaNueva || sitio.columna || sitio.ancho) l.Fallar("WRITE TO has no place in the list");
        auto& escritura = c.Emitir<EscrituraEn>();
        escritura.valor = std::move(*valor);
        escritura.destino = std::move(*destino);
        escritura.formato = std::move(formato);
        return;
    }
    auto& escritura = c.Emitir<Escritura>();
    escritura.sitio = std::move(sitio);
    escritura.valor = std::move(valor);
    escritura.formato = std::move(formato);
    escritura.conHueco = conHueco;
}

void CompilarULINE(Compilador& c, Lectura& l) {
    Sitio sitio;
    if (l.Hay()) {
        const bool conNombres = l.Toma("AT"_c);
        sitio = LeerPartes(c, l, conNombres);
        if (sitio.lineaNueva && !sitio.columna && !sitio.ancho && EsSitio(l)) {
            sitio = LeerPartes(c, l, false);
            sitio.lineaNueva = true;
        }
    }
    while (l.Hay()) {
        if (!l.Toma("NO-GAP"_c) && !TomarApariencia(c, l)) l.NoSePractica();
    }
    c.Emitir<Rayado>(std::move(sitio));
}

}  // namespace qor::abap
