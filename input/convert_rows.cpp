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

LectorDeTabla::LectorDeTabla(std::unique_ptr<FuenteDeFilas> filas, const ClaseDeRegistro& clase,
                             std::vector<ConversorDeCampo> conversores, const ReglasDeValores& reglas, bool conNumero, int tabla,
                             const OpcionesDeConversion& opciones, const OyenteDeConversion& oyente)
    : filas_(std::move(filas)),
      clase_(clase),
      conversores_(std::move(conversores)),
      conNumero_(conNumero),
      tabla_(tabla),
      opciones_(opciones),
      oyente_(oyente) {
    for (const auto& campo : clase_.campos) reglas_.push_back(reglas.Buscar(campo.nombre));
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
            Decir(fila_.numero, i, celda, "there is another column of this heading");
        } else if (!opciones_.otrasColumnas) {
            Decir(fila_.numero, i, celda, "the heading is no field of the records");
        }
    }
    if (opciones_.otrasColumnas && std::find(tomados.begin(), tomados.end(), true) == tomados.end()) {
        std::string titulos;
        for (const auto& campo : clase_.campos) titulos += (titulos.empty() ? "" : ", ") + campo.nombre;
        throw FalloDeEjecucion("no heading in row " + std::to_string(buscada) + " of the table " + NombreDeHoja(clase_) +
                               " is a field of its records: " + titulos);
    }
    if (conNumero_ && !hayNumero) {
        throw FalloDeEjecucion(std::string("the table ") + NombreDeHoja(clase_) + " has no column \"" + tituloDeNumero +
                               "\" that tells where its records go in the file");
    }
}

void LectorDeTabla::Decir(std::uint64_t fila, std::size_t columna, const CeldaDeHoja& celda, const std::string& texto,
                          HallazgoDeEntrada falta) {
    const int campo = columna < columnas_.size() ? columnas_[columna] : columnaDeNada;
    HallazgoDeDatos hallazgo;
    hallazgo.clase = falta;
    hallazgo.archivo = tabla_;
    hallazgo.linea = fila;
    hallazgo.columna = columna + 1;
    if (campo >= 0) {
        hallazgo.fila = clase_.campos[static_cast<std::size_t>(campo)].fila;
        hallazgo.campo = clase_.campos[static_cast<std::size_t>(campo)].nombre;
    }
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
    if (!bien) Decir(fila_.numero, columna, celda, "the cell has no whole number that tells where the record goes in the file");
    const bool menor = registro.numero < ultimo_;
    if (menor) Decir(fila_.numero, columna, celda, "the number is smaller than the one of the row before");
    conOrden_ = conOrden_ && bien && !menor;
    registro.numero = std::max(registro.numero, ultimo_);
    ultimo_ = registro.numero;
}

// What the kinds of the fields say of the values, as they go into the layout.
void LectorDeTabla::Revisar(RegistroDeTabla& registro) {
    static const CeldaDeHoja vacia;
    for (std::size_t campo = 0; campo < reglas_.size(); ++campo) {
        if (reglas_[campo] == nullptr || dichos_[campo]) continue;
        const auto falta = reglas_[campo]->Falta(registro.valores[campo]);
        if (!falta) continue;
        registro.bien = false;
        const auto columna = std::find(columnas_.begin(), columnas_.end(), static_cast<int>(campo));
        if (columna == columnas_.end()) {
            HallazgoDeDatos hallazgo;
            hallazgo.clase = *falta;
            hallazgo.archivo = tabla_;
            hallazgo.linea = fila_.numero;
            hallazgo.fila = clase_.campos[campo].fila;
            hallazgo.campo = clase_.campos[campo].nombre;
            hallazgo.texto = reglas_[campo]->Texto(*falta) + ", and the table has no column for it";
            oyente_(hallazgo);
            continue;
        }
        const auto lugar = static_cast<std::size_t>(columna - columnas_.begin());
        Decir(fila_.numero, lugar, lugar < fila_.celdas.size() ? fila_.celdas[lugar] : vacia, reglas_[campo]->Texto(*falta),
              *falta);
    }
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
    dichos_.assign(clase_.campos.size(), false);
    static const CeldaDeHoja vacia;
    std::string motivo;
    const auto cuantas = std::max(fila_.celdas.size(), conNumero_ ? columnas_.size() : 0);
    for (std::size_t i = 0; i < cuantas; ++i) {
        const auto& celda = i < fila_.celdas.size() ? fila_.celdas[i] : vacia;
        const int campo = i < columnas_.size() ? columnas_[i] : columnaDeNada;
        if (campo == columnaDelNumero) {
            LeerNumero(celda, i, registro);
        } else if (campo >= 0) {
            const auto lugar = static_cast<std::size_t>(campo);
            if (conversores_[lugar].ALayout(celda, registro.valores[lugar], motivo)) continue;
            Decir(fila_.numero, i, celda, motivo);
            registro.valores[lugar].clear();
            dichos_[lugar] = true;
            registro.bien = false;
        } else if (!opciones_.otrasColumnas && !EstaVacia(celda) && (i >= columnas_.size() || opciones_.porOrden)) {
            Decir(fila_.numero, i, celda, "the column is none of the records");
            registro.bien = false;
        }
    }
    Revisar(registro);
    return true;
}

}  // namespace qor
