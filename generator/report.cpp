#include "generator/report.h"

#include <algorithm>
#include <stdexcept>

#include "base/failure.h"
#include "base/text.h"
#include "generator/lines.h"

namespace qor {

namespace {

constexpr std::string_view finDeLinea = "\r\n";
constexpr std::string_view regla = "*---------------------------------------------------------------------*";
constexpr std::size_t maximoEnMemoria = 5000;

template <typename Funcion>
void PorCadaLinea(std::string_view plantilla, Funcion funcion) {
    if (plantilla.size() < 2 || plantilla.front() != '\n' || plantilla.back() != '\n') {
        throw std::logic_error("a template of several lines begins and ends with a line break");
    }
    plantilla = plantilla.substr(1);
    while (!plantilla.empty()) {
        const auto fin = plantilla.find('\n');
        funcion(plantilla.substr(0, fin));
        plantilla.remove_prefix(fin + 1);
    }
}

bool TerminaEn(std::string_view texto, std::string_view finales) {
    return !texto.empty() && finales.find(texto.back()) != std::string_view::npos;
}

int ContarFines(std::string_view texto) { return static_cast<int>(std::count(texto.begin(), texto.end(), '\n')); }

void Anotar(std::vector<TramoDeOrigen>& origenes, int primeraLinea, const Lugar& lugar) {
    if (origenes.empty() || origenes.back().lugar != lugar) origenes.push_back({primeraLinea, lugar});
}

}  // namespace

void LineasConOrigen::Agregar(const Lugar& lugar, std::string_view lineas) {
    Anotar(origenes, lineas_, lugar);
    texto.append(lineas);
    lineas_ += ContarFines(lineas);
}

void Reporte::AnotarLineas(const Lugar& lugar, int cantidad) {
    Anotar(origenes_, lineas_, lugar);
    lineas_ += cantidad;
}

void Reporte::Agregar(const LineasConOrigen& lineas) {
    for (const auto& [primera, lugar] : lineas.origenes) Anotar(origenes_, lineas_ + primera, lugar);
    texto_.append(lineas.texto);
    lineas_ += ContarFines(lineas.texto);
}

void Reporte::Definir(std::string_view nombre, std::string_view valor) {
    for (auto& par : nombres_) {
        if (par.first == nombre) {
            par.second = valor;
            return;
        }
    }
    nombres_.emplace_back(nombre, valor);
}

std::string_view Reporte::ValorDe(std::string_view nombre, ValoresDePlantilla valores) const {
    for (const auto& valor : valores) {
        if (valor.nombre == nombre) return valor.valor;
    }
    for (const auto& par : nombres_) {
        if (par.first == nombre) return par.second;
    }
    if (nombre == "_") return " ";
    if (nombre == "RULE") return regla;
    throw std::logic_error("no value for the name {" + std::string(nombre) + "} of a template");
}

std::string Reporte::Rellenar(std::string_view plantilla, ValoresDePlantilla valores) const {
    std::string linea;
    for (;;) {
        const auto abre = plantilla.find('{');
        linea.append(plantilla.substr(0, abre));
        if (abre == std::string_view::npos) return linea;
        const auto cierra = plantilla.find('}', abre);
        if (cierra == std::string_view::npos) throw std::logic_error("a template with an open brace");
        linea.append(ValorDe(plantilla.substr(abre + 1, cierra - abre - 1), valores));
        plantilla.remove_prefix(cierra + 1);
    }
}

void Reporte::Lineas(std::string_view plantilla, ValoresDePlantilla valores) {
    PorCadaLinea(plantilla, [&](std::string_view linea) { Linea(linea, valores); });
}

void Reporte::Linea(std::string_view plantilla, ValoresDePlantilla valores) { LineaDelUsuario(Rellenar(plantilla, valores)); }

void Reporte::LineaVacia() {
    AnotarLineas(lugar_, 1);
    texto_.append(finDeLinea);
}

void Reporte::LineaDelUsuario(std::string_view linea) {
    AnotarLineas(lugar_, 1 + ContarFines(linea));
    texto_.append(linea).append(finDeLinea);
}

void Reporte::MPrint(std::string_view plantilla, ValoresDePlantilla valores) { MPrintDelUsuario(Rellenar(plantilla, valores)); }

void Reporte::MPrintLineas(std::string_view plantilla, ValoresDePlantilla valores) {
    PorCadaLinea(plantilla, [&](std::string_view linea) { MPrint(linea, valores); });
}

void Reporte::MPrintDelUsuario(std::string linea) {
    if (memoriaLineas_.size() >= maximoEnMemoria) throw FalloDeEjecucion("more than 5000 lines in one chain");
    memoriaLineas_.push_back({std::move(linea), lugar_});
}

void Reporte::ImprimirMemoria() {
    for (std::size_t i = 0; i < memoriaLineas_.size(); ++i) {
        auto& [linea, lugar] = memoriaLineas_[i];
        const auto actual = Recortar(linea);
        const auto siguiente = i + 1 < memoriaLineas_.size() ? Recortar(memoriaLineas_[i + 1].texto) : std::string_view{};
        if (!actual.empty() && !TerminaEn(actual, ":*.,|")) {
            linea += !siguiente.empty() && !TerminaEn(siguiente, ":*.") ? ',' : '.';
        } else if (TerminaEn(actual, "|")) {
            linea.pop_back();
        }
        AnotarLineas(lugar, ImprimirLineasCortas(linea, texto_));
    }
    memoriaLineas_.clear();
}

}  // namespace qor
