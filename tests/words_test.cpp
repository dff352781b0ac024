#include "base/words.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <string>

#include "base/files.h"
#include "base/text.h"
#include "base/values.h"
#include "findings/catalogue.h"
#include "findings/place_words.h"
#include "tests/support/language.h"

namespace qor::pruebas {
namespace {

namespace fs = std::filesystem;

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

// The sources of the program, comments taken out and texts that are broken into several joined.
std::string LeerFuentes() {
    std::string fuentes;
    for (const auto& entrada : fs::directory_iterator(QOR_TEST_SOURCE_DIR)) {
        const auto nombre = entrada.path().filename().string();
        if (!entrada.is_directory() || nombre == "tests" || nombre == "build" || nombre.starts_with('.')) continue;
        for (const auto& archivo : fs::recursive_directory_iterator(entrada)) {
            const auto ruta = archivo.path();
            if ((ruta.extension() != ".cpp" && ruta.extension() != ".h") || ruta.filename() == "words.h") continue;
            const std::string contenido = LeerArchivo(ruta);
            for (const auto linea : PartirEnLineas(contenido)) {
                std::string_view codigo = Recortar(linea);
                if (codigo.starts_with("//")) continue;
                if (fuentes.ends_with('"') && codigo.starts_with('"')) {
                    fuentes.pop_back();
                    codigo.remove_prefix(1);
                }
                fuentes += codigo;
            }
            fuentes += '\n';
        }
    }
    return fuentes;
}

std::string ComoEnFuentes(std::string_view texto) { return '"' + ReemplazarTodo(texto, "\"", "\\\"") + '"'; }

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

// A word is used by its name, or by the English text that the core says; and what the core says in parts has its word.
TEST(Words, NoneIsUnusedAndNoSentenceLacksOne) {
    const std::string fuentes = LeerFuentes();
    const auto ingles = LeerPalabras().at("English");
    for (const auto& [nombre, numero] : LeerNombres()) {
        const bool porNombre = std::regex_search(fuentes, std::regex("palabra::" + nombre + "\\b"));
        EXPECT_TRUE(porNombre || Contiene(fuentes, ComoEnFuentes(ingles.at(numero)))) << nombre << " is used nowhere";
    }
    std::set<std::string> textos;
    for (const auto& [numero, texto] : ingles) textos.insert(ComoEnFuentes(texto));
    const std::regex frase(R"re((?:\bFrase\(|\bReconocerFrase\([^"()]*, )("(?:[^"\\]|\\.)*"))re");
    int frases = 0;
    for (std::sregex_iterator i(fuentes.begin(), fuentes.end(), frase), fin; i != fin; ++i, ++frases) {
        const std::string texto = (*i)[1];
        EXPECT_TRUE(textos.contains(texto) || texto.find_first_of("abcdefghijklmnopqrstuvwxyz") == std::string::npos) << texto;
    }
    EXPECT_GT(frases, 10);
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
