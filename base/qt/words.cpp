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
    {"&Restore", "&Recuperar"},
    {"&Discard", "&Descartar"},
    {"&Later", "&Más tarde"},

    // Copies of unsaved work
    {"Unsaved work on %1 was left behind at %2. Restore it?", "Quedó trabajo sin guardar en %1, de %2. ¿Recuperarlo?"},
    {"a new document", "un documento nuevo"},
    {"Unsaved work can't be copied:", "No se puede copiar el trabajo sin guardar:"},

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
    {"Findin&gs", "Halla&zgos"},
    {"Ne&xt finding", "Hallazgo si&guiente"},
    {"Pr&evious finding", "Hallazgo an&terior"},
    {"&Preview of the structures...", "Vista &previa de las estructuras..."},
    {"Log &on...", "&Conectar..."},
    {"Log o&ff", "&Desconectar"},
    {"&Keep a recording in the practice system...", "&Guardar una grabación en el sistema de práctica..."},

    // Main form: tool bar and grids
    {"Tools", "Herramientas"},
    {"Row", "Fila"},
    {"Rows", "Filas"},
    {"Double-click: back to the first row", "Doble clic: volver a la primera fila"},
    {"Give the field column more room, or take it back", "Dar más espacio a la columna de campos, o quitarlo"},
    {"Drag onto a value:", "Arrastre a un valor:"},
    {"Drag onto the value of a row to make it an OK code", "Arrastre al valor de una fila para convertirla en un OK code"},
    {"Conversion code of the field", "Código de conversión del campo"},
    {"Text to find", "Texto a buscar"},

    // Main form: findings
    {"Findings", "Hallazgos"},
    {"%1 error", "%1 error"},
    {"%1 errors", "%1 errores"},
    {"%1 warning", "%1 aviso"},
    {"%1 warnings", "%1 avisos"},
    {"%1 note", "%1 nota"},
    {"%1 notes", "%1 notas"},
    {"there may be more behind them", "puede haber más detrás"},
    {"The findings can't be worked out:", "No se pueden determinar los hallazgos:"},
    {"No findings", "Sin hallazgos"},
    {"Severity", "Gravedad"},
    {"Code", "Código"},
    {"Place", "Lugar"},
    {"Text", "Texto"},
    {"Error", "Error"},
    {"Warning", "Aviso"},
    {"Note", "Nota"},
    {"specification", "especificación"},
    {"file side", "lado del archivo"},
    {"program side", "lado del programa"},
    {"conditions", "condiciones"},
    {"BAPIs", "BAPIs"},
    {"global definitions", "definiciones globales"},
    {"declarations of the data source", "declaraciones del origen de datos"},
    {"forms of the data source", "rutinas del origen de datos"},
    {"code of the data source", "código del origen de datos"},
    {"option", "opción"},
    {"setting", "ajuste"},
    {"field", "campo"},
    {"width", "ancho"},
    {"note", "nota"},
    {"conversion", "conversión"},
    {"program", "programa"},
    {"dynpro", "dynpro"},
    {"value", "valor"},
    {"name", "nombre"},
    {"text", "texto"},
    {"call text", "texto de llamada"},
    {"row %1", "fila %1"},
    {"line %1", "línea %1"},

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
    {"Text editor for reports:", "Editor de textos para los reports:"},
    {"a known one that is installed", "uno conocido que esté instalado"},

    // Help window
    {"Help", "Ayuda"},
    {"Back", "Atrás"},
    {"Forward", "Adelante"},
    {"Contents", "Contenido"},
    {"This page is not installed:", "Esta página no está instalada:"},

    // Dialogs: data source
    {"Data source", "Origen de datos"},
    {"The data come from my &own code", "Los datos provienen de mi &propio código"},
    {"&Declarations and parameters:", "&Declaraciones y parámetros:"},
    {"&Forms:", "&Rutinas:"},
    {"Code that &reads the data:", "&Código que lee los datos:"},
    {"Code models", "Modelos de código"},
    {"Internal &table:", "&Tabla interna:"},
    {"Read a f&ile...", "&Leer un archivo..."},
    {"O&pen SQL", "&Open SQL"},
    {"&Native SQL", "SQL &nativo"},
    {"Pre&view...", "&Vista previa..."},
    {"&Clear...", "&Borrar..."},
    {"File to read", "Archivo a leer"},
    {"File of the &workstation, fields of fixed width", "Archivo de la &estación, campos de ancho fijo"},
    {"File of the workstation, fields delimited by &tabs", "Archivo de la estación, campos separados por &tabuladores"},
    {"File of the &server", "Archivo del &servidor"},
    {"Clear the data source", "Borrar el origen de datos"},
    {"&Declarations and parameters", "&Declaraciones y parámetros"},
    {"&Forms", "&Rutinas"},
    {"Code that &reads the data", "&Código que lee los datos"},

    // Dialogs: operations, language, printers
    {"Add an operation", "Agregar una operación"},
    {"&Transaction code:", "Código de &transacción:"},
    {"&BAPI browser...", "&Buscador de BAPIs..."},
    {"Choose a language", "Elija un idioma"},
    {"Printers", "Impresoras"},
    {"P&rinter:", "I&mpresora:"},
    {"PDF file...", "Archivo PDF..."},
    {"&Copies:", "&Copias:"},
    {"&Print", "&Imprimir"},

    // Dialogs: data-set editor
    {"Lines:", "Líneas:"},
    {"Records to change", "Registros a cambiar"},
    {"&Transaction:", "&Transacción:"},
    {"Condition &1:", "Condición &1:"},
    {"Condition &2:", "Condición &2:"},
    {"Condition &3:", "Condición &3:"},
    {"&Every occurrence of the field must meet its condition", "T&odas las apariciones del campo deben cumplir su condición"},
    {"&One occurrence is enough", "&Basta una aparición"},
    {"Replacement", "Reemplazo"},
    {"&Field:", "&Campo:"},
    {"&New value:", "Valor &nuevo:"},
    {"Replaces:", "Reemplaza a:"},
    {"&Any value", "Cual&quier valor"},
    {"Only a value that &contains:", "Sólo un &valor que contiene:"},
    {"Old value", "Valor anterior"},
    {"Replace the &whole value", "Reemplazar todo e&l valor"},
    {"Replace this &part of the value", "Reemplazar esta &parte del valor"},
    {"Lines of the file", "Líneas del archivo"},
    {"Line %1 of %2", "Línea %1 de %2"},
    {"&Replace", "&Reemplazar"},
    {"&Stop", "&Detener"},

    // Dialogs: connection
    {"Log on to a system", "Conectarse a un sistema"},
    {"System", "Sistema"},
    {"Practice system", "Sistema de práctica"},
    {"Prac&tice system", "Sistema de &práctica"},
    {"Part of this program, no SAP system.", "Es parte de este programa, no de SAP."},
    {"Rol&e of the client:", "Ro&l del mandante:"},
    {"Test", "Prueba"},
    {"Production", "Producción"},
    {"Customizing", "Customizing"},
    {"Demonstration", "Demostración"},
    {"Training", "Formación"},
    {"SAP reference", "Referencia SAP"},
    {"None", "Ninguno"},
    {"A system whose client is productive takes no programs.", "Un sistema cuyo mandante es productivo no admite programas."},
    {"&Application server", "Servidor de &aplicaciones"},
    {"&Message server and logon group", "Servidor de &mensajes y grupo de conexión"},
    {"&Host:", "&Dirección:"},
    {"H&ost:", "D&irección:"},
    {"System &number:", "&Número de sistema:"},
    {"&System name:", "Nombre del &sistema:"},
    {"Logon &group:", "&Grupo de conexión:"},
    {"SAP &router:", "SAP&router:"},
    {"A router string with a password (/W/ or /P/) is used for this logon, but not remembered.",
     "Un router con contraseña (/W/ o /P/) se usa para esta conexión, pero no se recuerda."},
    {"The field \"%1\" holds a character that can't be sent to the system, so nothing was sent. Please correct it.",
     "El campo \"%1\" contiene un carácter que no se puede enviar al sistema, así que no se envió nada. Por favor, corríjalo."},
    {"User", "Usuario"},
    {"&Client:", "Mandan&te:"},
    {"&User:", "&Usuario:"},
    {"&Password:", "&Contraseña:"},
    {"&Language:", "Idi&oma:"},
    {"&Name:", "&Nombre:"},

    // Practice system
    {"The recording can't be read", "No se puede leer la grabación"},
    {"Nothing was recorded", "No se grabó nada"},
    {"The practice system can't keep the recording", "El sistema de práctica no puede guardar la grabación"},
    {"The practice system keeps the recording %1.", "El sistema de práctica guarda la grabación %1."},
    {"Transactions: %1.", "Transacciones: %1."},
    {"The practice system does not know the widths of: %1. Structures and their fields can be added in this file, which the logon "
     "reads:",
     "El sistema de práctica no conoce los anchos de: %1. Se pueden agregar estructuras y sus campos en este archivo, que se lee "
     "al conectarse:"},
    {"The practice system holds no recording yet. The command \"Keep a recording in the practice system\" of the menu "
     "\"Connection\" puts one in.",
     "El sistema de práctica no tiene grabaciones todavía. La orden \"Guardar una grabación en el sistema de práctica\" del menú "
     "\"Conexión\" agrega una."},
};

bool EsEspanol(const TextosIdioma& textos) { return IgualesSinCaja(textos.Texto(0), "Espanol"); }

}  // namespace

QString Palabra(const TextosIdioma& textos, std::string_view ingles) {
    std::string_view elegida = ingles;
    if (EsEspanol(textos)) {
        const auto* const par =
            std::find_if(std::begin(palabras), std::end(palabras), [&](const auto& p) { return p.ingles == ingles; });
        if (par != std::end(palabras)) elegida = par->espanol;
    }
    return QString::fromUtf8(elegida.data(), static_cast<qsizetype>(elegida.size()));
}

std::span<const ParDePalabras> TodasLasPalabras() { return palabras; }

}  // namespace qor
