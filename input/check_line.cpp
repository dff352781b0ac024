#include "input/check_line.h"

#include <algorithm>
#include <cstdio>

#include "base/code_page.h"
#include "base/text.h"
#include "input/encoding.h"

namespace qor {

namespace {

constexpr std::size_t maximoMostrado = 200;

HallazgoDeDatos Nuevo(HallazgoDeEntrada clase, std::string texto) {
    HallazgoDeDatos hallazgo;
    hallazgo.clase = clase;
    hallazgo.texto = std::move(texto);
    return hallazgo;
}

}  // namespace

std::string ValorMostrado(std::string_view valor) {
    const auto cortado = SinBlancosDetras(valor);
    if (cortado.size() <= maximoMostrado) return std::string(cortado);
    return std::string(cortado.substr(0, maximoMostrado)) + "...";
}

RevisorDeLineas::RevisorDeLineas(DisenoDeEntrada diseno, const ReglasDeValores& reglas) : diseno_(std::move(diseno)) {
    for (const auto& clase : diseno_.Clases()) {
        auto& conRegla = conRegla_.emplace_back();
        auto& deCampos = reglaDeCampo_.emplace_back();
        for (std::size_t campo = 0; campo < clase.campos.size(); ++campo) {
            const auto* const regla = reglas.Buscar(clase.campos[campo].nombre);
            deCampos.push_back(regla);
            if (regla != nullptr) conRegla.push_back({campo, regla});
        }
        identificadores_ += (identificadores_.empty() ? "" : ", ") + clase.identificador;
    }
}

int RevisorDeLineas::ClaseDe(int archivo, std::string_view linea) const {
    const auto& clases = diseno_.Archivos()[static_cast<std::size_t>(archivo)].clases;
    if (!diseno_.ArchivoUnico()) return clases.front();
    for (const int clase : clases) {
        if (TieneIdentificador(linea, diseno_.Clases()[static_cast<std::size_t>(clase)].identificador)) return clase;
    }
    return -1;
}

// With fixed width.
std::string_view RevisorDeLineas::Parte(const CampoDeRegistro& campo, std::string_view linea) {
    return campo.columna < linea.size() ? linea.substr(campo.columna, campo.ancho) : std::string_view();
}

void RevisorDeLineas::Partir(int clase, std::string_view linea, std::vector<std::string_view>& valores) const {
    valores.clear();
    for (const auto& campo : diseno_.Clases()[static_cast<std::size_t>(clase)].campos) {
        if (!diseno_.PorTabuladores()) {
            valores.push_back(Parte(campo, linea));
            continue;
        }
        const auto parte = AntesDe(linea, '\t');
        valores.push_back(campo.ancho > 0 ? parte.substr(0, campo.ancho) : parte);
        linea.remove_prefix(std::min(linea.size(), parte.size() + 1));
    }
}

std::string_view RevisorDeLineas::ValorDe(int clase, std::string_view linea, std::size_t campo) const {
    const auto& este = diseno_.Clases()[static_cast<std::size_t>(clase)].campos[campo];
    if (!diseno_.PorTabuladores()) return Parte(este, linea);
    for (std::size_t i = 0; i < campo; ++i) linea = DespuesDe(linea, '\t');
    const auto parte = AntesDe(linea, '\t');
    return este.ancho > 0 ? parte.substr(0, este.ancho) : parte;
}

void RevisorDeLineas::SituarEnCampo(HallazgoDeDatos& hallazgo, int clase, std::string_view linea, std::size_t campo) const {
    const auto& este = diseno_.Clases()[static_cast<std::size_t>(clase)].campos[campo];
    hallazgo.columna = (diseno_.PorTabuladores() ? campo : este.columna) + 1;
    hallazgo.fila = este.fila;
    hallazgo.campo = este.nombre;
    hallazgo.valor = ValorMostrado(ValorDe(clase, linea, campo));
}

void RevisorDeLineas::Situar(HallazgoDeDatos& hallazgo, int clase, std::string_view linea, std::size_t lugar) const {
    const auto antes = linea.substr(0, lugar);
    const auto numero = static_cast<std::size_t>(std::count(antes.begin(), antes.end(), '\t'));
    if (clase >= 0) {
        const auto& campos = diseno_.Clases()[static_cast<std::size_t>(clase)].campos;
        for (std::size_t campo = 0; campo < campos.size(); ++campo) {
            const auto& este = campos[campo];
            const bool aqui =
                diseno_.PorTabuladores() ? campo == numero : lugar >= este.columna && lugar - este.columna < este.ancho;
            if (aqui) SituarEnCampo(hallazgo, clase, linea, campo);
        }
    }
    hallazgo.columna = diseno_.PorTabuladores() ? numero + 1 : lugar + 1;
}

void RevisorDeLineas::Revisar(int clase, std::string_view linea, std::vector<HallazgoDeDatos>& hallazgos, bool limpia,
                              bool sobra) const {
    if (!limpia && !EsAsciiSinNulos(linea)) RevisarBytes(clase, linea, hallazgos);
    if (clase < 0) {
        if (EstaEnBlanco(linea) && !sobra) return;
        auto& hallazgo =
            hallazgos.emplace_back(Nuevo(HallazgoDeEntrada::Desconocida, "begins with no id of a record: " + identificadores_));
        hallazgo.columna = 1;
        hallazgo.valor = ValorMostrado(linea.substr(0, std::max<std::size_t>(diseno_.Clases().front().identificador.size(), 1)));
        return;
    }
    if (diseno_.PorTabuladores()) {
        RevisarPartes(clase, linea, sobra, hallazgos);
        return;
    }
    RevisarLargo(clase, linea, sobra, hallazgos);
    const auto& campos = diseno_.Clases()[static_cast<std::size_t>(clase)].campos;
    for (const auto& [campo, regla] : conRegla_[static_cast<std::size_t>(clase)]) {
        RevisarValor(clase, campo, *regla, Parte(campos[campo], linea), hallazgos);
    }
}

// The first byte of each kind that no text has.
void RevisorDeLineas::RevisarBytes(int clase, std::string_view linea, std::vector<HallazgoDeDatos>& hallazgos) const {
    if (const auto lugar = linea.find('\0'); lugar != std::string_view::npos) {
        Situar(hallazgos.emplace_back(Nuevo(HallazgoDeEntrada::Nulo, "a NUL stands here, which no text has")), clase, linea, lugar);
    }
    const auto* const malo = std::find_if(linea.begin(), linea.end(), [](char c) { return c < 0 && EsInvisible(c); });
    if (malo == linea.end()) return;
    char texto[64];
    std::snprintf(texto, sizeof texto, "the byte %02X has no character in windows-1252", static_cast<unsigned char>(*malo));
    Situar(hallazgos.emplace_back(Nuevo(HallazgoDeEntrada::SinCaracter, texto)), clase, linea,
           static_cast<std::size_t>(malo - linea.begin()));
}

void RevisorDeLineas::RevisarLargo(int clase, std::string_view linea, bool sobra, std::vector<HallazgoDeDatos>& hallazgos) const {
    const auto& registro = diseno_.Clases()[static_cast<std::size_t>(clase)];
    if (registro.campos.empty()) return;
    if (linea.size() > registro.largo) {
        const auto resto = linea.substr(registro.largo);
        if (!sobra && EstaEnBlanco(resto)) return;
        auto& hallazgo =
            hallazgos.emplace_back(Nuevo(HallazgoDeEntrada::LineaLarga, "the record has " + Cuantos(registro.largo, "character") +
                                                                            ", what stands behind them is lost"));
        hallazgo.columna = registro.largo + 1;
        hallazgo.valor = ValorMostrado(resto);
        return;
    }
    const auto& ultimo = registro.campos.back();
    if (linea.size() > ultimo.columna || ultimo.ancho == 0) return;
    const auto primero = std::find_if(registro.campos.begin(), registro.campos.end(),
                                      [&](const auto& campo) { return campo.columna >= linea.size(); });
    auto& hallazgo = hallazgos.emplace_back(
        Nuevo(HallazgoDeEntrada::LineaCorta, "the line ends before the field begins, which is read as blank like all behind it"));
    hallazgo.columna = primero->columna + 1;
    hallazgo.fila = primero->fila;
    hallazgo.campo = primero->nombre;
}

void RevisorDeLineas::RevisarPartes(int clase, std::string_view linea, bool sobra, std::vector<HallazgoDeDatos>& hallazgos) const {
    const auto& campos = diseno_.Clases()[static_cast<std::size_t>(clase)].campos;
    const auto& reglas = reglaDeCampo_[static_cast<std::size_t>(clase)];
    if (campos.empty()) return;
    auto resto = linea;
    bool hayMas = true;
    std::size_t partes = 0;
    for (std::size_t campo = 0; campo < campos.size(); ++campo) {
        std::string_view parte;
        if (hayMas) {
            parte = AntesDe(resto, '\t');
            hayMas = parte.size() < resto.size();
            resto.remove_prefix(parte.size() + (hayMas ? 1 : 0));
            ++partes;
        }
        const auto ancho = campos[campo].ancho;
        if (ancho > 0 && parte.size() > ancho) {
            if (!EstaEnBlanco(parte.substr(ancho))) {
                auto& hallazgo =
                    hallazgos.emplace_back(Nuevo(HallazgoDeEntrada::ValorLargo, "the field takes " + Cuantos(ancho, "character") +
                                                                                    ", what stands behind them is lost"));
                SituarEnCampo(hallazgo, clase, linea, campo);
                hallazgo.valor = ValorMostrado(parte);
            }
            parte = parte.substr(0, ancho);
        }
        if (reglas[campo] != nullptr) RevisarValor(clase, campo, *reglas[campo], parte, hallazgos);
    }
    if (sobra) {
        hallazgos.push_back(Nuevo(HallazgoDeEntrada::LineaLarga,
                                  "only the first " + Cuantos(linea.size(), "character") + " of the line were looked at"));
        hallazgos.back().columna = partes;
        return;
    }
    const auto contar = [&](HallazgoDeEntrada falta, const char* queda) -> HallazgoDeDatos& {
        const auto tabuladores = static_cast<std::size_t>(std::count(linea.begin(), linea.end(), '\t'));
        auto& hallazgo = hallazgos.emplace_back(
            Nuevo(falta, Cuantos(tabuladores, "tab") + " where the record has " + std::to_string(campos.size() - 1) + queda));
        hallazgo.columna = partes + 1;
        return hallazgo;
    };
    if (partes < campos.size()) {
        auto& hallazgo = contar(HallazgoDeEntrada::TabuladoresDeMenos, ", the field is read as blank like all behind it");
        hallazgo.fila = campos[partes].fila;
        hallazgo.campo = campos[partes].nombre;
    } else if (hayMas && resto.find_first_not_of(" \t") != std::string_view::npos) {
        contar(HallazgoDeEntrada::Tabuladores, ", what stands behind the last field is lost").valor =
            ValorMostrado(AntesDe(resto, '\t'));
    }
}

void RevisorDeLineas::RevisarValor(int clase, std::size_t campo, const ReglaDeValor& regla, std::string_view valor,
                                   std::vector<HallazgoDeDatos>& hallazgos) const {
    const auto falta = regla.Falta(valor);
    if (!falta) return;
    auto& hallazgo = hallazgos.emplace_back(Nuevo(*falta, regla.Texto(*falta)));
    const auto& este = diseno_.Clases()[static_cast<std::size_t>(clase)].campos[campo];
    hallazgo.columna = (diseno_.PorTabuladores() ? campo : este.columna) + 1;
    hallazgo.fila = este.fila;
    hallazgo.campo = este.nombre;
    hallazgo.valor = ValorMostrado(valor);
}

}  // namespace qor
