#include <charconv>

#include "abap/compile/compiler.h"
#include "abap/values/conversion.h"
#include "abap/values/field_part.h"
#include "base/text.h"

// Names, literals and numbers of a statement.
namespace qor::abap {

namespace {

// The text of a literal: apostrophes at both ends, two of them for one inside. The number of a text element may stand behind it.
std::string TextoDeLiteral(std::string_view palabra) {
    std::string texto;
    palabra = palabra.substr(0, palabra.rfind('\'') + 1);
    for (std::size_t i = 1; i + 1 < palabra.size(); ++i) {
        texto += palabra[i];
        if (palabra[i] == '\'') ++i;
    }
    return texto;
}

bool EsConstanteDeTexto(std::string_view palabra) { return palabra.size() == 8 && IgualesSinCaja(palabra.substr(0, 5), "TEXT-"); }

// The part of a field that ends a reference with a fixed offset and length.
void Cortar(Operando& operando, const Palabra& palabra, std::uint32_t desde, std::optional<std::uint32_t> largo) {
    const std::uint32_t todo = operando.campo.largo;
    if (desde >= todo || (largo && (*largo == 0 || desde + *largo > todo))) {
        throw FallaDeSentencia{palabra, "offset and length lead out of the field, which has " + std::to_string(todo)};
    }
    operando.lugar += desde;
    if (operando.base == Base::Literal) operando.campo.datos += desde;
    operando.campo.largo = largo.value_or(todo - desde);
    operando.estructura = nullptr;
    operando.campo.tipo = TipoDeParte(operando.campo.tipo);
}

bool SePuedeCortar(Tipo tipo) { return tipo != Tipo::I && tipo != Tipo::P && tipo != Tipo::F; }

}  // namespace

Operando Compilador::Literal(std::string_view texto) {
    const std::string& suyo = programa_->textos.emplace_back(texto.empty() ? " " : texto);
    Operando operando;
    operando.constante = true;
    operando.campo = CampoDe(suyo);
    return operando;
}

Operando Compilador::Numero(std::string_view digitos) {
    Operando operando;
    operando.constante = true;
    std::int32_t valor = 0;
    const auto sinSigno = digitos.starts_with('+') ? digitos.substr(1) : digitos;
    const auto [fin, error] = std::from_chars(sinSigno.data(), sinSigno.data() + sinSigno.size(), valor);
    const bool entero = error == std::errc() && fin == sinSigno.data() + sinSigno.size();
    std::string& bytes = programa_->textos.emplace_back(entero ? sizeof valor : 16, '\0');
    operando.campo = CampoDe(bytes);
    operando.campo.tipo = entero ? Tipo::I : Tipo::P;
    operando.campo.soloLectura = false;
    if (entero)
        std::memcpy(bytes.data(), &valor, sizeof valor);
    else
        Mover(CampoDe(sinSigno), operando.campo);
    operando.campo.soloLectura = true;
    return operando;
}

Nombrado* Compilador::BuscarNombre(Clave clave) const {
    auto buscar = [clave](auto& nombres) -> Nombrado* {
        const auto donde = nombres.find(clave);
        return donde == nombres.end() ? nullptr : const_cast<Nombrado*>(&donde->second);
    };
    if (Nombrado* local = enForma_ ? buscar(locales_) : nullptr) return local;
    return buscar(globales_);
}

Operando Compilador::ComponenteDe(const Operando& estructura, const Componente& componente) {
    Operando operando = estructura;
    operando.lugar += componente.desplazamiento;
    operando.campo.largo = componente.tipo.largo;
    operando.campo.tipo = componente.tipo.tipo;
    operando.campo.decimales = componente.tipo.decimales;
    operando.estructura = componente.tipo.estructura;
    operando.dinamico = false;
    return operando;
}

Componente Compilador::ComponenteDe(const Palabra& palabra, const TipoDeCampo& linea) {
    const std::string nombre = Mayusculas(palabra.texto);
    if (nombre == "TABLE_LINE") return {nombre, 0, linea, false};
    if (linea.estructura == nullptr) throw FallaDeSentencia{palabra, "the line of the table has no components that are known"};
    const Estructura* estructura = linea.estructura;
    std::uint32_t lugar = 0;
    std::string_view resto = nombre;
    for (;;) {
        const auto corte = resto.find('-');
        const Componente* componente = estructura->Buscar(resto.substr(0, corte));
        if (componente == nullptr) throw FallaDeSentencia{palabra, "the line has no component " + std::string(palabra.texto)};
        lugar += componente->desplazamiento;
        if (corte == std::string_view::npos) return {componente->nombre, lugar, componente->tipo, componente->clave};
        estructura = componente->tipo.estructura;
        if (estructura == nullptr) throw FallaDeSentencia{palabra, componente->nombre + " has no components"};
        resto.remove_prefix(corte + 1);
    }
}

std::optional<Operando> Compilador::BuscarOperando(const Palabra& palabra) {
    if (palabra.EsLiteral()) return Literal(TextoDeLiteral(palabra.texto));
    if (EsNumero(palabra.texto)) return Numero(palabra.texto);
    if (EsConstanteDeTexto(palabra.texto)) return Espacio();  // texts of the program are nowhere here
    const auto referencia = LeerReferencia(palabra);
    if (!referencia) return {};
    const Nombrado* nombrado = BuscarNombre(ClaveDe(referencia->nombre));
    if (nombrado == nullptr || !nombrado->campo || referencia->esCuerpo) return {};
    Operando operando = *nombrado->campo;
    if (referencia->tieneComponente) {
        if (operando.estructura == nullptr) throw FallaDeSentencia{palabra, nombrado->nombre + " has no components that are known"};
        TipoDeCampo linea{operando.campo.tipo, operando.campo.largo, 0, operando.estructura};
        Palabra componente = palabra;
        componente.texto = referencia->componentes;
        operando = ComponenteDe(operando, ComponenteDe(componente, linea));
    }
    if (!referencia->tieneDesplazamiento && !referencia->tieneLargo) return operando;
    if (!operando.dinamico && !SePuedeCortar(operando.campo.tipo)) throw FallaDeSentencia{palabra, "a number has no sub-fields"};
    const auto parte = [&](std::string_view texto) {
        auto valor = BuscarOperando(ConTexto(palabra, texto));
        if (!valor) throw FallaDeSentencia{palabra, std::string(texto) + " is not declared"};
        return *valor;
    };
    const auto fijo = [](std::string_view texto) { return static_cast<std::uint32_t>(ValorEntero(texto)); };
    const bool desdeFijo = !referencia->tieneDesplazamiento || EsEntero(referencia->desplazamiento);
    const bool hastaElFinal = !referencia->tieneLargo || referencia->largo == "*";
    const bool largoFijo = hastaElFinal || EsEntero(referencia->largo);
    const std::uint32_t desde = referencia->tieneDesplazamiento && desdeFijo ? fijo(referencia->desplazamiento) : 0;
    const std::optional<std::uint32_t> largo =
        hastaElFinal || !largoFijo ? std::optional<std::uint32_t>() : fijo(referencia->largo);
    if (desdeFijo && largoFijo && !operando.dinamico && operando.campo.tipo != Tipo::Cadena) {
        Cortar(operando, palabra, desde, largo);
        return operando;
    }
    auto trozo = std::make_shared<TrozoVariable>();
    if (!desdeFijo) trozo->desplazamiento = parte(referencia->desplazamiento);
    if (!largoFijo) trozo->largo = parte(referencia->largo);
    trozo->desplazamientoFijo = desde;
    trozo->largoFijo = largo;
    operando.trozo = std::move(trozo);
    operando.estructura = nullptr;
    if (operando.EsDe(Tipo::Cadena)) operando.constante = true;
    return operando;
}

Operando Compilador::LeerOperando(Lectura& l) {
    const Palabra& palabra = l.Actual();
    if (auto operando = BuscarOperando(palabra)) {
        l.Avanzar();
        return *operando;
    }
    l.Fallar(std::string(palabra.texto) + (BuscarTabla(palabra) ? " is a table without a header line" : " is not declared"));
}

Operando Compilador::LeerCampo(Lectura& l) {
    const Palabra& palabra = l.Actual();
    if (palabra.EsLiteral() || EsNumero(palabra.texto)) l.Fallar("a field was expected");
    return LeerOperando(l);
}

Operando Compilador::LeerDestino(Lectura& l) {
    const Palabra& palabra = l.Actual();
    Operando operando = LeerCampo(l);
    if (operando.constante) throw FallaDeSentencia{palabra, std::string(palabra.texto) + " can't be changed"};
    return operando;
}

std::optional<OperandoDeTabla> Compilador::BuscarTabla(const Palabra& palabra) {
    const auto referencia = LeerReferencia(palabra);
    if (!referencia || referencia->tieneComponente || referencia->tieneLargo || referencia->tieneDesplazamiento) return {};
    const Nombrado* nombrado = BuscarNombre(ClaveDe(referencia->nombre));
    return nombrado == nullptr ? std::optional<OperandoDeTabla>() : nombrado->tabla;
}

OperandoDeTabla Compilador::LeerTabla(Lectura& l) {
    const Palabra& palabra = l.Actual();
    if (auto tabla = BuscarTabla(palabra)) {
        l.Avanzar();
        return *tabla;
    }
    l.Fallar(std::string(palabra.texto) + " is no internal table");
}

}  // namespace qor::abap
