#include <gtest/gtest.h>

#include <cstring>
#include <deque>
#include <functional>
#include <map>
#include <random>
#include <sstream>

#include "abap/short_dump.h"
#include "abap/values/comparison.h"
#include "abap/values/conversion.h"
#include "abap/values/internal_table.h"
#include "abap/values/number.h"
#include "abap/values/output_format.h"
#include "abap/values/text_operations.h"

namespace qor::abap {
namespace {

// Fields that the rows of a table below spell: their type, such as "C5", "P3.2" or "STRING", and their value, of characters as
// they stand in memory, of X as hexadecimal digits. Structures are "S".
class Campos {
public:
    Campo Hacer(const std::string& tipo, const std::string& valor) {
        Campo campo;
        const auto& propia = bytes_.emplace_back(valor);
        if (tipo == "STRING") {
            campo.tipo = Tipo::Cadena;
            campo.cadena = &bytes_.back();
            return campo;
        }
        campo.tipo = std::map<char, Tipo>{{'C', Tipo::C}, {'N', Tipo::N}, {'D', Tipo::D}, {'T', Tipo::T},         {'I', Tipo::I},
                                          {'P', Tipo::P}, {'F', Tipo::F}, {'X', Tipo::X}, {'S', Tipo::Estructura}}
                         .at(tipo[0]);
        campo.largo = tipo == "I"                  ? 4
                      : tipo == "F" || tipo == "D" ? 8
                      : tipo == "T"                ? 6
                                                   : static_cast<std::uint32_t>(std::stoi(tipo.substr(1)));
        const auto punto = tipo.find('.');
        if (punto != std::string::npos) campo.decimales = static_cast<std::uint8_t>(std::stoi(tipo.substr(punto + 1)));
        auto& memoria = bytes_.emplace_back(Codificar(campo, propia));
        campo.datos = reinterpret_cast<std::uint8_t*>(memoria.data());
        return campo;
    }

    static std::string Leer(const Campo& campo) {
        if (campo.tipo == Tipo::I) {
            std::int32_t valor = 0;
            std::memcpy(&valor, campo.datos, 4);
            return std::to_string(valor);
        }
        if (campo.tipo == Tipo::F) {
            double valor = 0;
            std::memcpy(&valor, campo.datos, 8);
            char texto[32];
            std::snprintf(texto, sizeof texto, "%.17g", valor);
            return texto;
        }
        if (campo.tipo != Tipo::P && campo.tipo != Tipo::X) return std::string(campo.Texto());
        std::string digitos;
        for (std::uint32_t i = 0; i < campo.largo; ++i) {
            for (const int medio : {campo.datos[i] >> 4, campo.datos[i] & 15}) digitos += "0123456789ABCDEF"[medio];
        }
        return digitos;
    }

private:
    static std::string Codificar(const Campo& campo, const std::string& valor) {
        std::string bytes = valor;
        if (campo.tipo == Tipo::I) {
            const std::int32_t entero = valor.empty() ? 0 : std::stoi(valor);
            bytes.assign(reinterpret_cast<const char*>(&entero), 4);
        } else if (campo.tipo == Tipo::F) {
            const double flotante = valor.empty() ? 0 : std::stod(valor);
            bytes.assign(reinterpret_cast<const char*>(&flotante), 8);
        } else if (campo.tipo == Tipo::P || campo.tipo == Tipo::X) {
            std::string digitos = valor;
            if (campo.tipo == Tipo::P) {
                const bool negativo = valor.find('-') != std::string::npos;
                std::erase_if(digitos, [](char c) { return c < '0' || c > '9'; });
                digitos += negativo ? 'D' : 'C';
            }
            digitos.insert(0, 2 * campo.largo - digitos.size(), '0');
            bytes.clear();
            for (std::size_t i = 0; i < digitos.size(); i += 2)
                bytes += static_cast<char>(std::stoi(digitos.substr(i, 2), nullptr, 16));
        } else {
            bytes.resize(campo.largo, campo.tipo == Tipo::C || campo.tipo == Tipo::Estructura ? ' ' : '0');
        }
        return bytes;
    }

