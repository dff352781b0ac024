#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "input/data_finding.h"
#include "input/kinds.h"
#include "input/value_checks.h"
#include "input/value_pattern.h"

namespace qor {

// The text of a list of values that a kind names, relative to the directory of its document. Throws FalloDeArchivo.
std::string LeerListaDeValores(const std::filesystem::path& directorio, const std::string& lista);

// A kind made ready for many values.
class ReglaDeValor {
public:
    // Lists are relative to the directory: one value a line, in windows-1252, the blanks behind it left out. Throws FalloDeArchivo
    // for a list that can't be read, FalloDeEjecucion for a pattern or form that is none.
    ReglaDeValor(const ClaseDeCampo& clase, const std::filesystem::path& directorio);

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
    // As ReglaDeValor; `directorio` is that of the document.
    ReglasDeValores(const ClasesDeCampos& clases, const std::filesystem::path& directorio);

    // Null for a field without a kind. It lives as long as this, wherever this is moved.
    const ReglaDeValor* Buscar(std::string_view campo) const;

private:
    std::map<std::string, std::unique_ptr<const ReglaDeValor>, std::less<>> reglas_;
};

}  // namespace qor
