#include "base/values.h"

#include <algorithm>
#include <cmath>

#include "base/failure.h"
#include "base/text.h"

namespace qor {

namespace {

// A sign, digits and one point, with at least one digit, and nothing else.
bool EsNumero(std::string_view texto) {
    std::size_t i = !texto.empty() && (texto[0] == '-' || texto[0] == '+') ? 1 : 0;
    bool hayPunto = false;
    bool hayDigito = false;
    for (; i < texto.size(); ++i) {
        if (texto[i] >= '0' && texto[i] <= '9') {
            hayDigito = true;
        } else if (texto[i] == '.' && !hayPunto) {
            hayPunto = true;
        } else {
            return false;
        }
    }
    return hayDigito;
}

// Rounded to the nearest, and a half to the even neighbour.
int Entero16(std::string_view texto) {
    const double valor = std::nearbyint(Numero(texto));
    if (valor < -32768 || valor > 32767) throw FalloDeEjecucion("a number beyond 16 bits");
    return static_cast<int>(valor);
}

// "007" is the number 7, and so is "+7.00".
std::string TextoCanonico(std::string_view token) {
    std::string signo;
    if (token[0] == '-' || token[0] == '+') {
        if (token[0] == '-') signo = "-";
        token.remove_prefix(1);
    }
    std::string entera(AntesDe(token, '.'));
    std::string fraccion(DespuesDe(token, '.'));
    entera.erase(0, entera.find_first_not_of('0'));
    fraccion.erase(fraccion.find_last_not_of('0') + 1);
    if (entera.empty()) entera = "0";
    if (entera == "0" && fraccion.empty()) return entera;
    return signo + entera + (fraccion.empty() ? "" : "." + fraccion);
}

}  // namespace

std::string Valor::ComoTexto() const {
    switch (clase) {
        case Clase::Numero: return TextoCanonico(texto);
        case Clase::Booleano: return texto == "#TRUE#" ? "True" : "False";
        case Clase::Texto: break;
    }
    return texto;
}

int Valor::ComoEntero() const {
    if (clase == Clase::Booleano) return texto == "#TRUE#" ? 1 : 0;
    const auto cortado = Recortar(texto);
    if (!EsNumero(cortado)) throw FalloDeEjecucion("a text where a number belongs");
    return Entero16(cortado);
}

bool Valor::ComoBooleano() const {
    if (clase == Clase::Booleano) return texto == "#TRUE#";
    return ComoEntero() != 0;
}

Valor LectorValores::Leer() {
    if (AlFinal()) throw FalloDeEjecucion("the file ends inside a record");
    while (!AlFinal() && texto_[lugar_] == ' ') ++lugar_;
    Valor valor;
    if (!AlFinal() && texto_[lugar_] == '"') {
        valor.entreComillas = true;
        valor.texto = LeerCadena();
        // What stands between the closing quote and the separator is dropped.
        lugar_ = std::min(texto_.find_first_of(",\r\n", lugar_), texto_.size());
    } else {
        const auto fin = std::min(texto_.find_first_of(",\r\n", lugar_), texto_.size());
        valor.texto = Recortar(texto_.substr(lugar_, fin - lugar_));
        lugar_ = fin;
        if (valor.texto == "#TRUE#" || valor.texto == "#FALSE#") {
            valor.clase = Valor::Clase::Booleano;
        } else if (EsNumero(valor.texto)) {
            valor.clase = Valor::Clase::Numero;
        }
    }
    PasarSeparador();
    return valor;
}

int LectorValores::Linea() {
    for (; contado_ < lugar_; ++contado_) {
        const bool segundoDelPar = contado_ > 0 && texto_[contado_ - 1] == '\r' && texto_[contado_] == '\n';
        if (texto_[contado_] == '\r' || (texto_[contado_] == '\n' && !segundoDelPar)) ++linea_;
    }
    return linea_;
}

int LectorValores::LeerEtiqueta() {
    const Valor valor = Leer();
    return valor.clase == Valor::Clase::Numero ? Entero16(valor.texto) : 0;
}

std::string LectorValores::LeerCadena() {
    std::string cadena;
    for (++lugar_; lugar_ < texto_.size();) {
        const auto comilla = std::min(texto_.find('"', lugar_), texto_.size());
        cadena.append(texto_, lugar_, comilla - lugar_);
        lugar_ = std::min(comilla + 1, texto_.size());
        const bool doble = lugar_ < texto_.size() && texto_[lugar_] == '"';
        if (!doble) break;
        cadena += '"';
        ++lugar_;
    }
    return cadena;
}

void LectorValores::PasarSeparador() {
    if (AlFinal()) return;
    const bool retorno = texto_[lugar_++] == '\r';
    if (retorno && !AlFinal() && texto_[lugar_] == '\n') ++lugar_;
}

std::string CampoTexto(std::string_view texto) { return '"' + ReemplazarTodo(texto, "\"", "\"\"") + '"'; }

std::string CampoBooleano(bool valor) { return valor ? "#TRUE#" : "#FALSE#"; }

}  // namespace qor
