#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "abap/execution.h"
#include "practice/bapi_calls.h"
#include "practice/bdc_functions.h"
#include "practice/catalogue.h"
#include "practice/database.h"
#include "practice/dictionary.h"
#include "practice/events.h"
#include "practice/file_names.h"
#include "practice/files.h"
#include "practice/functions.h"
#include "practice/moment.h"
#include "practice/parameters.h"
#include "practice/programs.h"
#include "practice/queue.h"
#include "practice/recordings.h"
#include "practice/system_tables.h"
#include "practice/transactions.h"
#include "practice/value_lists.h"

namespace qor {

// What a practice system is made of.
struct OpcionesDeSistema {
    std::filesystem::path archivo;                                      // of the system; empty: in memory
    Acceso acceso = Acceso::Escribir;                                   // to the file
    std::filesystem::path valores;                                      // folder of the value lists
    std::vector<std::filesystem::path> grabaciones;                     // recordings and session files
    std::vector<std::pair<std::string, std::filesystem::path>> tablas;  // to be loaded, each with its file
    std::filesystem::path diccionario;                                  // file of definitions
    std::vector<std::filesystem::path> diccionariosPropios;  // the user's own, where they are there; the later ones count
    std::filesystem::path anchos;                            // of field widths, where it is there
    std::filesystem::path catalogo;                          // of BAPIs; a missing one is empty
    std::vector<ArchivoNombrado> archivos;                   // behind names of the report
    std::filesystem::path carpeta;                           // of the document or report
    std::vector<std::filesystem::path> ajenos;               // what a report never writes over
    std::vector<std::string> bapis;                          // that the specification calls
    bool guardaSesiones = true;                              // else transactions of sessions are tried and counted alone
};

// A practice system: all that a report finds around it, made of its parts.
class SistemaDePractica {
public:
    // `oyente` and `fallos` have to live as long as it. Throws FalloDeEjecucion for a file that can't be opened or is none of its
    // kind.
    SistemaDePractica(const OpcionesDeSistema& opciones, OyenteDePractica& oyente, const FallosPedidos& fallos);
    ~SistemaDePractica();
    SistemaDePractica(const SistemaDePractica&) = delete;
    SistemaDePractica& operator=(const SistemaDePractica&) = delete;

    // Compiles a report; its error table is made where it is missing.
    abap::Compilacion Compilar(std::string_view reporte);
    // What a report finds around it while it runs.
    abap::Entorno Entorno(abap::SalidaDeLista& lista, abap::Seguimiento& seguimiento);

    // The end of the report, and a short dump.
    void TerminarUnidad() { base_.TerminarUnidad(); }
    void AbandonarUnidad() { base_.AbandonarUnidad(); }

    VariablesDelReporte& Variables() { return variables_; }
    NombresDeArchivos& NombresDeLosArchivos() { return nombres_; }
    BaseDePractica& Base() { return base_; }
    ColaDePractica& Cola() { return cola_; }
    ProgramasDePractica& Programas() { return programas_; }
    ProbadorDeTransacciones& Probador() { return probador_; }

    // Whether a report looks into the sessions that it has put into the queue.
    static bool LeeSesiones(std::string_view reporte);

private:
    VariablesDelReporte variables_;
    BaseDePractica base_;
    NombresDeArchivos nombres_;
    ListasDeValores listas_;
    Grabaciones grabaciones_;
    DiccionarioDePractica diccionario_;
    TablasDelSistema tablas_;
    ProbadorDeTransacciones probador_;
    ColaDePractica cola_;
    std::unique_ptr<ColaDeSesiones> colaSinGuardar_;
    FuncionesDeSesion sesiones_;
    LlamadasDeBapi bapis_;
    FuncionesDePractica funciones_;
    TransaccionesDePractica transacciones_;
    ProgramasDePractica programas_;
    ArchivosDePractica archivos_;
};

}  // namespace qor
