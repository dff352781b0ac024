#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "abap/execution.h"
#include "base/failure.h"
#include "practice/course.h"
#include "practice/journal.h"
#include "practice/parameters.h"
#include "practice/system.h"

namespace qor {

// Where a line of a report comes from; both empty where that is not known.
struct OrigenDeLinea {
    OrigenEnDiario enDiario;
    std::string palabras;  // "program side, row 17, value"
};

struct PedidoDeCorrida {
    std::string_view reporte;  // windows-1252
    std::vector<ArchivoNombrado> archivos;
    std::vector<ValorDeParametro> parametros;
    std::optional<std::filesystem::path> diario;
    std::int64_t limite = 100'000'000;  // statements without progress
    bool todosLosRegistros = true;
    std::function<OrigenDeLinea(int linea)> origen;
};

// Who sees a run: also what comes before the course and behind it. Texts are windows-1252.
class VistaDeCorrida : public OyenteDeCurso {
public:
    virtual void FaltaDePrograma(const abap::FaltaDePrograma& falta, const OrigenDeLinea& origen) = 0;
    // The report is about to start, or has ended: its variables can be asked.
    virtual void Empieza(abap::Ejecucion& ejecucion) = 0;
    virtual void Termina(abap::Ejecucion& ejecucion) = 0;
    virtual void Volcado(std::size_t registro, const VolcadoDicho& volcado, const OrigenDeLinea& origen) = 0;
    // Why the report was not started, or ended.
    virtual void Rechaza(const std::string& texto) = 0;
    virtual void Falla(const FalloDeEjecucion& fallo) = 0;
    virtual void SinRegistro(std::string_view tabla, std::size_t perdidas, std::size_t todas) = 0;
    virtual void Resumen(const CuentaDeCorrida& cuenta) = 0;
    using OyenteDeCurso::Falla;
};

// Compiles a report and runs it. True: it ran to its end, at least one record took part, none failed, and every file could be
// read. Throws ParametroImposible where a parameter is unknown or can't have its value; nothing was run then.
bool Correr(const PedidoDeCorrida& pedido, SistemaDePractica& sistema, Curso& curso, abap::SalidaDeLista& lista,
            VistaDeCorrida& vista);

// The name in the statement REPORT or PROGRAM of a report, in upper case.
std::string NombreDeReporte(std::string_view reporte);

}  // namespace qor
