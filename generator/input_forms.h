#pragma once

#include "generator/report.h"
#include "model/naming.h"

// The bodies of forms that read an input file into an internal table. The report's own READFILE and the models of a user's data
// source are made of them.
namespace qor {

enum class FuenteDeArchivo { ClientePlano, ClienteTabuladores, Servidor };

// The lines between the FORM line and ENDFORM. `mensaje` is what the report writes when the file can't be opened.
void EscribirCuerpoDeLectura(Reporte& reporte, FuenteDeArchivo fuente, const Preferencias& preferencias,
                             const std::string& mensaje);

}  // namespace qor
