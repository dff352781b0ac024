#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/report_origins.h"
#include "base/phrase.h"
#include "base/view.h"
#include "generator/request.h"
#include "input/layout.h"
#include "model/place.h"
#include "practice/course.h"
#include "practice/explanation.h"
#include "practice/failures.h"
#include "practice/system.h"

// A rehearsal: the report of a document runs on the practice system, and what it does with each record can be looked at afterwards.
// Texts are windows-1252.
namespace qor {

struct PedidoDeEnsayo {
    std::vector<std::filesystem::path> archivos;  // those of DisenoDeEntrada::Archivos; empty paths where none was chosen
    std::vector<std::pair<std::string, std::string>> parametros;
    TramoDeRegistros tramo;
    FallosPorRegistro fallos;
    OpcionesDeSistema sistema;  // without `archivo` all is gone behind the rehearsal
};

enum class EstadoDeRegistro : std::uint8_t { SinLlegar, Contabilizado, Fallado, EnSesion };

// A field that a screen or a BAPI got, or a row of the program side that sent nothing.
struct CampoEnviado {
    std::string campo;
    std::string valor;
    Lugar celda;                 // the value cell that it comes from; Parte::Ninguna where that is not known
    std::string campoDeArchivo;  // name of the file field in that cell; empty for a constant or a variable
    int grupo = 0;               // the kind of records that the value was read from: 0 the main record, else the step-loop,
    std::size_t deRegistro = 0;  // and the number of that record among those of its kind, from 1; 0 where it was read from no file
    Frase sinEnviar;             // why nothing was sent, a sentence; blank for a field that was sent
};

struct PantallaEnviada {
    std::string programa;  // of a BAPI the name of the parameter
    std::string dynpro;    // of a table parameter the number of the row
    Lugar celda;
    std::vector<CampoEnviado> campos;  // in the order sent; those that sent nothing where they stand on the program side
    Frase sinEnviar;                   // why the screen was not opened, or the parameter has no row; its fields are not sent then
};

// A transaction or a BAPI of a record, or an operation of the specification that it passed over.
struct Envio {
    std::string nombre;
    bool esBapi = false;
    bool enSesion = false;
    bool fallado = false;
    std::vector<PantallaEnviada> pantallas;
    std::vector<std::string> mensajes;  // "E 00 058 Entry ROHX does not exist"
    Frase sinEnviar;                    // why the operation of the specification was not run, a sentence; blank for one that was
};

struct FalloDeEnsayo {
    std::size_t registro = 0;
    Frase texto;                       // the line of the failure
    Frase motivo;                      // the same without the number of the record
    std::vector<Frase> explicaciones;  // value, place in the input file, what to do
    Lugar celda;
    std::optional<LugarDeEntrada> entrada;  // of the value, where it comes from an input file
};

struct TotalDeCondicion {
    std::string nombre;
    int fila = 0;  // of the table of conditions
    std::uint64_t veces = 0;
    std::uint64_t ciertas = 0;
};

// A line of a conversion of value pairs.
struct TotalDePar {
    int fila = 0;   // of the file side
    int linea = 0;  // of the conversion's text, from 1; 0 for the values that no pair names, which stay as they are
    std::string texto;
    std::uint64_t veces = 0;
};

struct VolcadoDeEnsayo {
    std::size_t registro = 0;
    std::string nombre;
    std::string texto;
    int linea = 0;  // of the report, from 1
    Lugar celda;
};

// What came of it.
struct ResultadoDeEnsayo {
    bool empezado = false;        // the report was generated and compiled, and ran
    std::vector<Frase> porQueNo;  // else why not, each with its place in words
    CuentaDeCorrida cuenta;
    std::vector<EstadoDeRegistro> registros;  // record n at n - 1
    std::vector<FalloDeEnsayo> fallos;        // at most `maximoDeFallos`
    bool hayMasFallos = false;
    std::vector<std::string> lista;  // lines of the report's list, at most `maximoDeLista`
    bool hayMasLista = false;
    std::vector<Frase> avisos;  // what the user should know
    std::vector<TotalDeCondicion> condiciones;
    std::vector<TotalDePar> pares;
    std::vector<Frase> huerfanos;  // "ITABSL_1: 3 of 120 lines belong to no record"
    std::optional<VolcadoDeEnsayo> volcado;
    bool detenido = false;
    std::string reporte;  // as it was generated
};
constexpr std::size_t maximoDeFallos = 10'000;
constexpr std::size_t maximoDeLista = 100'000;

class Ensayo {
public:
    // The document as it stands is copied. The view gets what the generation has to say (on the caller's thread).
    Ensayo(const PedidoDeGeneracion& generacion, PedidoDeEnsayo pedido);
    ~Ensayo();
    Ensayo(const Ensayo&) = delete;
    Ensayo& operator=(const Ensayo&) = delete;

    // Runs to the end, or until Detener(). Meant for a thread of its own; called once.
    void Correr();
    void Detener() { parar_ = true; }
    // The present state, from any thread: records begun, failed.
    std::size_t Empezados() const { return empezados_; }
    std::size_t Fallados() const { return fallados_; }

    // ---- Behind Correr ----

    const ResultadoDeEnsayo& Resultado() const;
    // What record n sent, read back from the journal of the rehearsal, which lies in a temporary file.
    std::vector<Envio> EnviosDe(std::size_t registro) const;
    // Where in the input files record n of a kind lies, with the file field of that name; nothing where it comes from none.
    std::optional<LugarDeEntrada> EntradaDe(int grupo, std::size_t numero, std::string_view campo) const;
    // The journal, as `qorgen run --journal` writes it.
    void ExportarDiario(const std::filesystem::path& archivo) const;
    // The lines of the failed records, byte for byte, into files of the layout of `archivos`: the first one named `archivo`, the
    // others beside it with the name of their parameter behind a hyphen.
    std::vector<std::filesystem::path> ExportarFallados(const std::filesystem::path& archivo) const;
    // Those files.
    std::vector<std::filesystem::path> ArchivosDeFallados(const std::filesystem::path& archivo) const;
    // A session of the rehearsal's queue, as `qorgen system export` writes it; the names of the sessions.
    std::vector<std::string> Sesiones() const;
    void ExportarSesion(std::size_t sesion, const std::filesystem::path& archivo) const;

private:
    struct Interior;

    std::unique_ptr<Interior> interior_;
    std::atomic<bool> parar_{false};
    std::atomic<std::size_t> empezados_{0};
    std::atomic<std::size_t> fallados_{0};
};

}  // namespace qor
