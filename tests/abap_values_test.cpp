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
#include "base/files.h"
#include "base/text.h"

namespace qor::abap {
namespace {

// Fields that the cases spell: their type, such as "C5", "P3.2" or "STRING", and their value, of characters as
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

// The cases of a section of tests/expected/abap_values.txt, a line each, of parts between bars; "~" is a blank.
std::vector<std::vector<std::string>> Casos(std::string_view seccion) {
    static const std::string texto = LeerArchivo(QOR_TEST_SOURCE_DIR "/tests/expected/abap_values.txt");
    std::vector<std::vector<std::string>> casos;
    bool dentro = false;
    for (const auto linea : PartirEnLineas(texto)) {
        if (linea.starts_with('[')) dentro = linea == seccion;
        if (!dentro || linea.starts_with('[') || linea.empty()) continue;
        casos.push_back({""});
        for (const char c : linea) {
            if (c == '|') {
                casos.back().emplace_back();
            } else {
                casos.back().back() += c == '~' ? ' ' : c;
            }
        }
    }
    EXPECT_FALSE(casos.empty()) << seccion;
    return casos;
}

TEST(AbapValues, MoveConvertsEveryTypeIntoEveryOther) {
    const auto casos = Casos("[move]");
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
    const auto casos = Casos("[compare]");
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
    const auto casos = Casos("[relations on texts]");
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
    const auto casos = Casos("[calculate]");
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
    const auto casos = Casos("[statements on texts]");
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
    const auto cortes = Casos("[split]");
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
    const auto casos = Casos("[write]");
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
