#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/place.h"

namespace qor {

// A name that a template may hold in braces, and its value.
struct ValorDePlantilla {
    std::string_view nombre;
    std::string valor;
};

using ValoresDePlantilla = std::initializer_list<ValorDePlantilla>;

// Where the lines of a text come from: from each of these lines on, up to the next one.
struct TramoDeOrigen {
    int primeraLinea;  // from 0
    Lugar lugar;
};

// Whole lines with their origins, which become part of a report later.
struct LineasConOrigen {
    std::string texto;
    std::vector<TramoDeOrigen> origenes = {};

    // Lines end with CR LF.
    void Agregar(const Lugar& lugar, std::string_view lineas);

private:
    int lineas_ = 0;
};

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

    // All that is written from here on comes from there.
    void Desde(const Lugar& lugar) { lugar_ = lugar; }
    const Lugar& LugarActual() const { return lugar_; }

    // Straight into the report.
    void Lineas(std::string_view plantilla, ValoresDePlantilla valores = {});
    void Linea(std::string_view plantilla, ValoresDePlantilla valores = {});
    void LineaVacia();
    // The user's own text, which is no template.
    void LineaDelUsuario(std::string_view linea);
    void Agregar(const LineasConOrigen& lineas);

    // Into the buffer of chained lines, whose endings depend on the line behind them. A "|" at a line's end says that it gets none.
    // Throws FalloDeEjecucion for more than 5000 lines.
    void MPrint(std::string_view plantilla, ValoresDePlantilla valores = {});
    void MPrintLineas(std::string_view plantilla, ValoresDePlantilla valores = {});
    void MPrintDelUsuario(std::string linea);
    // Writes the buffer out, folded to 71 columns, each chained line with its "," or ".".
    void ImprimirMemoria();
    // Forgets the buffer.
    void OlvidarMemoria() { memoriaLineas_.clear(); }

    std::string Rellenar(std::string_view plantilla, ValoresDePlantilla valores = {}) const;

    const std::string& Texto() const { return texto_; }
    // Leaves no text behind.
    std::string TomarTexto() { return std::move(texto_); }
    // Where each line of it comes from. A line ends at its line feed.
    const std::vector<TramoDeOrigen>& Origenes() const { return origenes_; }

private:
    std::string_view ValorDe(std::string_view nombre, ValoresDePlantilla valores) const;

    std::vector<std::pair<std::string, std::string>> nombres_;
    struct LineaEnMemoria {
        std::string texto;
        Lugar lugar;
    };

    void AnotarLineas(const Lugar& lugar, int cantidad);

    std::vector<LineaEnMemoria> memoriaLineas_;
    std::string texto_;
    std::vector<TramoDeOrigen> origenes_;
    int lineas_ = 0;
    Lugar lugar_;
};

}  // namespace qor
