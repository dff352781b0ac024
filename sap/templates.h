#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace qor {

using LineasABAP = std::vector<std::string>;

// The query reports, each the lines of a data file of the program, with placeholders in angle brackets.
struct PlantillasRFC {
    LineasABAP PlantillaSistema;    // inf001.dat
    LineasABAP PlantillaProgramas;  // inf003.dat: <conditions>, a line of its own
    LineasABAP PlantillaColas;      // inf005.dat: <datatype>
    LineasABAP PlantillaDatosCola;  // inf006.dat: <qid>, <datatype>
    LineasABAP PlantillaBAPIs;      // inf008.dat
    LineasABAP PlantillaBAPI;       // inf009.dat: <function>
};

// A file that can't be read leaves its report empty.
PlantillasRFC CargarPlantillas(const std::filesystem::path& directorio);

// The lines with every occurrence of the placeholder replaced, which stands inside a literal. Throws as `EnLiteral` does.
LineasABAP Sustituir(LineasABAP lineas, std::string_view marca, std::string_view valor);

// A text as the inside of a literal, its apostrophes doubled. Throws FalloDeEjecucion when it holds a control character, which
// could end the line that it stands in.
std::string EnLiteral(std::string_view texto);

}  // namespace qor
