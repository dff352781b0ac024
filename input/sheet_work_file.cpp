#include "input/sheet_work_file.h"

#include <algorithm>
#include <cerrno>

#include "base/failure.h"
#include "base/files.h"

namespace qor {

namespace {

constexpr std::size_t bloque = std::size_t{1} << 18;
constexpr std::size_t largoDePagina = std::size_t{1} << 12;

}  // namespace

ArchivoDeTrabajo::ArchivoDeTrabajo() : directorio_(std::filesystem::temp_directory_path()), archivo_(directorio_) {}

void ArchivoDeTrabajo::Agregar(std::string_view texto) {
    pendiente_.append(texto);
    if (pendiente_.size() >= bloque) Vaciar();
}

void ArchivoDeTrabajo::Vaciar() {
    EscribirEn(archivo_.Numero(), pendiente_, directorio_);
    escritos_ += pendiente_.size();
    pendiente_.clear();
}

std::size_t ArchivoDeTrabajo::LeerEn(char* donde, std::size_t cuanto, std::uint64_t lugar) {
    if (!pendiente_.empty()) Vaciar();
    std::size_t leidos = 0;
    while (leidos < cuanto) {
        const auto n =
            llamadas::LeerEn(archivo_.Numero(), donde + leidos, cuanto - leidos, static_cast<std::int64_t>(lugar + leidos));
        if (n < 0) throw FalloDeArchivo(errno, directorio_);
        if (n == 0) break;
        leidos += static_cast<std::size_t>(n);
    }
    return leidos;
}

void PaginasDeTrabajo::Leer(std::uint64_t lugar, std::size_t largo, std::string& texto) {
    while (largo > 0) {
        const auto& bytes = Tomar(lugar / largoDePagina);
        const auto desde = static_cast<std::size_t>(lugar % largoDePagina);
        if (desde >= bytes.size()) return;
        const auto cuantos = std::min(largo, bytes.size() - desde);
        texto.append(bytes, desde, cuantos);
        lugar += cuantos;
        largo -= cuantos;
    }
}

const std::string& PaginasDeTrabajo::Tomar(std::uint64_t numero) {
    auto& pagina = paginas_[numero % paginas_.size()];
    if (pagina.numero != numero) {
        pagina.numero = UINT64_MAX;
        pagina.bytes.resize(largoDePagina);
        pagina.bytes.resize(archivo_.LeerEn(pagina.bytes.data(), largoDePagina, numero * largoDePagina));
        pagina.numero = numero;
    }
    return pagina.bytes;
}

}  // namespace qor
