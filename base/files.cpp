#include "base/files.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "base/failure.h"

namespace qor {

namespace {

[[noreturn]] void Fallar(const std::filesystem::path& ruta) { throw FalloDeArchivo(errno, ruta); }

[[noreturn]] void FallarPorTamano(std::uintmax_t limite, const std::filesystem::path& ruta) {
    throw FalloDeArchivo("The file has more than " + std::to_string(limite >> 20) + " megabytes", ruta);
}

bool Falta(int error) { return error == ENOENT || error == ENOTDIR; }

Descriptor AbrirRegular(const std::filesystem::path& ruta) {
    Descriptor descriptor(llamadas::Abrir(ruta, modos::soloLeer | modos::sinEsperar));
    if (!descriptor.Abierto()) Fallar(ruta);
    EstadoDeArchivo datos;
    if (llamadas::Mirar(descriptor.Valor(), datos) != 0) Fallar(ruta);
    if (!datos.EsRegular()) throw FalloDeArchivo(CausaDeFallo::NoEsArchivo, ruta);
    return descriptor;
}

}  // namespace

std::string LeerArchivo(const std::filesystem::path& ruta, std::uintmax_t limite) { return ArchivoAbierto(ruta).LeerTodo(limite); }

std::vector<std::string_view> PartirEnLineas(std::string_view texto) {
    std::vector<std::string_view> lineas;
    while (!texto.empty()) {
        const auto fin = texto.find_first_of("\r\n");
        lineas.push_back(texto.substr(0, fin));
        if (fin == std::string_view::npos) break;
        const bool doble = texto[fin] == '\r' && fin + 1 < texto.size() && texto[fin + 1] == '\n';
        texto.remove_prefix(fin + (doble ? 2 : 1));
    }
    return lineas;
}

bool Existe(const std::filesystem::path& ruta) { return Identidad(ruta).has_value(); }

bool ExisteNombre(const std::filesystem::path& ruta) {
    EstadoDeArchivo datos;
    if (llamadas::MirarEnlace(ruta, datos) == 0) return true;
    if (!Falta(errno)) Fallar(ruta);
    return false;
}

IdentidadDeArchivo IdentidadDe(const EstadoDeArchivo& estado) {
    return {estado.dispositivo, estado.inodo, estado.tamano, estado.cambiadoEn};
}

std::optional<IdentidadDeArchivo> Identidad(const std::filesystem::path& ruta) {
    EstadoDeArchivo datos;
    if (llamadas::Mirar(ruta, datos) == 0) return IdentidadDe(datos);
    if (!Falta(errno)) Fallar(ruta);
    return std::nullopt;
}

ArchivoAbierto::ArchivoAbierto(const std::filesystem::path& ruta) : ruta_(ruta), descriptor_(AbrirRegular(ruta)) {}

std::size_t ArchivoAbierto::Leer(char* donde, std::size_t cuanto) {
    const auto leidos = llamadas::Leer(descriptor_.Valor(), donde, cuanto);
    if (leidos < 0) Fallar(ruta_);
    return static_cast<std::size_t>(leidos);
}

std::size_t ArchivoAbierto::LeerEn(char* donde, std::size_t cuanto, std::uint64_t lugar) const {
    const auto leidos = llamadas::LeerEn(descriptor_.Valor(), donde, cuanto, static_cast<std::int64_t>(lugar));
    if (leidos < 0) Fallar(ruta_);
    return static_cast<std::size_t>(leidos);
}

std::string ArchivoAbierto::LeerTodo(std::uintmax_t limite) const {
    const auto tamano = Identidad().tamano;
    if (tamano > limite) FallarPorTamano(limite, ruta_);
    std::string texto;
    texto.reserve(static_cast<std::size_t>(tamano));
    char bloque[65536];
    while (const auto leidos = LeerEn(bloque, sizeof bloque, texto.size())) {
        texto.append(bloque, leidos);
        if (texto.size() > limite) FallarPorTamano(limite, ruta_);
    }
    return texto;
}

IdentidadDeArchivo ArchivoAbierto::Identidad() const {
    EstadoDeArchivo datos;
    if (llamadas::Mirar(descriptor_.Valor(), datos) != 0) Fallar(ruta_);
    return IdentidadDe(datos);
}

void Bloquear(int descriptor, const std::filesystem::path& ruta) {
    if (llamadas::Bloquear(descriptor) == 0) return;
    if (errno == EWOULDBLOCK) throw FalloDeArchivo(CausaDeFallo::EnUso, ruta);
    Fallar(ruta);
}

ArchivoBloqueado ArchivoBloqueado::Abrir(const std::filesystem::path& ruta) {
    for (;;) {
        ArchivoBloqueado archivo{ArchivoAbierto(ruta)};
        Bloquear(archivo.Numero(), ruta);
        // Another file may have taken the name before the lock was taken.
        const auto hay = qor::Identidad(ruta);
        if (hay && hay->EsElMismo(archivo.Identidad())) return archivo;
    }
}

void EscribirEn(int descriptor, std::string_view texto, const std::filesystem::path& ruta) {
    while (!texto.empty()) {
        const auto escritos = llamadas::Escribir(descriptor, texto.data(), texto.size());
        if (escritos < 0) Fallar(ruta);
        texto.remove_prefix(static_cast<std::size_t>(escritos));
    }
}

ArchivoDeSalida::ArchivoDeSalida(const std::filesystem::path& ruta)
    : ruta_(ruta), descriptor_(llamadas::Abrir(ruta, modos::soloEscribir | modos::crear, 0666)) {
    if (!descriptor_.Abierto()) Fallar(ruta);
    EstadoDeArchivo datos;
    if (llamadas::Mirar(descriptor_.Valor(), datos) != 0) Fallar(ruta);
    if (!datos.EsRegular()) return;
    Bloquear(descriptor_.Valor(), ruta);
    if (llamadas::Truncar(descriptor_.Valor(), 0) != 0) Fallar(ruta);
}

void ReemplazarArchivo(const std::filesystem::path& nuevo, const std::filesystem::path& destino) {
    if (llamadas::Renombrar(nuevo, destino) != 0) Fallar(destino);
    LlevarDirectorioAlDisco(destino);
}

void LlevarDirectorioAlDisco(const std::filesystem::path& archivo) {
    const auto carpeta = archivo.has_parent_path() ? archivo.parent_path() : std::filesystem::path(".");
    const Descriptor descriptor(llamadas::Abrir(carpeta, modos::soloLeer | modos::directorio));
    if (descriptor.Abierto()) llamadas::LlevarAlDisco(descriptor.Valor());
}

}  // namespace qor
