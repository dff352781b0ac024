#include "base/words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "base/failure_reason.h"
#include "base/files.h"
#include "base/text.h"
#include "base/values.h"
#include "findings/catalogue.h"
#include "findings/place_words.h"
#include "tests/support/language.h"

namespace qor::pruebas {
namespace {

namespace fs = std::filesystem;

bool EsMinuscula(char c) { return c >= 'a' && c <= 'z'; }
bool EsLetraOCifra(char c) { return EsMinuscula(c) || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }

using Palabras = std::map<int, std::string>;

// The words of each language of the tree's file. A number that stands twice is a fault.
std::map<std::string, Palabras> LeerPalabras() {
    const std::string contenido = LeerArchivo(QOR_TEST_SOURCE_DIR "/data/language.txt");
    std::map<std::string, Palabras> idiomas;
    std::string idioma;
    LectorValores lector(contenido);
    while (!lector.AlFinal()) {
        const int numero = std::stoi(lector.Leer().ComoTexto());
        const std::string texto = lector.Leer().ComoTexto();
        if (numero == 0) idioma = texto;
        if (numero < TextosIdioma::ultimo) continue;
        EXPECT_TRUE(idiomas[idioma].emplace(numero, texto).second) << idioma << ": " << numero << " stands twice";
    }
    return idiomas;
}

// The names that base/words.h gives to numbers.
std::map<std::string, int> LeerNombres() {
    const std::string texto = LeerArchivo(QOR_TEST_SOURCE_DIR "/base/words.h");
    const std::regex nombre(R"(inline constexpr int (\w+) = (\d+);)");
    std::map<std::string, int> nombres;
    for (std::sregex_iterator i(texto.begin(), texto.end(), nombre), fin; i != fin; ++i) nombres[(*i)[1]] = std::stoi((*i)[2]);
    return nombres;
}

// What the sources of the program use: names behind "palabra::", and literals, of which those that are broken into several are
// whole.
struct Usados {
    std::set<std::string> nombres;
    std::set<std::string> literales;
};

void AgregarUsados(std::string_view codigo, Usados& usados) {
    constexpr std::string_view antes = "palabra::";
    for (auto i = codigo.find(antes); i != std::string_view::npos; i = codigo.find(antes, i)) {
        i += antes.size();
        const auto fin = std::find_if(codigo.begin() + i, codigo.end(), [](char c) { return !EsLetraOCifra(c); });
        usados.nombres.insert(std::string(codigo.substr(i, fin - codigo.begin() - i)));
    }
    std::string literal;
    for (std::size_t i = codigo.find('"'); i != std::string_view::npos;) {
        for (++i; i < codigo.size() && codigo[i] != '"'; ++i) {
            if (codigo[i] == '\\' && i + 1 < codigo.size()) ++i;
            literal += codigo[i];
        }
        if (i >= codigo.size()) break;
        const auto siguiente = codigo.find_first_not_of(" \n", i + 1);
        i = codigo.find('"', i + 1);
        if (i != siguiente || i == std::string_view::npos) usados.literales.insert(std::exchange(literal, {}));
    }
}

Usados LeerUsados() {
    Usados usados;
    for (const auto& entrada : fs::directory_iterator(QOR_TEST_SOURCE_DIR)) {
        const auto nombre = entrada.path().filename().string();
        if (!entrada.is_directory() || nombre == "tests" || nombre == "build" || nombre.starts_with('.')) continue;
        for (const auto& archivo : fs::recursive_directory_iterator(entrada)) {
            const auto& ruta = archivo.path();
            if ((ruta.extension() != ".cpp" && ruta.extension() != ".h") || ruta.filename() == "words.h") continue;
            std::string codigo;
            const std::string contenido = LeerArchivo(ruta);
            for (const auto linea : PartirEnLineas(contenido)) {
                // A quote that is a character of its own begins no literal.
                if (!Recortar(linea).starts_with("//")) codigo.append(ReemplazarTodo(linea, "'\"'", "")).append("\n");
            }
            AgregarUsados(codigo, usados);
        }
    }
    return usados;
}

TEST(Words, EachNumberIsInEveryLanguageWithTheSameSigns) {
    std::set<int> numeros;
    for (const auto& [nombre, numero] : LeerNombres()) {
        EXPECT_TRUE(numeros.insert(numero).second) << nombre << " has another's number";
    }
    for (const auto& tipo : TiposDeHallazgo()) {
        for (int v = 0; v < tipo.variantes; ++v) numeros.insert(palabra::DeHallazgo(tipo.codigo, v));
    }
    const auto idiomas = LeerPalabras();
    ASSERT_EQ(idiomas.size(), 2U);
    const Palabras& ingles = idiomas.at("English");
    int indice = 0;
    for (const char* const motivo : MotivosConocidos()) {
        const int numero = palabra::DeMotivo(indice++);
        numeros.insert(numero);
        EXPECT_EQ(ingles.at(numero), motivo);
    }
    for (const auto& [idioma, palabras] : idiomas) {
        std::set<int> presentes;
        for (const auto& [numero, texto] : palabras) {
            presentes.insert(numero);
            if (!ingles.contains(numero) || numero < TextosIdioma::primeraCompartida) continue;
            EXPECT_FALSE(EstaEnBlanco(texto)) << numero;
            const bool deHallazgo = numero >= palabra::DeHallazgo(0, 0);
            for (const char signo : deHallazgo ? std::string() : std::string("&%:")) {
                EXPECT_EQ(std::count(texto.begin(), texto.end(), signo),
                          std::count(ingles.at(numero).begin(), ingles.at(numero).end(), signo))
                    << idioma << ' ' << numero << ": " << texto;
            }
        }
        EXPECT_EQ(presentes, numeros) << idioma;
    }
}

// A word is used by its name, or by the English text that the core says; and each sentence that the core says with parts is a word.
TEST(Words, NoneIsUnusedAndNoSentenceLacksOne) {
    const auto usados = LeerUsados();
    const auto ingles = LeerPalabras().at("English");
    const auto motivos = MotivosConocidos();
    std::set<std::string> textos(motivos.begin(), motivos.end());
    for (const auto& [nombre, numero] : LeerNombres()) {
        textos.insert(ingles.at(numero));
        EXPECT_TRUE(usados.nombres.contains(nombre) || usados.literales.contains(ingles.at(numero)))
            << nombre << " is used nowhere";
    }
    for (const auto& literal : usados.literales) {
        // A name of a control or of a file has no blank; the release is told as it is in every language.
        const bool esFrase = Contiene(literal, "%1") && Contiene(literal, " ") && literal != "(Release %1)" &&
                             std::any_of(literal.begin(), literal.end(), EsMinuscula);
        EXPECT_TRUE(!esFrase || textos.contains(literal)) << literal;
    }
}

// The command line tells places in English whatever the language, in the same words as the screen.
TEST(Words, PlacesHaveTheWordsOfTheScreen) {
    const auto ingles = TextosDe("English");
    for (const char* const opcion : {"AddF4", "TablaZ", "GSprefijo", "SpaceCode"}) {
        const auto lugar = Lugar::EnOpcion(opcion);
        EXPECT_EQ(TextoDeLugar(lugar), "option " + std::string(opcion) + " (" + ingles.Palabra(PalabraDeOpcion(lugar)) + ")");
    }
    for (int columna = 0; columna < 5; ++columna) {
        for (const auto& lugar : {Lugar::EnArchivo(0, columna), Lugar::EnPrograma(0, columna), Lugar::EnCondicion(0, columna, 0)}) {
            EXPECT_EQ(LadoDeLugar(lugar), ingles.Palabra(PalabraDeLado(lugar)));
            EXPECT_EQ(ColumnaDeLugar(lugar), ingles.Palabra(PalabraDeColumna(lugar)));
        }
    }
}

}  // namespace
}  // namespace qor::pruebas
