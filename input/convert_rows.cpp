#include "input/convert_rows.h"

#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "base/text.h"
#include "input/check_line.h"
#include "input/sheet_number.h"

namespace qor {

namespace {

bool EstaVacia(const CeldaDeHoja& celda) {
    return celda.clase == CeldaDeHoja::Clase::Vacia || (celda.clase == CeldaDeHoja::Clase::Texto && EstaEnBlanco(celda.texto));
}

// What a finding shows of a cell.
std::string ValorVisto(const CeldaDeHoja& celda) {
    if (celda.clase != CeldaDeHoja::Clase::Numero) return celda.texto;
    return celda.formato != nullptr ? celda.formato->Mostrar(celda.numero).value_or(celda.texto) : celda.texto;
}

}  // namespace

std::vector<ConversorDeCampo> ConversoresDe(const DisenoDeEntrada& diseno, const ClaseDeRegistro& clase,
                                            const ClasesDeCampos& clases, const OpcionesDeCeldas& opciones) {
    std::vector<ConversorDeCampo> conversores;
    for (const auto& campo : clase.campos) {
        conversores.emplace_back(campo, clases.Buscar(campo.nombre), diseno.PorTabuladores(), opciones);
    }
    return conversores;
}

std::vector<CampoDeTabla> CamposDeTabla(const DisenoDeEntrada& diseno, const ClaseDeRegistro& clase, const ClasesDeCampos& clases,
                                        const ReglasDeValores& reglas, const OpcionesDeCeldas& opciones) {
    std::vector<CampoDeTabla> campos;
    for (auto& conversor : ConversoresDe(diseno, clase, clases, opciones)) {
        campos.push_back({std::move(conversor), reglas.Buscar(clase.campos[campos.size()].nombre)});
    }
    return campos;
}

LectorDeTabla::LectorDeTabla(std::unique_ptr<FuenteDeFilas> filas, const ClaseDeRegistro& clase, std::vector<CampoDeTabla> campos,
                             bool conNumero, int tabla, const OpcionesDeConversion& opciones, const OyenteDeConversion& oyente)
    : filas_(std::move(filas)),
      clase_(clase),
      campos_(std::move(campos)),
      conNumero_(conNumero),
      tabla_(tabla),
      opciones_(opciones),
      oyente_(oyente) {
    if (opciones_.porOrden) {
        PonerPorOrden();
    } else {
        LeerTitulos();
    }
}

void LectorDeTabla::PonerPorOrden() {
    if (conNumero_) columnas_.push_back(columnaDelNumero);
    for (std::size_t i = 0; i < clase_.campos.size(); ++i) columnas_.push_back(static_cast<int>(i));
}

// The n-th column of a heading is the n-th field of that name.
void LectorDeTabla::LeerTitulos() {
    const auto buscada = static_cast<std::uint64_t>(opciones_.filaDeTitulos);
    bool hay = false;
    while (fila_.numero < buscada && (hay = filas_->Siguiente(fila_))) {
    }
    if (!hay || fila_.numero != buscada || std::all_of(fila_.celdas.begin(), fila_.celdas.end(), EstaVacia)) {
        throw FalloDeEjecucion("there are no headings in row " + std::to_string(buscada) + " of the table " + NombreDeHoja(clase_));
    }
    std::vector<bool> tomados(clase_.campos.size(), false);
    bool hayNumero = false;
    for (std::size_t i = 0; i < fila_.celdas.size(); ++i) {
        const auto& celda = fila_.celdas[i];
        columnas_.push_back(columnaDeNada);
        if (EstaVacia(celda)) continue;
        const auto titulo = Recortar(celda.texto);
        if (conNumero_ && !hayNumero && titulo == tituloDeNumero) {
            columnas_.back() = columnaDelNumero;
            hayNumero = true;
            continue;
        }
        bool conocido = false;
        for (std::size_t campo = 0; campo < tomados.size() && columnas_.back() == columnaDeNada; ++campo) {
            if (!IgualesSinCaja(titulo, clase_.campos[campo].nombre)) continue;
            conocido = true;
            if (tomados[campo]) continue;
            tomados[campo] = true;
            columnas_.back() = static_cast<int>(campo);
        }
        if (columnas_.back() != columnaDeNada) continue;
        if (conocido) {
            Decir(i, celda, "there is another column of this heading");
            entera_ = false;
        } else if (!opciones_.otrasColumnas) {
            Decir(i, celda, "the heading is no field of the records");
            entera_ = false;
        }
    }
    ExigirCampos(tomados);
    if (conNumero_ && !hayNumero) {
        throw FalloDeEjecucion(std::string("the table ") + NombreDeHoja(clase_) + " has no column \"" + tituloDeNumero +
                               "\" that tells where its records go in the file");
    }
}

// Some heading has to be a field, and a field that has to have a value a heading.
void LectorDeTabla::ExigirCampos(const std::vector<bool>& tomados) {
    if (std::find(tomados.begin(), tomados.end(), true) == tomados.end()) {
        std::string hallados;
        for (const auto& celda : fila_.celdas) {
            if (!EstaVacia(celda)) hallados += (hallados.empty() ? "" : ", ") + ValorMostrado(Recortar(celda.texto));
        }
        std::string buscados;
        for (const auto& titulo : Titulos(clase_, conNumero_)) buscados += (buscados.empty() ? "" : ", ") + titulo;
        throw FalloDeEjecucion("none of the headings in row " + std::to_string(fila_.numero) + " of the table " +
                               NombreDeHoja(clase_) + " is a field: " + hallados + "; wanted are " + buscados);
    }
    for (std::size_t campo = 0; campo < tomados.size(); ++campo) {
        const auto* const regla = campos_[campo].regla;
        if (tomados[campo] || regla == nullptr || !regla->Clase().obligatorio) continue;
        auto hallazgo = Hallazgo(HallazgoDeEntrada::Obligatorio, static_cast<int>(campo));
        hallazgo.texto = "required, but no column has the heading";
        oyente_(hallazgo);
        entera_ = false;
    }
}

// About the present row, and a field or one of the columns that are none.
HallazgoDeDatos LectorDeTabla::Hallazgo(HallazgoDeEntrada clase, int campo) const {
    HallazgoDeDatos hallazgo;
    hallazgo.clase = clase;
    hallazgo.archivo = tabla_;
    hallazgo.linea = fila_.numero;
    if (campo >= 0) {
        hallazgo.fila = clase_.campos[static_cast<std::size_t>(campo)].fila;
        hallazgo.campo = clase_.campos[static_cast<std::size_t>(campo)].nombre;
    }
    return hallazgo;
}

void LectorDeTabla::Decir(std::size_t columna, const CeldaDeHoja& celda, const std::string& texto) {
    auto hallazgo = Hallazgo(HallazgoDeEntrada::CeldaSinLugar, columna < columnas_.size() ? columnas_[columna] : columnaDeNada);
    hallazgo.columna = columna + 1;
    hallazgo.valor = ValorMostrado(ValorVisto(celda));
    hallazgo.texto = texto;
    oyente_(hallazgo);
}

void LectorDeTabla::LeerNumero(const CeldaDeHoja& celda, std::size_t columna, RegistroDeTabla& registro) {
    constexpr double maximo = 1e15;
    double numero = celda.numero;
    const bool bien = (celda.clase == CeldaDeHoja::Clase::Numero ||
                       (celda.clase == CeldaDeHoja::Clase::Texto && LeerNumeroDeCelda(Recortar(celda.texto), numero))) &&
                      numero >= 1 && numero < maximo && numero == static_cast<double>(static_cast<std::uint64_t>(numero));
    registro.numero = bien ? static_cast<std::uint64_t>(numero) : ultimo_;
    if (!bien) Decir(columna, celda, "the cell has no whole number that tells where the record goes in the file");
    const bool menor = registro.numero < ultimo_;
    if (menor) Decir(columna, celda, "the number is smaller than the one of the row before");
    entera_ = entera_ && bien && !menor;
    registro.numero = std::max(registro.numero, ultimo_);
    ultimo_ = registro.numero;
}

void LectorDeTabla::LeerValor(const CeldaDeHoja& celda, std::size_t columna, RegistroDeTabla& registro) {
    const auto lugar = static_cast<std::size_t>(columnas_[columna]);
    const auto& campo = campos_[lugar];
    auto& valor = registro.valores[lugar];
    std::string motivo;
    if (!campo.conversor.ALayout(celda, valor, motivo)) {
        Decir(columna, celda, motivo);
        registro.bien = false;
        return;
    }
    const auto falta = campo.regla != nullptr ? campo.regla->Falta(valor) : std::nullopt;
    if (!falta) return;
    // The value as it would stand in the file, as that is what the rule is about.
    auto hallazgo = Hallazgo(*falta, columnas_[columna]);
    hallazgo.columna = columna + 1;
    hallazgo.valor = ValorMostrado(valor);
    hallazgo.texto = campo.regla->Texto(*falta);
    oyente_(hallazgo);
    registro.bien = false;
}

bool LectorDeTabla::Siguiente(RegistroDeTabla& registro) {
    for (;;) {
        if (!filas_->Siguiente(fila_)) return false;
        if (fila_.numero <= static_cast<std::uint64_t>(opciones_.filaDeTitulos)) continue;
        if (!std::all_of(fila_.celdas.begin(), fila_.celdas.end(), EstaVacia)) break;
    }
    registro.numero = ultimo_;
    registro.bien = true;
    registro.valores.resize(clase_.campos.size());
    for (auto& valor : registro.valores) valor.clear();
    static const CeldaDeHoja vacia;
    const auto cuantas = std::max(fila_.celdas.size(), columnas_.size());
    for (std::size_t i = 0; i < cuantas; ++i) {
        const auto& celda = i < fila_.celdas.size() ? fila_.celdas[i] : vacia;
        const int campo = i < columnas_.size() ? columnas_[i] : columnaDeNada;
        if (campo == columnaDelNumero) {
            LeerNumero(celda, i, registro);
        } else if (campo >= 0) {
            LeerValor(celda, i, registro);
        } else if (!opciones_.otrasColumnas && !EstaVacia(celda) && (i >= columnas_.size() || opciones_.porOrden)) {
            Decir(i, celda, "the column is none of the records");
            registro.bien = false;
        }
    }
    return true;
}

}  // namespace qor
