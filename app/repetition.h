#pragma once

#include <optional>
#include <string>
#include <vector>

#include "abap/execution.h"
#include "model/naming.h"

namespace qor {

// How the records that failed in a run can be posted again: they are in the error table of the report, as a run with a number.
class Repeticion {
public:
    // `tabla` is empty where the report keeps no failed records.
    Repeticion(std::string tabla, ConvencionesDeNombres nombres) : tabla_(std::move(tabla)), nombres_(std::move(nombres)) {}

    // Whether the run that is about to start repeats another one.
    bool EsRepeticion(abap::Ejecucion& ejecucion) const;
    // The run has ended, and its number is known.
    void Anotar(abap::Ejecucion& ejecucion);

    // What is to be done, in lines for the terminal; none where nothing is kept. `que`: the document, or --report and its file.
    // `sistema` is empty for a system in memory.
    std::vector<std::string> Pasos(const std::string& que, const std::string& sistema) const;

private:
    std::string tabla_;
    ConvencionesDeNombres nombres_;
    std::string numero_;
};

}  // namespace qor
