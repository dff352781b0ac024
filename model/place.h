#pragma once

#include <compare>
#include <cstdint>
#include <string_view>
#include <tuple>

// Where something stands in a specification, its options or the user's settings. Findings and the lines of a report name their
// places with it.
namespace qor {

struct Lugar {
    enum class Parte : std::uint8_t {
        Ninguna,      // the specification as a whole
        Archivo,      // file side: columns 0 field, 1 width, 2 note, 3 conversion
        Programa,     // program side: columns 0 program, 1 dynpro, 2 field, 3 value, 4 note
        Condiciones,  // columns 0 name, 1 text
        BAPIs,        // columns 0 name, 1 call text
        VariablesGlobales,
        OrigenVariables,
        OrigenForms,
        OrigenSource,
        Opcion,      // of the document
        Preferencia  // of the user's settings
    };
    static constexpr std::int8_t sinColumna = -1;

    Parte parte = Parte::Ninguna;
    std::int8_t columna = sinColumna;  // of a table, in the order of documents
    std::int16_t fila = -1;            // of a table, from 0
    std::int16_t linea = 0;            // of the text that stands there, from 1; 0 for the text as a whole
    const char* opcion = nullptr;      // name of the option's or setting's control, static

    std::string_view Opcion() const { return opcion == nullptr ? std::string_view() : opcion; }

    friend bool operator==(const Lugar& a, const Lugar& b) {
        return a.parte == b.parte && a.columna == b.columna && a.fila == b.fila && a.linea == b.linea &&
               (a.opcion == b.opcion || a.Opcion() == b.Opcion());
    }
    // In the order of the specification.
    friend auto operator<=>(const Lugar& a, const Lugar& b) {
        const auto clave = [](const Lugar& l) { return std::tuple(l.parte, l.fila, l.columna, l.linea, l.Opcion()); };
        return clave(a) <=> clave(b);
    }

    static constexpr Lugar De(Parte parte, int fila, int columna, int linea = 0) {
        return {parte, static_cast<std::int8_t>(columna), static_cast<std::int16_t>(fila), static_cast<std::int16_t>(linea)};
    }
    static constexpr Lugar EnArchivo(int fila, int columna, int linea = 0) { return De(Parte::Archivo, fila, columna, linea); }
    static constexpr Lugar EnPrograma(int fila, int columna) { return De(Parte::Programa, fila, columna); }
    static constexpr Lugar EnCondicion(int fila, int columna, int linea = 0) {
        return De(Parte::Condiciones, fila, columna, linea);
    }
    static constexpr Lugar EnBAPI(int fila, int columna, int linea = 0) { return De(Parte::BAPIs, fila, columna, linea); }
    static constexpr Lugar EnTexto(Parte texto, int linea) { return De(texto, -1, sinColumna, linea); }
    static constexpr Lugar EnOpcion(const char* opcion) { return {Parte::Opcion, sinColumna, -1, 0, opcion}; }
    static constexpr Lugar EnPreferencia(const char* opcion) { return {Parte::Preferencia, sinColumna, -1, 0, opcion}; }
};

}  // namespace qor
