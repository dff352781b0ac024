#pragma once

#include "practice/course.h"
#include "practice/system.h"

namespace qor {

// Processes a session of the queue: each of its transactions is a record, which the practice transaction tries as it tries those of
// a CALL TRANSACTION in mode N. All of them are tried, also those that went well before. The entry is in the state E behind it
// where one failed; else in the state F, or it goes where it was not to be kept. `curso` hears of each. Answers whether there were
// transactions and none failed.
bool ProcesarSesion(SistemaDePractica& sistema, Curso& curso, const EntradaDeCola& entrada);

}  // namespace qor
