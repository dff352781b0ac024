#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "input/data_finding.h"
#include "input/layout.h"
#include "input/value_rules.h"

namespace qor {

// Reads lines of input files as the report does, one by one, and tells what is wrong with each. A line is a text in windows-1252
// without its end.
//
// - Fixed width: blanks stand in for what a line lacks, and what stands behind the record is lost; blanks there are no loss.
//   Since the blanks behind a record are often cut, a short line is a hint at most, and none where it ends within the last field.
// - Tabs: fields that a line lacks are blank, and those behind the last one are lost; as above. A value is cut to its field.
// - The one file: lines that begin with no known id are passed over by the report. Blank ones lose nothing and are no finding.
class RevisorDeLineas {
public:
    // Copies the layout; the rules have to live as long as this.
    RevisorDeLineas(DisenoDeEntrada diseno, const ReglasDeValores& reglas);

    const DisenoDeEntrada& Diseno() const { return diseno_; }

    // The values of a record as they stand in its line, in the order of its fields: all of it that the report reads, and no blanks
    // behind the end of the line.
    void Partir(int clase, std::string_view linea, std::vector<std::string_view>& valores) const;
    std::string_view ValorDe(int clase, std::string_view linea, std::size_t campo) const;

    // Appends what is wrong with a line of a class (also -1), without file and number. `limpia`: it is known to be ASCII without
    // NUL. `sobra`: something stands behind what is here of it.
    void Revisar(int clase, std::string_view linea, std::vector<HallazgoDeDatos>& hallazgos, bool limpia = false,
                 bool sobra = false) const;

    // Fills in column, field and value of a finding about a place in a line, counted from 0.
    void Situar(HallazgoDeDatos& hallazgo, int clase, std::string_view linea, std::size_t lugar) const;
    // About a field.
    void SituarEnCampo(HallazgoDeDatos& hallazgo, int clase, std::string_view linea, std::size_t campo) const;

private:
    struct CampoConRegla {
        std::size_t campo;
        const ReglaDeValor* regla;
    };

    static std::string_view Parte(const CampoDeRegistro& campo, std::string_view linea);
    void RevisarBytes(int clase, std::string_view linea, std::vector<HallazgoDeDatos>& hallazgos) const;
    void RevisarLargo(int clase, std::string_view linea, bool sobra, std::vector<HallazgoDeDatos>& hallazgos) const;
    void RevisarPartes(int clase, std::string_view linea, bool sobra, std::vector<HallazgoDeDatos>& hallazgos) const;
    void RevisarValor(int clase, std::size_t campo, const ReglaDeValor& regla, std::string_view valor,
                      std::vector<HallazgoDeDatos>& hallazgos) const;

    DisenoDeEntrada diseno_;
    std::vector<std::vector<CampoConRegla>> conRegla_;            // by class, in the order of the fields
    std::vector<std::vector<const ReglaDeValor*>> reglaDeCampo_;  // by class and field; null for none
    std::string identificadores_;                                 // for messages
};

// A value as findings show it: without the blanks behind it, and not too long.
std::string ValorMostrado(std::string_view valor);

}  // namespace qor
