#pragma once

#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "abap/execution.h"
#include "practice/file_names.h"

namespace qor {

using ValorDeParametro = std::pair<std::string, std::string>;

// A value for a parameter that the report does not have, or can't take.
class ParametroImposible : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Fills the selection screen of a report that has had its INITIALIZATION: parameters that are blank with the paths of their files,
// then the values. A value is raised to upper case where the parameter has no LOWER CASE, and cut to it; an "X" in a radio button
// clears the others of its group; a value of a SELECT-OPTIONS becomes a line of it. Throws ParametroImposible.
void LlenarParametros(abap::Ejecucion& ejecucion, const std::vector<ArchivoNombrado>& archivos,
                      const std::vector<ValorDeParametro>& valores);

// The name of the first obligatory parameter without a value; empty where there is none.
std::string ParametroSinValor(abap::Ejecucion& ejecucion);

// What the parameters and global variables of a report hold, for the files that bear their names.
class VariablesDelReporte {
public:
    // The report whose objects count; null: none.
    void PonerEjecucion(abap::Ejecucion* ejecucion);

    // Whether one that EsElNombre has this value now, without the blanks behind it.
    bool Vale(std::string_view pedido, std::string_view valor);

private:
    const std::vector<abap::Campo>& Objetos(std::string_view pedido);

    abap::Ejecucion* ejecucion_ = nullptr;
    std::map<std::string, std::vector<abap::Campo>, std::less<>> objetos_;
};

}  // namespace qor
