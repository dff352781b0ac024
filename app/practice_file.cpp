#include "app/practice_file.h"

#include "app/command.h"
#include "base/failure.h"

namespace qor {

namespace {

constexpr const char* nombreDePractica = "practice.sqlite";

}  // namespace

std::filesystem::path RutaDePractica(const Entorno& entorno) {
    // A relative $XDG_DATA_HOME is invalid and counts as unset.
    std::filesystem::path datos = entorno("XDG_DATA_HOME");
    if (!datos.is_absolute()) datos = std::filesystem::path(entorno("HOME")) / ".local" / "share";
    return datos / "qor-generator" / nombreDePractica;
}

std::filesystem::path RutaDePracticaConDirectorio(const Entorno& entorno) {
    auto ruta = RutaDePractica(entorno);
    std::error_code error;
    std::filesystem::create_directories(ruta.parent_path(), error);
    if (error) throw FalloDeArchivo(error.value(), ruta.parent_path());
    return ruta;
}

void ChequearSalida(const std::string& que, const std::filesystem::path& salida, const std::vector<std::filesystem::path>& leidos,
                    const char* porque) {
    for (const auto& leido : leidos) {
        std::error_code ignorado;
        if (std::filesystem::equivalent(leido, salida, ignorado)) throw MalUso(que + ": " + salida.string() + " " + porque);
    }
}

}  // namespace qor
