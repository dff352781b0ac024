#include "app/console_view.h"

#include <algorithm>
#include <cstdio>
#include <ostream>

#include "base/code_page.h"
#include "base/text.h"
#include "input/encoding.h"

namespace qor {

namespace {

std::string ConFinesDeLinea(std::string_view texto, std::string_view fin) {
    return ReemplazarTodo(ReemplazarTodo(ReemplazarTodo(texto, "\r\n", "\n"), "\r", "\n"), "\n", fin);
}

const char* Palabra(Respuesta respuesta) {
    switch (respuesta) {
        case Respuesta::Si: return "yes";
        case Respuesta::No: return "no";
        case Respuesta::Aceptar: return "ok";
        case Respuesta::Cancelar: break;
    }
    return "cancel";
}

// The message with what stands behind it on its line, then its detail on one of its own.
std::string LineasDe(const Mensaje& mensaje, const std::string& detras = "") {
    std::string lineas = std::to_string(mensaje.Numero()) + ": " + AUtf8(ConFinesDeLinea(mensaje.texto, " ")) + detras + '\n';
    if (!mensaje.detalle.empty()) lineas += "  " + ConFinesDeLinea(mensaje.detalle, " ") + '\n';
    return lineas;
}

}  // namespace

std::string TextoDeTerminal(std::string_view texto) { return AUtf8(ConFinesDeLinea(texto, "\n")); }

std::string RutaDeTerminal(const std::filesystem::path& ruta) {
    const std::string bytes = ruta.string();
    std::string texto;
    for (std::size_t i = 0; i < bytes.size();) {
        const auto largo = std::max<std::size_t>(LargoDeCaracter(std::string_view(bytes).substr(i)), 1);
        const auto caracter = bytes.substr(i, largo);
        // Of the characters outside ASCII those of two bytes up to C2 9F are controls.
        const bool visible = largo == 1 ? !EsInvisible(caracter[0]) && caracter[0] > 0 : caracter >= "\xC2\xA0";
        if (visible) texto += caracter;
        for (const char c : visible ? std::string() : caracter) {
            char escrito[8];
            std::snprintf(escrito, sizeof escrito, "\\x%02X", static_cast<unsigned char>(c));
            texto += escrito;
        }
        i += largo;
    }
    return texto;
}

void VistaDeConsola::Mostrar(const Mensaje& mensaje, Icono /*icono*/) { errores_ << LineasDe(mensaje); }

Respuesta VistaDeConsola::Preguntar(const Mensaje& mensaje, Botones botones) {
    const bool aceptar = botones == Botones::AceptarCancelar;
    Respuesta respuesta =
        siATodo_ ? (aceptar ? Respuesta::Aceptar : Respuesta::Si) : (aceptar ? Respuesta::Cancelar : Respuesta::No);
    if (const auto fijada = respuestas_.find(mensaje.Numero()); fijada != respuestas_.end()) respuesta = fijada->second;
    errores_ << LineasDe(mensaje, std::string(" [") + Palabra(respuesta) + "]");
    return respuesta;
}

void VistaDeConsola::MostrarTexto(const std::string& texto) {
    const std::string listo = TextoDeTerminal(texto);
    salida_ << listo;
    if (!listo.ends_with('\n')) salida_ << '\n';
}

}  // namespace qor
