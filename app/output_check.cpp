#include "app/output_check.h"

#include "app/command.h"

namespace qor {

void ChequearSalida(const std::string& que, const std::filesystem::path& salida, const std::vector<std::filesystem::path>& leidos,
                    const char* porque) {
    for (const auto& leido : leidos) {
        std::error_code ignorado;
        if (std::filesystem::equivalent(leido, salida, ignorado)) throw MalUso(que + ": " + salida.string() + " " + porque);
    }
}

}  // namespace qor
