#include "app/output_check.h"

#include <algorithm>

#include "app/command.h"
#include "base/new_file.h"

namespace qor {

namespace {

bool Contiene(const std::vector<std::filesystem::path>& rutas, const std::filesystem::path& buscada) {
    return std::any_of(rutas.begin(), rutas.end(), [&](const auto& ruta) { return EsElMismoLugar(ruta, buscada); });
}

}  // namespace

void ChequearSalida(const std::string& que, const std::filesystem::path& salida, const std::vector<std::filesystem::path>& leidos,
                    const char* porque) {
    if (Contiene(leidos, salida)) throw MalUso(que + ": " + RutaDeTerminal(salida) + " " + porque);
}

void ChequearSalidas(const std::string& que, const std::vector<std::filesystem::path>& salidas,
                     const std::vector<std::filesystem::path>& leidos, const char* porque) {
    std::vector<std::filesystem::path> vistas;
    for (const auto& salida : salidas) {
        ChequearSalida(que, salida, leidos, porque);
        if (Contiene(vistas, salida)) throw MalUso(que + ": " + RutaDeTerminal(salida) + " is another output as well");
        vistas.push_back(salida);
    }
}

}  // namespace qor
