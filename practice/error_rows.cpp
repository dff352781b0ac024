#include "practice/error_rows.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"
#include "practice/query_text.h"

namespace qor {

namespace {

using abap::Tipo;

bool SonCifras(std::string_view texto) {
    return std::all_of(texto.begin(), texto.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::string Cifras(std::string_view texto, std::size_t largo) {
    std::string cifras(texto.size() < largo ? largo - texto.size() : 0, '0');
    return cifras.append(texto);
}

// Nothing where the text does not fit.
std::optional<abap::ValorDeBase> Leer(const abap::TipoDeCampo& tipo, std::string_view texto) {
    const auto sinBlancos = Recortar(texto);
    switch (tipo.tipo) {
        case Tipo::I: {
            std::int64_t numero = 0;
            const auto* const fin = sinBlancos.data() + sinBlancos.size();
            if (sinBlancos.empty()) return numero;
            const auto [hasta, error] = std::from_chars(sinBlancos.data(), fin, numero);
            if (error != std::errc{} || hasta != fin || numero != static_cast<std::int32_t>(numero)) return std::nullopt;
            return numero;
        }
        case Tipo::N: {
            auto cifras = sinBlancos;
            while (cifras.size() > tipo.largo && cifras.front() == '0') cifras.remove_prefix(1);
            if (!SonCifras(cifras) || cifras.size() > tipo.largo) return std::nullopt;
            return Cifras(cifras, tipo.largo);
        }
        case Tipo::D:
        case Tipo::T:
            if (sinBlancos.empty()) return std::string(tipo.largo, '0');
            if (!SonCifras(sinBlancos) || sinBlancos.size() != tipo.largo) return std::nullopt;
            return std::string(sinBlancos);
        case Tipo::C: {
            const auto texto_ = SinBlancosDetras(texto);
            if (texto_.size() > tipo.largo) return std::nullopt;
            return std::string(texto_);
        }
        default: return std::nullopt;
    }
}

}  // namespace

FilaDeTextos LeerFila(const DefinicionDeTabla& tabla, std::span<const std::string> columnas, std::span<const std::string> textos,
                      const std::string& cliente) {
    FilaDeTextos fila;
    const auto& componentes = tabla.estructura.componentes;
    fila.valores.resize(componentes.size());
    for (std::size_t i = 0; i < columnas.size(); ++i) {
        const auto lugar = static_cast<std::size_t>(tabla.Columna(columnas[i]));
        auto valor = Leer(componentes[lugar].tipo, textos[i]);
        if (!valor) {
            fila.motivo = "\"" + textos[i] + "\" does not fit the column " + columnas[i];
            return fila;
        }
        fila.valores[lugar] = std::move(*valor);
    }
    const auto enBlanco = [](const abap::ValorDeBase& valor) {
        const auto* const texto = std::get_if<std::string>(&valor);
        return texto == nullptr || texto->empty();
    };
    if (tabla.cliente >= 0 && enBlanco(fila.valores[static_cast<std::size_t>(tabla.cliente)])) {
        fila.valores[static_cast<std::size_t>(tabla.cliente)] = cliente;
    }
    if (tabla.larga >= 0) {
        // Where nobody told the length of the long column, all of it is kept.
        const auto larga = static_cast<std::size_t>(tabla.larga);
        const auto* const texto = std::get_if<std::string>(&fila.valores[larga]);
        auto& largo = fila.valores[larga - 1];
        if (std::holds_alternative<std::monostate>(largo)) {
            largo = static_cast<std::int64_t>(texto == nullptr ? 0 : texto->size());
        }
    }
    return fila;
}

}  // namespace qor
