#include "input/sheet_format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "base/text.h"
#include "input/sheet_date.h"
#include "input/sheet_number.h"

namespace qor {

namespace {

constexpr int segundosPorDia = 86400;
constexpr int decimalesDeSegundo = 3;

// The formats with a number of their own, but for those that follow the settings of the computer.
constexpr std::array<std::pair<int, const char*>, 30> codigosFijos{{
    {0, "General"},
    {1, "0"},
    {2, "0.00"},
    {3, "#,##0"},
    {4, "#,##0.00"},
    {5, "\"$\"#,##0"},
    {6, "\"$\"#,##0"},
    {7, "\"$\"#,##0.00"},
    {8, "\"$\"#,##0.00"},
    {9, "0%"},
    {10, "0.00%"},
    {11, "0.00E+00"},
    {12, "# ?/?"},
    {13, "# ?\?/??"},
    {15, "d-mmm-yy"},
    {16, "d-mmm"},
    {17, "mmm-yy"},
    {18, "h:mm AM/PM"},
    {19, "h:mm:ss AM/PM"},
    {20, "h:mm"},
    {21, "h:mm:ss"},
    {37, "#,##0_);(#,##0)"},
    {38, "#,##0_);(#,##0)"},
    {39, "#,##0.00_);(#,##0.00)"},
    {40, "#,##0.00_);(#,##0.00)"},
    {45, "mm:ss"},
    {46, "[h]:mm:ss"},
    {47, "mm:ss.0"},
    {48, "##0.0E+0"},
    {49, "@"},
}};

bool EsFechaPorAjustes(int numero) {
    return numero == 14 || numero == 22 || (numero >= 27 && numero <= 36) || (numero >= 50 && numero <= 58);
}

// Amounts: with a currency or without one, and with or without decimals, as the settings have them.
bool EsImportePorAjustes(int numero) { return numero >= 41 && numero <= 44; }

char Minuscula(char letra) { return letra >= 'A' && letra <= 'Z' ? static_cast<char>(letra - 'A' + 'a') : letra; }

}  // namespace

FormatoDeNumero FormatoDeNumero::Fijo(int numero) {
    if (EsFechaPorAjustes(numero)) {
        FormatoDeNumero formato("yyyy-mm-dd");
        formato.porAjustes_ = true;
        return formato;
    }
    if (EsImportePorAjustes(numero)) {
        FormatoDeNumero formato(numero <= 42 ? "#,##0" : "#,##0.00");
        formato.porAjustes_ = true;
        return formato;
    }
    const auto* const lugar =
        std::find_if(codigosFijos.begin(), codigosFijos.end(), [numero](const auto& fijo) { return fijo.first == numero; });
    return FormatoDeNumero(lugar == codigosFijos.end() ? "General" : lugar->second);
}

// Reads the code of one section.
class FormatoDeNumero::Lectura {
public:
    explicit Lectura(std::string_view codigo) : codigo_(codigo) {}

    Seccion Leer() {
        if (codigo_.empty()) return {};
        while (lugar_ < codigo_.size()) Paso();
        return Cerrar();
    }

private:
    void Paso() {
        const char c = codigo_[lugar_];
        if (c == '"') return Entrecomillado();
        if (c == '[') return Corchetes();
        if (c == '\\' || c == '!')
            return Signos(codigo_.substr(std::min(lugar_ + 1, codigo_.size()), LargoDeCaracter(lugar_ + 1)), 1);
        if (c == '_' || c == '*') {
            lugar_ += 1 + LargoDeCaracter(lugar_ + 1);
            return;
        }
        if (std::string_view("0#?").find(c) != std::string_view::npos) return Cifra(c);
        if (IgualesSinCaja(codigo_.substr(lugar_, 7), "General")) {
            general_ = true;
            lugar_ += 7;
            return;
        }
        if (IgualesSinCaja(codigo_.substr(lugar_, 5), "AM/PM")) return Fecha(Pieza::Clase::MedioDia, 5);
        if (IgualesSinCaja(codigo_.substr(lugar_, 3), "A/P")) return SinCubrir();
        if (std::string_view("ymdhs").find(Minuscula(c)) != std::string_view::npos) return LetraDeFecha(Minuscula(c));
        Signo(c);
    }

