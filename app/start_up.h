#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "app/language.h"
#include "app/settings.h"
#include "editor/window.h"
#include "generator/generate.h"

// The desktop program from its start to its end: what is loaded, what the first activation of the main form does, and the order of
// closing.
namespace qor {

// What the main form holds beside the window, and what outlives a document.
struct Programa {
    std::filesystem::path directorioDeDatos;
    std::filesystem::path rutaDeAjustes;
    ArchivoINI ini;
    AjustesDelPrograma ajustes;
    TextosIdioma textos;
    EstadoDelGenerador generador;
    int erroresDelReporte = 0;    // findings of the report that was generated last
    bool ajustesLeidos = true;    // else nothing is saved over them: what is in them isn't known
    Mensaje falloDeAjustes;       // where they could not be read, or not be saved; else without a text
    std::string detalleDeIdioma;  // what the system said where the language file could not be read
};

// Beside the settings: what remembers windows and the choices made in them, and the input files of the documents.
std::filesystem::path RutaDeMemoria(const Programa& programa);
std::filesystem::path RutaDeEntradas(const Programa& programa);

// The load of the main form: settings, then the language, English where none was chosen yet. Settings that can't be read are the
// defaults; then `falloDeAjustes` is due. With ResultadoIdioma::SinArchivo the form shows
// avisoSinIdioma and ends the program; with Fallo it shows avisoFalloIdioma and goes on.
ResultadoIdioma CargarPrograma(Programa& programa, const Entorno& entorno, const std::filesystem::path& directorioDeDatos);

constexpr const char* avisoSinIdioma = "Cannot find language file.";
constexpr const char* avisoFalloIdioma = "An error has occurred";
constexpr const char* avisoAjustesSinLeer = "The settings can't be read.";
constexpr const char* avisoAjustesSinGuardar = "The settings can't be saved.";
constexpr const char* avisoFalloListaDeIdiomas = "An error has occurred while trying to retrieve language.";

// A language chosen by the user, at the first start or by the menu; it is saved at once. Nothing with a blank name.
ResultadoIdioma ElegirIdioma(Programa& programa, std::string_view nombre);

// Saves the settings as they are, right after the user has chosen some of them. False, with `falloDeAjustes`, when that fails;
// the end of the program tries again.
bool GuardarElecciones(Programa& programa);

// The directory of the document that was opened is the one where the next one is looked for.
void RecordarDirectorio(Programa& programa, const Documento& documento);

// What the command line of the desktop program asks for.
struct Arranque {
    bool conPresentacion = true;      // the opening box is shown
    std::filesystem::path documento;  // to open; empty for none
};

// The prefix "#$%" asks for no opening box; the document may stand in double quotes. The bytes are those of the system.
Arranque LeerArranque(std::string_view linea);

// What the first activation does, in this order.
struct PrimeraActivacion {
    bool mostrarPresentacion = false;
    bool preguntarIdioma = false;     // FormSelectLanguage, then ElegirIdioma with its answer
    std::filesystem::path documento;  // for AbrirInicial; empty for none
    bool conectar = false;            // log on
};

PrimeraActivacion PlanearPrimeraActivacion(const Programa& programa, const Arranque& arranque);

// Opens the document named at the start, under the name that the disk has for it. False when it can't be opened: the specification
// is then a new one.
bool AbrirInicial(Programa& programa, Ventana& ventana, const std::filesystem::path& documento);

// The unload of the main form: the question about changes, the document, the settings, the temporary file, then `desconectar`,
// which logs off where there is a connection. False when the user keeps the program open; nothing but a save has happened then.
// What fails on the way is passed over.
bool CerrarPrograma(Programa& programa, Ventana& ventana, const std::function<void()>& desconectar);

}  // namespace qor
