#pragma once

#include <vector>

namespace qor::pruebas {

// Rows with a level (from 0) for each factor, in which every combination of levels of any `fuerza` factors occurs. `niveles` says
// how many levels each factor has. The same rows come out each time.
std::vector<std::vector<int>> FilasQueCubren(const std::vector<int>& niveles, int fuerza);

}  // namespace qor::pruebas
