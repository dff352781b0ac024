#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/messages.h"
#include "base/view.h"

// The catalogue of a release's BAPIs: a text file whose first line is "BAPIDEFS". Every other line is a record: its type, a blank,
// and from character 3 on its content:
//   0 release of the system          3 a line of the BAPI's documentation
//   1 business object                4 a parameter, NAME:OPTIONAL:KIND:TYPE
//   2 BAPI function module           5 a field of the structure of the last parameter
namespace qor {

constexpr std::string_view cabezaDeCatalogo = "BAPIDEFS";

struct NodoBAPI {
    bool esBAPI = false;  // else a business object
    std::string texto;
    std::size_t numero = 0;  // of a BAPI: its place in DescripcionesBAPI
};

struct CatalogoBAPI {
    std::vector<NodoBAPI> nodos;                 // in file order: an object stands in front of its BAPIs
    std::vector<std::string> DescripcionesBAPI;  // documentation, each line behind a CR LF
    std::string VersionSAP;
    std::string FechaGeneracion;  // date and time of the file

    // The node of a BAPI, or null.
    const NodoBAPI* Buscar(std::string_view nombre) const;
};

// Reads a catalogue's text, without the date. Nothing when it is none. Throws FalloDeEjecucion for an empty text, and for a record
// in front of the one that it belongs to.
std::optional<CatalogoBAPI> LeerCatalogo(std::string_view texto);

// Loads a catalogue. Nothing when it is none (message 440) or can't be read (382 and its name).
std::optional<CatalogoBAPI> RecuperarDatosBAPIs(const std::filesystem::path& ArchivoBAPI, const TextosIdioma& textos, Vista& vista);

// The catalogue is of another release than the connected system. Nothing where they are the same, or one of them isn't known.
std::optional<Mensaje> AvisoDeVersion(const TextosIdioma& textos, const std::string& VersionSAP, const std::string& VersionSistema);

// The records of a catalogue's text, for the loader and the insertion.
struct RegistroBAPI {
    char tipo = ' ';
    std::string_view contenido;  // not cut
};
RegistroBAPI LeerRegistro(std::string_view linea);

// A documentation without its mark-up: "<" to ">" is dropped, "&" is a line break.
std::string QuitarMarcas(std::string_view texto);

}  // namespace qor
