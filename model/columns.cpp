#include "model/columns.h"

#include "base/text.h"

namespace qor {

std::span<const Columna> ColumnasDe(Tabla tabla) {
    if (tabla == Tabla::Archivo) return columnasDeCeldasDeArchivo;
    return columnasDeCeldasDeTransaccion;
}

Tabla TablaDe(Columna columna) { return columna <= Columna::Ancho ? Tabla::Archivo : Tabla::Transaccion; }

std::size_t NumeroDeColumna(Columna columna) {
    const auto primera = TablaDe(columna) == Tabla::Archivo ? Columna::CampoDeArchivo : Columna::Programa;
    return static_cast<std::size_t>(columna) - static_cast<std::size_t>(primera);
}

std::string FilaDeArchivo::*ColumnaDeArchivo(Columna columna) { return columnasDeArchivo[NumeroDeColumna(columna)]; }

std::string FilaDeTransaccion::*ColumnaDeTransaccion(Columna columna) { return columnasDeTransaccion[NumeroDeColumna(columna)]; }

std::string TextoDeTabla(Columna columna, std::string_view texto) {
    const auto cortado = Recortar(texto);
    const bool esConstante = columna == Columna::Valor && cortado.starts_with('\'');
    return esConstante ? std::string(cortado) : Mayusculas(cortado);
}

}  // namespace qor
