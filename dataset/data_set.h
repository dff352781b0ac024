#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "base/messages.h"
#include "base/view.h"

// Data sets that a generated program leaves behind, and the replacement of one field's value in them.
//
// Two kinds are known by their first line (columns count from 1):
//   BDC         a batch-input session: 41-45 "0000M" on the first line, "0000T" at the start of a transaction, "0000 " on a
//               field; 46-177 transaction code or field name; 178 on the value
//   DATAERRORS  a download of the error table: 4-33 key of a record, 14-23 "0000000000" on a definition line with 24-33 line
//               identifier, 63-67 width, 69 on field name; on a data line 57-59 line identifier, 63 on the fields side by side
namespace qor {

enum class TipoArchivo { BDC, DATAERRORS, UNKNOWN };

const char* NombreDeTipo(TipoArchivo tipo);

// A field of the error table: where it stands in the data of lines with its identifier.
struct Definicion {
    std::string nombre;
    int linea = 0;
    int posicion = 1;  // from 1
    int ancho = 0;
};

// What a scan of a data set found, and the file that it was found in.
struct JuegoDeDatos {
    IdentidadDeArchivo identidad;
    TipoArchivo tipo = TipoArchivo::UNKNOWN;
    std::vector<std::string> transacciones;  // in order of appearance
    std::vector<std::string> campos;
    std::vector<Definicion> definiciones;
    std::uintmax_t lineas = 0;

    // The largest width of the definitions of that name; 0 when there is none.
    int DevolverAnchoMayor(std::string_view campo) const;
};

// Told the share of the file that was read, 0 to 1, and asked whether to go on.
using Progreso = std::function<bool(double)>;

// Scans a file. Nothing when it was refused (message 403), is unreadable (328), or was stopped.
std::optional<JuegoDeDatos> ExaminarJuegoDeDatos(const std::filesystem::path& ruta, const TextosIdioma& textos, Vista& vista,
                                                 const Progreso& progreso = {});

struct CondicionDeDatos {
    std::string campo;   // blank: always true
    bool igual = false;  // the value equals the text; else it contains it
    std::string valor;
};

enum class ModoDeReemplazo {
    Cualquiera,  // any value
    Todo,        // a value that contains `viejo`, as a whole
    Parte        // every occurrence of `viejo` in a value
};

struct Reemplazo {
    std::string campo;
    std::string nuevo;
    ModoDeReemplazo modo = ModoDeReemplazo::Cualquiera;
    std::string viejo;                       // in upper case
    std::optional<std::string> transaccion;  // else all
    std::array<CondicionDeDatos, 3> condiciones;
    bool unaVez = false;  // a condition holds when one occurrence passes; else all must
};

// A new value that is longer than its field in an error table is cut, with message 333.
std::string AjustarNuevoValor(const JuegoDeDatos& datos, std::string_view campo, const std::string& nuevo,
                              const TextosIdioma& textos, Vista& vista);

// The replacement alone: reads an open data set from its beginning to its end and hands the new text on, piece by piece. The number
// of values that were changed; nothing when it was stopped. Throws FalloDeEjecucion for a record of more than 10001 lines, and
// where the file can't be read.
using Salida = std::function<void(std::string_view)>;
std::optional<long> CopiarReemplazando(ArchivoAbierto& archivo, const JuegoDeDatos& datos, const Reemplazo& reemplazo,
                                       const Salida& salida, const Progreso& progreso = {});

// Makes the replacement in a new file beside the data set, tells the number of changes, asks, and on yes puts the new file in the
// place of the data set in one atomic step; `datos` then stands for the new file. True when the data set is as the user wants it:
// changed, or without any change due. Whatever fails (message 328), and when the user answers no or stops, the data set stays as it
// was. It fails where another run is at work on the file, and where the file is not, from the beginning to the end, the one that
// was scanned.
bool ReemplazarValores(const std::filesystem::path& ruta, JuegoDeDatos& datos, const Reemplazo& reemplazo,
                       const TextosIdioma& textos, Vista& vista, const Progreso& progreso = {});

}  // namespace qor
