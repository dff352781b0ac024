#include "app/file_type.h"

#include <exception>
#include <sstream>

#include "base/files.h"
#include "base/new_file.h"
#include "base/text.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

// The files of the directory "desktop", and their places in a data directory of a desktop.
struct Lugar {
    const char* archivo;
    const char* directorio;
};

constexpr Lugar lugares[] = {{"qor-generator.xml", "mime/packages"},
                             {"application-x-qor.svg", "icons/hicolor/scalable/mimetypes"},
                             {"qor-generator.svg", "icons/hicolor/scalable/apps"},
                             {"qor-data-set-editor.svg", "icons/hicolor/scalable/apps"},
                             {"qor-generator.desktop", "applications"},
                             {"qor-data-set-editor.desktop", "applications"}};

// A program in the line Exec: in double quotes, with its special characters escaped.
std::string ParaExec(const fs::path& programa) {
    std::string texto = "\"";
    for (const char c : programa.string()) {
        if (c == '"' || c == '`' || c == '$' || c == '\\') texto += "\\\\";  // the value of a key escapes a backslash once more
        if (c == '%') texto += '%';
        texto += c;
        if (c == '\\') texto += c;
    }
    return texto + '"';
}

fs::path DirectorioDeDatosDelUsuario(const Entorno& entorno) {
    // A relative path is invalid and counts as unset.
    const fs::path propio = entorno("XDG_DATA_HOME");
    if (propio.is_absolute()) return propio;
    const fs::path casa = entorno("HOME");
    return casa.is_absolute() ? casa / ".local/share" : fs::path();
}

// Whether an installation that every desktop sees brings the registration.
bool EstaInstalado(const Entorno& entorno) {
    std::string directorios = entorno("XDG_DATA_DIRS");
    if (directorios.empty()) directorios = "/usr/local/share:/usr/share";
    std::istringstream lista(directorios);
    for (std::string directorio; std::getline(lista, directorio, ':');) {
        if (fs::path(directorio).is_absolute() && Existe(fs::path(directorio) / "applications/qor-generator.desktop")) return true;
    }
    return false;
}

bool EscribirSiFalta(const ArchivoDeRegistro& archivo) {
    try {
        if (Existe(archivo.ruta)) return false;
        fs::create_directories(archivo.ruta.parent_path());
        GuardarArchivo(archivo.ruta, archivo.contenido);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace

std::vector<ArchivoDeRegistro> PlanearRegistro(const Entorno& entorno, const fs::path& programa,
                                               const fs::path& directorioDeDatos) {
    const fs::path datos = DirectorioDeDatosDelUsuario(entorno);
    if (datos.empty()) return {};
    try {
        if (EstaInstalado(entorno)) return {};
        std::vector<ArchivoDeRegistro> plan;
        for (const auto& lugar : lugares) {
            const std::string contenido = LeerArchivo(directorioDeDatos / "desktop" / lugar.archivo);
            plan.push_back({datos / lugar.directorio / lugar.archivo,
                            ReemplazarTodo(contenido, "\nExec=qor ", "\nExec=" + ParaExec(programa) + ' ')});
        }
        return plan;
    } catch (const std::exception&) {
        return {};
    }
}

bool RegistrarExtension(const std::vector<ArchivoDeRegistro>& plan) {
    bool escrito = false;
    for (const auto& archivo : plan) escrito = EscribirSiFalta(archivo) || escrito;
    return escrito;
}

std::vector<std::vector<std::string>> ComandosDeRegistro(const Entorno& entorno) {
    const fs::path datos = DirectorioDeDatosDelUsuario(entorno);
    if (datos.empty()) return {};
    return {{"update-mime-database", (datos / "mime").string()}, {"update-desktop-database", (datos / "applications").string()}};
}

}  // namespace qor
