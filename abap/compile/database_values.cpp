#include "abap/compile/database_values.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "abap/values/conversion.h"
#include "base/text.h"

namespace qor::abap {

namespace {

constexpr std::uint32_t bytesDeNumero = 8;  // X that is a number in the database
constexpr std::uint32_t bytesDeSuma = 16;   // P of 31 digits

void PonerTextoEn(std::string_view texto, ValorDeBase& valor) {
    if (auto* suyo = std::get_if<std::string>(&valor)) {
        *suyo = texto;
    } else {
        valor.emplace<std::string>(texto);
    }
}

std::int64_t NumeroDeBytes(const Campo& campo) {
    std::uint64_t numero = 0;
    for (std::uint32_t i = 0; i < campo.largo; ++i) numero = numero << 8 | campo.datos[i];
    return static_cast<std::int64_t>(numero);
}

// A field of its own, for a value on its way into another type.
class Paso {
public:
    explicit Paso(const TipoDeCampo& tipo) {
        if (tipo.largo > corto_.size()) largo_.resize(tipo.largo);
        campo_.datos = largo_.empty() ? corto_.data() : largo_.data();
        campo_.largo = tipo.largo;
        campo_.tipo = tipo.tipo;
        campo_.decimales = tipo.decimales;
    }

    const Campo& Suyo() const { return campo_; }

private:
    alignas(8) std::array<std::uint8_t, 64> corto_{};
    std::vector<std::uint8_t> largo_;
    Campo campo_;
};

void PonerBytes(std::int64_t valor, std::uint32_t largo, const Campo& destino) {
    const Paso paso(TipoDeCampo{Tipo::X, largo});
    auto resto = static_cast<std::uint64_t>(valor);
    for (std::uint32_t i = largo; i-- > 0; resto >>= 8) paso.Suyo().datos[i] = static_cast<std::uint8_t>(resto & 0xFF);
    Mover(paso.Suyo(), destino);
}

void PonerFlotante(double valor, const Campo& destino) {
    const Paso paso(TipoDeCampo{Tipo::F, sizeof valor});
    std::memcpy(paso.Suyo().datos, &valor, sizeof valor);
    Mover(paso.Suyo(), destino);
}

void PonerTextoDe(std::string_view texto, const TipoDeCampo& columna, const Campo& destino) {
    Campo origen = CampoDe(texto);
    switch (columna.tipo) {
        case Tipo::N:
        case Tipo::D:
        case Tipo::T:
            if (texto.size() == columna.largo) origen.tipo = columna.tipo;
            break;
        case Tipo::P:
        case Tipo::I:
        case Tipo::F:
        case Tipo::X:
            // Numbers are taken from a text at once; all else gets them in the way of the column.
            if (destino.tipo != Tipo::P && destino.tipo != Tipo::I && destino.tipo != Tipo::F) {
                const bool empaquetado = columna.tipo == Tipo::P;
                const Paso paso(empaquetado ? TipoDeCampo{Tipo::P, std::max(columna.largo, bytesDeSuma), columna.decimales}
                                            : columna);
                Mover(origen, paso.Suyo());
                return Mover(paso.Suyo(), destino);
            }
            break;
        default: break;
    }
    Mover(origen, destino);
}

}  // namespace

void LeerValor(const Campo& campo, ValorDeBase& valor) {
    switch (campo.tipo) {
        case Tipo::I: {
            std::int32_t numero = 0;
            std::memcpy(&numero, campo.datos, sizeof numero);
            valor = std::int64_t{numero};
            return;
        }
        case Tipo::F: {
            double numero = 0;
            std::memcpy(&numero, campo.datos, sizeof numero);
            valor = numero;
            return;
        }
        case Tipo::X:
            if (campo.largo <= bytesDeNumero) {
                valor = NumeroDeBytes(campo);
            } else {
                valor = TextoPlano(campo);
            }
            return;
        case Tipo::P: valor = TextoPlano(campo); return;
        default: return PonerTextoEn(SinBlancosDetras(campo.Texto()), valor);
    }
}

ValorDeBase ValorParaColumna(const Campo& campo, const TipoDeCampo& columna) {
    ValorDeBase valor;
    const bool igual = campo.tipo == columna.tipo && campo.largo == columna.largo && campo.decimales == columna.decimales;
    if (columna.tipo == Tipo::Cadena || igual) {
        LeerValor(campo, valor);
    } else if (EsDelConjunto(campo.tipo, tiposDeTexto) && columna.tipo == Tipo::C) {
        PonerTextoEn(SinBlancosDetras(campo.Texto().substr(0, columna.largo)), valor);
    } else {
        const Paso paso(columna);
        Mover(campo, paso.Suyo());
        LeerValor(paso.Suyo(), valor);
    }
    return valor;
}

void PonerValor(const ValorDeBase& valor, const Campo& destino) {
    if (const auto* texto = std::get_if<std::string>(&valor)) return Mover(CampoDe(*texto), destino);
    if (const auto* entero = std::get_if<std::int64_t>(&valor)) return PonerEntero(*entero, destino);
    if (const auto* flotante = std::get_if<double>(&valor)) return PonerFlotante(*flotante, destino);
    PonerInicial(destino, nullptr);
}

void PonerValor(const ValorDeBase& valor, const TipoDeCampo& columna, const Campo& destino) {
    if (const auto* texto = std::get_if<std::string>(&valor)) return PonerTextoDe(*texto, columna, destino);
    if (const auto* entero = std::get_if<std::int64_t>(&valor); entero != nullptr && columna.tipo == Tipo::X) {
        return PonerBytes(*entero, std::min(columna.largo, bytesDeNumero), destino);
    }
    PonerValor(valor, destino);
}

void LeerFila(const Estructura& tabla, const std::uint8_t* datos, std::vector<ValorDeBase>& fila) {
    fila.resize(tabla.componentes.size());
    for (std::size_t i = 0; i < fila.size(); ++i) {
        LeerValor(CampoDeComponente(tabla.componentes[i], const_cast<std::uint8_t*>(datos)), fila[i]);
    }
}

void PonerFila(std::span<const ValorDeBase> fila, const Estructura& tabla, std::uint8_t* datos) {
    const std::size_t cuantos = std::min(fila.size(), tabla.componentes.size());
    for (std::size_t i = 0; i < cuantos; ++i) {
        const auto& componente = tabla.componentes[i];
        PonerValor(fila[i], componente.tipo, CampoDeComponente(componente, datos));
    }
}

}  // namespace qor::abap
