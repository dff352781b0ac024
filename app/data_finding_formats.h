#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "input/data_finding.h"

// Findings about input files as texts for people and programs: UTF-8, with LF at line ends. The path of a file is the one that the
// user gave.
namespace qor {

struct ArchivoConHallazgos {
    std::string nombre;  // of the layout: FILE, SLOOP_1 and so on
    std::string ruta;
    bool completo = true;  // read to its end
    std::uint64_t registros = 0;
    std::uint64_t errores = 0;  // found, told or not
    std::uint64_t avisos = 0;
    std::vector<HallazgoDeDatos> hallazgos = {};
};

// One line: `materials.txt:4:67: error: MATKL "FLUIDS": not in the list values/MATKL.txt [not-in-list]`.
std::string HallazgoDeDatosComoTexto(std::string_view ruta, const HallazgoDeDatos& hallazgo);

// What belongs behind those lines: files that were not checked to their end, how many findings were not told, a line that counts.
std::string ResumenDeDatos(const std::vector<ArchivoConHallazgos>& archivos, std::uint64_t callados);

// One object; see the manual page for its members. A byte of a path that is no UTF-8 becomes U+FFFD.
std::string HallazgosDeDatosComoJSON(const std::vector<ArchivoConHallazgos>& archivos);

}  // namespace qor
