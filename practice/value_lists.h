#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace qor {

// A hash that finds a std::string by a view.
struct HashDeTexto {
    using is_transparent = void;
    std::size_t operator()(std::string_view texto) const { return std::hash<std::string_view>{}(texto); }
};
using ConjuntoDeTextos = std::unordered_set<std::string, HashDeTexto, std::equal_to<>>;

// The values that a field may have, without the blanks behind them.
class ListaDeValores {
public:
    explicit ListaDeValores(ConjuntoDeTextos valores) : valores_(std::move(valores)) {}
    bool Tiene(std::string_view valor) const { return valores_.find(valor) != valores_.end(); }

private:
    ConjuntoDeTextos valores_;
};

// The value lists of a folder: text files named like a field (MARA-MTART.txt) or like what stands behind its last hyphen
// (MTART.txt), in any case, with one value a line in windows-1252. The folder is looked through once, and each file is read when it
// is first asked for.
class ListasDeValores {
public:
    using Avisar = std::function<void(const std::string& nombre, const std::string& motivo)>;

    // No folder, or one that isn't there, holds no list. `avisar` is told of a folder or a file that can't be read, once; such a
    // file checks nothing.
    ListasDeValores(std::filesystem::path carpeta, Avisar avisar);

    bool HayAlguna() const { return !archivos_.empty(); }

    // The list of a field; null where there is none. A row number in brackets behind the field is left out.
    const ListaDeValores* Buscar(std::string_view campo);
    // The list of a file that bears this very name.
    const ListaDeValores* BuscarPorNombre(std::string_view nombre);

private:
    struct Archivo {
        std::filesystem::path ruta;
        bool leido = false;
        std::unique_ptr<ListaDeValores> lista;
    };

    std::unordered_map<std::string, Archivo> archivos_;
    Avisar avisar_;
};

// The field without a row number in brackets behind it.
inline std::string_view SinNumeroDeFila(std::string_view campo) {
    if (campo.empty() || campo.back() != ')') return campo;
    const auto lugar = campo.rfind('(');
    return lugar == std::string_view::npos ? campo : campo.substr(0, lugar);
}

}  // namespace qor
