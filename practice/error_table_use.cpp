#include "practice/error_table_use.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "base/files.h"
#include "base/text.h"

namespace qor {

namespace {

bool EsDeNombre(char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '/'; }

// The report in upper case, without comments, as words; a character that belongs to no name is a word of its own.
std::vector<std::string> PalabrasDe(std::string_view reporte) {
    std::vector<std::string> palabras;
    for (const auto linea : PartirEnLineas(reporte)) {
        if (linea.starts_with('*')) continue;
        const std::string texto = Mayusculas(linea.substr(0, linea.find('"')));
        for (std::size_t i = 0; i < texto.size();) {
            const auto fin =
                std::find_if_not(texto.begin() + static_cast<std::ptrdiff_t>(i), texto.end(), EsDeNombre) - texto.begin();
            const auto largo = std::max<std::size_t>(1, static_cast<std::size_t>(fin) - i);
            if (texto[i] != ' ') palabras.push_back(texto.substr(i, largo));
            i += largo;
        }
    }
    return palabras;
}

// A table that TABLES declares and of which PROGID is used.
std::string TablaConProgid(const std::vector<std::string>& palabras) {
    const auto seUsa = [&palabras](const std::string& nombre) {
        for (std::size_t i = 2; i < palabras.size(); ++i) {
            if (palabras[i] == "PROGID" && palabras[i - 1] == "-" && palabras[i - 2] == nombre) return true;
        }
        return false;
    };
    for (std::size_t i = 0; i < palabras.size(); ++i) {
        if (palabras[i] != "TABLES" || (i > 0 && palabras[i - 1] != ".")) continue;
        for (++i; i < palabras.size() && palabras[i] != "."; ++i) {
            if (EsDeNombre(palabras[i].front()) && seUsa(palabras[i])) return palabras[i];
        }
    }
    return {};
}

std::uint32_t LargoDeLinea(const std::vector<std::string>& palabras) {
    for (std::size_t i = 1; i + 1 < palabras.size(); ++i) {
        if (palabras[i - 1] != "BEGIN" || palabras[i] != "OF" || !palabras[i + 1].ends_with("DATAERRORS")) continue;
        for (std::size_t k = i; k + 2 < palabras.size() && palabras[k] != "END"; ++k) {
            if (palabras[k] != "LINE" || palabras[k + 1] != "(") continue;
            std::uint32_t largo = 0;
            std::from_chars(palabras[k + 2].data(), palabras[k + 2].data() + palabras[k + 2].size(), largo);
            return largo;
        }
    }
    return 0;
}

}  // namespace

std::optional<UsoDeTablaDeErrores> BuscarTablaDeErrores(std::string_view reporte) {
    const auto palabras = PalabrasDe(reporte);
    UsoDeTablaDeErrores uso{TablaConProgid(palabras), LargoDeLinea(palabras)};
    if (uso.nombre.empty() || uso.largoDeLinea == 0) return std::nullopt;
    return uso;
}

}  // namespace qor
