#include "app/dropped_file.h"

#include "base/failure.h"
#include "base/files.h"
#include "base/text.h"
#include "sap/import.h"

namespace qor {

namespace {

constexpr std::size_t bytesDeComienzo = 64 << 10;

std::string Comienzo(const std::filesystem::path& archivo) {
    std::string bytes(bytesDeComienzo, '\0');
    ArchivoAbierto abierto(archivo);
    bytes.resize(abierto.Leer(bytes.data(), bytes.size()));
    return bytes;
}

}  // namespace

ClaseDeArchivo ClaseDe(const std::filesystem::path& archivo) {
    if (Mayusculas(archivo.extension().string()) == ".QOR") return ClaseDeArchivo::Documento;
    try {
        return EsGrabacion(Comienzo(archivo)) ? ClaseDeArchivo::Grabacion : ClaseDeArchivo::ArchivoDeDatos;
    } catch (const FalloDeArchivo&) {
        return ClaseDeArchivo::ArchivoDeDatos;
    }
}

}  // namespace qor
