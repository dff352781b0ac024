#pragma once

#include <string>
#include <string_view>

namespace qor {

// Texts of the model, windows-1252, as the UTF-16 of SAP's libraries and back. A character that the code page lacks comes back as
// "#".
std::u16string AUtf16(std::string_view texto);
std::string DesdeUtf16(std::u16string_view texto);

}  // namespace qor
