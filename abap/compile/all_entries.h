#pragma once

#include <memory>

#include "abap/compile/open_sql_selection.h"

namespace qor::abap {

// The rows that a SELECT with FOR ALL ENTRIES IN answers: those that meet the condition for any row of the table, each once. With
// no row there, all of them.
std::unique_ptr<FilasDeBase> AbrirPorEntradas(Maquina& maquina, const Seleccion& seleccion, ConsultaDeBase consulta);

}  // namespace qor::abap