    // Bytes of the UTF-8 character at a place.
    std::size_t LargoDeCaracter(std::size_t lugar) const {
        if (lugar >= codigo_.size()) return 0;
        std::size_t largo = 1;
        while (lugar + largo < codigo_.size() && (static_cast<unsigned char>(codigo_[lugar + largo]) & 0xC0) == 0x80) ++largo;
        return largo;
    }

    void SinCubrir() {
        sinCubrir_ = true;
        ++lugar_;
    }

    // Characters that stand for themselves, behind `antes` others that don't.
    void Signos(std::string_view texto, std::size_t antes) {
        lugar_ += antes + texto.size();
        seccion_.piezas.push_back({Pieza::Clase::Signos, 0, std::string(texto)});
        // A minus sign in front of the digits is that of the number; blanks are of no account.
        if (texto == "-" && !hayCifra_ && !seccion_.negativo) {
            seccion_.negativo = true;
        } else if (!EstaEnBlanco(texto) && texto != "\xC2\xA0") {
            seccion_.adornos = true;
        }
        if (hayCifra_ && !texto.empty()) trasSignos_ = true;
    }

    void Entrecomillado() {
        const auto fin = std::min(codigo_.find('"', lugar_ + 1), codigo_.size());
        Signos(codigo_.substr(lugar_ + 1, fin - lugar_ - 1), 1);
        lugar_ = fin + 1;
    }

    void Corchetes() {
        const auto fin = std::min(codigo_.find(']', lugar_), codigo_.size());
        const auto dentro = codigo_.substr(lugar_ + 1, fin - lugar_ - 1);
        const std::string letras = Minusculas(dentro);
        const auto soloDe = [&letras](char letra) {
            return !letras.empty() && letras.find_first_not_of(letra) == std::string::npos;
        };
        lugar_ = fin + 1;
        if (soloDe('h')) return Agregar(Pieza::Clase::Horas, letras.size());
        if (soloDe('m')) return Agregar(Pieza::Clase::Minutos, letras.size());
        if (soloDe('s')) return Agregar(Pieza::Clase::Segundos, letras.size());
        if (dentro.starts_with("$")) {
            if (!AntesDe(dentro.substr(1), '-').empty()) seccion_.adornos = true;
            return;
        }
        constexpr std::array colores = {"black", "blue", "cyan", "green", "magenta", "red", "white", "yellow"};
        const bool color = letras.starts_with("color") || std::find(colores.begin(), colores.end(), letras) != colores.end();
        if (!color) sinCubrir_ = true;
    }

    void Cifra(char c) {
        if (enFecha_) {
            // Only a fraction of a second has digits.
            auto& pieza = seccion_.piezas.back();
            if (c != '0' || pieza.clase != Pieza::Clase::Fraccion || ++pieza.largo > decimalesDeSegundo) sinCubrir_ = true;
            ++lugar_;
            return;
        }
        if (trasSignos_) sinCubrir_ = true;  // digits with texts between them
        hayCifra_ = true;
        if (coma_) coma_ = false;
        if (punto_) {
            ++seccion_.decimalesALoMas;
            if (c == '0') seccion_.decimalesAlMenos = seccion_.decimalesALoMas;
        } else if (c == '0' || seccion_.enteros > 0) {
            ++seccion_.enteros;
        }
        ++lugar_;
    }

    void LetraDeFecha(char letra) {
        std::size_t largo = 0;
        while (lugar_ + largo < codigo_.size() && Minuscula(codigo_[lugar_ + largo]) == letra) ++largo;
        switch (letra) {
            case 'y': return Fecha(Pieza::Clase::Ano, largo);
            case 'm': return Fecha(Pieza::Clase::Mes, largo);
            case 'd': return Fecha(Pieza::Clase::Dia, largo);
            case 'h': return Fecha(Pieza::Clase::Hora, largo);
            default: return Fecha(Pieza::Clase::Segundo, largo);
        }
    }

