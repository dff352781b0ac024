#pragma once

#include <string>

namespace qor {

// The toolkit's own words, in the menus of text boxes and in file dialogs, by the code of the language. English where the toolkit
// doesn't have it.
void CambiarIdiomaDeQt(const std::string& codigo);

}  // namespace qor
