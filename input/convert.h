#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "input/convert_cell.h"
#include "input/data_finding.h"
#include "input/kinds.h"
#include "input/layout.h"
#include "input/value_rules.h"

// Records of a layout as rows of tables, and back.
//
// There is a table for each kind of records: a sheet of a workbook, or a file of values with separators. Its headings are the names
// of the fields. Where a file of the layout has several kinds, told by their ids, each of their tables has a column "#" in front:
// rows go into the file by the numbers there, which rise; of equal numbers the main record goes first. Out of a file it is the
// line, so that the file comes back as it was; who fills in a table gives an order and its items the same number.
//
// Into a layout, a value that its field's kind doesn't admit is a finding. Into tables it is none: there it can be put right.
//
// Rows without any value are passed over. There and back is the identity of the records: of blanks at the ends of lines, of the
// kind of line ends and of tabs behind the last field it is not.
namespace qor {

// The name of a sheet: FILE for the main record, SLOOP_1 and so on.
std::string NombreDeHoja(const ClaseDeRegistro& clase);
// The heading of the column that has the numbers.
constexpr const char* tituloDeNumero = "#";
// The tables of the kinds have it.
bool ConNumero(const DisenoDeEntrada& diseno, const ClaseDeRegistro& clase);
// The headings of a table.
std::vector<std::string> Titulos(const ClaseDeRegistro& clase, bool conNumero);

enum class FormaDeTabla { Csv, Tabuladores, Xlsx };

struct Tablas {
    FormaDeTabla forma = FormaDeTabla::Csv;
    // A workbook, or a file for each kind of records in their order.
    std::vector<std::filesystem::path> archivos;
    // Of a workbook that is read, the sheets of the kinds, in UTF-8; those of their names where there are none. A kind that is the
    // only one takes the first sheet that is seen where the workbook has none of its name.
    std::vector<std::string> hojas = {};
};
// The sheets of the kinds as the workbook that is read names them. Throws FalloDeArchivo for one that isn't there.
std::vector<std::string> BuscarHojas(const DisenoDeEntrada& diseno, const Tablas& tablas);

struct OpcionesDeConversion {
    OpcionesDeCeldas celdas;
    bool porOrden = false;       // columns by their order; else by their headings
    int filaDeTitulos = 1;       // what is in front of it is passed over; 0: there are no headings
    bool otrasColumnas = false;  // columns whose heading is no field are passed over; else each is a finding
    char separador = 0;          // of files of values; 0: by the headings, and a semicolon where they are written
    // Records with findings are left out; else nothing is written where there are findings. A main record goes with all that
    // belongs to it, in whatever file, or not at all. With a wrong number in a column "#", and with a file of a layout that is not
    // in windows-1252, nothing is written either way.
    bool dejarFuera = false;
    std::string finDeLinea = "\n";  // of the lines of a layout
};

// What came of a conversion.
struct Conversion {
    std::vector<std::uint64_t> registros;  // of each kind, that were written
    std::uint64_t fuera = 0;               // that were left out
    std::uint64_t hallazgos = 0;
    bool escrita = false;
};

// Gets the findings. `archivo` is the place of the table, which is that of its kind of records, or that of the file of the layout;
// `columna` is the number of the column of a table.
using OyenteDeConversion = std::function<void(const HallazgoDeDatos&)>;

// `archivos` are those of the layout, in its order; `reglas` are the rules of `clases`. Files take their places once all of them
// are on the disk; one that exists is replaced. What fails, and an input that can't be read, throws FalloDeEjecucion or
// FalloDeArchivo; nothing is written then.
Conversion ConvertirALayout(const DisenoDeEntrada& diseno, const ClasesDeCampos& clases, const ReglasDeValores& reglas,
                            const Tablas& tablas, const std::vector<std::filesystem::path>& archivos,
                            const OpcionesDeConversion& opciones, const OyenteDeConversion& oyente);
Conversion ConvertirATablas(const DisenoDeEntrada& diseno, const ClasesDeCampos& clases,
                            const std::vector<std::filesystem::path>& archivos, const Tablas& tablas,
                            const OpcionesDeConversion& opciones, const OyenteDeConversion& oyente);

}  // namespace qor
