#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qor {

// A name that a template may hold in braces, and its value.
struct ValorDePlantilla {
    std::string_view nombre;
    std::string valor;
};

using ValoresDePlantilla = std::initializer_list<ValorDePlantilla>;

// The text of the report under construction.
//
// Templates are ABAP as it shall come out, with names in braces: {GT}ITAB. Only the template is searched for names; a value that is
// put in is never scanned again. {_} is one blank, for blanks at a line's end, and {RULE} the comment rule. A name that nobody
// defined is a programming fault (std::logic_error).
//
// A template of several lines is a raw string that begins and ends with a line break; these two do not count:
//     reporte.Lineas(R"(
//   LOOP AT {GT}ITAB.
//   ENDLOOP.
// )");
class Reporte {
public:
    // Defines a name for all templates that follow.
    void Definir(std::string_view nombre, std::string_view valor);

    // Straight into the report.
    void Lineas(std::string_view plantilla, ValoresDePlantilla valores = {});
    void Linea(std::string_view plantilla, ValoresDePlantilla valores = {});
    void LineaVacia();
    // The user's own text, which is no template.
    void LineaDelUsuario(std::string_view linea);
    // A text of whole lines.
    void Agregar(std::string_view texto) { texto_.append(texto); }

    // Into the buffer of chained lines, whose endings depend on the line behind them. A "|" at a line's end says that it gets none.
    // Throws FalloDeEjecucion for more than 5000 lines.
    void MPrint(std::string_view plantilla, ValoresDePlantilla valores = {});
    void MPrintLineas(std::string_view plantilla, ValoresDePlantilla valores = {});
    void MPrintDelUsuario(std::string linea);
    // Writes the buffer out, folded to 71 columns, each chained line with its "," or ".".
    void ImprimirMemoria();

    std::string Rellenar(std::string_view plantilla, ValoresDePlantilla valores = {}) const;

    const std::string& Texto() const { return texto_; }

private:
    std::string_view ValorDe(std::string_view nombre, ValoresDePlantilla valores) const;

    std::vector<std::pair<std::string, std::string>> nombres_;
    std::vector<std::string> memoriaLineas_;
    std::string texto_;
};

}  // namespace qor
