#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

// What a user says of the values of a field. What is not said is not checked.
struct ClaseDeCampo {
    bool obligatorio = false;
    enum class Tipo { Ninguno, Numero, Fecha };
    Tipo tipo = Tipo::Ninguno;
    char decimal = '.';   // of Numero: the decimal sign, '.' or ','; the other one may group thousands
    std::string formato;  // of Fecha: the letters D, M and Y (two or four) with signs between them, such as "DD.MM.YYYY"
    std::string patron;   // a regular expression that the whole value has to fit, see input/value_pattern.h; empty: none
    std::string lista;    // name of a file of allowed values, relative to the document; empty: none

    bool Vacia() const { return !obligatorio && tipo == Tipo::Ninguno && patron.empty() && lista.empty(); }
    bool operator==(const ClaseDeCampo&) const = default;
};

// The kinds of a document's fields, by the names of the fields in upper case. They lie in a text file beside the document,
// MATERIALS.checks beside MATERIALS.qor, in UTF-8, one statement a line, fields in the order of the file side:
//
//   # what follows a "#" at the beginning of a line is a comment; it stays with the field that follows it
//   MATNR required
//   BRGEW number ,
//   BUDAT date DD.MM.YYYY
//   MTART list values/MTART.txt
//   KOSTL pattern [0-9]{10}
//
// A field can have several statements, each of another kind. A name with a blank in it stands between quotes.
class ClasesDeCampos {
public:
    // Throws FalloDeEjecucion, with the line, for what is no statement.
    static ClasesDeCampos Leer(std::string_view texto);
    // Those beside a document; none where the file is missing. Throws FalloDeArchivo.
    static ClasesDeCampos DeDocumento(const std::filesystem::path& documento);
    static std::filesystem::path ArchivoDe(const std::filesystem::path& documento);

    // Where in their file something is said of the field first, and where its list is; 0 for what did not come from a file.
    struct Lineas {
        std::size_t primera = 0;
        std::size_t lista = 0;
    };
    Lineas LineasDe(std::string_view campo) const;
    // Name of the file that they were read from, in UTF-8; empty for none.
    const std::string& Origen() const { return origen_; }

    // Null where nothing is said of the field.
    const ClaseDeCampo* Buscar(std::string_view campo) const;
    // An empty kind takes the field out.
    void Poner(const std::string& campo, ClaseDeCampo clase);
    bool Vacias() const { return clases_.empty(); }
    const std::map<std::string, ClaseDeCampo, std::less<>>& Todas() const { return clases_; }

    // As a file's text: fields in the order of `orden`, the others behind them, each below the comments that stood above it.
    // Comments at the beginning that a blank line parts from what follows stay there, those of fields that are gone come next.
    std::string Texto(const std::vector<std::string>& orden) const;

private:
    struct Comentario {
        std::string campo;  // the one that follows it; empty at the beginning of the file, an LF at its end
        std::string texto;  // lines, each with its end
    };
    std::vector<Comentario> comentarios_;  // in their order
    std::map<std::string, ClaseDeCampo, std::less<>> clases_;
    std::map<std::string, Lineas, std::less<>> lineas_;
    std::string origen_;
};

}  // namespace qor
