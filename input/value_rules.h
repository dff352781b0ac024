#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "input/data_finding.h"
#include "input/kinds.h"
#include "input/value_checks.h"
#include "input/value_pattern.h"

namespace qor {

// The values of a list that a kind names, relative to the directory of its document: one a line, the blanks behind it left out, in
// windows-1252; the file is in that or in UTF-8, as input/encoding.h tells. Throws FalloDeArchivo, with the line of a character
// that windows-1252 lacks.
std::vector<std::string> LeerListaDeValores(const std::filesystem::path& directorio, const std::string& lista);

// The list of a field of `clases`, which has one. A failure tells where it is named.
std::vector<std::string> LeerListaDeCampo(const std::filesystem::path& directorio, const ClasesDeCampos& clases,
                                          const std::string& campo);

// A kind made ready for many values.
class ReglaDeValor {
public:
    // `lista` are the values of the kind's list. Throws FalloDeEjecucion for a pattern or form that is none.
    explicit ReglaDeValor(const ClaseDeCampo& clase, const std::vector<std::string>& lista = {});

    // The first thing that is wrong with a value as it stands in a line. A blank one can only be missing. Numbers and dates count
    // without the blanks around them, patterns and lists without those behind them.
    std::optional<HallazgoDeEntrada> Falta(std::string_view valor) const;

    // That in words.
    std::string Texto(HallazgoDeEntrada falta) const;

    const ClaseDeCampo& Clase() const { return clase_; }

private:
    struct Resumen {
        using is_transparent = void;
        std::size_t operator()(std::string_view texto) const { return std::hash<std::string_view>{}(texto); }
    };
    ClaseDeCampo clase_;
    std::optional<FormatoDeFecha> formato_;
    std::optional<PatronDeValor> patron_;
    std::unordered_set<std::string, Resumen, std::equal_to<>> lista_;
};

// The rules of all fields with kinds, by their names.
class ReglasDeValores {
public:
    ReglasDeValores() = default;
    // `directorio` is that of the document. Throws FalloDeArchivo for a list, and as ReglaDeValor.
    ReglasDeValores(const ClasesDeCampos& clases, const std::filesystem::path& directorio);

    // Null for a field without a kind. It lives as long as this, wherever this is moved.
    const ReglaDeValor* Buscar(std::string_view campo) const;

private:
    std::map<std::string, std::unique_ptr<const ReglaDeValor>, std::less<>> reglas_;
};

}  // namespace qor
