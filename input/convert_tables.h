#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "input/convert.h"
#include "input/xlsx_writer.h"

namespace qor {

// The columns of the sheet of a kind: texts, but for numbers and dates by the kinds of their fields.
std::vector<LibroNuevo::FormatoDeColumna> ColumnasDeHoja(const ClaseDeRegistro& clase, const ClasesDeCampos& clases,
                                                         bool conNumero);

// Writes the tables of the kinds of records. Files take their places together at the end.
class EscritorDeTablas {
public:
    // `entradas` are what will be read, for its size.
    static std::unique_ptr<EscritorDeTablas> Hacer(const DisenoDeEntrada& diseno, const ClasesDeCampos& clases,
                                                   const std::vector<std::filesystem::path>& entradas, const Tablas& tablas,
                                                   const OpcionesDeConversion& opciones);
    virtual ~EscritorDeTablas() = default;

    // Whether the values of a record all have their place in a table; else the place of the first one that has none, and why.
    virtual bool Cabe(int clase, const std::vector<std::string_view>& valores, std::size_t& campo, std::string& motivo) = 0;
    // A row with the values of a record that have their place, which came from a line.
    virtual void Fila(int clase, std::uint64_t linea, const std::vector<std::string_view>& valores) = 0;
    virtual void PonerEnSuLugar() = 0;
};

}  // namespace qor
