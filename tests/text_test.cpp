#include "base/text.h"

#include <gtest/gtest.h>

#include "base/code_page.h"
#include "base/failure.h"
#include "base/paths.h"
#include "tests/support/left_out_on_windows.h"

namespace qor {
namespace {

TEST(Text, CuttingCutsBlanksOnly) {
    EXPECT_EQ(Recortar("  a b  "), "a b");
    EXPECT_EQ(Recortar("\t a\r\n "), "\t a\r\n");
    EXPECT_EQ(Recortar("\xA0 a"), "\xA0 a");
    EXPECT_EQ(Recortar("   "), "");
    EXPECT_TRUE(EstaEnBlanco("") && EstaEnBlanco("  "));
    EXPECT_FALSE(EstaEnBlanco(" \t ") || EstaEnBlanco("\xA0"));
}

// Every byte is either a letter with a partner in the other case, or stays as it is in both.
TEST(Text, CaseCoversTheLettersOfTheCodePage) {
    std::string minusculas = "abcdefghijklmnopqrstuvwxyz\x9A\x9C\x9E\xFF";
    std::string mayusculas = "ABCDEFGHIJKLMNOPQRSTUVWXYZ\x8A\x8C\x8E\x9F";
    for (int c = 0xE0; c <= 0xFE; ++c) {
        if (c == 0xF7) continue;
        minusculas += static_cast<char>(c);
        mayusculas += static_cast<char>(c - 0x20);
    }
    EXPECT_EQ(Mayusculas(minusculas), mayusculas);
    EXPECT_EQ(Minusculas(mayusculas), minusculas);
    EXPECT_TRUE(IgualesSinCaja(minusculas, mayusculas));
    for (int c = 0; c < 256; ++c) {
        const std::string byte(1, static_cast<char>(c));
        EXPECT_EQ(Mayusculas(byte) != byte, minusculas.find(byte) != std::string::npos) << c;
        EXPECT_EQ(Minusculas(byte) != byte, mayusculas.find(byte) != std::string::npos) << c;
    }
}

TEST(Text, NumbersAreReadFromTheStart) {
    struct Caso {
        const char* texto;
        double numero;
    };
    const Caso casos[] = {{"12", 12}, {"  12", 12}, {"12abc", 12}, {"1 2", 1},  {"abc", 0},     {"", 0},    {"-3", -3}, {"+4", 4},
                          {"--3", 0}, {"- 3", 0},   {"1.5", 1.5},  {".5", 0.5}, {"1.5.5", 1.5}, {"1,5", 1}, {"1e3", 1}, {"\t1", 0}};
    for (const auto& caso : casos) EXPECT_DOUBLE_EQ(Numero(caso.texto), caso.numero) << caso.texto;
}

TEST(Text, NumbersAreWrittenPlainly) {
    const std::pair<double, const char*> casos[] = {{0, "0"},         {-0.0, "0"},
                                                    {7, "7"},         {10, "10"},
                                                    {-100, "-100"},   {1.5, "1.5"},
                                                    {-0.25, "-0.25"}, {1e15, "1000000000000000"},
                                                    {0.1, "0.1"},     {123456.75, "123456.75"}};
    for (const auto& [numero, texto] : casos) EXPECT_EQ(TextoDeNumero(numero), texto);
    EXPECT_EQ(ConCeros(7, 5), "00007");
    EXPECT_EQ(ConCeros(2.5, 2), "03");
    EXPECT_EQ(ConCeros(-7, 3), "-007");
    EXPECT_EQ(ConCeros(123456, 5), "123456");
}

TEST(Text, CharactersAreTakenOutAndReplaced) {
    EXPECT_EQ(QuitarBlancos(" a b\tc "), "ab\tc");
    EXPECT_EQ(ReemplazarBlancos("  My load-1.qor "), "My_load_1_qor");
    EXPECT_EQ(ReemplazarBlancos("A\xD1O"), "A_O");
    EXPECT_EQ(ReemplazarBlancos(std::string("a\0b\x08"
                                            "c\x07",
                                            6)),
              std::string("a\0b\x08"
                          "c_",
                          6));
    EXPECT_EQ(ReemplazarTodo("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(ReemplazarTodo("aaa", "aa", "b"), "ba");
    EXPECT_EQ(ReemplazarTodo("abc", "", "x"), "abc");
    EXPECT_EQ(ReemplazarTodo("", "a", "x"), "");
}

TEST(CodePage, EveryByteSurvivesTheWayThroughUtf8) {
    std::string todos;
    for (int c = 0; c < 256; ++c) todos += static_cast<char>(c);
    EXPECT_EQ(DesdeUtf8(AUtf8(todos)), todos);
}

TEST(CodePage, BytesHaveTheirCharacters) {
    EXPECT_EQ(AUtf8("A\x80\x81\xF1\x99\xA0"), "A\u20AC\u0081\u00F1\u2122\u00A0");
    EXPECT_EQ(DesdeUtf8("\u0160\u0178\u00DF"), "\x8A\x9F\xDF");
}

TEST(CodePage, WhatHasNoPlaceInItIsRefused) {
    const char* const casos[] = {
        "\u03B1",        // Greek
        "\u0080",        // the character of this number is the euro sign's place
        "\U0001F600",    // four bytes
        "\xF1",          // not UTF-8
        "a\xC3",         // broken off
        "\xC3(",         // no continuation
        "\x80",          // a continuation alone
        "\xC1\x81",      // an overlong A
        "\xE0\x83\xB1",  // an overlong n with tilde
        "\xED\xA0\x80",  // a surrogate
        "\xFF",
    };
    for (const char* caso : casos) EXPECT_EQ(DesdeUtf8(caso), std::nullopt) << caso;
}

TEST(Paths, BothSeparatorsEndADirectory) {
    struct Caso {
        const char* ruta;
        const char* nombre;
        const char* directorio;
        const char* sinExtension;
    };
    const Caso casos[] = {
        {"C:\\loads\\mm01.qor", "mm01.qor", "C:\\loads", "C:\\loads\\mm01"},
        {"C:\\mm01.qor", "mm01.qor", "C:\\", "C:\\mm01"},
        {"/mm01.qor", "mm01.qor", "/", "/mm01"},
        {"\\mm01.qor", "mm01.qor", "\\", "\\mm01"},
        {"/a/b\\c.d.e", "c.d.e", "/a/b", "/a/b\\c.d"},
        {"mm01", "mm01", "", "mm01"},
        {"/a/b/", "", "/a/b", "/a/b/"},
        {"/loads.old/mm01", "mm01", "/loads.old", "/loads"},  // the dot of a directory counts
        {"", "", "", ""},
    };
    for (const auto& caso : casos) {
        EXPECT_EQ(NombreDeRuta(caso.ruta), caso.nombre) << caso.ruta;
        EXPECT_EQ(DirectorioDeRuta(caso.ruta), caso.directorio) << caso.ruta;
        EXPECT_EQ(QuitarExtension(caso.ruta), caso.sinExtension) << caso.ruta;
    }
}

TEST(Paths, NamesOnTheDiskAreUtf8) {
    EXPECT_EQ(RutaDelSistema("/a\xF1o.qor").string(), "/a\u00F1o.qor");
    EXPECT_EQ(RutaDelModelo("/a\u00F1o.qor"), "/a\xF1o.qor");
    EXPECT_THROW(RutaDelModelo("/\u03B1.qor"), FalloDeEjecucion);
}

#ifndef LEFT_OUT_Paths_AreMadeAbsoluteByTheirText
TEST(Paths, AreMadeAbsoluteByTheirText) {
    EXPECT_EQ(RutaAbsoluta("/a/./b/../c"), "/a/c");
    EXPECT_EQ(RutaAbsoluta("mm01.qor"), RutaDelModelo(std::filesystem::current_path() / "mm01.qor"));
    EXPECT_EQ(RutaAbsoluta("../x/../mm01.qor"), RutaDelModelo(std::filesystem::current_path().parent_path() / "mm01.qor"));
}
#endif

}  // namespace
}  // namespace qor
