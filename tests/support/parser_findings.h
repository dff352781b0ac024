#pragma once

#include <filesystem>
#include <string>

#include "findings/finding.h"
#include "generator/generate.h"

namespace qor::pruebas {

// Puts a report where the ABAP parser of tests/abap reads it, and beside it a file of the findings that say that it does not
// compile: one line for each, with its code and its lines of the report.
void GuardarParaElParser(const std::filesystem::path& directorio, const std::string& nombre, const ReporteGenerado& reporte,
                         const Hallazgos& hallazgos);

}  // namespace qor::pruebas
