#include "app/console_view.h"

#include <gtest/gtest.h>

#include <sstream>

namespace qor::pruebas {
namespace {

TEST(ConsoleView, MessagesAreLinesWithTheirNumber) {
    std::ostringstream salida;
    std::ostringstream errores;
    VistaDeConsola vista(salida, errores, false);
    TextosIdioma textos;
    textos.Poner(378, "No hay claves");
    textos.Poner(375,
                 "A\xF1"
                 "ada una");
    vista.Advertir(Componer(textos, {378, "\r\r", 375}));
    vista.Informar(Componer(textos, {"BAPI_X ", 375}));
    vista.Advertir(MensajeLiteral("one\r\ntwo\nthree \x80"));
    EXPECT_EQ(errores.str(), "378: No hay claves  A\u00F1ada una\n375: BAPI_X A\u00F1ada una\n0: one two three \u20AC\n");
    EXPECT_EQ(salida.str(), "");
}

TEST(ConsoleView, QuestionsTellTheirAnswer) {
    const struct {
        bool siATodo;
        Botones botones;
        Respuesta respuesta;
        const char* palabra;
    } casos[] = {
        {false, Botones::SiNo, Respuesta::No, "[no]"},
        {false, Botones::SiNoCancelar, Respuesta::No, "[no]"},
        {false, Botones::AceptarCancelar, Respuesta::Cancelar, "[cancel]"},
        {true, Botones::SiNo, Respuesta::Si, "[yes]"},
        {true, Botones::SiNoCancelar, Respuesta::Si, "[yes]"},
        {true, Botones::AceptarCancelar, Respuesta::Aceptar, "[ok]"},
    };
    TextosIdioma textos;
    textos.Poner(337, "Replace?");
    for (const auto& caso : casos) {
        std::ostringstream salida;
        std::ostringstream errores;
        VistaDeConsola vista(salida, errores, caso.siATodo);
        EXPECT_EQ(vista.Preguntar(Componer(textos, {337}), caso.botones), caso.respuesta) << caso.palabra;
        EXPECT_EQ(errores.str(), "337: Replace? " + std::string(caso.palabra) + "\n");
    }
}

TEST(ConsoleView, WhatTheSystemSaidHasALineOfItsOwn) {
    std::ostringstream salida;
    std::ostringstream errores;
    VistaDeConsola vista(salida, errores, true);
    vista.Advertir({{336}, "N\xF3t saved", "No space left on device: /\u20AC/a.qor"});
    vista.Preguntar({{337}, "Replace?", "Permission denied: /a\nb"}, Botones::SiNo);
    EXPECT_EQ(errores.str(),
              "336: N\u00F3t saved\n  No space left on device: /\u20AC/a.qor\n337: Replace? [yes]\n  Permission denied: /a b\n");
}

TEST(ConsoleView, TextsEndWithALineEnd) {
    for (const char* texto : {"a\r\n\xE9", "a\r\n\xE9\r\n", "a\n\xE9\r"}) {
        std::ostringstream salida;
        std::ostringstream errores;
        VistaDeConsola vista(salida, errores, true);
        vista.MostrarTexto(texto);
        EXPECT_EQ(salida.str(), "a\n\u00E9\n");
    }
}

}  // namespace
}  // namespace qor::pruebas
