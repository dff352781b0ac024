#pragma once

#include <string_view>

#include "base/text.h"

// The fixed columns of a data set's lines, counted from 1. A short line has empty columns behind its end.
namespace qor {

inline std::string_view Columnas(std::string_view linea, std::size_t desde, std::size_t hasta) {
    return desde > linea.size() ? std::string_view{} : linea.substr(desde - 1, hasta - desde + 1);
}

inline std::string_view DesdeColumna(std::string_view linea, std::size_t desde) { return TramoDesde(linea, desde); }

// Session records.
inline bool EsInicioDeTransaccion(std::string_view linea) { return Columnas(linea, 41, 45) == "0000T"; }
inline bool EsCampoDeSesion(std::string_view linea) { return Columnas(linea, 41, 45) == "0000 "; }
inline std::string_view CampoDeSesion(std::string_view linea) { return AntesDe(Recortar(Columnas(linea, 46, 177)), '('); }
constexpr std::size_t columnaDeValor = 178;

// Lines of the error table.
inline bool EsDefinicion(std::string_view linea) { return Columnas(linea, 14, 23) == "0000000000"; }
inline std::string_view ClaveDeRegistro(std::string_view linea) { return Columnas(linea, 4, 33); }
constexpr int columnaDeDatos = 62;  // in front of the data

}  // namespace qor
