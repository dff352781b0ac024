#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qor::abap {

// Days since 1 January of the year 1; the calendar changes in October 1582. What is no date is 0.
std::int32_t DiasDe(std::string_view fecha);
// YYYYMMDD; zeros for 0 and for days that no date has.
std::string FechaDe(std::int64_t dias);

// Seconds since midnight; what is no time is 0.
std::int32_t SegundosDe(std::string_view hora);
// HHMMSS, of the seconds within a day.
std::string HoraDe(std::int64_t segundos);

}  // namespace qor::abap
