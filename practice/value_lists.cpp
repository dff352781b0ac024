#include "practice/value_lists.h"

#include <system_error>

#include "base/failure.h"
#include "base/files.h"
#include "base/paths.h"
#include "base/text.h"
#include "practice/batch_rows.h"

namespace qor {

ListasDeValores::ListasDeValores(std::filesystem::path carpeta, Avisar avisar) : avisar_(std::move(avisar)) {
    if (carpeta.empty()) return;
    std::error_code error;
    std::filesystem::directory_iterator lugar(carpeta, error);
    if (error == std::errc::no_such_file_or_directory) return;
    for (; !error && lugar != std::filesystem::directory_iterator(); lugar.increment(error)) {
        const auto& ruta = lugar->path();
        const std::string nombre = Mayusculas(TextoDeRuta(ruta.filename()));
        if (!nombre.ends_with(".TXT")) continue;
        // Of two names that differ in their case alone the smaller one counts, whatever the order of the folder.
        auto& archivo = archivos_[nombre.substr(0, nombre.size() - 4)];
        if (archivo.ruta.empty() || ruta < archivo.ruta) archivo.ruta = ruta;
    }
    if (error) avisar_(TextoDeRuta(carpeta), error.message());
}

const ListaDeValores* ListasDeValores::Buscar(std::string_view campo) {
    if (archivos_.empty()) return nullptr;
    const auto nombre = SinNumeroDeFila(campo);
    if (const auto* lista = BuscarPorNombre(nombre)) return lista;
    const auto guion = nombre.rfind('-');
    return guion == std::string_view::npos ? nullptr : BuscarPorNombre(nombre.substr(guion + 1));
}

const ListaDeValores* ListasDeValores::BuscarPorNombre(std::string_view nombre) {
    const auto lugar = archivos_.find(Mayusculas(nombre));
    if (lugar == archivos_.end()) return nullptr;
    auto& archivo = lugar->second;
    if (archivo.leido) return archivo.lista.get();
    archivo.leido = true;
    try {
        const std::string texto = LeerArchivo(archivo.ruta, limiteDeCatalogo);
        ConjuntoDeTextos valores;
        for (const auto linea : PartirEnLineas(texto)) valores.emplace(SinBlancosDetras(linea));
        archivo.lista = std::make_unique<ListaDeValores>(std::move(valores));
    } catch (const FalloDeArchivo& fallo) {
        avisar_(TextoDeRuta(archivo.ruta), fallo.what());
    }
    return archivo.lista.get();
}

}  // namespace qor
