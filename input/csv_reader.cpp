#include "input/csv_reader.h"

#include <algorithm>
#include <utility>

#include "base/failure.h"
#include "base/text.h"
#include "input/encoding.h"

namespace qor {

namespace {

constexpr std::size_t largoDeTrozo = std::size_t{1} << 16;
constexpr std::size_t maximoDeFila = std::size_t{16} << 20;
constexpr std::size_t maximoDeColumnas = 16384;

}  // namespace

LectorDeCsv::LectorDeCsv(const std::filesystem::path& ruta, char separador)
    : ruta_(ruta), separador_(separador), lector_(ArchivoAbierto(ruta)) {
    const auto codificacion = BuscarCodificacion(ArchivoAbierto(ruta));
    if (codificacion == Codificacion::Utf16) {
        throw FalloDeArchivo("The file is in UTF-16; save it in UTF-8 or in windows-1252", ruta);
    }
    utf8_ = codificacion == Codificacion::Utf8;
    lector_.Bytes(trozo_, largoDeMarcaUtf8);
    if (MarcaDeOrden(trozo_) == Codificacion::Utf8) trozo_.clear();
}

void LectorDeCsv::Fallar(const std::string& motivo) const {
    throw FalloDeArchivo("Line " + std::to_string(linea_) + ": " + motivo, ruta_);
}

bool LectorDeCsv::Caracter(char& c) {
    if (aqui_ == trozo_.size()) {
        aqui_ = 0;
        if (!lector_.Bytes(trozo_, largoDeTrozo)) return false;
    }
    if (++largo_ > maximoDeFila) Fallar("a row has more than 16 megabytes");
    c = trozo_[aqui_++];
    return true;
}

// What stands behind an opening quote, up to behind the closing one. False at the end of the file.
bool LectorDeCsv::ValorEntreComillas() {
    const auto desde = linea_;
    char c = 0;
    bool cr = false;
    while (Caracter(c)) {
        if (c == '"') {
            if (!Caracter(c)) return false;
            if (c != '"') {
                --aqui_;
                return true;
            }
        } else if (c == '\r' || (c == '\n' && !cr)) {
            ++linea_;
        }
        cr = c == '\r';
        valor_ += c;
    }
    linea_ = desde;
    Fallar("a quote is opened and not closed");
}

void LectorDeCsv::PonerCelda(FilaDeHoja& fila, std::size_t lugar) {
    if (lugar >= maximoDeColumnas) Fallar("there are more than 16384 values");
    if (lugar >= fila.celdas.size()) fila.celdas.resize(lugar + 1);
    auto& celda = fila.celdas[lugar];
    if (utf8_) {
        celda.PonerUtf8(valor_);
    } else {
        celda.texto = valor_;
        celda.clase = valor_.empty() ? CeldaDeHoja::Clase::Vacia : CeldaDeHoja::Clase::Texto;
    }
    valor_.clear();
}

bool LectorDeCsv::Siguiente(FilaDeHoja& fila) {
    for (auto& celda : fila.celdas) celda.Vaciar();
    valor_.clear();
    std::size_t lugar = 0;
    bool hay = false;
    char c = 0;
    bool alPrincipio = true;  // of a value
    bool cerrado = false;     // behind a quote that closed
    largo_ = 0;
    while (Caracter(c)) {
        if (std::exchange(trasCR_, false) && c == '\n') continue;
        if (!hay) fila.numero = linea_;
        hay = true;
        if (c == '\n' || c == '\r') {
            trasCR_ = c == '\r';
            PonerCelda(fila, lugar);
            ++linea_;
            return true;
        }
        if (c == separador_) {
            PonerCelda(fila, lugar++);
            alPrincipio = true;
            cerrado = false;
        } else if (c == '"' && alPrincipio) {
            alPrincipio = false;
            cerrado = true;
            if (!ValorEntreComillas()) break;
        } else if (cerrado) {
            Fallar("something stands behind a closing quote");
        } else {
            alPrincipio = false;
            valor_ += c;
        }
    }
    if (hay) PonerCelda(fila, lugar);
    return hay;
}

namespace {

// The texts of a line as a separator parts it, without the empty ones at its end; none where it can't be read so.
std::vector<std::string> TextosDeLinea(const std::filesystem::path& ruta, std::uint64_t linea, char separador) {
    std::vector<std::string> textos;
    try {
        LectorDeCsv lector(ruta, separador);
        FilaDeHoja fila;
        while (lector.Siguiente(fila) && fila.numero < linea) {
        }
        if (fila.numero != linea) return {};
        for (const auto& celda : fila.celdas) textos.emplace_back(Recortar(celda.texto));
    } catch (const FalloDeArchivo&) {
        return {};
    }
    while (!textos.empty() && textos.back().empty()) textos.pop_back();
    return textos;
}

}  // namespace

char SeparadorDe(const std::filesystem::path& ruta, std::uint64_t linea, const std::vector<std::string>& titulos) {
    const auto conComas = TextosDeLinea(ruta, linea, ',');
    const auto conPuntos = TextosDeLinea(ruta, linea, ';');
    // In a line of one heading there is no separator, and either will do.
    if (conComas.size() < 2) return ';';
    if (conPuntos.size() < 2) return ',';
    const auto conocidos = [&titulos](const std::vector<std::string>& textos) {
        return std::all_of(textos.begin(), textos.end(), [&titulos](const std::string& texto) {
            return std::any_of(titulos.begin(), titulos.end(), [&](const auto& titulo) { return IgualesSinCaja(texto, titulo); });
        });
    };
    if (conocidos(conComas) == conocidos(conPuntos)) return 0;
    return conocidos(conComas) ? ',' : ';';
}

}  // namespace qor
