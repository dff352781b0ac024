#pragma once

#include <ctime>
#include <string>

namespace qor {

// The present time. Where the environment variable SOURCE_DATE_EPOCH is set, its time in UTC, so that a run can be repeated.
std::tm HoraActual();

// "YYYY-MM-DD HH:MM:SS"
std::string FechaYHora(const std::tm& hora);

// "yyyymmdd_hhmmss", for names of files.
std::string FechaParaNombre(const std::tm& hora);

}  // namespace qor
