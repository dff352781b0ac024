#include "app/file_type.h"

#include <exception>

#include "base/new_file.h"
#include "base/text.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view tipoMIME = R"(<?xml version="1.0" encoding="UTF-8"?>
<mime-info xmlns="http://www.freedesktop.org/standards/shared-mime-info">
  <mime-type type="application/x-qor">
    <comment>QOR Document</comment>
    <comment xml:lang="es">Documento QOR</comment>
    <icon name="application-x-qor"/>
    <glob pattern="*.qor"/>
  </mime-type>
</mime-info>
)";

constexpr std::string_view entradaDeEscritorio = R"([Desktop Entry]
Type=Application
Name=Qor Generator
Comment=Generates ABAP load programs for SAP R/3
Comment[es]=Genera programas de carga ABAP para SAP R/3
Exec=@PROGRAMA@ %f
Icon=application-x-qor
Terminal=false
Categories=Development;
MimeType=application/x-qor;
)";

// A sheet whose two columns are tied together, as the fields of a file and those of a program are.
constexpr std::string_view icono = R"(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64" viewBox="0 0 64 64">
  <path d="M12 4h28l12 12v44H12z" fill="#fff" stroke="#37474f" stroke-width="2" stroke-linejoin="round"/>
  <path d="M40 4v12h12z" fill="#cfd8dc" stroke="#37474f" stroke-width="2" stroke-linejoin="round"/>
  <g fill="#1565c0"><rect x="18" y="26" width="10" height="5"/><rect x="18" y="37" width="10" height="5"/>
    <rect x="18" y="48" width="10" height="5"/></g>
  <g fill="#2e7d32"><rect x="36" y="26" width="10" height="5"/><rect x="36" y="37" width="10" height="5"/>
    <rect x="36" y="48" width="10" height="5"/></g>
  <path d="M28 28.500h8M28 39.500l8 11M28 50.500l8-11" stroke="#b71c1c" stroke-width="2" fill="none"/>
</svg>
)";

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

std::vector<ArchivoDeRegistro> PlanearRegistro(const Entorno& entorno, const fs::path& programa) {
    const fs::path datos = DirectorioDeDatosDelUsuario(entorno);
    if (datos.empty()) return {};
    return {{datos / "mime/packages/qor-generator.xml", std::string(tipoMIME)},
            {datos / "icons/hicolor/scalable/mimetypes/application-x-qor.svg", std::string(icono)},
            {datos / "applications/qor-generator.desktop", ReemplazarTodo(entradaDeEscritorio, "@PROGRAMA@", ParaExec(programa))}};
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