    std::deque<std::string> bytes_;
};

// What an action leaves, or the name of the short dump that it ends in.
std::string Resultado(const std::function<std::string()>& accion) {
    try {
        return accion();
    } catch (const Volcado& volcado) {
        return volcado.Nombre();
    }
}

// The rows of a table: cases between blanks, each of parts between bars; "~" is a blank.
std::vector<std::vector<std::string>> Casos(std::string_view texto) {
    std::vector<std::vector<std::string>> casos(1, {""});
    for (const char c : texto) {
        if (c == ' ') {
            casos.push_back({""});
        } else if (c == '|') {
            casos.back().emplace_back();
        } else {
            casos.back().back() += c == '~' ? ' ' : c;
        }
    }
    return casos;
}

TEST(AbapValues, MoveConvertsEveryTypeIntoEveryOther) {
    const auto casos = Casos(
        "C3|abc|C5|abc~~ C5|abcde|C3|abc C3|abc|S5|abc~~ S4|ab|C3|ab~ S3|abc|S5|abc~~ C6|a1b23~|N5|00123 C6|123456|N4|3456 "
        "C3||N3|000 S5|12-3|N4|0123 C10|20240131xx|D|20240131 C4|2024|D|2024~~~~ C6|123456|T|123456 C8|~-~12.5|I|-13 "
        "C8|12.4-|I|-12 C3||I|0 C5|+7|I|7 C5|1~2|I|CONVT_NO_NUMBER C5|-|I|CONVT_NO_NUMBER C5|1,5|P3.2|CONVT_NO_NUMBER "
        "C2|AB|I|CONVT_NO_NUMBER C11|99999999999|I|CONVT_OVERFLOW C6|12.345|P3.2|01235C C6|-0.005|P3.2|00001D "
        "C6|1000|P2|COMPUTE_BCD_OVERFLOW C7|1.5E+02|F|150 C5|1.5|F|1.5 C7|1.5E+02|I|CONVT_NO_NUMBER C2|x|F|CONVT_NO_NUMBER "
        "C5|1AF|X2|1AF0 C5|1Ag|X2|1A00 C6|ABCDEF|X2|ABCD C5|ab~|STRING|ab N3|007|C5|007~~ N5|12345|C3|123 N3|123|N5|00123 "
        "N5|12345|N3|345 N3|~~~|N3|~~~ N8|20240131|D|20240131 N3|012|I|12 N3|012|P2.1|120C N3|012|F|12 N3|255|X2|00FF "
        "N3|012|STRING|012 N12|999999999999|I|CONVT_OVERFLOW N3|012|S4|012~ N3|1x2|I|CONVT_NO_NUMBER D|20000101|C10|20000101~~ "
        "D|20000101|N10|0020000101 D|20000101|I|730121 D|20230229|I|0 D|15821010|I|577737 D|00010102|I|1 D|99991231|P4|3652060C "
        "D|20000101|X3|0B2409 D|20000101|T|MOVE_NOT_SUPPORTED D|20240131|STRING|20240131 T|010203|I|3723 T|010203|C4|0102 "
        "T|010203|F|3723 T|010203|N4|0203 I|123|C6|~~123~ I|-123|C6|~~123- I|123|C3|123 I|1234|C3|*34 I|-123|C3|*3- I|0|C2|0~ "
        "I|7|S3|~7~ I|-7|N3|007 I|1234|N3|234 I|730121|D|20000101 I|577737|D|15821015 I|577736|D|15821004 I|-5|D|00000000 "
        "I|86399|T|235959 I|-1|T|235959 I|12|P3.2|01200C I|1000|P2|COMPUTE_BCD_OVERFLOW I|-3|F|-3 I|-2|X2|FFFE "
        "I|258|X6|000000000102 I|12|STRING|12~ I|-12|STRING|12- P4.2|12.50|C8|~~12.50~ P4.2|-0.50|C8|~~~0.50- "
        "P4.2|12.50|C5|12.50 P4.2|123.50|C4|*.50 P4.2|12.50|I|13 P4.2|-12.50|I|-13 P4.2|12.45|P4.1|0000125C "
        "P4.2|99999.99|P3.2|COMPUTE_BCD_OVERFLOW P4.2|12.50|N4|0013 P4.2|-12.25|F|-12.25 P4|730121|D|20000101 P4|61|T|000101 "
        "P4|255|X1|FF P4.1|1.5|STRING|1.5~ P6|99999999999|I|CONVT_OVERFLOW F|12.34|C24|~~1.2340000000000000E+01 "
        "F|-0.5|C8|-5.0E-01 F|12.34|C4|*~~~ F|2.5|I|3 F|-2.5|I|-3 F|1E10|I|CONVT_OVERFLOW F|0.125|P3.2|00013C "
        "F|1E5|P2|COMPUTE_BCD_OVERFLOW F|-7.6|N3|008 F|1|D|00010102 F|1|T|000001 F|16|X1|10 F|1|STRING|1.0000000000000000E+00 "
        "X2|1AF0|C6|1AF0~~ X2|1AF0|C2|1A X2|0102|X3|010200 X3|010203|X2|0102 X2|FFFF|I|65535 X4|FFFFFFFE|I|-2 X1|10|N3|016 "
        "X1|10|P2|016C X1|10|F|16 X1|3D|T|000101 X1|01|D|00010102 X2|1AF0|STRING|1AF0 STRING|ab~|C4|ab~~ STRING|ab~|STRING|ab~ "
        "STRING|a12|N3|012 STRING|12.5|P3.1|00125C STRING||I|0 STRING|20240131|D|20240131 STRING|0F|X1|0F STRING|abcd|S2|ab");
    for (const auto& caso : casos) {
        Campos campos;
        const auto origen = campos.Hacer(caso[0], caso[1]);
        auto destino = campos.Hacer(caso[2], "");
        const auto mover = [&] {
            Mover(origen, destino);
            return Campos::Leer(destino);
        };
        EXPECT_EQ(Resultado(mover), caso[3]) << caso[0] << " " << caso[1] << " to " << caso[2];
        destino.soloLectura = true;
        EXPECT_EQ(Resultado(mover), "MOVE_TO_LIT_NOTALLOWED") << caso[0] << " to " << caso[2];
    }
}

TEST(AbapValues, DatesAndDaysAreOneSequence) {
    Campos campos;
    const auto fecha = campos.Hacer("D", "");
    std::string anterior = "00010101";
    for (int dia = 1; dia <= 3652060; dia += 11) {
        PonerEntero(dia, fecha);
        ASSERT_GT(fecha.Texto(), anterior) << dia;
        ASSERT_EQ(static_cast<int>(LeerNumero(fecha, Calculo::Entero).digitos), dia);
        anterior = fecha.Texto();
    }
    EXPECT_GT(anterior, "99991220");
}

// "!" is a comparison that ends the report.
TEST(AbapValues, ComparisonFollowsTheTypes) {
    const auto casos = Casos(
        "C3|ab|=|C6|ab C3|abc|>|C5|ab C2|ab|<|C3|abc C2|ab|>|C3|ab\001 C2|\344|>|C2|z S4|ab|=|C2|ab STRING|ab|=|C4|ab "
        "STRING||=|C1|~ N3|007|=|N5|00007 N5|00010|>|N2|09 N40|1|>|N2|99 N3|007|=|C3|7 C4|7.0|=|N3|007 C4|~7-|<|N3|000 "
        "N3|007|!|C3|x N3|~~~|=|I|0 C5|~12|=|I|12 C5|1.5|>|I|1 C5|abc|!|I|1 S4|12|=|I|12 I|12|=|P4.2|12.00 I|12|<|P4.2|12.01 "
        "I|-1|<|N3|000 P4.2|-1.50|<|P3.1|-1.4 F|0.5|=|P4.2|0.50 F|1.5|=|C6|1.5E0 F|2|>|I|1 D|20240101|>|D|20231231 "
        "D|20240101|=|C8|20240101 D|20000101|=|I|730121 T|000100|=|I|60 D|20240101|=|N8|20240101 X2|00FF|=|I|255 "
        "X1|FF|>|X2|FE01 X1|FF|=|X2|FF00 X1|1A|=|C3|1A "
        "C40|1234567890123456789012345678901234567890|>|N39|999999999999999999999999999999999999999");
    for (const auto& caso : casos) {
        Campos campos;
        const auto a = campos.Hacer(caso[0], caso[1]);
        const auto b = campos.Hacer(caso[3], caso[4]);
        std::int32_t fdpos = -1;
        const auto comparar = [&](const Campo& x, const Campo& y) {
            const auto orden = Resultado([&] {
                const int signo = Comparar(x, y);
                EXPECT_EQ(Vale(Relacion::EQ, x, y, fdpos), signo == 0);
                EXPECT_EQ(Vale(Relacion::NE, x, y, fdpos), signo != 0);
                EXPECT_EQ(Vale(Relacion::LT, x, y, fdpos), signo < 0);
                EXPECT_EQ(Vale(Relacion::LE, x, y, fdpos), signo <= 0);
                EXPECT_EQ(Vale(Relacion::GT, x, y, fdpos), signo > 0);
                EXPECT_EQ(Vale(Relacion::GE, x, y, fdpos), signo >= 0);
                return std::string(signo < 0 ? "<" : signo > 0 ? ">" : "=");
            });
            return orden == "CONVT_NO_NUMBER" ? "!" : orden;
        };
        const auto alReves = caso[2] == "<" ? ">" : caso[2] == ">" ? "<" : caso[2];
        EXPECT_EQ(comparar(a, b), caso[2]) << caso[0] << " " << caso[1] << " with " << caso[3] << " " << caso[4];
        EXPECT_EQ(comparar(b, a), alReves) << caso[3] << " " << caso[4] << " with " << caso[0] << " " << caso[1];
        EXPECT_EQ(fdpos, -1);
    }
}

// "+" is a relation that holds; behind it SY-FDPOS.
TEST(AbapValues, RelationsOnTextsSetTheirPosition) {
    using enum Relacion;
    const std::map<std::string, Relacion> relaciones = {{"CO", CO}, {"CN", CN}, {"CA", CA}, {"NA", NA},
                                                        {"CS", CS}, {"NS", NS}, {"CP", CP}, {"NP", NP}};
    const auto casos = Casos(
        "C4|1234|CO|C10|0123456789|+|4 C5|1234|CO|C10|0123456789|-|4 C5|1234|CO|C11|0123456789~|+|5 "
        "C4|12a4|CN|C10|0123456789|+|2 C2|12|CN|C2|12|-|2 STRING||CO|C1|x|+|0 C4|abcd|CA|C2|xc|+|2 C4|ab|CA|C2|x~|+|2 "
        "C4|abcd|CA|C2|xy|-|4 C4|abcd|NA|C2|xy|+|4 C4|abcd|NA|C1|a|-|0 C6|ABCDE|CS|C4|cd|+|2 C6|ABCDE|CS|C2|x|-|6 "
        "C6|ABCDE|NS|C2|x|+|6 C6|\304bc|CS|C2|\344B|+|0 C6|ABC|CS|C2||+|0 C6|-12|CS|C1|-|+|0 C6|AbcDe|CP|C5|*CD*|+|2 "
        "C6|AbcDe|CP|C5|ab*|+|0 C6|AbcDe|CP|C5|*d|-|6 C6|AbcDe|CP|C5|*de|+|3 C6|AbcDe|CP|C5|+b+d+|+|0 C6|AbcDe|CP|C4|+b+d|-|6 "
        "C6|AbcDe|CP|C6|#A*#De|+|0 C6|AbcDe|CP|C6|#a*|-|6 C6|a*b|CP|C5|*#**|+|1 C6|AbcDe|NP|C5|*x*|+|6 C6|aab|CP|C6|*a+|+|1 "
        "C6||CP|C1|*|+|0 C6|ab|CP|C4|ab#~|+|0 C6|abcabd|CP|C6|*ab*d|+|0 C3|abc|CP|C1||-|3");
    for (const auto& caso : casos) {
        Campos campos;
        std::int32_t fdpos = -1;
        const bool vale = Vale(relaciones.at(caso[2]), campos.Hacer(caso[0], caso[1]), campos.Hacer(caso[3], caso[4]), fdpos);
        EXPECT_EQ((vale ? "+" : "-") + std::to_string(fdpos), caso[5] + caso[6]) << caso[1] << " " << caso[2] << " " << caso[4];
    }
}

// What a calculation is of, its operands and operators from left to right, its target.
TEST(AbapValues, CalculationsRoundWhereTheLanguageDoes) {
    using enum Calculo;
    const auto casos = Casos(
        "I|7,/,2,*,2|I|8 P|7,/,2,*,2|P4.1|70C I|-7,/,2|I|-4 I|2147483647,+,1|I|COMPUTE_INT_PLUS_OVERFLOW "
        "I|-2147483648,-,1|I|COMPUTE_INT_MINUS_OVERFLOW I|65536,*,65536|I|COMPUTE_INT_TIMES_OVERFLOW "
        "I|5,/,0|I|COMPUTE_INT_ZERODIVIDE I|0,/,0|I|0 I|5,M,0|I|COMPUTE_INT_ZERODIVIDE I|7,D,2|I|3 I|-7,D,2|I|-4 I|-7,M,2|I|1 "
        "I|-7,D,-2|I|4 I|-7,M,-2|I|1 I|7,D,-2|I|-3 I|2,^,10|I|1024 I|-1,^,3|I|-1 I|2,^,31|I|COMPUTE_INT_TIMES_OVERFLOW "
        "P|1,/,3,*,3|P8.4|10000C P|2,/,3|P3.2|67C P|-2,/,3|P3.2|67D P|1,/,0|P3|COMPUTE_BCD_ZERODIVIDE "
        "P|99,+,901|P2|COMPUTE_BCD_OVERFLOW P|5.75,M,2.5|P3.2|75C P|-5.75,D,2.5|P3|3D P|1.5,^,2|P3.2|225C "
        "P|1234567890123456789,*,9876543210.987654321|P16|12193263113702179522374638011C "
        "P|1234567890123456789,*,1234567890123456789|P16|COMPUTE_BCD_OVERFLOW "
        "P|9999999999999999999999999999999,+,1|P16|COMPUTE_BCD_OVERFLOW "
        "P|1234567890123456.789,*,0.000000000000001|P16.14|123456789012346C P|1,/,3|C8|0.333333 "
        "P|7,/,2|C8|~~~~3.5~ P|100,/,3|C4|33.3 P|100000,/,3|C4|*333 F|1,/,4|F|0.25 F|1,/,0|F|COMPUTE_FLOAT_ZERODIVIDE "
        "F|-7,M,2|F|1 F|-7,D,2|F|-4 F|2,^,0.5|I|1 F|10,/,4|I|3 I|730121,+,31|D|20000201 I|86399,+,2|T|000001");
    for (const auto& caso : casos) {
        Campos campos;
        const auto clase = caso[0] == "I" ? Entero : caso[0] == "P" ? Empaquetado : Flotante;
        const auto destino = campos.Hacer(caso[2], "");
        const auto calcular = [&] {
            std::istringstream terminos(caso[1]);
            const auto leer = [&] {
                std::string termino;
                std::getline(terminos, termino, ',');
                return LeerNumero(CampoDe(termino), clase);
            };
            auto numero = leer();
            for (std::string operador; std::getline(terminos, operador, ',');) numero = Calcular(operador[0], numero, leer());
            PonerNumero(numero, destino);
            return Campos::Leer(destino);
        };
        auto resultado = Resultado(calcular);
        if (destino.tipo == Tipo::P) resultado.erase(0, std::min(resultado.find_first_not_of('0'), resultado.size()));
        EXPECT_EQ(resultado, caso[3]) << caso[1];
    }

    const std::pair<FuncionNumerica, const char*> funciones[] = {
        {FuncionNumerica::Abs, "0000275C"},   {FuncionNumerica::Sign, "0000100D"},  {FuncionNumerica::Ceil, "0000200D"},
        {FuncionNumerica::Floor, "0000300D"}, {FuncionNumerica::Trunc, "0000200D"}, {FuncionNumerica::Frac, "0000075D"}};
    for (const auto& [funcion, esperado] : funciones) {
        for (const auto clase : {Empaquetado, Flotante}) {
            Campos campos;
            const auto destino = campos.Hacer("P4.2", "");
            PonerNumero(Calcular(funcion, LeerNumero(CampoDe("-2.75"), clase)), destino);
            EXPECT_EQ(Campos::Leer(destino), esperado) << static_cast<int>(funcion);
        }
    }
}

// A field, its value, the statement with its arguments, the value that it leaves, SY-SUBRC and SY-FDPOS.
TEST(AbapValues, StatementsOnTexts) {
    using Argumentos = std::vector<std::string>;
    const auto izquierda = Lado::Izquierda;
    const auto derecha = Lado::Derecha;
    std::int32_t fdpos = 0;
    std::deque<Campo> hechos;
    const auto de = [&hechos](const std::string& texto) -> const Campo& { return hechos.emplace_back(CampoDe(texto)); };
    const auto siempre = [](auto accion) {
        return [accion](const Campo& campo, const Argumentos& args) {
            accion(campo, args);
            return 0;
        };
    };
    const auto unir = [&](const Campo& campo, const Argumentos& args, const Campo* separador) {
        std::vector<Campo> fuentes;
        for (const auto& arg : args) fuentes.push_back(arg == "=" ? campo : de(arg));
        return Concatenar(fuentes, separador, campo);
    };
    const std::map<std::string, std::function<int(const Campo&, const Argumentos&)>> sentencias = {
        {"join", [&](const Campo& c, const Argumentos& a) { return unir(c, a, nullptr); }},
        {"join,", [&](const Campo& c, const Argumentos& a) { return unir(c, a, &de(", ")); }},
        {"condense", siempre([](const Campo& c, const Argumentos&) { Condensar(c, false); })},
        {"no-gaps", siempre([](const Campo& c, const Argumentos&) { Condensar(c, true); })},
        {"upper", siempre([](const Campo& c, const Argumentos&) { CambiarCaja(c, true); })},
        {"lower", siempre([](const Campo& c, const Argumentos&) { CambiarCaja(c, false); })},
        {"translate", siempre([&](const Campo& c, const Argumentos& a) { TrasladarPares(c, de(a[0])); })},
        {"leading", siempre([&](const Campo& c, const Argumentos& a) { DesplazarBorrando(c, izquierda, de(a[0])); })},
        {"trailing", siempre([&](const Campo& c, const Argumentos& a) { DesplazarBorrando(c, derecha, de(a[0])); })},
        {"left", siempre([=](const Campo& c, const Argumentos& a) { DesplazarLugares(c, izquierda, std::stoi(a[0]), false); })},
        {"right", siempre([=](const Campo& c, const Argumentos& a) { DesplazarLugares(c, derecha, std::stoi(a[0]), false); })},
        {"left-ring", siempre([=](const Campo& c, const Argumentos& a) { DesplazarLugares(c, izquierda, std::stoi(a[0]), true); })},
        {"right-ring", siempre([=](const Campo& c, const Argumentos& a) { DesplazarLugares(c, derecha, std::stoi(a[0]), true); })},
        {"left-to", [&](const Campo& c, const Argumentos& a) { return DesplazarHasta(c, izquierda, de(a[0]), false); }},
        {"right-to", [&](const Campo& c, const Argumentos& a) { return DesplazarHasta(c, derecha, de(a[0]), false); }},
        {"ring-to", [&](const Campo& c, const Argumentos& a) { return DesplazarHasta(c, izquierda, de(a[0]), true); }},
        {"overlay",
         [&](const Campo& c, const Argumentos& a) { return Superponer(c, de(a[0]), a.size() > 1 ? &de(a[1]) : nullptr); }},
        {"replace", [&](const Campo& c, const Argumentos& a) { return Reemplazar(de(a[0]), {}, de(a[1]), c, fdpos); }},
        {"replace2", [&](const Campo& c, const Argumentos& a) { return Reemplazar(de(a[0]), 2, de(a[1]), c, fdpos); }},
        {"search", [&](const Campo& c, const Argumentos& a) { return Buscar(c, de(a[0]), fdpos); }},
    };
    const auto casos = Casos(
        "C9|x|join|~ab~~|c|07|~abc07~~~|0|0 C3|x|join|ab~|cd|abc|4|0 C9|ab|join|<|=|>|<ab>~~~~~|0|0 C9|x|join,|a|~|b|a,~,~b~~~|0|0 "
        "STRING|x|join,|a~|b|a,~b|0|0 STRING|ab|join|=|=|abab|0|0 N4|x|join|1|2|12~~|0|0 C8|~~a~~b~c|condense|a~b~c~~~|0|0 "
        "C8|~~a~~b~c|no-gaps|abc~~~~~|0|0 STRING|~a~~b~|condense|a~b|0|0 C4|a\344\337|upper|A\304\337~|0|0 "
        "C3|A\304z|lower|a\344z|0|0 "
        "C6|a.b,c|translate|.,,.|a,b.c~|0|0 C4|a-b|translate|-~a|a~b~|0|0 C3|aab|translate|abac|bbb|0|0 "
        "C5|00120|leading|0|120~~|0|0 "
        "C5|~~ab|leading|~|ab~~~|0|0 C3|000|leading|0|~~~|0|0 C5|ab|trailing|~|~~~ab|0|0 C5|abxx|trailing|~x|~~~ab|0|0 "
        "STRING|00a|leading|0|a|0|0 N5|00120|leading|0|120~~|0|0 C5|abcde|left|2|cde~~|0|0 C5|abcde|right|1|~abcd|0|0 "
        "C5|abcde|left-ring|2|cdeab|0|0 C5|abcde|right-ring|6|eabcd|0|0 C3|abc|left|9|~~~|0|0 C3|abc|right|9|~~~|0|0 "
        "STRING|abc|right|1|~abc|0|0 C5|abcde|left|0|abcde|0|0 C5|abcde|left-to|cd|cde~~|0|0 C5|abcde|ring-to|cd|cdeab|0|0 "
        "C5|abcde|right-to|bc|~~abc|0|0 C5|abcde|left-to|x|abcde|4|0 C6|1~2~3|overlay|000000|102030|0|0 "
        "C6|123|overlay|0000|1230~~|0|0 "
        "C3|123|overlay|000|123|4|0 C6|a.b.c|overlay|------|.|a-b-c~|0|0 C7|abcabc|replace|b|XY|aXYcabc|0|1 "
        "C7|abcabc|replace|b~|X|aXcabc~|0|1 C7|abcabc|replace2|b~|X|abcabc~|4|0 C5|a,b|replace|,|~|ab~~~|0|1 "
        "C3|abc|replace|B|x|abc|4|0 "
        "C5|a~b|replace|~|_|a_b~~|0|1 C3|ab|replace|~|_|ab~|4|0 C14|one~two,three~|search|TWO|one~two,three~|0|4 "
        "C9|one~two|search|*wo|one~two~~|0|4 C9|one~two|search|t*|one~two~~|0|4 C9|one~two|search|w*|one~two~~|4|0 "
        "C9|one~two|search|.e~t.|one~two~~|0|2 C9|one~two|search|.o~.|one~two~~|0|6 C9|one~two|search|x|one~two~~|4|0");
    for (const auto& caso : casos) {
        Campos campos;
        auto campo = campos.Hacer(caso[0], caso[1]);
        fdpos = 0;
        const auto subrc = sentencias.at(caso[2])(campo, Argumentos(caso.begin() + 3, caso.end() - 3));
        EXPECT_EQ(Campos::Leer(campo) + "|" + std::to_string(subrc) + "|" + std::to_string(fdpos),
                  *(caso.end() - 3) + "|" + *(caso.end() - 2) + "|" + caso.back())
            << caso[1] << " " << caso[2];
        campo.soloLectura = true;
        if (caso[2] == "search" || caso[0] == "STRING") continue;
        EXPECT_EQ(
            Resultado([&] { return std::to_string(sentencias.at(caso[2])(campo, Argumentos(caso.begin() + 3, caso.end() - 3))); }),
            "MOVE_TO_LIT_NOTALLOWED")
            << caso[2];
    }

    // A text and a separator, what SPLIT puts into two fields, SY-SUBRC, and the rows that it makes.
    const auto cortes = Casos(
        "a;b|;|a~~|b~~|0|a|b a;b;c|;|a~~|b;c|0|a|b|c abcd;e;|;|abc|e;~|4|abcd|e a|;|a~~|~~~|0|a ~a,~b,|,~|~a~|b,~|0|~a|b, "
        "|;|~~~|~~~|0 "
        ";;x|;|~~~|;x~|0|||x");
    for (const auto& corte : cortes) {
        Campos campos;
        const std::vector<Campo> destinos = {campos.Hacer("C3", "???"), campos.Hacer("N3", "???")};
        const auto subrc = Partir(CampoDe(corte[0]), CampoDe(corte[1]), destinos);
        EXPECT_EQ((Argumentos{Campos::Leer(destinos[0]), Campos::Leer(destinos[1]), std::to_string(subrc)}),
                  Argumentos(corte.begin() + 2, corte.begin() + 5))
            << corte[0];
        TablaInterna tabla({Tipo::Cadena, 0, 0, nullptr});
        for (int vez = 0; vez < 2; ++vez) PartirEnTabla(CampoDe(corte[0]), CampoDe(corte[1]), tabla);
        Argumentos filas;
        for (std::size_t i = 0; i < tabla.Filas(); ++i) filas.emplace_back(tabla.CampoDeFila(i).Texto());
        EXPECT_EQ(filas, Argumentos(corte.begin() + 5, corte.end())) << corte[0];
    }
}

// A value, the width (0 is the one of its type), what the statement adds, and what is seen.
TEST(AbapValues, WriteShowsValues) {
    using Ajuste = FormatoDeSalida::Ajuste;
    const auto formatoDe = [](const std::string& adicion) {
        FormatoDeSalida formato;
        if (adicion.empty()) return formato;
        switch (adicion[0]) {
            case 'z': formato.sinCero = true; break;
            case 's': formato.sinSigno = true; break;
            case 'g': formato.sinGrupos = true; break;
            case 'd': formato.decimales = std::stoi(adicion.substr(1)); break;
            case 'm': formato.mascara = adicion.substr(1); break;
            case 'l': formato.ajuste = Ajuste::Izquierda; break;
            case 'c': formato.ajuste = Ajuste::Centro; break;
            case 'r': formato.ajuste = Ajuste::Derecha; break;
        }
        return formato;
    };
    const auto casos = Casos(
        "C5|abc|0||abc~~ C5|abcde|3||abc N5|00012|0||00012 N5|00012|0|z|~~~12 STRING|ab~|0||ab~ I|0|0||~~~~~~~~~0~ "
        "I|1234567|0||~1.234.567~ I|-1234567|0||~1.234.567- I|123456789|0||123.456.789 I|-123456789|0||~123456789- "
        "I|2147483647|0||2147483647~ I|-2147483648|0||2147483648- I|12|2||12 I|123|2||*3 I|-12|6|s|~~~12~ "
        "I|1234567|0|g|~~~1234567~ I|0|3|z|~~~ I|12|6|l|12~~~~ I|-12|7|c|~~12-~~ I|5|8|d2|~~~5,00~ P4.2|1234.56|0||1.234,56~ "
        "P4.2|-1234.56|0||1.234,56- P4.2|12345.67|0||12.345,67 P4.2|-12345.67|0||12345,67- P4.2|0.05|0||~~~~0,05~ "
        "P4.2|12.35|0|d1|~~~~12,4~ P4.2|12.35|0|d0|~~~~~~12~ P4.2|12.35|10|d3|~~~12,350~ P3|12345|0||12.345 P3|-12345|0||12345- "
        "P4.2|0|0|z|~~~~~~~~~ D|20240131|0||31.01.2024 D|20240131|8||31012024 D|20240131|12||31.01.2024~~ "
        "D|00000000|0||00.00.0000 D|00000000|0|z|~~~~~~~~~~ D|~~~~~~~~|0||~~~~~~~~~~ D|20240131|10|mDD/MM/YYYY|31.01.2024 "
        "D|20240131|8|mMM/DD/YY|01.31.24 D|20240131|6|mYYMMDD|240131 T|123456|0||12:34:56 T|123456|6||123456 "
        "F|12.34|0||1,2340000000000000E+01 F|-12.34|0||-1,234000000000000E+01 F|0|0||0,0000000000000000E+00 "
        "F|12.34|10|d2|~~1,23E+01 X2|1AF0|0||1AF0 C6|123456|8|m__-____|12-3456~ C3|123|6|mRR__/___|~~/123 "
        "I|-1234|8|mV__.___|-~1.234~ C5|ab|5|r|~~~ab T|123456|8|m__:__:__|12:34:56 S4|ab|0||ab~~ D|20240131|6||310124 "
        "C5|00120|0|z|~~120 "
        "N5|00120|8|m==ALPHA|120~~~~~ C8|00A1|4|m==ALPHA|00A1");
    for (const auto& caso : casos) {
        Campos campos;
        const auto campo = campos.Hacer(caso[0], caso[1]);
        const auto formato = formatoDe(caso[3]);
        const auto ancho = caso[2] == "0" ? AnchoDeSalida(campo) : std::stoi(caso[2]);
        EXPECT_EQ(TextoDeSalida(campo, ancho, formato), caso[4]) << caso[0] << " " << caso[1];
        // WRITE ... TO is the same in the width of its target.
        const auto destino = campos.Hacer("C" + std::to_string(caso[4].size()), "");
        EscribirEn(campo, destino, formato);
        EXPECT_EQ(Campos::Leer(destino), caso[4]) << caso[0] << " " << caso[1];
    }
}

TEST(AbapValues, StructuresAlignAndClear) {
    Estructura dentro;
    dentro.Agregar("A", {Tipo::C, 3, 0, nullptr});
    dentro.Agregar("B", {Tipo::I, 4, 0, nullptr});
    dentro.Cerrar();
    Estructura fuera;
    fuera.Agregar("X", {Tipo::X, 1, 0, nullptr});
    fuera.Agregar("S", {Tipo::Estructura, dentro.largo, 0, &dentro});
    fuera.Agregar("F", {Tipo::F, 8, 0, nullptr});
    fuera.Agregar("P", {Tipo::P, 3, 2, nullptr});
    fuera.Agregar("N", {Tipo::N, 2, 0, nullptr});
    fuera.Cerrar();
    std::vector<std::uint32_t> lugares;
    for (const auto& componente : fuera.componentes) lugares.push_back(componente.desplazamiento);
    EXPECT_EQ(lugares, (std::vector<std::uint32_t>{0, 4, 16, 24, 27}));
    EXPECT_EQ(fuera.largo, 32U);
    EXPECT_EQ(fuera.Buscar("N"), &fuera.componentes[4]);
    EXPECT_EQ(fuera.Buscar("n"), nullptr);

    std::string memoria(fuera.largo, '?');
    Campo campo;
    campo.datos = reinterpret_cast<std::uint8_t*>(memoria.data());
    campo.largo = fuera.largo;
    campo.tipo = Tipo::Estructura;
    EXPECT_FALSE(EsInicial(campo, &fuera));
    PonerInicial(campo, &fuera);
    EXPECT_TRUE(EsInicial(campo, &fuera));
    EXPECT_EQ(memoria, std::string("\0   ", 4) + "    " + std::string(4, '\0') + "    " + std::string(8, '\0') +
                           std::string("\0\0\x0C", 3) + "00   ");
}

// Searches by components of every kind on random rows, changed on the way, against a look at each row.
TEST(AbapValues, TablesFindWhatALookAtEachRowFinds) {
    std::mt19937 azar(7);
    const auto al = [&azar](unsigned n) { return static_cast<unsigned>(azar() % n); };
    Estructura linea;
    linea.Agregar("N", {Tipo::N, 4, 0, nullptr});
    linea.Agregar("C", {Tipo::C, 3, 0, nullptr});
    linea.Agregar("I", {Tipo::I, 4, 0, nullptr});
    linea.Agregar("P", {Tipo::P, 3, 1, nullptr});
    linea.Agregar("F", {Tipo::F, 8, 0, nullptr});
    linea.Agregar("D", {Tipo::D, 8, 0, nullptr});
    linea.Agregar("X", {Tipo::X, 2, 0, nullptr});
    linea.Cerrar();
    const std::pair<const char*, const char*> valores[] = {{"C4", " 3"},      {"N2", "03"}, {"I", "3"},         {"P2.1", "3.0"},
                                                           {"STRING", "3 "},  {"F", "3"},   {"C3", "a"},        {"STRING", "a"},
                                                           {"D", "00010104"}, {"X1", "03"}, {"X4", "00000003"}, {"C2", ""}};
    TablaInterna tabla({Tipo::Estructura, linea.largo, 0, &linea});
    const auto llenar = [&](std::uint8_t* fila, bool conLetras) {
        const auto poner = [&](const char* nombre, const std::string& texto) {
            PonerTexto(texto, CampoDeComponente(*linea.Buscar(nombre), fila));
        };
        std::memset(fila, 0, linea.largo);
        poner("N", std::to_string(al(6)));
        poner("C", conLetras && al(40) == 0 ? "a" : al(3) == 0 ? "3.0" : al(2) == 0 ? " 3" : std::to_string(al(5)));
        poner("I", std::to_string(al(6)));
        poner("P", al(2) == 0 ? "3" : "3.5");
        poner("F", std::to_string(al(5)));
        poner("D", "0001010" + std::to_string(al(6)));
        poner("X", al(2) == 0 ? "0300" : "0003");
    };
    const auto cumple = [&](std::size_t i, std::span<const Igualdad> igualdades) {
        for (const auto& igualdad : igualdades) {
            if (Comparar(CampoDeComponente(igualdad.componente, tabla.Fila(i)), igualdad.valor) != 0) return false;
        }
        return true;
    };
    std::size_t hallados = 0;
    std::size_t fallos = 0;
    for (int vuelta = 0; vuelta < 200; ++vuelta) {
        if (vuelta % 50 == 0) tabla.Vaciar();
        const bool conLetras = vuelta >= 100;
        if (vuelta % 5 == 1) {
            tabla.Cambia();
            for (unsigned i = 0; i < 3; ++i) llenar(tabla.Fila(al(static_cast<unsigned>(tabla.Filas()))), conLetras);
            tabla.Borrar(al(static_cast<unsigned>(tabla.Filas())));
            llenar(tabla.Insertar(al(static_cast<unsigned>(tabla.Filas()) + 1)), conLetras);
        }
        for (unsigned i = 0; i < (vuelta % 3 == 0 ? 20 : 1); ++i) llenar(tabla.Agregar(), conLetras);
        Campos campos;
        std::vector<Igualdad> igualdades;
        const auto cuantas = 1 + al(2);
        for (unsigned i = 0; i < cuantas; ++i) {
            const auto& [tipo, valor] = valores[al(std::size(valores))];
            igualdades.push_back(
                {linea.componentes[al(static_cast<unsigned>(linea.componentes.size()))], campos.Hacer(tipo, valor)});
        }
        for (int vez = 0; vez < 3; ++vez) {
            for (std::size_t desde = 0; desde <= tabla.Filas();) {
                auto esperado = desde;
                const auto despacio = [&] {
                    while (esperado < tabla.Filas() && !cumple(esperado, igualdades)) ++esperado;
                    return std::to_string(esperado);
                };
                const auto lento = Resultado(despacio);
                ASSERT_EQ(Resultado([&] { return std::to_string(tabla.BuscarIguales(igualdades, desde)); }), lento)
                    << vuelta << " " << desde;
                if (lento == "CONVT_NO_NUMBER") ++fallos;
                if (esperado < tabla.Filas()) ++hallados;
                desde = esperado + 1 + (vez == 2 ? al(3) : 0);
            }
        }
    }
    EXPECT_GT(hallados, 1000U);
    EXPECT_GT(fallos, 100U);
}

// Each of many main records finds its lines at once; rows that no loop met are told.
TEST(AbapValues, TablesFindAndWatchManyRows) {
    Estructura linea;
    linea.Agregar("KEY", {Tipo::N, 8, 0, nullptr});
    linea.Agregar("TEXT", {Tipo::C, 40, 0, nullptr});
    TablaInterna tabla({Tipo::Estructura, linea.largo, 0, &linea});
    tabla.Vigilar();
    constexpr int cuantos = 50'000;
    for (int i = 0; i < 3 * cuantos; ++i) {
        auto* fila = tabla.Agregar();
        PonerEntero(i % cuantos, CampoDeComponente(linea.componentes[0], fila));
        PonerTexto(std::to_string(i), CampoDeComponente(linea.componentes[1], fila));
    }
    Campos campos;
    const auto clave = campos.Hacer("C8", "");
    const std::vector<Igualdad> igualdades = {{linea.componentes[0], clave}};
    std::size_t vistas = 0;
    for (int i = 1; i < cuantos; ++i) {
        PonerTexto(std::to_string(i), clave);
        for (auto fila = tabla.BuscarIguales(igualdades, 0); fila < tabla.Filas();
             fila = tabla.BuscarIguales(igualdades, fila + 1)) {
            ASSERT_EQ(TextoPlano(CampoDeComponente(linea.componentes[1], tabla.Fila(fila))),
                      std::to_string(i + static_cast<int>(vistas % 3) * cuantos));
            tabla.Encontrar(fila);
            ++vistas;
        }
    }
    EXPECT_EQ(vistas, 3U * (cuantos - 1));
    EXPECT_EQ(tabla.Perdidas(), 3U);
    EXPECT_EQ(tabla.Agregadas(), 3U * cuantos);
    const TablaInterna movida = std::move(tabla);
    EXPECT_EQ(movida.Filas(), 3U * cuantos);
}

}  // namespace
}  // namespace qor::abap
