#include "findings/catalogue.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "base/code_page.h"
#include "base/text.h"

namespace qor {

namespace {

using G = Gravedad;

// In the order of the codes.
constexpr TipoDeHallazgo tipos[] = {
    // Generate refuses.
    {101, G::Error,
     "A control character stands here, which no box lets in; a line break would begin a statement of its own in the report. Delete "
     "it, or type the text anew.",
     "Aquí hay un carácter de control, que ninguna casilla admite; un salto de línea comenzaría en el report una sentencia propia. "
     "Bórrelo, o escriba de nuevo el texto."},
    {102, G::Error, "", ""},
    {103, G::Error, "", ""},
    {104, G::Error, "", ""},
    {105, G::Error, "", ""},
    {106, G::Error, "", ""},
    {107, G::Error,
     "All records come in one file, but there are no record identifiers. Enter them in the options with commas, first that of the "
     "main record, then one for each step-loop, such as H,I.",
     "Todos los registros vienen en un archivo, pero no hay identificadores de registro. Indíquelos en las opciones separados por "
     "comas, primero el del registro principal, después uno por cada step-loop, por ejemplo H,I."},
    {108, G::Error, "", ""},
    {109, G::Error, "", ""},
    {110, G::Error, "", ""},
    {111, G::Error, "", ""},
    {112, G::Error, "", ""},
    {113, G::Error, "", ""},
    {114, G::Error, "", ""},
    {115, G::Error, "", ""},
    {116, G::Error, "", ""},
    {117, G::Error, "", ""},
    {118, G::Error, "", ""},
    {119, G::Error,
     "The settings of a step-loop can't be read from the note of this row: its marks (!1 to !7) stand in the wrong order. Keep "
     "what "
     "you have written in front of them, empty the note, and enter text and settings anew.",
     "Los ajustes de un step-loop no pueden leerse de la nota de esta fila: sus marcas (!1 a !7) están en un orden equivocado. "
     "Conserve "
     "lo que haya escrito delante de ellas, vacíe la nota, e indique de nuevo el texto y los ajustes."},
    {120, G::Error,
     "The report can't be written beyond this place: a text does not fit into its line, or there are too many lines. Shorten the "
     "text that stands here.",
     "El report no puede escribirse más allá de este lugar: un texto no cabe en su línea, o hay demasiadas líneas. Acorte el texto "
     "que está aquí."},
    {121, G::Error, "", ""},
    {201, G::Error, "", ""},
    {202, G::Error, "", ""},
    {203, G::Error, "", ""},
    {204, G::Error, "", ""},
    {205, G::Error, "", ""},
    {206, G::Error, "", ""},
    {207, G::Error, "", ""},
    {208, G::Error, "", ""},
    {209, G::Error, "", ""},
    {210, G::Error, "", ""},

    // The report does not compile.
    {301, G::Error,
     "With naming conventions, a report that keeps failed records in an error table uses the name '{1}', which it does not "
     "declare. Switch off one of the two options.",
     "Con convenciones de nombres, un report que conserva los registros con error en una tabla usa el nombre '{1}', que no "
     "declara. Desactive una de las dos opciones."},
    {302, G::Error,
     "The file name of a step-loop is kept in '{1}', which is only declared as a parameter. Set 'File name as parameter' in the "
     "data source, or let all records come in one file.",
     "El nombre de archivo de un step-loop se guarda en '{1}', que solo se declara como parámetro. Active 'Nombre de archivo como "
     "parámetro' en el origen de datos, o haga que todos los registros vengan en un archivo."},
    {303, G::Error,
     "The condition behind this row puts its result into '{1}', which is not declared. Add the line DATA: {1} TYPE C. to the "
     "global definitions.",
     "La condición de esta fila deja su resultado en '{1}', que no está declarado. Agregue la línea DATA: {1} TYPE C. a las "
     "definiciones globales."},
    {304, G::Error,
     "A BAPI parameter with a constant or a variable can't be the first value of the BAPI, nor stand behind a table parameter or a "
     "row with a condition: its statement has no MOVE. Put the row directly behind one that sends a file field.",
     "Un parámetro de BAPI con una constante o una variable no puede ser el primer valor de la BAPI, ni ir detrás de un parámetro "
     "de tabla o de una fila con condición: a su sentencia le falta el MOVE. Ponga la fila justo detrás de una que envíe un campo "
     "de archivo."},
    {305, G::Error,
     "The condition '{2}' can't decide about a BAPI parameter whose value is a constant or a variable: the report holds it as a "
     "meaningless word. Remove it, or send {3} from a file field.",
     "La condición '{2}' no puede decidir sobre un parámetro de BAPI cuyo valor es una constante o una variable: el report la "
     "contiene como una palabra sin sentido. Quítela, o envíe {3} desde un campo de archivo."},
    {306, G::Error,
     "The code '{1}' makes the name {2}, which is longer than the 30 characters that a FORM can have. Use a transaction code of at "
     "most {3} characters.",
     "El código '{1}' forma el nombre {2}, más largo que los 30 caracteres que admite un FORM. Use un código de transacción de {3} "
     "caracteres como máximo."},
    {307, G::Error,
     "The code '{1}' becomes part of a FORM's name, in which the character {2} is not allowed. Correct the code; for a transaction "
     "whose code has this character, create a transaction with a plain code in SAP.\n"
     "The code '{1}' becomes part of a FORM's name, in which no blank is allowed. Remove the blank.\n"
     "The name '{1}' becomes part of a FORM's name, in which the character {2} is not allowed. Correct the name of the BAPI.",
     "El código '{1}' pasa a formar parte del nombre de un FORM, que no admite el carácter {2}. Corrija el código; para una "
     "transacción cuyo código tiene este carácter, cree en SAP una transacción con un código sencillo.\n"
     "El código '{1}' pasa a formar parte del nombre de un FORM, que no admite blancos. Quite el blanco.\n"
     "El nombre '{1}' pasa a formar parte del nombre de un FORM, que no admite el carácter {2}. Corrija el nombre de la BAPI."},
    {308, G::Error,
     "This line is longer than {1} characters and is broken inside a text between apostrophes, in front of: {2}. Break the line "
     "yourself at another place.\n"
     "This line is longer than {1} characters and is broken inside its comment, so that the rest becomes code: {2}. Shorten the "
     "comment, or begin a second one.\n"
     "This line holds more than {1} characters without a blank, and breaking it loses a character. Shorten it, or put blanks in.\n"
     "This pair of values is longer than {1} characters and is broken in front of: {2}. Shorten its texts, so that the pair keeps "
     "within one line.\n"
     "This line is longer than {1} characters, and its second part, which begins with an asterisk, becomes a comment: {2}. Break "
     "the line yourself behind the asterisk.",
     "Esta línea tiene más de {1} caracteres y se parte dentro de un texto entre apóstrofos, delante de: {2}. Parta usted la línea "
     "en otro lugar.\n"
     "Esta línea tiene más de {1} caracteres y se parte dentro de su comentario, de modo que el resto pasa a ser código: {2}. "
     "Acorte el comentario, o comience otro.\n"
     "Esta línea tiene más de {1} caracteres sin un blanco, y al partirla se pierde un carácter. Acórtela, o intercale blancos.\n"
     "Este par de valores tiene más de {1} caracteres y se parte delante de: {2}. Acorte sus textos, para que el par quepa en una "
     "línea.\n"
     "Esta línea tiene más de {1} caracteres, y su segunda parte, que comienza con un asterisco, pasa a ser un comentario: {2}. "
     "Parta usted la línea detrás del asterisco."},
    {309, G::Error,
     "This line is no comment in the report, where blanks stand in front of it and an asterisk makes a comment only in column 1. "
     "Begin the comment with a double quotation mark.",
     "Esta línea no es un comentario en el report, donde lleva blancos delante y un asterisco solo inicia un comentario en la "
     "columna 1. Comience el comentario con una comilla doble."},
    {310, G::Error,
     "The addition of OPEN DATASET '{1}' does not end with a point, so the statement runs into the next one. Add a point at its "
     "end in the options.\n"
     "The addition of OPEN DATASET '{1}' holds '{2}', which is no addition of text files. Correct it in the options, such as "
     "ENCODING DEFAULT. (with its point).",
     "La adición de OPEN DATASET '{1}' no termina con un punto, de modo que la sentencia se une a la siguiente. Agregue un punto "
     "al final en las opciones.\n"
     "La adición de OPEN DATASET '{1}' contiene '{2}', que no es una adición de archivos de texto. Corríjala en las opciones, por "
     "ejemplo ENCODING DEFAULT. (con su punto)."},
    {311, G::Error,
     "The parameter '{1}' has more than the 8 characters that a parameter of the selection screen can have. Shorten the name, or "
     "the prefix that it begins with.",
     "El parámetro '{1}' tiene más de los 8 caracteres que admite un parámetro de la pantalla de selección. Acorte el nombre, o el "
     "prefijo con que comienza."},
    {312, G::Error,
     "The apostrophe in '{1}' ends a text of the report too early. Remove it from the option.\n"
     "The session is named after the document, '{1}', whose apostrophe ends a text of the report too early. Choose a session name "
     "of your own in the options.\n"
     "The file or table of this step-loop, '{1}', holds an apostrophe, which ends a text of the report too early. Correct it in "
     "the note of the row.\n"
     "The name '{1}' holds an apostrophe, which no table of the dictionary has. Correct it in the options.",
     "El apóstrofo de '{1}' termina antes de tiempo un texto del report. Quítelo de la opción.\n"
     "El juego de datos se llama como el documento, '{1}', cuyo apóstrofo termina antes de tiempo un texto del report. Elija en "
     "las opciones un nombre propio para el juego de datos.\n"
     "El archivo o la tabla de este step-loop, '{1}', contiene un apóstrofo, que termina antes de tiempo un texto del report. "
     "Corríjalo en la nota de la fila.\n"
     "El nombre '{1}' contiene un apóstrofo, que ninguna tabla del diccionario tiene. Corríjalo en las opciones."},
    {313, G::Error,
     "This step-loop moves on to the next line of the screen, but it has no number of rows per screen. Enter the number in the "
     "note of the row.",
     "Este step-loop avanza a la línea siguiente de la pantalla, pero no tiene el número de filas por pantalla. Indíquelo en la "
     "nota de la fila."},
    {314, G::Error,
     "The field name '{1}' can't be used in the report: the character {2} is not allowed in a name. Use letters, digits and the "
     "underscore.\n"
     "The field name '{1}' can't be used in the report: no blank is allowed in a name. Put an underscore in its place.\n"
     "The field name '{1}' can't be used in the report: a name begins with a letter. Put a letter in front of it.\n"
     "The field name '{1}' has {2} characters; a name in the report has at most 30. Shorten it.\n"
     "The report numbers the records of the one file in a field '{1}' of its own, so that there would be two. Give this field "
     "another name.",
     "El nombre de campo '{1}' no puede usarse en el report: un nombre no admite el carácter {2}. Use letras, cifras y el guion "
     "bajo.\n"
     "El nombre de campo '{1}' no puede usarse en el report: un nombre no admite blancos. Ponga un guion bajo en su lugar.\n"
     "El nombre de campo '{1}' no puede usarse en el report: un nombre comienza con una letra. Ponga una letra delante.\n"
     "El nombre de campo '{1}' tiene {2} caracteres; un nombre del report tiene 30 como máximo. Acórtelo.\n"
     "El report numera los registros del archivo único en un campo propio '{1}', de modo que habría dos. Dé otro nombre a este "
     "campo."},
    {315, G::Error,
     "'{1}' names no field of its record: code and conditions work with the fields of the main record, rows of a step-loop with "
     "those of "
     "the step-loop. Correct the name as it stands on the file side, or send the field in a row of that record.",
     "'{1}' no nombra ningún campo de su registro: el código y las condiciones trabajan con los campos del registro principal, las "
     "filas de "
     "un step-loop con los del step-loop. Corrija el nombre como está en el lado del archivo, o envíe el campo en una fila de ese "
     "registro."},
    {316, G::Error,
     "The statement that reads the lines of this step-loop lacks its fields or its condition. Select key fields that are fields of "
     "the main record, and give the screen one step-loop only, whose rows send file fields.\n"
     "The step-loop of this note stands on the row of a screen, where it can't be. Take its settings out of this note, and enter "
     "them "
     "in the note of the first field of the table.\n"
     "The screen {1} has a second step-loop here, and a screen can have one only. Take the settings out of one of the two notes.",
     "A la sentencia que lee las líneas de este step-loop le faltan sus campos o su condición. Seleccione campos clave que sean "
     "campos del registro principal, y deje en la pantalla un solo step-loop, cuyas filas envíen campos de archivo.\n"
     "El step-loop de esta nota está en la fila de una pantalla, donde no puede estar. Quite su configuración de esta nota, e "
     "introdúzcala en la nota del primer campo de la tabla.\n"
     "La pantalla {1} tiene aquí un segundo step-loop, y una pantalla solo puede tener uno. Quite la configuración de una de las "
     "dos "
     "notas."},
    {317, G::Error,
     "'{1}' reaches beyond the end of the field. Correct the position or the length in the code, or make the field wider.",
     "'{1}' llega más allá del final del campo. Corrija la posición o la longitud en el código, o dé más ancho al campo."},
    {318, G::Error,
     "'{1}' is nothing that the report knows: no variable and no FORM of this name is declared. Correct the name (where naming "
     "conventions are in use, with its prefix), or declare it in the global definitions.",
     "'{1}' no es nada que el report conozca: no hay declarada ninguna variable ni ningún FORM con este nombre. Corrija el nombre "
     "(si se usan convenciones de nombres, con su prefijo), o declárelo en las definiciones globales."},
    {320, G::Error,
     "The name '{1}' is declared twice: the report has one of its own, or it stands in the definitions before. Use another name.",
     "El nombre '{1}' se declara dos veces: el report tiene uno propio, o ya figura antes en las definiciones. Use otro nombre."},
    {321, G::Error,
     "This parameter is written as a line of a table, but its table has no head. Open the note of the table's first row, and make "
     "it the head of the table.",
     "Este parámetro está escrito como una línea de una tabla, pero su tabla no tiene cabecera. Abra la nota de la primera fila de "
     "la tabla, y conviértala en la cabecera de la tabla."},
    {322, G::Aviso,
     "A line of the report that comes from here is longer than 72 characters, behind which old editors and the publishing of the "
     "report cut it: {1}. Shorten the text.",
     "Una línea del report que sale de aquí tiene más de 72 caracteres, detrás de los cuales la cortan los editores antiguos y la "
     "publicación del report: {1}. Acorte el texto."},
    {323, G::Error,
     "'{1}' is a word of the declaration of records, so the report can't have a field of this name. Rename the field.\n"
     "'{1}' is a word of the condition that finds the lines of a step-loop, so no key field can have this name. Rename the field.\n"
     "'{1}' is a word of the database's own language, so no column of this name can be read. Read the column under another name, "
     "by a view of the table.\n"
     "A variable called '{1}' is taken for a word of the statement that uses it. Give the variable another name.\n"
     "'{1}' is a name that ABAP has declared itself. Use another name.",
     "'{1}' es una palabra de la declaración de registros, y el report no puede tener un campo con este nombre. Dé otro nombre al "
     "campo.\n"
     "'{1}' es una palabra de la condición que busca las líneas de un step-loop, y ningún campo clave puede llevar este nombre. Dé "
     "otro nombre al campo.\n"
     "'{1}' es una palabra del lenguaje de la base de datos, y no puede leerse ninguna columna con este nombre. Lea la columna con "
     "otro nombre, por medio de una vista de la tabla.\n"
     "Una variable llamada '{1}' se toma por una palabra de la sentencia que la usa. Dé otro nombre a la variable.\n"
     "'{1}' es un nombre que ABAP declara por sí mismo. Use otro nombre."},
    {324, G::Aviso,
     "The name of the error table, '{1}', holds the character {2}; names of tables have letters, digits and the underscore. "
     "Correct it in the options.\n"
     "The name of the error table, '{1}', is longer than the 16 characters that a table can have. Shorten it in the options.\n"
     "The error table '{1}' begins with neither Z nor Y, so it would be a table of SAP's own. Use a name of your own in the "
     "options.\n"
     "The name of the error table, '{1}', has an underscore at its second or third place, where the dictionary allows none. Change "
     "it in the options.",
     "El nombre de la tabla de errores, '{1}', contiene el carácter {2}; los nombres de tabla tienen letras, cifras y el guion "
     "bajo. Corríjalo en las opciones.\n"
     "El nombre de la tabla de errores, '{1}', es más largo que los 16 caracteres que admite una tabla. Acórtelo en las opciones.\n"
     "La tabla de errores '{1}' no comienza con Z ni con Y, de modo que sería una tabla del propio SAP. Use en las opciones un "
     "nombre suyo.\n"
     "El nombre de la tabla de errores, '{1}', tiene un guion bajo en segundo o tercer lugar, donde el diccionario no lo admite. "
     "Cámbielo en las opciones."},
    {325, G::Error,
     "With naming conventions and step-loops with key fields in one file, the report moves lines to ITABSL_1, but declares {1}. "
     "Remove the key fields of the step-loops, use several files, or switch the conventions off.",
     "Con convenciones de nombres y step-loops con campos clave en un archivo, el report mueve las líneas a ITABSL_1, pero declara "
     "{1}. Quite los campos clave de los step-loops, use varios archivos, o desactive las convenciones."},
    {326, G::Error, "The width '{1}' of the field {2} is no number from 1 to 65535. Enter the number of characters in digits only.",
     "El ancho '{1}' del campo {2} no es un número de 1 a 65535. Indique el número de caracteres solo con cifras."},
    {327, G::Error,
     "The field name '{1}' stands in row {2} already, and one record can't have it twice. Give one of the two fields another name.",
     "El nombre de campo '{1}' ya está en la fila {2}, y un registro no puede tenerlo dos veces. Dé otro nombre a uno de los dos "
     "campos."},
    {328, G::Error, "The apostrophe in '{1}' ends a text of the report too early. Remove it.",
     "El apóstrofo de '{1}' termina antes de tiempo un texto del report. Quítelo."},
    {329, G::Aviso,
     "A character with the code {1} stands here, which the code page does not know: the SAP system will hold another one, or none. "
     "Replace it.",
     "Aquí hay un carácter con el código {1}, que la página de códigos no conoce: el sistema SAP tendrá otro, o ninguno. "
     "Reemplácelo."},
    {330, G::Error,
     "'{1}' is no name of a database table, and the program reads its records from one. Enter the table, or switch the input to a "
     "file.",
     "'{1}' no es el nombre de una tabla de base de datos, y el programa lee de una sus registros. Indique la tabla, o cambie la "
     "entrada "
     "a un archivo."},
    {399, G::Error, "A line of the report that comes from here does not compile, near '{1}'. Correct the text that stands here.",
     "Una línea del report que sale de aquí no se compila, cerca de '{1}'. Corrija el texto que está aquí."},

    // The report does something else than was meant.
    {401, G::Aviso,
     "The lines of {2} are read for each main record and added to those in {1}, which the report never empties: each record also "
     "sends the lines of the records before it. Read the data with code of your own, or write REFRESH {1}. in the conversion code "
     "of the first file field.",
     "Las líneas de {2} se leen para cada registro principal y se agregan a las de {1}, que el report nunca vacía: cada registro "
     "envía también las líneas de los anteriores. Lea los datos con código propio, o escriba REFRESH {1}. en el código de "
     "conversión del primer campo de archivo."},
    {402, G::Aviso,
     "The constant {1} is the code for an intended blank: the report tries to write a blank over the constant and ends with a "
     "short dump at the first record. Use a constant of blanks, or another code.\n"
     "The field {1} is sent before, in row {3}. Where it holds the code {2} for an intended blank, that row leaves it blank, and "
     "here nothing is sent. Use a second file field, or convert the code yourself.\n"
     "Where the variable {1} holds the code {2} for an intended blank, the first row that sends it leaves it blank, and from then "
     "on nothing is sent. Set it anew for each record, in the conversion code of a field.",
     "La constante {1} es el código para un blanco intencional: el report intenta escribir un blanco sobre la constante y termina "
     "con un short dump en el primer registro. Use una constante de blancos, u otro código.\n"
     "El campo {1} ya se envía en la fila {3}. Si contiene el código {2} para un blanco intencional, esa fila lo deja en blanco, y "
     "aquí no se envía nada. Use un segundo campo de archivo, o convierta usted el código.\n"
     "Si la variable {1} contiene el código {2} para un blanco intencional, la primera fila que la envía la deja en blanco, y "
     "desde entonces no se envía nada. Asígnela de nuevo en cada registro, en el código de conversión de un campo."},
    {403, G::Aviso,
     "The only BDC_OKCODE of the screen {2}, {1}, is sent when a page is full; behind the last line there is none, and the screen "
     "is not left. Add a second row BDC_OKCODE behind the rows of the step-loop.\n"
     "The only BDC_OKCODE of the screen {2}, {1}, is sent behind each line, and the screen is called anew; its last call has no OK "
     "code, and the screen is not left. Add a second row BDC_OKCODE behind the rows of the step-loop.",
     "El único BDC_OKCODE de la pantalla {2}, {1}, se envía cuando se llena una página; después de la última línea no hay ninguno, "
     "y no se sale de la pantalla. Agregue otra fila BDC_OKCODE detrás de las filas del step-loop.\n"
     "El único BDC_OKCODE de la pantalla {2}, {1}, se envía después de cada línea, y se llama de nuevo a la pantalla; la última "
     "llamada no tiene OK code, y no se sale de la pantalla. Agregue otra fila BDC_OKCODE detrás de las filas del step-loop."},
    {404, G::Aviso,
     "The name {1} is part of the key field {2}, and so {1} counts as a key too: the lines of this step-loop must hold it, and are "
     "found by it. Rename the field {1}.",
     "El nombre {1} es parte del campo clave {2}, y por eso {1} también cuenta como clave: las líneas de este step-loop deben "
     "contenerlo, y se buscan por él. Dé otro nombre al campo {1}."},
    {405, G::Aviso,
     "The condition '{1}' decides about an operation by {2}, which its code never takes back: after the first record for which "
     "it holds, the operation runs for every record. Begin the code with {2} = {3}.\n"
     "The condition '{1}' decides about an operation by {2}, which its code does not set: the operation never runs. Set {2} in the "
     "code, to {3} first, and to {4} where the test holds.\n"
     "The condition '{1}' decides about an operation by {2}, but its code can't reach that variable, since global and local "
     "variables have the same prefix: the operation never runs. Choose two different prefixes in the options.",
     "La condición '{1}' decide sobre una operación por medio de {2}, que su código nunca retira: después del primer registro que "
     "la "
     "cumple, la operación se ejecuta con todos. Comience el código con {2} = {3}.\n"
     "La condición '{1}' decide sobre una operación por medio de {2}, que su código no asigna: la operación no se ejecuta nunca. "
     "Asigne {2} en el código, primero {3}, y {4} donde se cumpla la prueba.\n"
     "La condición '{1}' decide sobre una operación por medio de {2}, pero su código no llega a esa variable, porque las variables "
     "globales y las locales tienen el mismo prefijo: la operación no se ejecuta nunca. Elija en las opciones dos prefijos "
     "distintos."},
    {406, G::Aviso,
     "Only a RETURN of type E counts as an error of {1}: a message of type A (abort) is taken for success. Add a test of your own "
     "to the call text.\n"
     "Only rows of RETURN of type E count as errors of {1}: a message of type A (abort) is taken for success, and rows of the "
     "record before stay where the BAPI does not empty the table. Add a REFRESH in front of the call, and a test of your own "
     "behind it, to the call text.",
     "Solo un RETURN de tipo E cuenta como error de {1}: un mensaje de tipo A (cancelación) se considera correcto. Agregue una "
     "prueba "
     "propia al texto de llamada.\n"
     "Solo las filas de RETURN de tipo E cuentan como errores de {1}: un mensaje de tipo A (cancelación) se considera correcto, y "
     "las "
     "filas del registro anterior quedan si la BAPI no vacía la tabla. Agregue al texto de llamada un REFRESH delante, y una "
     "prueba propia detrás."},
    {407, G::Aviso, "", ""},
    {408, G::Aviso,
     "A file of the application server is read without regard to tabs: the report takes its lines as fields of fixed width. Choose "
     "fixed-width fields, or read the file on the workstation.",
     "Un archivo del servidor se lee sin tener en cuenta los tabuladores: el report toma sus líneas como campos de ancho fijo. "
     "Elija campos de ancho fijo, o lea el archivo en la estación de trabajo."},
    {409, G::Aviso,
     "{1} is a field of a step-loop, and its code runs once for each main record, before the lines of the step-loop are read: it "
     "changes none of them. Use value pairs, or prepare the field in the file.\n"
     "{1} is a field of a step-loop, and its code is left out of the report; only its value pairs are used. Use value pairs, or "
     "prepare the field in the file.",
     "{1} es un campo de un step-loop, y su código se ejecuta una vez por registro principal, antes de leerse las líneas del "
     "step-loop: no cambia ninguna. Use pares de valores, o prepare el campo en el archivo.\n"
     "{1} es un campo de un step-loop, y su código queda fuera del report; solo se usan sus pares de valores. Use pares de "
     "valores, o prepare el campo en el archivo."},
    {410, G::Aviso,
     "{1} turns the page of a step-loop and has a condition, and so it is sent once more behind the lines. Take the condition "
     "away, and put it on a second BDC_OKCODE where it is needed.",
     "{1} pasa la página de un step-loop y lleva una condición, y por eso se envía otra vez después de las líneas. Quite la "
     "condición, y póngala en otro BDC_OKCODE donde haga falta."},
    {411, G::Aviso,
     "A transaction that fails is put into a session and kept in the error table as well: running both posts it twice. Switch "
     "off either 'Put failed transactions into a session' or 'Keep failed records in an error table'.",
     "Una transacción con error se pone en un juego de datos y además se conserva en la tabla de errores: ejecutar las dos cosas "
     "la contabiliza dos veces. Desactive 'Poner las transacciones con error en un juego de datos' o 'Conservar los registros con "
     "error en una tabla'."},
    {414, G::Aviso,
     "The session is called '{1}', with small letters, and SM35 looks for names in capitals only: it will hardly be found by its "
     "name. Enter a session name in capitals in the options, such as {2}.",
     "El juego de datos se llama '{1}', con minúsculas, y SM35 busca los nombres solo en mayúsculas: será difícil encontrarlo por "
     "su nombre. Indique en las opciones un nombre en mayúsculas, por ejemplo {2}."},
    {415, G::Aviso,
     "When this file can't be read, EXIT leaves only your own code: the report goes on without records and ends with 'Processing "
     "finished.'. Write STOP in the place of EXIT.",
     "Si este archivo no puede leerse, EXIT solo sale de su propio código: el report continúa sin registros y termina con 'Proceso "
     "terminado.'. Escriba STOP en lugar de EXIT."},
    {417, G::Aviso,
     "This code changes {1}, by which the lines of a step-loop are found. The lines keep their value as it was read, so that those "
     "of a changed record are not found. Convert a second field that is not the key.",
     "Este código cambia {1}, por el que se buscan las líneas de un step-loop. Las líneas conservan el valor leído, y no se "
     "encuentran las de un registro cambiado. Convierta un segundo campo que no sea la clave."},
    {418, G::Aviso,
     "A record runs {1} operations. When a later one fails, the repetition from the error table posts those that succeeded once "
     "more. Make a specification for each operation, or guard the operations with conditions.",
     "Un registro ejecuta {1} operaciones. Si falla una de las últimas, la repetición desde la tabla de errores contabiliza otra "
     "vez las que salieron bien. Haga una especificación para cada operación, o protéjalas con condiciones."},
    {419, G::Aviso,
     "When the first record fails, ROLLBACK WORK also takes back the description of the records that the report has put into the "
     "error table, and the data-set editor does not recognise a download of it. Run the report once with a record that is right, "
     "before the real load.",
     "Si falla el primer registro, ROLLBACK WORK deshace también la descripción de los registros que el report puso en la tabla de "
     "errores, y el editor de juegos de datos no reconoce una descarga. Ejecute antes de la carga real el report una vez con un "
     "registro correcto."},
    {420, G::Aviso,
     "The variable {1} has the type {2}: in a screen field its value stands on the right side, out to column 132, and is not "
     "taken. Declare it with type C, or move it to a variable of type C first.\n"
     "The variable {1} has the type {2}, which can't be compared with the code {3} for an intended blank: the report ends with a "
     "short dump. Declare it with type C, or move it to a variable of type C first.",
     "La variable {1} es de tipo {2}: en un campo de pantalla su valor queda a la derecha, hasta la columna 132, y no se acepta. "
     "Declárela de tipo C, o pásela antes a una variable de tipo C.\n"
     "La variable {1} es de tipo {2}, que no puede compararse con el código {3} para un blanco intencional: el report termina con "
     "un short dump. Declárela de tipo C, o pásela antes a una variable de tipo C."},
    {421, G::Aviso,
     "The step-loop of {1} has one row per screen and goes on at line 2 behind a new call of the screen, where there is none. "
     "Choose line 1 in the note of the row, or correct the rows per screen.",
     "El step-loop de {1} tiene una fila por pantalla y sigue en la línea 2 tras llamar de nuevo a la pantalla, donde no la hay. "
     "Elija la línea 1 en la nota de la fila, o corrija las filas por pantalla."},
    {422, G::Aviso,
     "{1} has {2} characters, and a screen field takes 132: longer values are cut. Make the field shorter, or send the text in "
     "parts.",
     "{1} tiene {2} caracteres, y un campo de pantalla admite 132: los valores más largos se cortan. Acorte el campo, o envíe el "
     "texto en partes."},
    {423, G::Aviso,
     "When this file can't be read, EXIT leaves only your own code: the report posts the records that it has read, without the "
     "lines of this file. Write STOP in the place of EXIT.",
     "Si este archivo no puede leerse, EXIT solo sale de su propio código: el report contabiliza los registros leídos, sin las "
     "líneas de este archivo. Escriba STOP en lugar de EXIT."},
    {424, G::Nota, "", ""},
    {425, G::Aviso, "", ""},
    {426, G::Aviso, "", ""},
    {427, G::Aviso,
     "This transaction has no code: the program ends with a short dump at its first record. Enter the transaction code.",
     "Esta transacción no tiene código: el programa termina con un short dump en su primer registro. Indique el código de la "
     "transacción."},
    {428, G::Aviso, "The condition {1} is there twice, and the second one is never asked. Rename it, or delete one of them.",
     "La condición {1} existe dos veces, y la segunda nunca se consulta. Cámbiele el nombre, o borre una de ellas."},

    // What nothing uses.
    {601, G::Nota,
     "No row, code or condition uses the field {1}: it only takes its place in the record. Leave it if the file has this column; "
     "else delete the row.",
     "Ninguna fila, código ni condición usa el campo {1}: solo ocupa su lugar en el registro. Déjelo si el archivo tiene esta "
     "columna; si no, borre la fila."},
    {602, G::Nota, "No row refers to the condition '{1}'. Put it behind a row with a semicolon, or delete it.",
     "Ninguna fila remite a la condición '{1}'. Escríbala en una fila, detrás de un punto y coma, o bórrela."},
    {603, G::Nota,
     "The field {1} is not sent anywhere, so its conversion has no effect. Use the field in a row, or delete the conversion.",
     "El campo {1} no se envía a ninguna parte, y su conversión no tiene efecto. Use el campo en una fila, o borre la conversión."},
};

std::string_view Variante(std::string_view frases, int variante) {
    for (; variante > 0; --variante) {
        const auto fin = frases.find('\n');
        if (fin == std::string_view::npos) throw std::logic_error("a finding without this variant");
        frases.remove_prefix(fin + 1);
    }
    return frases.substr(0, frases.find('\n'));
}

// Values are never searched for placeholders.
std::string Rellenar(std::string_view frase, std::initializer_list<std::string_view> valores) {
    std::string texto;
    for (std::size_t i = 0; i < frase.size(); ++i) {
        const bool esLugar = frase[i] == '{' && i + 2 < frase.size() && frase[i + 2] == '}';
        if (!esLugar) {
            texto += frase[i];
            continue;
        }
        const auto n = static_cast<std::size_t>(frase[i + 1] - '1');
        i += 2;
        if (n >= valores.size()) continue;
        auto valor = *(valores.begin() + n);
        // A statement's own point is not one of the sentence.
        if (valor.ends_with('.') && frase.substr(i + 1, 1) == ".") valor.remove_suffix(1);
        texto.append(valor);
    }
    return texto;
}

}  // namespace

std::span<const TipoDeHallazgo> TiposDeHallazgo() { return tipos; }

const TipoDeHallazgo& TipoDe(int codigo) {
    const auto tipo = std::lower_bound(std::begin(tipos), std::end(tipos), codigo,
                                       [](const TipoDeHallazgo& uno, int buscado) { return uno.codigo < buscado; });
    if (tipo == std::end(tipos) || tipo->codigo != codigo) {
        throw std::logic_error("no finding has the code " + std::to_string(codigo));
    }
    return *tipo;
}

Hallazgo NuevoHallazgo(const TextosIdioma& textos, int codigo, const Lugar& lugar, std::string_view celda,
                       std::initializer_list<std::string_view> valores, int variante) {
    const auto& tipo = TipoDe(codigo);
    const bool enEspanol = IgualesSinCaja(textos.Texto(0), "Espanol");
    const auto frase = Variante(enEspanol ? tipo.espanol : tipo.ingles, variante);
    Hallazgo hallazgo;
    hallazgo.codigo = codigo;
    hallazgo.gravedad = tipo.gravedad;
    hallazgo.lugar = lugar;
    hallazgo.celda = celda;
    hallazgo.texto = Rellenar(DesdeUtf8ConFaltas(frase), valores);
    return hallazgo;
}

std::string CodigoDeHallazgo(int codigo) { return "Q" + std::to_string(codigo); }

std::string PaginaDeAyuda(int codigo) { return "findings.html#" + CodigoDeHallazgo(codigo); }

std::string_view PalabraDeGravedad(Gravedad gravedad) {
    switch (gravedad) {
        case Gravedad::Error: return "error";
        case Gravedad::Aviso: return "warning";
        case Gravedad::Nota: break;
    }
    return "note";
}

}  // namespace qor
