#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "generator/report.h"
#include "generator/request.h"
#include "model/operations.h"

namespace qor {

// What a run works out before the first line, and what the header hands on to the sections behind it.
struct ValoresGeneracion {
    bool ArchivoUnico = false;     // main and step-loop records come in one file, told apart by ids
    bool ManejoErrores = false;    // error handling through the Z table
    bool HayJuegoDatos = false;    // the report can write a batch-input session
    bool HayStepSinClave = false;  // some step-loop has an empty key list
    bool HayConversiones = false;
    bool HayConversionesStep = false;
    int LargoIdentificador = 0;

    std::string FechaCreacion;
    std::string VariableArchivo;
    std::string VariableArchivoStep;
    std::string VariableModo;
    std::string NombreGrupo;       // session name
    std::string TextoEstructuras;  // layout rows of the Z table, as lines of ABAP
    double AnchoMayor = 0;         // width of the longest record
    double LargoLinea = 0;         // the same as the Z table needs it
};

// The end of a run in the middle of the report: the message to show, and where to put the focus.
struct ParadaDeGeneracion {
    Mensaje mensaje;
    struct Lugar {
        Tabla tabla;
        int fila;
    };
    std::optional<Lugar> lugar = std::nullopt;
};

// One run of the generator: what its sections read and write. `nombres` and `valores` are also the values of the brace names of
// the report's templates.
struct Generacion {
    const Especificacion& especificacion;
    const Opciones& opciones;
    const Preferencias& preferencias;
    const TextosIdioma& textos;
    Vista& vista;
    std::string RutaDocumento;
    std::string NombreDocumento;

    ConvencionesDeNombres nombres;
    Operaciones operaciones;
    ValoresGeneracion valores;
    Reporte reporte;
    std::unordered_map<std::string_view, int> filaDeCampo;  // names in TablaArchivo, each with its first row

    // CALL TRANSACTION is used, by choice or because a BAPI is there.
    bool PorLlamada() const { return opciones.CallTransaction == 1 || operaciones.HayBAPI; }
    // Transactions are called with a display mode. Unlike PorLlamada, any value but 0 counts.
    bool ConModo() const { return operaciones.HayTransaccion && (opciones.CallTransaction != 0 || operaciones.HayBAPI); }
    // The input is a file of the client or of the server.
    bool EntradaDeArchivo() const { return (opciones.TablaCh == 0 || opciones.ClienteOp) && !especificacion.OrigenUsuario; }
    // The row of a file field, by its exact name, among the rows in front of the first empty one; -1 when there is none.
    int FilaDeCampo(std::string_view campo) const {
        const auto lugar = filaDeCampo.find(campo);
        return lugar == filaDeCampo.end() ? -1 : lugar->second;
    }
    const std::string& Texto(int numero) const { return textos.Texto(numero); }

    [[noreturn]] void Detener(std::initializer_list<Pieza> piezas) const { throw ParadaDeGeneracion{Componer(textos, piezas)}; }
    [[noreturn]] void DetenerEnFila(Tabla tabla, int fila, std::initializer_list<Pieza> piezas) const {
        throw ParadaDeGeneracion{Componer(textos, piezas), ParadaDeGeneracion::Lugar{tabla, fila}};
    }
};

Generacion NuevaGeneracion(const PedidoDeGeneracion& pedido);

// Gives the brace names of the templates their values, and indexes the file fields. `nombres` and the run's values are known.
void DefinirNombres(Generacion& g);

}  // namespace qor
