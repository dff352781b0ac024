#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/failure.h"
#include "practice/events.h"

namespace qor {

// --file NAME=PATH: the file behind a file parameter, or behind a path that the report holds.
struct ArchivoNombrado {
    std::string nombre;
    std::filesystem::path ruta;
};

// Whether the name of a parameter or variable is the one that was asked for: in any case, and with a prefix of one to three letters
// and "_" left out or not.
bool EsElNombre(std::string_view variable, std::string_view pedido);

// Where files may lie.
struct LugaresDeArchivos {
    std::vector<ArchivoNombrado> archivos;      // the first one that fits counts
    std::filesystem::path carpeta;              // of the document; empty: none
    std::filesystem::path valores;              // of the value lists; empty: none
    std::vector<std::filesystem::path> ajenos;  // what a report never writes over: the document, the system's database
};

// From the file names of a report to files that it may see. A path that nobody named is looked for where it says, a relative one in
// the folder of the document and then in the present one, and has to lie in the folder of the document or of the value lists when
// all links are followed. Both "/" and "\" end a directory.
class NombresDeArchivos {
public:
    // Whether a parameter or global variable that EsElNombre has this value now, without the blanks behind it.
    using VariableVale = std::function<bool(std::string_view nombre, std::string_view valor)>;

    NombresDeArchivos(LugaresDeArchivos lugares, VariableVale vale, OyenteDePractica& oyente);

    // The path to open; nothing where the report may not see it, which the listener is told.
    std::optional<std::filesystem::path> ParaLeer(std::string_view nombre);
    std::optional<std::filesystem::path> ParaEscribir(std::string_view nombre);

    // Tells the listener why a file was not read, once for each name and reason.
    void SinLeer(std::string_view nombre, const std::string& motivo);
    // The reason, and the path where it is not the name.
    void SinLeer(std::string_view nombre, const FalloDeArchivo& fallo);

private:
    const std::filesystem::path* Nombrado(std::string_view nombre) const;
    std::optional<std::filesystem::path> Propio(std::string_view nombre, bool escribir);
    bool EsAjeno(const std::filesystem::path& canonica) const;

    LugaresDeArchivos lugares_;
    std::vector<std::filesystem::path> legibles_;  // canonical
    std::vector<std::filesystem::path> escribibles_;
    VariableVale vale_;
    OyenteDePractica& oyente_;
    std::set<std::pair<std::string, std::string>> dichos_;
};

}  // namespace qor
