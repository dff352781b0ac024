#include "base/phrase.h"

#include <gtest/gtest.h>

#include "base/failure_reason.h"
#include "input/kinds.h"

namespace qor {
namespace {

TEST(Phrases, PartsStandWhereTheSentenceOfALanguageHasThem) {
    const Frase dentro("line %1", {"7"});
    const Frase frase("%1 of %2", {dentro, std::string("100%1")});
    EXPECT_EQ(frase.EnIngles(), "line 7 of 100%1") << "a sign in a part is no place";
    const auto alReves = [](std::string_view ingles) {
        return std::string(ingles == "%1 of %2" ? "%2: %1" : ingles == "line %1" ? "l. %1" : ingles);
    };
    EXPECT_EQ(frase.En(alReves), "100%1: l. 7");
    const Frase deFila("row %1", {Frase::DeFila(4)});
    EXPECT_EQ(deFila.EnIngles() + ", " + deFila.En(alReves, 1), "row 4, row 5") << "the screen counts from 1";
    EXPECT_TRUE(Frase().Vacia());
    EXPECT_FALSE(dentro.Vacia());
}

TEST(Phrases, TextsAreKnownAgain) {
    const struct {
        const char* texto;
        const char* frase;
        const char* con;  // the parts, in brackets; null where it is another sentence
    } casos[] = {{"Entry X does not exist", "Entry %1 does not exist", "[X]"},
                 {"Entry A does not exist does not exist", "Entry %1 does not exist", "[A does not exist]"},
                 {"Entry  does not exist", "Entry %1 does not exist", "[]"},
                 {"Field F does not exist in the screen P 0100", "Field %1 does not exist in the screen %2 %3", "[F][P][0100]"},
                 {"Entry X does not exist.", "Entry %1 does not exist", nullptr},
                 {"Entry X", "Entry %1 does not exist", nullptr},
                 {"Done", "Done", ""},
                 {"Done it", "Done", nullptr},
                 {"", "Done", nullptr}};
    for (const auto& caso : casos) {
        const auto hallada = ReconocerFrase(caso.texto, caso.frase);
        ASSERT_EQ(hallada.has_value(), caso.con != nullptr) << caso.texto;
        if (!hallada) continue;
        EXPECT_EQ(hallada->EnIngles(), caso.texto);
        const auto conPartes = hallada->En([&](std::string_view) { return std::string(*caso.con == '\0' ? "" : "[%1][%2][%3]"); });
        EXPECT_EQ(conPartes.substr(0, std::string_view(caso.con).size()), caso.con);
    }
}

// What the reading of a file of checks refuses is known as a sentence to its last part.
TEST(Phrases, AreKnownOfReasons) {
    const std::pair<const char*, const char*> casos[] = {{"F", "[F][]"},
                                                         {"F oops", "[F][oops]"},
                                                         {"F required x", "[F][]"},
                                                         {"F required\nF required", "[F][required]"},
                                                         {"F number x", "[F][]"},
                                                         {"F date x", "[F][x]"},
                                                         {"F pattern", "[F][]"},
                                                         {"F pattern a{2", "[F][[}][]]"},
                                                         {"F pattern a{2,1}", "[F][[][]]"},
                                                         {"F list", "[F][]"},
                                                         {"\"F", "[][]"},
                                                         {"\"\" required", "[][]"},
                                                         {"\xFF", "[][]"}};
    for (const auto& [texto, partes] : casos) {
        try {
            ClasesDeCampos::Leer(texto);
            ADD_FAILURE() << texto;
        } catch (const FalloDeEjecucion& fallo) {
            const auto frase = FraseDeMotivo(fallo.what());
            EXPECT_EQ(frase.EnIngles(), fallo.what());
            const auto dicha =
                frase.En([](std::string_view ingles) { return std::string(ingles == "line %1: %2" ? "%2" : "[%1][%2]"); });
            EXPECT_EQ(dicha, partes) << texto;
        }
    }
}

}  // namespace
}  // namespace qor
