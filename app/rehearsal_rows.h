#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "app/journal_line.h"
#include "app/rehearsal.h"
#include "app/rehearsal_steps.h"
#include "model/operations.h"
#include "model/specification.h"

namespace qor {

// The program side of a specification, as it is asked for where a sent value came from.
class FilasDeEnsayo {
public:
    // What it is given has to live as long as it. `deArchivo`: the records are read from files.
    FilasDeEnsayo(const Especificacion& especificacion, const OrigenesDelReporte& origenes, bool deArchivo);

    const FilaDeTransaccion& Fila(int fila) const { return especificacion_.TablaTransaccion[static_cast<std::size_t>(fila)]; }
    int Cuantas() const { return filas_; }
    const Operaciones& LasOperaciones() const { return operaciones_; }
    const Especificacion& LaEspecificacion() const { return especificacion_; }

    Lugar LugarDe(const Paso& paso) const { return origenes_.LugarDe(static_cast<int>(paso.linea)); }
    bool EsCabeza(int fila) const { return Fila(fila).EsCabezaTransaccion() || Fila(fila).EsCabezaBAPI(); }
    // The code of a transaction, or the name of a BAPI.
    std::string_view Codigo(int cabeza) const;
    // The only operation that calls that function; -1 where there is none, or more than one.
    int CabezaDeFuncion(std::string_view funcion) const;
    // The row behind the last one of an operation.
    int FinDeOperacion(int cabeza) const;
    // The row of the program side that is the head of a step-loop, by the number of the step-loop.
    int CabezaDeGrupo(int grupo) const;

    // Where the value of a row comes from; `linea` is the number of the line of its step-loop, 0 where none is known.
    void PonerProcedencia(CampoEnviado& campo, int fila, std::size_t registro, std::size_t linea) const;

    // "The condition X is not met."
    static Frase NoSeCumple(std::string_view celda);

private:
    const Especificacion& especificacion_;
    const OrigenesDelReporte& origenes_;
    bool deArchivo_;
    int filas_;
    Operaciones operaciones_;
    std::vector<int> cabezasDeGrupo_;
    std::unordered_map<std::string_view, int> camposDeArchivo_;
};

constexpr const char* sinMotivo = "Not sent.";
constexpr const char* sinLineas = "No line of the step-loop belongs to the record.";

// A transaction as the journal has it, and the steps that led to it. `cabeza` is the head of its operation, or -1.
void LlenarTransaccion(Envio& envio, const ValorDeDiario& evento, const std::vector<PasoLeido>& pasos, int cabeza,
                       std::size_t registro, const FilasDeEnsayo& filas);
// The same of a BAPI.
void LlenarBapi(Envio& envio, const ValorDeDiario& evento, const std::vector<PasoLeido>& pasos, int cabeza, std::size_t registro,
                const FilasDeEnsayo& filas);

}  // namespace qor
