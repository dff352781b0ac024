#include "base/values.h"

#include <gmock/gmock.h>

#include <vector>

#include "base/failure.h"

namespace qor {
namespace {

using ::testing::ElementsAreArray;

std::vector<std::string> TodosLosValores(std::string_view texto) {
    LectorValores lector(texto);
    std::vector<std::string> valores;
    while (!lector.AlFinal()) valores.push_back(lector.Leer().texto);
    return valores;
}

TEST(Values, AreDividedByCommasAndLineEnds) {
    struct Caso {
        const char* texto;
        std::vector<std::string> valores;
    };
    const Caso casos[] = {
        {"", {}},
        {"a", {"a"}},
        {"a,b\r\nc\nd\re", {"a", "b", "c", "d", "e"}},
        {"a\r\n", {"a"}},
        {"a,", {"a"}},
        {",", {""}},
        {"a,,b", {"a", "", "b"}},
        {"a,\r\nb", {"a", "", "b"}},
        {"a,\nb", {"a", "", "b"}},
        {"a\n\nb", {"a", "", "b"}},
        {"a\r\n\r\nb", {"a", "", "b"}},
        {"a\n\rb", {"a", "", "b"}},
        {"  a b  ,  c", {"a b", "c"}},
        {"\ta", {"\ta"}},
        {"a\"b\"", {"a\"b\""}},
        {R"("a,b","c)"
         "\r\n"
         R"(d",e)",
         {"a,b", "c\r\nd", "e"}},
        {R"(  "a"  ,"b")", {"a", "b"}},
        {R"("a"lost,b)", {"a", "b"}},
        {R"("",b)", {"", "b"}},
        {R"("a""b","""","""""")", {"a\"b", "\"", "\"\""}},
        {R"("a"" ,b)", {"a\" ,b"}},
        {"\"never closed, to\r\nthe end", {"never closed, to\r\nthe end"}},
        {"\"", {""}},
    };
    for (const auto& caso : casos) EXPECT_THAT(TodosLosValores(caso.texto), ElementsAreArray(caso.valores)) << caso.texto;
}

TEST(Values, AReadBehindTheLastOneFails) {
    for (const char* texto : {"a", "a,", "a\r\n", "\"a\"", "\"a"}) {
        LectorValores lector(texto);
        lector.Leer();
        EXPECT_TRUE(lector.AlFinal()) << texto;
        EXPECT_THROW(lector.Leer(), FalloDeEjecucion) << texto;
        EXPECT_THROW(lector.LeerEtiqueta(), FalloDeEjecucion) << texto;
        lector.VolverAlPrincipio();
        EXPECT_EQ(lector.Leer().texto, "a") << texto;
    }
}

TEST(Values, TagsAreRoundedNumbersOrZero) {
    struct Caso {
        const char* texto;
        int etiqueta;
    };
    const Caso casos[] = {{"7", 7},     {"-3", -3},    {"+4", 4}, {" 5 ", 5}, {"1.6", 2},       {"2.5", 2},         {"3.5", 4},
                          {"\"1\"", 0}, {"#TRUE#", 0}, {"x", 0},  {"1x", 0},  {"32767", 32767}, {"-32768", -32768}, {",", 0}};
    for (const auto& caso : casos) {
        LectorValores lector(caso.texto);
        EXPECT_EQ(lector.LeerEtiqueta(), caso.etiqueta) << caso.texto;
    }
    for (const char* texto : {"32768", "-32769", "99999999999999999999"}) {
        LectorValores lector(texto);
        EXPECT_THROW(lector.LeerEtiqueta(), FalloDeEjecucion) << texto;
    }
}

TEST(Values, AreConvertedWhereTheyAreUsed) {
    constexpr int falla = 99999;
    struct Caso {
        const char* texto;
        const char* comoTexto;
        int comoEntero;
        bool vacio;
    };
    const Caso casos[] = {
        {"007", "7", 7, false},       {"-0", "0", 0, false},          {"+7.00", "7", 7, false},
        {"1.50", "1.5", 2, false},    {".25", "0.25", 0, false},      {"123456", "123456", falla, false},
        {"#TRUE#", "True", 1, false}, {"#FALSE#", "False", 0, false}, {"#true#", "#true#", falla, false},
        {"\"007\"", "007", 7, false}, {"\" 7 \"", " 7 ", 7, false},   {"\"7a\"", "7a", falla, false},
        {"\".\"", ".", falla, false}, {"\"-\"", "-", falla, false},   {"\"\"", "", falla, true},
        {",", "", falla, true},       {"\" \"", " ", falla, false},
    };
    for (const auto& caso : casos) {
        LectorValores lector(caso.texto);
        const Valor valor = lector.Leer();
        EXPECT_EQ(valor.ComoTexto(), caso.comoTexto) << caso.texto;
        EXPECT_EQ(valor.Vacio(), caso.vacio) << caso.texto;
        if (caso.comoEntero == falla) {
            EXPECT_THROW(valor.ComoEntero(), FalloDeEjecucion) << caso.texto;
            EXPECT_THROW(valor.ComoBooleano(), FalloDeEjecucion) << caso.texto;
        } else {
            EXPECT_EQ(valor.ComoEntero(), caso.comoEntero) << caso.texto;
            EXPECT_EQ(valor.ComoBooleano(), caso.comoEntero != 0) << caso.texto;
        }
    }
}

TEST(Values, WrittenTextsAreReadBackByteForByte) {
    EXPECT_EQ(CampoTexto("a\"b"), "\"a\"\"b\"");
    std::string todos;
    for (int c = 0; c < 256; ++c) todos += static_cast<char>(c);
    for (const std::string& texto : {std::string(), todos, todos + todos, std::string("\""), std::string("\"\r\n,\"")}) {
        const std::string registro = CampoTexto(texto) + "," + CampoBooleano(true) + "," + CampoBooleano(false) + "\r\n";
        LectorValores lector(registro);
        const Valor leido = lector.Leer();
        EXPECT_EQ(leido.texto, texto);
        EXPECT_TRUE(leido.entreComillas);
        EXPECT_TRUE(lector.Leer().ComoBooleano());
        EXPECT_FALSE(lector.Leer().ComoBooleano());
        EXPECT_TRUE(lector.AlFinal());
    }
}

}  // namespace
}  // namespace qor
