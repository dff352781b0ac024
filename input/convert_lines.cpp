#include "input/convert_lines.h"

#include <algorithm>

#include "base/text.h"
#include "input/check_line.h"
#include "input/encoding.h"

namespace qor {

namespace {

constexpr std::size_t maximoDeLinea = std::size_t{16} << 20;

}  // namespace

LectorDeLayout::LectorDeLayout(const DisenoDeEntrada& diseno, int archivo, const std::filesystem::path& ruta,
                               const OyenteDeConversion& oyente)
    : diseno_(diseno), archivo_(archivo), oyente_(oyente), lector_(ArchivoAbierto(ruta)) {
    // A mark, or characters that would not be those that are meant.
    const auto codificacion = BuscarCodificacion(ArchivoAbierto(ruta));
    legible_ = codificacion == Codificacion::Windows1252;
    if (legible_) return;
    Decir(HallazgoDeEntrada::Utf8, nullptr, 0, "",
          codificacion == Codificacion::Utf8 ? "the file is in UTF-8, and the report reads windows-1252"
                                             : "the file is in UTF-16, and the report reads windows-1252");
}

void LectorDeLayout::Decir(HallazgoDeEntrada clase, const ClaseDeRegistro* registro, std::size_t campo, std::string_view valor,
                           const std::string& texto) const {
    HallazgoDeDatos hallazgo;
    hallazgo.clase = clase;
    hallazgo.archivo = archivo_;
    hallazgo.linea = linea_;
    if (registro != nullptr) {
        const auto& cual = registro->campos[campo];
        hallazgo.columna = diseno_.PorTabuladores() ? campo + 1 : cual.columna + 1;
        hallazgo.fila = cual.fila;
        hallazgo.campo = cual.nombre;
    }
    hallazgo.valor = ValorMostrado(valor);
    hallazgo.texto = texto;
    oyente_(hallazgo);
}

bool LectorDeLayout::Siguiente(int& clase, std::vector<std::string_view>& valores) {
    const auto& clases = diseno_.Archivos()[static_cast<std::size_t>(archivo_)].clases;
    if (!legible_) return false;
    std::string_view linea;
    do {
        if (!lector_.Linea(linea, maximoDeLinea)) return false;
        ++linea_;
    } while (clases.size() > 1 && EstaEnBlanco(linea));  // the report passes them over
    texto_ = linea;
    clase = -1;
    if (linea.find('\0') != std::string_view::npos) {
        Decir(HallazgoDeEntrada::Nulo, nullptr, 0, "", "the line has a NUL character");
        return true;
    }
    const auto cual = std::find_if(clases.begin(), clases.end(), [&](int lugar) {
        return TieneIdentificador(linea, diseno_.Clases()[static_cast<std::size_t>(lugar)].identificador);
    });
    if (cual == clases.end()) {
        Decir(HallazgoDeEntrada::Desconocida, nullptr, 0, linea.substr(0, 20), "the line begins with the id of no record");
        return true;
    }
    const auto& registro = diseno_.Clases()[static_cast<std::size_t>(*cual)];
    const bool bien =
        diseno_.PorTabuladores() ? PartirTabuladores(registro, linea, valores) : PartirAnchoFijo(registro, linea, valores);
    if (!bien) return true;
    if (clases.size() == 1 && std::all_of(valores.begin(), valores.end(), EstaEnBlanco)) {
        Decir(HallazgoDeEntrada::CeldaSinLugar, nullptr, 0, "", "the line has no values, and a row without values is no record");
        return true;
    }
    clase = *cual;
    return true;
}

bool LectorDeLayout::PartirAnchoFijo(const ClaseDeRegistro& clase, std::string_view linea,
                                     std::vector<std::string_view>& valores) const {
    const auto resto = linea.size() > clase.largo ? SinBlancosDetras(linea.substr(clase.largo)) : std::string_view();
    if (!resto.empty()) {
        Decir(HallazgoDeEntrada::LineaLarga, nullptr, 0, resto, "the line is longer than its record");
        return false;
    }
    valores.clear();
    for (const auto& campo : clase.campos) {
        const auto valor = campo.columna < linea.size() ? linea.substr(campo.columna, campo.ancho) : std::string_view();
        valores.push_back(SinBlancosDetras(valor));
    }
    return true;
}

bool LectorDeLayout::PartirTabuladores(const ClaseDeRegistro& clase, std::string_view linea,
                                       std::vector<std::string_view>& valores) const {
    valores.clear();
    linea.remove_prefix(clase.identificador.size());
    for (std::size_t i = 0; i < clase.campos.size(); ++i) {
        valores.push_back(AntesDe(linea, '\t'));
        linea = DespuesDe(linea, '\t');
    }
    if (linea.find_first_not_of('\t') == std::string_view::npos) return true;
    Decir(HallazgoDeEntrada::Tabuladores, nullptr, 0, linea, "the line has more values than its record has fields");
    return false;
}

void PonerLinea(const DisenoDeEntrada& diseno, const ClaseDeRegistro& clase, const std::vector<std::string>& valores,
                std::string& linea) {
    linea = clase.identificador;
    for (std::size_t i = 0; i < clase.campos.size(); ++i) {
        if (diseno.PorTabuladores()) {
            if (i > 0) linea += '\t';
            linea += valores[i];
            continue;
        }
        linea.resize(clase.campos[i].columna, ' ');
        linea += SinBlancosDetras(valores[i]);
    }
    if (!diseno.PorTabuladores()) linea.erase(std::max(linea.find_last_not_of(' ') + 1, clase.identificador.size()));
}

}  // namespace qor
