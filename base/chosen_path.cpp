#include "base/chosen_path.h"

#include "base/failure.h"
#include "base/paths.h"

namespace qor {

std::optional<std::string> ComoTexto(const std::optional<std::filesystem::path>& elegida, Vista& vista) {
    if (!elegida) return std::nullopt;
    try {
        return RutaDelModelo(*elegida);
    } catch (const FalloDeEjecucion&) {
        vista.Advertir(MensajeLiteral("The name of the file has a character outside windows-1252. Please choose another name."));
        return std::nullopt;
    }
}

}  // namespace qor
