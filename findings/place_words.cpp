#include "findings/place_words.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace qor {

namespace {

struct NombreDeParte {
    Lugar::Parte parte;
    std::string_view lado;
    std::array<std::string_view, 5> columnas = {};
};

constexpr NombreDeParte partes[] = {
    {Lugar::Parte::Archivo, "file side", {"field", "width", "note", "conversion"}},
    {Lugar::Parte::Programa, "program side", {"program", "dynpro", "field", "value", "note"}},
    {Lugar::Parte::Condiciones, "conditions", {"name", "text"}},
    {Lugar::Parte::BAPIs, "BAPIs", {"name", "call text"}},
    {Lugar::Parte::VariablesGlobales, "global definitions"},
    {Lugar::Parte::OrigenVariables, "declarations of the data source"},
    {Lugar::Parte::OrigenForms, "forms of the data source"},
    {Lugar::Parte::OrigenSource, "code of the data source"},
    {Lugar::Parte::Opcion, "option"},
    {Lugar::Parte::Preferencia, "setting"},
};

struct Rotulo {
    std::string_view control;
    std::string_view ingles;
    std::string_view espanol;
};

// The words of the screen.
constexpr Rotulo rotulos[] = {
    {"AddF4", "F4 help for file names", "Ayuda F4 para nombres de archivo"},
    {"ArchivoFuente", "Input file or table", "Archivo o tabla de entrada"},
    {"CallTransaction", "Use CALL TRANSACTION", "Usar CALL TRANSACTION"},
    {"CheckActivateNamingConventions", "Use naming conventions", "Usar convenciones de nombres"},
    {"CommitCheck", "COMMIT WORK after each record", "COMMIT WORK después de cada registro"},
    {"DelimTab", "Tab-delimited fields", "Campos separados por tabuladores"},
    {"DescripcionStatus", "Status", "Estado"},
    {"Description", "Description", "Descripción"},
    {"EncodingAdditional", "Other addition", "Otra adición"},
    {"ErrorHandlingCheck", "Keep failed records in an error table", "Conservar los registros con error en una tabla"},
    {"FileParameterCh", "File name as parameter", "Nombre de archivo como parámetro"},
    {"Functional", "Functional contact", "Contacto funcional"},
    {"GCprefijo", "Global constants", "Constantes globales"},
    {"GNprefijo", "Global numbers", "Números globales"},
    {"GSprefijo", "Global variables", "Variables globales"},
    {"GTprefijo", "Global internal tables", "Tablas internas globales"},
    {"Identificadores", "Record identifiers", "Identificadores de registro"},
    {"LNprefijo", "Local numbers", "Números locales"},
    {"LSprefijo", "Local variables and parameters", "Variables y parámetros locales"},
    {"LTprefijo", "Local internal tables", "Tablas internas locales"},
    {"ModeAsParameter", "Call mode as parameter", "Modo de llamada como parámetro"},
    {"NombreManual", "Session name", "Nombre del juego de datos"},
    {"Notes", "Notes", "Notas"},
    {"OneFileOption", "All records in one file", "Todos los registros en un archivo"},
    {"PNprefijo", "Numeric parameters of the selection screen", "Parámetros numéricos de la pantalla de selección"},
    {"PSprefijo", "Parameters of the selection screen", "Parámetros de la pantalla de selección"},
    {"ProgID", "Number of this program in the table", "Número de este programa en la tabla"},
    {"Programa", "Program file to generate", "Archivo de programa a generar"},
    {"SafeCallTransactionCheck", "Put failed transactions into a session",
     "Poner las transacciones con error en un juego de datos"},
    {"SpaceCode", "Code for an intended blank", "Código para un blanco intencional"},
    {"TablaZ", "Error table", "Tabla de errores"},
    {"Technical", "Technical contact", "Contacto técnico"},
};

const NombreDeParte* ParteDe(const Lugar& lugar) {
    const auto parte =
        std::find_if(std::begin(partes), std::end(partes), [&](const auto& una) { return una.parte == lugar.parte; });
    return parte == std::end(partes) ? nullptr : parte;
}

}  // namespace

std::string TextoDeLugar(const Lugar& lugar) {
    std::string texto(lugar.parte == Lugar::Parte::Ninguna ? "specification" : LadoDeLugar(lugar));
    if (lugar.opcion != nullptr) texto.append(" ").append(lugar.opcion);
    if (const auto rotulo = RotuloDeOpcion(lugar, false); !rotulo.empty()) texto.append(" (").append(rotulo).append(")");
    if (lugar.fila >= 0) texto += ", row " + std::to_string(lugar.fila);
    if (const auto columna = ColumnaDeLugar(lugar); !columna.empty()) texto.append(", ").append(columna);
    if (lugar.linea > 0) texto += ", line " + std::to_string(lugar.linea);
    return texto;
}

std::string_view LadoDeLugar(const Lugar& lugar) {
    const auto* const parte = ParteDe(lugar);
    return parte == nullptr ? std::string_view{} : parte->lado;
}

std::string_view RotuloDeOpcion(const Lugar& lugar, bool enEspanol) {
    const auto* const rotulo =
        std::find_if(std::begin(rotulos), std::end(rotulos), [&](const Rotulo& uno) { return uno.control == lugar.Opcion(); });
    if (rotulo == std::end(rotulos)) return {};
    return enEspanol ? rotulo->espanol : rotulo->ingles;
}

std::string_view ColumnaDeLugar(const Lugar& lugar) {
    const auto* const parte = ParteDe(lugar);
    const auto columna = static_cast<std::size_t>(lugar.columna);
    return parte == nullptr || lugar.columna < 0 || columna >= parte->columnas.size() ? std::string_view{}
                                                                                      : parte->columnas[columna];
}

}  // namespace qor
