#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "base/view.h"

namespace qor {

// A path that the user chose, as a text that goes into a document or the settings. Nothing where none was chosen, and for one that
// the code page can't hold; the user is told then.
std::optional<std::string> ComoTexto(const std::optional<std::filesystem::path>& elegida, Vista& vista);

}  // namespace qor
