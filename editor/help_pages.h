#pragma once

#include <optional>
#include <string_view>
#include <variant>

namespace qor {

// A page of the help: the number of the message that names it, or its name.
using PaginaDeAyuda = std::variant<int, std::string_view>;

constexpr int paginaDeContenido = 714;

// The page of a control of the main form, or of a dialog, by its object name; F1 opens it. Cells are named with or without their
// line. Nothing where it has none of its own.
std::optional<PaginaDeAyuda> PaginaDe(std::string_view nombre);

// The page of a page of SSTab1, for the controls without one of their own.
PaginaDeAyuda PaginaDePestana(int pestana);

}  // namespace qor
