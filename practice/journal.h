#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/file_calls.h"
#include "practice/events.h"
#include "practice/json_line.h"

namespace qor {

// A run-time error as the journal and the terminal tell it.
struct VolcadoDicho {
    std::string nombre;
    std::string texto;
    int linea = 0;  // of the report; 0 where nothing ran yet
};

// Where a line of a report comes from, as the journal names it.
struct OrigenEnDiario {
    std::string tabla;  // empty where it isn't known
    int fila = -1;
    int columna = -1;
};

struct ParametroEnDiario {
    std::string_view nombre;
    abap::Campo campo;
    const abap::TablaInterna* rango = nullptr;  // of a SELECT-OPTIONS
};

// The journal of a run: a file of JSON Lines, one object for each event. It is written in blocks of whole lines. Whatever is in its
// way throws FalloDeArchivo, and the file then ends with the last line that could be written whole.
class Diario {
public:
    explicit Diario(std::filesystem::path ruta) : ruta_(std::move(ruta)) {}

    // Opens the file and empties it. What was told before stands behind this event.
    void Inicio(std::string_view reporte, const std::vector<ParametroEnDiario>& parametros);
    void Transaccion(std::size_t registro, const TransaccionProbada& transaccion);
    void AbreSesion(std::size_t registro, const SesionAbierta& sesion);
    void InsertaEnSesion(std::size_t registro, const TransaccionProbada& transaccion);
    void CierraSesion(std::size_t registro, std::string_view grupo, std::size_t transacciones);
    void Bapi(std::size_t registro, const LlamadaDeBapi& llamada);
    void Confirma(std::size_t registro);
    void Deshace(std::size_t registro);
    void Inserta(std::size_t registro, const abap::Estructura& tabla, std::span<const abap::ValorDeBase> fila);
    void Actualiza(std::size_t registro, std::string_view tabla, std::int64_t filas);
    void Borra(std::size_t registro, std::string_view tabla, std::int64_t filas);
    void Mensaje(std::size_t registro, char tipo, std::string_view texto);
    void Volcado(std::size_t registro, const VolcadoDicho& volcado, const OrigenEnDiario& origen);
    void Final(std::size_t registros, std::size_t contabilizados, std::size_t fallados);

    // How many bytes were told so far; of the file, once it has begun.
    std::uint64_t Largo() const { return escritos_ + bloque_.size(); }

    // Writes what is still in the buffer, and closes.
    void Terminar();

private:
    EscritorJson Evento(std::string_view nombre, std::size_t registro);
    void Terminar(EscritorJson& evento);
    void Abrir();
    void Vaciar();
    [[noreturn]] void Fallar(int error);

    std::filesystem::path ruta_;
    Descriptor descriptor_;
    bool regular_ = false;
    std::size_t escritos_ = 0;
    std::string bloque_;
};

}  // namespace qor
