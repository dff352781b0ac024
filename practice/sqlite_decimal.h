#pragma once

#include <string_view>

struct sqlite3;

// Packed numbers in the database are decimal texts such as "-12.50", since no type of its own holds 31 digits.
namespace qor {

// Less than, equal to or greater than 0. What is no number counts as 0.
int CompararDecimales(std::string_view uno, std::string_view otro);

// Teaches a database their order (the collation QOR_DECIMAL) and their sums (QOR_SUM, QOR_ADD and QOR_SUBTRACT).
void AgregarDecimales(sqlite3* mango);

}  // namespace qor
