#include "practice/file_names.h"

#include <algorithm>
#include <system_error>

#include "base/code_page.h"
#include "base/paths.h"
#include "base/text.h"
#include "practice/batch_rows.h"

namespace qor {

namespace {

constexpr const char* motivoFuera = "outside the folder of the document, and no --file names it";
constexpr const char* motivoOtroSistema = "a path of another computer, and no --file names it";
constexpr const char* motivoAjeno = "not a file that a report may write";

bool EsLetra(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

// "C:\..." and "\\server\..."
bool EsDeOtroSistema(std::string_view nombre) {
    return (nombre.size() >= 2 && EsLetra(nombre[0]) && nombre[1] == ':') || nombre.starts_with("\\\\");
}

bool EstaDentro(const std::filesystem::path& ruta, const std::filesystem::path& carpeta) {
    const auto [deCarpeta, deRuta] = std::mismatch(carpeta.begin(), carpeta.end(), ruta.begin(), ruta.end());
    return deCarpeta == carpeta.end() && deRuta != ruta.end();
}

bool EstaEnAlguna(const std::filesystem::path& ruta, const std::vector<std::filesystem::path>& carpetas) {
    return std::any_of(carpetas.begin(), carpetas.end(),
                       [&ruta](const std::filesystem::path& carpeta) { return EstaDentro(ruta, carpeta); });
}

void AgregarCarpeta(std::vector<std::filesystem::path>& carpetas, const std::filesystem::path& carpeta) {
    if (carpeta.empty()) return;
    std::error_code error;
    auto canonica = std::filesystem::canonical(carpeta, error);
    if (!error) carpetas.push_back(std::move(canonica));
}

}  // namespace

bool EsElNombre(std::string_view variable, std::string_view pedido) {
    if (IgualesSinCaja(variable, pedido)) return true;
    const auto guion = variable.find('_');
    if (guion < 1 || guion > 3) return false;
    const auto prefijo = variable.substr(0, guion);
    return std::all_of(prefijo.begin(), prefijo.end(), EsLetra) && IgualesSinCaja(variable.substr(guion + 1), pedido);
}

NombresDeArchivos::NombresDeArchivos(LugaresDeArchivos lugares, VariableVale vale, OyenteDePractica& oyente)
    : lugares_(std::move(lugares)), vale_(std::move(vale)), oyente_(oyente) {
    AgregarCarpeta(escribibles_, lugares_.carpeta);
    legibles_ = escribibles_;
    AgregarCarpeta(legibles_, lugares_.valores);
}

std::optional<std::filesystem::path> NombresDeArchivos::ParaLeer(std::string_view nombre) {
    const auto recortado = SinBlancosDetras(nombre);
    if (const auto* ruta = Nombrado(recortado)) return *ruta;
    return Propio(recortado, false);
}

std::optional<std::filesystem::path> NombresDeArchivos::ParaEscribir(std::string_view nombre) {
    const auto recortado = SinBlancosDetras(nombre);
    const auto* nombrado = Nombrado(recortado);
    if (!nombrado) return Propio(recortado, true);
    std::error_code error;
    auto canonica = std::filesystem::weakly_canonical(*nombrado, error);
    if (error) return *nombrado;
    if (!EsAjeno(canonica)) return canonica;
    SinLeer(recortado, motivoAjeno);
    return std::nullopt;
}

void NombresDeArchivos::SinLeer(std::string_view nombre, const std::string& motivo) {
    const auto recortado = SinBlancosDetras(nombre);
    if (dichos_.emplace(recortado, motivo).second) oyente_.ArchivoSinLeer(recortado, motivo);
}

void NombresDeArchivos::SinLeer(std::string_view nombre, const FalloDeArchivo& fallo) {
    const std::string detalle = DesdeUtf8ConFaltas(fallo.Detalle());
    SinLeer(nombre, detalle.ends_with(": " + std::string(SinBlancosDetras(nombre))) ? std::string(fallo.what()) : detalle);
}

const std::filesystem::path* NombresDeArchivos::Nombrado(std::string_view nombre) const {
    if (nombre.empty()) return nullptr;
    for (const auto& archivo : lugares_.archivos) {
        if (archivo.nombre == nombre || (vale_ && vale_(archivo.nombre, nombre))) return &archivo.ruta;
    }
    return nullptr;
}

std::optional<std::filesystem::path> NombresDeArchivos::Propio(std::string_view nombre, bool escribir) {
    const auto negar = [&](const std::string& motivo) {
        SinLeer(nombre, motivo);
        return std::nullopt;
    };
    if (EstaEnBlanco(nombre)) return negar("no file name");
    if (nombre.find('\0') != std::string_view::npos) return negar("not a file name");
    if (EsDeOtroSistema(nombre)) return negar(motivoOtroSistema);
    const auto ruta = RutaDelSistema(ReemplazarTodo(nombre, "\\", "/"));
    std::vector<std::filesystem::path> candidatas;
    if (ruta.is_absolute()) {
        candidatas = {ruta};
    } else {
        if (!lugares_.carpeta.empty()) candidatas.push_back(lugares_.carpeta / ruta);
        candidatas.push_back(ruta);
    }
    const auto& carpetas = escribir ? escribibles_ : legibles_;
    std::string motivo = motivoFuera;
    for (const auto& candidata : candidatas) {
        std::error_code error;
        auto canonica = std::filesystem::canonical(candidata, error);
        if (error && escribir && candidata.has_filename()) {
            // A new file: its folder has to be there. A link that leads nowhere keeps its own name, and is not followed when it is
            // opened.
            canonica = std::filesystem::canonical(candidata.has_parent_path() ? candidata.parent_path() : ".", error);
            canonica /= candidata.filename();
        }
        if (!error) {
            if (!EstaEnAlguna(canonica, carpetas)) continue;
            if (escribir && EsAjeno(canonica)) return negar(motivoAjeno);
            return canonica;
        }
        const auto supuesta = std::filesystem::weakly_canonical(std::filesystem::absolute(candidata, error), error);
        if (!error && EstaEnAlguna(supuesta, carpetas)) motivo = std::generic_category().message(ENOENT);
    }
    return negar(motivo);
}

bool NombresDeArchivos::EsAjeno(const std::filesystem::path& canonica) const {
    return std::any_of(lugares_.ajenos.begin(), lugares_.ajenos.end(), [&canonica](const std::filesystem::path& ajeno) {
        std::error_code error;
        return std::filesystem::weakly_canonical(ajeno, error) == canonica || std::filesystem::equivalent(ajeno, canonica, error);
    });
}

}  // namespace qor
