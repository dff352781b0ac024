#include "app/input_files.h"

#include <string>
#include <system_error>

#include "base/paths.h"
#include "base/text.h"
#include "model/cells.h"
#include "model/operations.h"

namespace qor {

namespace {

namespace fs = std::filesystem;

// The file of a step-loop stands in the note of its head.
std::string NombreEnElDocumento(const Documento& documento, int archivo) {
    if (archivo == 0) return documento.opciones.ArchivoFuente;
    const auto cabezas = CabezasStepLoop(documento.especificacion);
    const auto n = static_cast<std::size_t>(archivo) - 1;
    if (n >= cabezas.size()) return {};
    return std::string(ValorDeMarca(documento.especificacion.TablaTransaccion[static_cast<std::size_t>(cabezas[n])].nota, 2));
}

bool EsArchivo(const fs::path& ruta) {
    std::error_code ignorado;
    return fs::is_regular_file(ruta, ignorado);
}

}  // namespace

fs::path ArchivoDelDocumento(const Documento& documento, int archivo) {
    const std::string nombre(Recortar(NombreEnElDocumento(documento, archivo)));
    if (nombre.empty()) return {};
    const fs::path directorio = documento.ruta.parent_path();
    const fs::path entera = RutaDelSistema(nombre);
    if (entera.is_absolute() && EsArchivo(entera)) return entera;
    if (documento.ruta.empty()) return {};
    for (const auto& ruta : {directorio / entera, directorio / RutaDelSistema(NombreDeRuta(nombre))}) {
        if (EsArchivo(ruta)) return ruta;
    }
    return {};
}

}  // namespace qor
