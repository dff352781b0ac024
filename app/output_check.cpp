#include "app/output_check.h"

#include "app/command.h"
#include "base/files.h"

namespace qor {

void ChequearSalida(const std::string& que, const std::filesystem::path& salida, const std::vector<std::filesystem::path>& leidos,
                    const char* porque) {
    for (const auto& leido : leidos) {
        if (EsElMismoArchivo(leido, salida)) throw MalUso(que + ": " + salida.string() + " " + porque);
    }
}

}  // namespace qor
