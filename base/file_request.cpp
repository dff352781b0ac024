#include "base/file_request.h"

#include <algorithm>
#include <string_view>
#include <system_error>

#include "base/paths.h"
#include "base/text.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t maximoDeNombre = 60;
constexpr std::string_view fueraDeNombres = "/\\:*?\"<>|";

bool EsCarpeta(const fs::path& ruta) {
    std::error_code ignorado;
    return !ruta.empty() && fs::is_directory(ruta, ignorado);
}

}  // namespace

const char* NombreDeClase(ClaseDeArchivo clase) {
    switch (clase) {
        case ClaseDeArchivo::Documento: return "document";
        case ClaseDeArchivo::Programa: return "program";
        case ClaseDeArchivo::Entrada: return "input";
        case ClaseDeArchivo::Grabacion: return "recording";
        case ClaseDeArchivo::JuegoDeDatos: return "data-set";
        case ClaseDeArchivo::RegistrosFallados: return "failed-records";
        case ClaseDeArchivo::Diario: return "journal";
        case ClaseDeArchivo::PDF: return "pdf";
        case ClaseDeArchivo::ListaDeValores: return "values";
        case ClaseDeArchivo::Catalogo: return "catalogue";
        case ClaseDeArchivo::AnchosDeCampos: return "widths";
        case ClaseDeArchivo::EditorDeTextos: return "editor";
        case ClaseDeArchivo::CarpetaDeDocumentos: return "documents-folder";
    }
    return "";
}

fs::path ComienzoDelDialogo(const PedidoDeArchivo& pedido, const LugaresDeDialogo& lugares) {
    const fs::path nombre = pedido.presente.has_filename() ? pedido.presente.filename() : pedido.sugerido;
    const fs::path candidatos[] = {pedido.presente.parent_path(), lugares.ultimo, lugares.delDocumento, lugares.delUsuario};
    const auto* const lugar = std::find_if(std::begin(candidatos), std::end(candidatos), EsCarpeta);
    if (lugar == std::end(candidatos)) return nombre;
    return *lugar / nombre;
}

fs::path ComoNombreDeArchivo(std::string_view texto, std::string_view final) {
    std::string nombre(Recortar(texto.substr(0, maximoDeNombre)));
    std::replace_if(
        nombre.begin(), nombre.end(),
        [](char c) { return (c >= 0 && c < ' ') || c == '\x7F' || fueraDeNombres.find(c) != std::string_view::npos; }, '_');
    // A name that begins with a point is hidden, and one that ends with it is no name everywhere.
    while (!nombre.empty() && (nombre.front() == '.' || nombre.front() == ' ')) nombre.erase(0, 1);
    while (!nombre.empty() && (nombre.back() == '.' || nombre.back() == ' ')) nombre.pop_back();
    return nombre.empty() ? fs::path() : RutaDelSistema(nombre.append(final));
}

}  // namespace qor
