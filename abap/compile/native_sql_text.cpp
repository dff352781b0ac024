#include "abap/compile/native_sql_text.h"

#include <algorithm>
#include <utility>

namespace qor::abap {

namespace {

bool EsBlanco(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool EsFinDeLinea(char c) { return c == '\r' || c == '\n'; }
bool EsLetra(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}
bool EsDePalabra(char c) { return EsLetra(c) || (c >= '0' && c <= '9') || c == '$' || c == '#'; }
bool EmpiezaVariable(char c) { return EsLetra(c) || c == '<' || c == '/' || c == '%'; }
bool EsDeVariable(char c, bool simbolo) {
    return EsDePalabra(c) || c == '-' || c == '/' || c == '%' || c == '&' || (simbolo && c == '>');
}

class LectorDeTexto {
public:
    explicit LectorDeTexto(const TextoAjeno& ajeno) : ajeno_(ajeno), texto_(ajeno.texto) {}

    TextoNativo Leer() {
        while (lugar_ < texto_.size()) Paso();
        return std::move(leido_);
    }

private:
    char Tras(std::size_t n = 1) const { return lugar_ + n < texto_.size() ? texto_[lugar_ + n] : '\0'; }

    void Paso() {
        const char c = texto_[lugar_];
        if (c == '*' && lugar_ > 0 && EsFinDeLinea(texto_[lugar_ - 1])) {
            SaltarLinea();
        } else if (c == '-' && Tras() == '-') {
            const std::size_t inicio = lugar_;
            SaltarLinea();
            leido_.comentarios.push_back(texto_.substr(inicio, lugar_ - inicio));
        } else if (c == '/' && Tras() == '*') {
            const auto fin = texto_.find("*/", lugar_ + 2);
            const std::size_t inicio = std::exchange(lugar_, fin == std::string_view::npos ? texto_.size() : fin + 2);
            leido_.comentarios.push_back(texto_.substr(inicio, lugar_ - inicio));
            leido_.texto += ' ';
        } else if (c == '\'' || c == '"' || c == '`') {
            CopiarHasta(c);
        } else if (c == '[') {
            CopiarHasta(']');
        } else if (c == ':' && EmpiezaVariable(Tras()) && (lugar_ == 0 || texto_[lugar_ - 1] != ':')) {
            leido_.entradas.push_back(LeerVariable());
            leido_.texto += '?';
        } else if (EsLetra(c)) {
            LeerPalabra();
        } else {
            if (c == '(') ++hondura_;
            if (c == ')') --hondura_;
            if (!EsBlanco(c) && leido_.primera.texto.empty()) leido_.primera = PalabraEn(lugar_, lugar_ + 1);
            leido_.texto += c;
            ++lugar_;
        }
    }

    void SaltarLinea() {
        while (lugar_ < texto_.size() && !EsFinDeLinea(texto_[lugar_])) ++lugar_;
    }

    void CopiarHasta(char fin) {
        const std::size_t inicio = lugar_;
        const auto donde = texto_.find(fin, lugar_ + 1);
        lugar_ = donde == std::string_view::npos ? texto_.size() : donde + 1;
        if (leido_.primera.texto.empty()) leido_.primera = PalabraEn(inicio, lugar_);
        leido_.texto += texto_.substr(inicio, lugar_ - inicio);
        if (fin != '\'' && lugar_ - inicio > 2) leido_.citados.push_back(texto_.substr(inicio + 1, lugar_ - inicio - 2));
    }

    void LeerPalabra() {
        const std::size_t inicio = lugar_;
        while (lugar_ < texto_.size() && EsDePalabra(texto_[lugar_])) ++lugar_;
        const Palabra palabra = PalabraEn(inicio, lugar_);
        if (leido_.primera.texto.empty()) leido_.primera = palabra;
        if (palabra.clave == "INTO"_c && hondura_ == 0) return LeerDestinos(palabra);
        leido_.texto += palabra.texto;
    }

    Palabra LeerVariable() {
        const std::size_t inicio = ++lugar_;
        const bool simbolo = texto_[lugar_] == '<';
        do {
            ++lugar_;
        } while (lugar_ < texto_.size() && EsDeVariable(texto_[lugar_], simbolo));
        return PalabraEn(inicio, lugar_);
    }

    void PasarBlancos() {
        while (lugar_ < texto_.size() && EsBlanco(texto_[lugar_])) ++lugar_;
    }

    // :A, :B
    void LeerDestinos(const Palabra& into) {
        do {
            PasarBlancos();
            if (lugar_ >= texto_.size() || texto_[lugar_] != ':' || !EmpiezaVariable(Tras())) {
                leido_.sobrantes.push_back(into);
                return;
            }
            leido_.destinos.push_back(LeerVariable());
            PasarBlancos();
        } while (lugar_ < texto_.size() && texto_[lugar_] == ',' && ++lugar_ > 0);
        leido_.texto += ' ';
    }

    Palabra PalabraEn(std::size_t inicio, std::size_t fin) const {
        Palabra palabra;
        palabra.texto = texto_.substr(inicio, fin - inicio);
        palabra.clave = ClaveDe(palabra.texto);
        palabra.largoBase = static_cast<std::uint32_t>(std::min(palabra.texto.size(), palabra.texto.find('-')));
        palabra.base = ClaveDe(palabra.texto.substr(0, palabra.largoBase));
        palabra.linea = ajeno_.linea;
        std::size_t principio = 0;
        for (std::size_t i = 0; i < inicio; ++i) {
            if (!EsFinDeLinea(texto_[i]) || (texto_[i] == '\r' && texto_[i + 1] == '\n')) continue;
            ++palabra.linea;
            principio = i + 1;
        }
        palabra.columna = static_cast<int>(inicio - principio) + (principio == 0 ? ajeno_.columna : 1);
        return palabra;
    }

    const TextoAjeno& ajeno_;
    std::string_view texto_;
    std::size_t lugar_ = 0;
    int hondura_ = 0;  // of brackets
    TextoNativo leido_;
};

}  // namespace

TextoNativo LeerTextoNativo(const TextoAjeno& ajeno) { return LectorDeTexto(ajeno).Leer(); }

}  // namespace qor::abap
