#include "practice/csv.h"

#include <algorithm>

#include "base/code_page.h"
#include "base/failure.h"

namespace qor {

namespace {

constexpr std::string_view marcaUtf8 = "\xEF\xBB\xBF";

// How many bytes a character of UTF-8 takes that begins here; 0 where none does.
std::size_t LargoUtf8(std::string_view texto) {
    const auto byte = [&](std::size_t i) { return i < texto.size() ? static_cast<unsigned char>(texto[i]) : 0U; };
    const auto sigue = [&](std::size_t i) { return (byte(i) & 0xC0U) == 0x80U; };
    const unsigned primero = byte(0);
    if (primero < 0x80) return 1;
    if (primero >= 0xC2 && primero <= 0xDF) return sigue(1) ? 2 : 0;
    if (primero >= 0xE0 && primero <= 0xEF) return sigue(1) && sigue(2) ? 3 : 0;
    if (primero >= 0xF0 && primero <= 0xF4) return sigue(1) && sigue(2) && sigue(3) ? 4 : 0;
    return 0;
}

bool EsUtf8(std::string_view texto) {
    while (!texto.empty()) {
        const auto largo = LargoUtf8(texto);
        if (largo == 0) return false;
        texto.remove_prefix(largo);
    }
    return true;
}

}  // namespace

LectorCsv::LectorCsv(std::string_view texto) : texto_(texto), utf8_(EsUtf8(texto)) {
    if (texto_.starts_with(marcaUtf8)) texto_.remove_prefix(marcaUtf8.size());
    while (texto_.ends_with('\n') || texto_.ends_with('\r')) texto_.remove_suffix(1);
}

bool LectorCsv::EsFinDeLinea() const { return lugar_ < texto_.size() && (texto_[lugar_] == '\n' || texto_[lugar_] == '\r'); }

void LectorCsv::SaltarFinDeLinea() {
    if (texto_[lugar_] == '\r' && lugar_ + 1 < texto_.size() && texto_[lugar_ + 1] == '\n') ++lugar_;
    ++lugar_;
    ++linea_;
}

bool LectorCsv::Siguiente(LineaCsv& linea) {
    if (lugar_ >= texto_.size()) return false;
    linea.linea = linea_;
    linea.campos.clear();
    for (;;) {
        lineaDeCampo_ = linea_;
        linea.campos.push_back(LeerCampo());
        if (lugar_ >= texto_.size()) return true;
        if (EsFinDeLinea()) {
            SaltarFinDeLinea();
            return true;
        }
        ++lugar_;  // the comma
    }
}

std::string LectorCsv::LeerCampo() {
    if (lugar_ >= texto_.size() || texto_[lugar_] != '"') {
        const auto hasta = std::min(texto_.find_first_of(",\r\n", lugar_), texto_.size());
        const auto campo = texto_.substr(lugar_, hasta - lugar_);
        lugar_ = hasta;
        return EnPagina(campo);
    }
    std::string campo;
    for (++lugar_;; ++lugar_) {
        if (lugar_ >= texto_.size()) Fallar("a quote is not closed");
        const char c = texto_[lugar_];
        if (c == '\n' || (c == '\r' && texto_.substr(lugar_ + 1, 1) != "\n")) ++linea_;
        if (c == '"') {
            if (texto_.substr(lugar_ + 1, 1) != "\"") break;
            ++lugar_;
        }
        campo += c;
    }
    ++lugar_;
    if (lugar_ < texto_.size() && texto_[lugar_] != ',' && !EsFinDeLinea()) Fallar("something stands behind a closing quote");
    return EnPagina(campo);
}

std::string LectorCsv::EnPagina(std::string_view campo) const {
    if (campo.find('\0') != std::string_view::npos) Fallar("it holds a character with the code 0");
    if (!utf8_) return std::string(campo);
    auto texto = DesdeUtf8(campo);
    if (!texto) Fallar("it holds a character that windows-1252 lacks");
    return std::move(*texto);
}

void LectorCsv::Fallar(const std::string& motivo) const {
    throw FalloDeEjecucion("line " + std::to_string(lineaDeCampo_) + ": " + motivo);
}

std::string CampoCsv(std::string_view valor) {
    if (valor.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(valor);
    std::string texto = "\"";
    for (const char c : valor) {
        if (c == '"') texto += '"';
        texto += c;
    }
    return texto + "\"";
}

}  // namespace qor
