#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "abap/execution.h"
#include "app/rehearsal.h"
#include "app/rehearsal_steps.h"
#include "model/naming.h"
#include "model/specification.h"

namespace qor {

// Looks on while the report of a rehearsal runs: counts conditions and value pairs, and notes what the report sends and what it
// leaves out. It knows the forms of generated reports; what else there is comes from the user's own code.
class PerfilDeEnsayo : public abap::Perfil {
public:
    // What it is given has to live as long as it.
    PerfilDeEnsayo(const Especificacion& especificacion, const ConvencionesDeNombres& nombres, const OrigenesDelReporte& origenes,
                   std::string_view reporte, NotasDeEnsayo& notas);

    const std::vector<TotalDeCondicion>& Condiciones() const { return condiciones_; }
    const std::vector<TotalDePar>& Pares() const { return pares_; }

    void Sentencia(int linea) override;
    void Fila(int linea, std::size_t fila) override;
    void Vuelta(const abap::FormaTerminada& forma) override;

private:
    // What a line of the report is for.
    enum class Papel : std::uint8_t {
        Ninguno,
        AgregaFila,      // FORM DYNPRO puts a row into BDC_TAB
        ConvierteLinea,  // the form of the step-loop `cual` has the values of its line converted
        Par,             // the value of the pair `cual` is taken
        VuelveOperacion  // the form of an operation is called
    };
    struct Linea {
        Lugar lugar;
        Papel papel = Papel::Ninguno;
        int cual = 0;
    };

    void PonerPares(const Especificacion& especificacion);
    void PonerLineas(const Especificacion& especificacion, const ConvencionesDeNombres& nombres, const OrigenesDelReporte& origenes,
                     std::string_view reporte);
    void VuelveDynpro(const abap::FormaTerminada& forma);
    void VuelveCondicion(const abap::FormaTerminada& forma);
    const Linea& LineaDe(int linea) const;

    NotasDeEnsayo& notas_;
    std::vector<Linea> lineas_;  // of the report, from 1
    std::vector<TotalDeCondicion> condiciones_;
    std::unordered_map<std::string, std::size_t> condicion_;  // by name
    std::vector<TotalDePar> pares_;
    std::vector<int> grupoDePar_;       // of their fields
    std::vector<int> grupoDeCabeza_;    // the step-loop that has its head in a row of the program side
    std::string nombre_;                // of a condition, to look it up
    int grupo_ = 0;                     // whose line is converted
    std::size_t agregadas_ = 0;         // rows of BDC_TAB, since the last call of DYNPRO came back
    std::uint8_t condicionDeFila_ = 0;  // what that call learned of its condition
    Paso pendiente_;                    // the call within SL_SEND
};

}  // namespace qor
