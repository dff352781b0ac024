#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "generator/analysis.h"
#include "generator/observation.h"
#include "generator/report.h"
#include "generator/request.h"

namespace qor {

// What the header works out and hands on to the sections behind it.
struct ValoresGeneracion {
    std::string FechaCreacion;
    std::string VariableArchivo;
    std::string VariableArchivoStep;
    std::string VariableModo;
    std::string NombreGrupo;           // session name
    LineasConOrigen TextoEstructuras;  // layout rows of the Z table, as lines of ABAP
    double AnchoMayor = 0;             // width of the longest record
};

// The end of a run in the middle of the report. What it says is still to be told the listener.
struct ParadaDeGeneracion {
    Observacion observacion;
};

// One run of the generator: what its sections read and write. `nombres` and `valores` are also the values of the brace names of
// the report's templates.
struct Generacion {
    const Especificacion& especificacion;
    const Opciones& opciones;
    const Preferencias& preferencias;
    const TextosIdioma& textos;
    Oyente& oyente;
    std::string RutaDocumento;
    std::string NombreDocumento;

    ConvencionesDeNombres nombres;
    Analisis analisis;
    ValoresGeneracion valores;
    Reporte reporte;
    std::unordered_map<std::string_view, int> filaDeCampo;  // names in TablaArchivo, each with its first row

    // CALL TRANSACTION is used, by choice or because a BAPI is there.
    bool PorLlamada() const { return qor::PorLlamada(opciones, analisis.operaciones); }
    // Transactions are called with a display mode. Unlike PorLlamada, any value but 0 counts.
    bool ConModo() const { return analisis.operaciones.HayTransaccion && !SoloSesion(opciones, analisis.operaciones); }
    // The input is a file of the client or of the server.
    bool EntradaDeArchivo() const { return (opciones.TablaCh == 0 || opciones.ClienteOp) && !especificacion.OrigenUsuario; }
    // The row of a file field, by its exact name, among the rows in front of the first empty one; -1 when there is none.
    int FilaDeCampo(std::string_view campo) const {
        const auto lugar = filaDeCampo.find(campo);
        return lugar == filaDeCampo.end() ? -1 : lugar->second;
    }
    const std::string& Texto(int numero) const { return textos.Texto(numero); }

    // The specification is refused in the middle of the report, which ends here unless the listener lets the run go on.
    void Detener(const Lugar& lugar, std::initializer_list<Pieza> piezas) const { Detener({Componer(textos, piezas), lugar}); }
    // The same; a screen shows the row.
    void DetenerEnFila(const Lugar& lugar, std::initializer_list<Pieza> piezas) const;
    void Detener(const Observacion& observacion) const;
    // Something to say about a report that goes on.
    void Avisar(const Lugar& lugar, std::initializer_list<Pieza> piezas) const {
        oyente.Recibir({Componer(textos, piezas), lugar});
    }
};

Generacion NuevaGeneracion(const PedidoDeGeneracion& pedido, Oyente& oyente);
// The same from the parts that a report is made of.
Generacion NuevaGeneracion(const Especificacion& especificacion, const Opciones& opciones, const Preferencias& preferencias,
                           const TextosIdioma& textos, Oyente& oyente, std::string RutaDocumento, std::string NombreDocumento);

// Gives the brace names of the templates their values, and indexes the file fields. `nombres` and the run's values are known.
void DefinirNombres(Generacion& g);

}  // namespace qor