    void Fecha(Pieza::Clase clase, std::size_t largo) {
        lugar_ += largo;
        Agregar(clase, largo);
    }

    void Agregar(Pieza::Clase clase, std::size_t largo) {
        enFecha_ = true;
        seccion_.piezas.push_back({clase, static_cast<int>(largo)});
    }

    void Signo(char c) {
        if (enFecha_ && c == '.' && lugar_ + 1 < codigo_.size() && codigo_[lugar_ + 1] == '0') {
            ++lugar_;
            return Agregar(Pieza::Clase::Fraccion, 0);
        }
        if (!enFecha_ && c == '.') {
            if (punto_) sinCubrir_ = true;
            punto_ = hayCifra_ = true;
            ++lugar_;
            return;
        }
        if (!enFecha_ && c == ',') {
            coma_ = true;
            ++lugar_;
            return;
        }
        if (!enFecha_ && c == '%') {
            if (seccion_.porcentaje) sinCubrir_ = true;
            seccion_.porcentaje = true;
            ++lugar_;
            return;
        }
        if (c == '@') {
            texto_ = true;
            ++lugar_;
            return;
        }
        const bool letra = (Minuscula(c) >= 'a' && Minuscula(c) <= 'z') || (c == '/' && hayCifra_ && !enFecha_);
        if (letra) return SinCubrir();
        Signos(codigo_.substr(lugar_, LargoDeCaracter(lugar_)), 0);
    }

    // An "m" behind hours or in front of seconds is one of minutes.
    void PonerMinutos() {
        auto& piezas = seccion_.piezas;
        const auto esUna = [](const Pieza& p, std::initializer_list<Pieza::Clase> clases) {
            return std::find(clases.begin(), clases.end(), p.clase) != clases.end();
        };
        const auto vecina = [&piezas](std::size_t i, int paso) -> const Pieza* {
            for (auto j = static_cast<std::ptrdiff_t>(i) + paso; j >= 0 && j < static_cast<std::ptrdiff_t>(piezas.size());
                 j += paso) {
                if (piezas[static_cast<std::size_t>(j)].clase != Pieza::Clase::Signos) return &piezas[static_cast<std::size_t>(j)];
            }
            return nullptr;
        };
        for (std::size_t i = 0; i < piezas.size(); ++i) {
            if (piezas[i].clase != Pieza::Clase::Mes || piezas[i].largo > 2) continue;
            const auto* const antes = vecina(i, -1);
            const auto* const luego = vecina(i, 1);
            if ((antes != nullptr && esUna(*antes, {Pieza::Clase::Hora, Pieza::Clase::Horas})) ||
                (luego != nullptr && esUna(*luego, {Pieza::Clase::Segundo, Pieza::Clase::Segundos}))) {
                piezas[i].clase = Pieza::Clase::Minuto;
            }
        }
    }

    Seccion Cerrar() {
        constexpr int maximo = DecimalDeCelda::precision * 2;
        const int clases = (general_ ? 1 : 0) + (hayCifra_ ? 1 : 0) + (enFecha_ ? 1 : 0) + (texto_ ? 1 : 0);
        const bool deNumeros = general_ || hayCifra_ || enFecha_;
        const bool rara = clases > 1 || (coma_ && hayCifra_) || (!deNumeros && (seccion_.adornos || seccion_.porcentaje));
        if (sinCubrir_ || rara || seccion_.decimalesALoMas > maximo || seccion_.enteros > maximo) {
            seccion_.clase = Seccion::Clase::SinCubrir;
        } else if (enFecha_) {
            PonerMinutos();
            seccion_.clase = Seccion::Clase::Fecha;
        } else if (general_) {
            seccion_.clase = Seccion::Clase::General;
        } else if (hayCifra_) {
            seccion_.clase = Seccion::Clase::Numero;
        } else if (texto_) {
            seccion_.clase = Seccion::Clase::Texto;
        }
        return std::move(seccion_);
    }

