#include "base/qt/words.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace qor {

namespace {

constexpr ParDePalabras palabras[] = {
    // Buttons of message boxes
    {"OK", "Aceptar"},
    {"&Yes", "&Sí"},
    {"&No", "&No"},
    {"Close", "Cerrar"},

    // Main form: menus
    {"&Edit", "&Edición"},
    {"&Undo", "Des&hacer"},
    {"Move the field &up", "&Subir el campo"},
    {"Move the field &down", "&Bajar el campo"},
    {"&Insert a row", "&Insertar una fila"},
    {"Delete the &row", "Borrar la &fila"},
    {"N&ote...", "&Nota..."},
    {"Conversion &code...", "&Código de conversión..."},
    {"&Find...", "B&uscar..."},
    {"&Variables and definitions...", "&Variables y definiciones..."},
    {"&Preview of the structures...", "Vista &previa de las estructuras..."},
    {"Log &on...", "&Conectar..."},
    {"Log o&ff", "&Desconectar"},

    // Main form: tool bar and grids
    {"Tools", "Herramientas"},
    {"Row", "Fila"},
    {"Double-click: back to the first row", "Doble clic: volver a la primera fila"},
    {"Give the field column more room, or take it back", "Dar más espacio a la columna de campos, o quitarlo"},
    {"Drag onto a value:", "Arrastre a un valor:"},
    {"Drag onto the value of a row to make it an OK code", "Arrastre al valor de una fila para convertirla en un OK code"},
    {"Conversion code of the field", "Código de conversión del campo"},
    {"Text to find", "Texto a buscar"},

    // Main form: options
    {"Posting", "Contabilización"},
    {"Error handling", "Tratamiento de errores"},
    {"No addition", "Sin adición"},
    {"Other addition:", "Otra adición:"},
    {"Global variables:", "Variables globales:"},
    {"Global numbers:", "Números globales:"},
    {"Global internal tables:", "Tablas internas globales:"},
    {"Local variables and parameters:", "Variables y parámetros locales:"},
    {"Local numbers:", "Números locales:"},
    {"Local internal tables:", "Tablas internas locales:"},
    {"Global constants:", "Constantes globales:"},
    {"Parameters of the selection screen:", "Parámetros de la pantalla de selección:"},
    {"Numeric parameters of the selection screen:", "Parámetros numéricos de la pantalla de selección:"},
    {"High", "Alta"},
    {"Medium", "Media"},
    {"Low", "Baja"},

    // Directories
    {"Directories and files", "Directorios y archivos"},
    {"Directory of the documents:", "Directorio de los documentos:"},
    {"File of the field widths:", "Archivo de los anchos de campos:"},
    {"BAPI catalogue:", "Catálogo de BAPIs:"},

    // Help window
    {"Help", "Ayuda"},
    {"Back", "Atrás"},
    {"Forward", "Adelante"},
    {"Contents", "Contenido"},
    {"This page is not installed:", "Esta página no está instalada:"},

    {"Choose an example", "Elija un ejemplo"},
    {"This window is not part of this build:", "Esta ventana no es parte de esta compilación:"},
};

bool EsEspanol(const TextosIdioma& textos) { return IgualesSinCaja(textos.Texto(0), "Espanol"); }

}  // namespace

QString Palabra(const TextosIdioma& textos, std::string_view ingles) {
    std::string_view elegida = ingles;
    if (EsEspanol(textos)) {
        const auto* const par = std::find_if(std::begin(palabras), std::end(palabras), [&](const auto& p) { return p.ingles == ingles; });
        if (par != std::end(palabras)) elegida = par->espanol;
    }
    return QString::fromUtf8(elegida.data(), static_cast<qsizetype>(elegida.size()));
}

std::span<const ParDePalabras> TodasLasPalabras() { return palabras; }

}  // namespace qor
