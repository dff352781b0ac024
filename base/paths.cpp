#include "base/paths.h"

#include "base/code_page.h"
#include "base/failure.h"

namespace qor {

namespace {

constexpr std::string_view separadores = "/\\";

// The path up to and including its last separator, or nothing.
std::string ObtenerPath(std::string_view ruta) {
    const auto lugar = ruta.find_last_of(separadores);
    return lugar == std::string_view::npos ? std::string() : std::string(ruta.substr(0, lugar + 1));
}

}  // namespace

std::string QuitarExtension(std::string_view ruta) { return std::string(ruta.substr(0, ruta.rfind('.'))); }

std::string NombreDeRuta(std::string_view ruta) { return std::string(ruta.substr(ObtenerPath(ruta).size())); }

std::string DirectorioDeRuta(std::string_view ruta) {
    const std::string directorio = ObtenerPath(ruta);
    if (directorio.empty()) return directorio;
    const bool esRaiz = directorio.size() == 1 || directorio[directorio.size() - 2] == ':';
    return esRaiz ? directorio : directorio.substr(0, directorio.size() - 1);
}

std::filesystem::path RutaDelSistema(std::string_view ruta) {
    const std::string utf8 = AUtf8(ruta);
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string RutaDelModelo(const std::filesystem::path& ruta) {
    const auto utf8 = ruta.u8string();
    auto texto = DesdeUtf8(std::string(utf8.begin(), utf8.end()));
    if (!texto) throw FalloDeEjecucion("the file name has a character outside windows-1252");
    return *texto;
}

std::string TextoDeRuta(const std::filesystem::path& ruta) { return DesdeUtf8ConFaltas(ruta.string()); }

std::filesystem::path RutaAbsoluta(const std::filesystem::path& ruta) {
    std::error_code error;
    const auto absoluta = std::filesystem::absolute(ruta, error);
    if (error) throw FalloDeArchivo(error.value(), ruta);
    return absoluta.lexically_normal();
}

std::filesystem::path RutaEntera(const std::filesystem::path& ruta) {
    std::error_code error;
    const auto absoluta = std::filesystem::absolute(ruta, error);
    return error ? ruta : absoluta.lexically_normal();
}

}  // namespace qor