    std::string_view codigo_;
    std::size_t lugar_ = 0;
    Seccion seccion_;
    bool general_ = false;
    bool hayCifra_ = false;
    bool trasSignos_ = false;
    bool enFecha_ = false;
    bool punto_ = false;
    bool coma_ = false;  // with no digit behind it: it would scale
    bool texto_ = false;
    bool sinCubrir_ = false;
};

FormatoDeNumero::FormatoDeNumero(std::string codigo) : codigo_(std::move(codigo)) {
    std::size_t inicio = 0;
    for (std::size_t i = 0; i <= codigo_.size(); ++i) {
        const char c = i < codigo_.size() ? codigo_[i] : ';';
        if (c == '"' || c == '[') {
            i = std::min(codigo_.find(c == '"' ? '"' : ']', i + 1), codigo_.size() - 1);
        } else if (c == '\\' || c == '_' || c == '*') {
            ++i;
        } else if (c == ';') {
            secciones_.push_back(Lectura(std::string_view(codigo_).substr(inicio, i - inicio)).Leer());
            inicio = i + 1;
        }
    }
    if (secciones_.empty()) secciones_.push_back({Seccion::Clase::SinCubrir});
    // What the first section shows is what the format is for; a format that isn't covered may still be one of dates.
    for (const auto& pieza : secciones_.front().piezas) {
        using Clase = Pieza::Clase;
        if (pieza.clase == Clase::Signos) continue;
        fecha_ = true;
        dia_ = dia_ || pieza.clase == Clase::Ano || pieza.clase == Clase::Mes || pieza.clase == Clase::Dia;
    }
}

bool FormatoDeNumero::EsPorcentaje() const { return secciones_.front().porcentaje; }

const FormatoDeNumero::Seccion& FormatoDeNumero::SeccionDe(double numero, bool& conSigno) const {
    const auto cuantas = secciones_.size();
    conSigno = numero < 0 && cuantas < 2;
    if (numero < 0 && cuantas >= 2) return secciones_[1];
    if (numero == 0 && cuantas >= 3) return secciones_[2];
    return secciones_[0];
}

std::optional<std::string> FormatoDeNumero::MostrarNumero(double numero, bool soloCifras) const {
    bool conSigno = false;
    const auto& deEste = SeccionDe(numero, conSigno);
    const auto& seccion = soloCifras ? secciones_[0] : deEste;
    const bool menos = soloCifras ? numero < 0 : conSigno || (numero < 0 && seccion.negativo);
    switch (seccion.clase) {
        case Seccion::Clase::Vacia: return soloCifras ? std::nullopt : std::optional<std::string>("");
        case Seccion::Clase::General:
        case Seccion::Clase::Texto:
            if (seccion.adornos && !soloCifras) return std::nullopt;
            return (menos ? "-" : "") + NumeroCompleto(std::fabs(numero));
        case Seccion::Clase::Numero: break;
        default: return std::nullopt;
    }
    if ((seccion.adornos || (seccion.negativo && (numero >= 0 || conSigno))) && !soloCifras) return std::nullopt;
    if (seccion.porcentaje && soloCifras) return std::nullopt;
    DecimalDeCelda decimal(std::fabs(numero));
    if (seccion.porcentaje) decimal.Desplazar(2);
    decimal.Redondear(seccion.decimalesALoMas);
    const bool signo = menos && !decimal.EsCero();
    auto cifras = decimal.Texto(std::max(seccion.enteros, soloCifras ? 1 : 0), seccion.decimalesAlMenos, '.');
    return (signo ? "-" : "") + cifras + (seccion.porcentaje ? "%" : "");
}

std::optional<std::string> FormatoDeNumero::MostrarFecha(double numero, const Seccion& seccion) {
    using Clase = Pieza::Clase;
    const auto hay = [&seccion](auto condicion) { return std::any_of(seccion.piezas.begin(), seccion.piezas.end(), condicion); };
    const bool conDia = hay([](const Pieza& p) { return p.clase == Clase::Ano || p.clase == Clase::Mes || p.clase == Clase::Dia; });
    const bool conMedioDia = hay([](const Pieza& p) { return p.clase == Clase::MedioDia; });
    constexpr double ultimo = 2958466;
    if (!(numero >= 0 && numero < ultimo)) return std::nullopt;
    // The smallest part that is shown is rounded when it is seconds or less; of hours and minutes only those that are over count.
    int decimales = 0;
    for (const auto& pieza : seccion.piezas) {
        if (pieza.clase != Clase::Fraccion) continue;
        if (decimales != 0 && decimales != pieza.largo) return std::nullopt;
        decimales = pieza.largo;
    }
    const bool conSegundos =
        decimales > 0 || hay([](const Pieza& p) { return p.clase == Clase::Segundo || p.clase == Clase::Segundos; });
    std::int64_t porSegundo = 1;
    for (int i = 0; i < (conSegundos ? decimales : decimalesDeSegundo); ++i) porSegundo *= 10;
    const std::int64_t unidades = std::llround(numero * segundosPorDia * static_cast<double>(porSegundo));
    const std::int64_t segundos = unidades / porSegundo;
    const auto dia = DiaDeNumero(segundos / segundosPorDia);
    if (conDia && !dia) return std::nullopt;
    const std::int64_t delDia = segundos % segundosPorDia;
    std::string texto;
    const auto cifras = [&texto](std::int64_t valor, int largo) {
        char buffer[32];
        std::snprintf(buffer, sizeof buffer, "%0*lld", largo, static_cast<long long>(valor));
        texto += buffer;
    };
    for (const auto& pieza : seccion.piezas) {
        const int corto = std::min(pieza.largo, 2);
        switch (pieza.clase) {
            case Clase::Signos: texto += pieza.texto; break;
            case Clase::Ano:
                if (pieza.largo <= 2) {
                    cifras(dia->ano % 100, 2);
                } else {
                    cifras(dia->ano, 4);
                }
                break;
            case Clase::Mes:
                if (pieza.largo > 2) return std::nullopt;
                cifras(dia->mes, corto);
                break;
            case Clase::Dia:
                if (pieza.largo > 2) return std::nullopt;
                cifras(dia->dia, corto);
                break;
            case Clase::Hora: {
                const auto hora = delDia / 3600;
                cifras(conMedioDia ? (hora + 11) % 12 + 1 : hora, corto);
                break;
            }
            case Clase::Minuto: cifras(delDia / 60 % 60, corto); break;
            case Clase::Segundo: cifras(delDia % 60, corto); break;
            case Clase::Fraccion:
                texto += '.';
                cifras(unidades % porSegundo, pieza.largo);
                break;
            case Clase::MedioDia: texto += delDia / 3600 < 12 ? "AM" : "PM"; break;
            case Clase::Horas: cifras(segundos / 3600, pieza.largo); break;
            case Clase::Minutos: cifras(segundos / 60, pieza.largo); break;
            case Clase::Segundos: cifras(segundos, pieza.largo); break;
        }
    }
    return texto;
}

std::optional<std::string> FormatoDeNumero::Mostrar(double numero) const {
    if (porAjustes_) return std::nullopt;
    bool conSigno = false;
    const auto& seccion = SeccionDe(numero, conSigno);
    if (seccion.clase != Seccion::Clase::Fecha) return MostrarNumero(numero, false);
    return MostrarFecha(numero, seccion);
}

std::optional<std::string> FormatoDeNumero::MostrarCifras(double numero) const {
    if (fecha_ || EsPorcentaje()) return std::nullopt;
    return MostrarNumero(numero, true);
}

}  // namespace qor
