#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/row_places.h"
#include "editor/window.h"
#include "findings/finding.h"

// The desktop's pane of findings, without its screen: when a specification is analysed anew, whether the pane is seen, and where a
// finding leads.
namespace qor {

// ---- Where a finding leads ----

struct Destino {
    enum class Clase {
        Nada,
        Celda,         // of a grid
        Nota,          // the dialog of a row's note; the cell with the row's field has the focus before and after
        Conversion,    // the dialog of the conversion code of a file row; the same
        Condiciones,   // the dialog of the conditions, at one of them
        Definiciones,  // the dialog of the definitions, at an entry of its list
        Origen,        // the dialog of the data source, at the text box `control`
        Control        // of the main form
    };
    Clase clase = Clase::Nada;
    Columna columna = Columna::CampoDeArchivo;  // of the cell
    int fila = -1;                              // of the table; of a dialog, the entry of its list
    std::string control;
    int linea = 0;  // of the text, from 1; 0 for none

    bool operator==(const Destino&) const = default;

    // The row of a grid that shows the place.
    bool EnRejilla() const { return clase == Clase::Celda || clase == Clase::Nota || clase == Clase::Conversion; }
};

// A note that no dialog can show, because its row has no field, heads the table or has marks that can't be read, leads to the cell.
Destino DestinoDe(const Lugar& lugar, const Especificacion& especificacion, const Opciones& opciones);

// ---- The findings of rows ----

struct SignoDeFila {
    Gravedad gravedad = Gravedad::Nota;  // the worst of the row
    std::string texto;                   // the sentences, one a line, in windows-1252
    bool operator==(const SignoDeFila&) const = default;
};

using SignosDeFilas = std::map<int, SignoDeFila>;

SignosDeFilas SignosDe(const std::vector<Hallazgo>& lista, Tabla tabla, const Especificacion& especificacion,
                       const Opciones& opciones);

// How a run of Generate ended.
struct FinDeGeneracion {
    bool escrito = false;
    bool rechazado = false;  // by the specification, and not by the user's no to a question
    int mensaje = 0;         // number of the message that said so; 0 for one without
};

// What is analysed. While a system is connected, a report goes into a file of its own and needs no name of one.
struct MateriaDeHallazgos {
    const Documento& documento;
    const Preferencias& preferencias;
    const TextosIdioma& textos;
    bool conectado = false;
};

class VigiaDeHallazgos {
public:
    // ---- The user's choice ----

    // Following was switched on or off; off, there is nothing to see.
    void Encender(bool encendido);
    // Opens the pane for the time being, where it was switched off: until it is closed, or has nothing to show.
    void Llamar() { llamado_ = true; }
    // The pane is wanted: it was switched on or opened.
    bool Pedido() const { return encendido_ || llamado_; }
    // The pane is seen.
    bool Visible() const { return Pedido() && !hallazgos_.lista.empty(); }

    // ---- Following ----

    // Told behind everything that may have changed the document. The milliseconds behind which to look, when an analysis would read
    // something else than it did when this was told last: half a second after an edit, at once for another document.
    std::optional<int> PausaHastaMirar(const MateriaDeHallazgos& materia);
    // Analyses the document. A specification without any row has no findings. Without the pane nothing is analysed, and there are
    // none.
    void Mirar(const MateriaDeHallazgos& materia);

    const std::vector<Hallazgo>& Lista() const { return hallazgos_.lista; }
    bool Completo() const { return hallazgos_.completo; }
    // Why the last analysis came to nothing; empty when it didn't.
    const std::string& Fallo() const { return fallo_; }

    // The finding in front of or behind another one, all around; -1 when there are none. None is -1.
    int Vecino(int actual, int paso) const;

    // ---- Generate ----

    // Looks at once behind a run. Findings that it was refused for, or errors that its report has, open the pane where it was
    // switched off. Answers the finding to select, the one that the run was refused for, or else the first error; -1 for none.
    int TrasGenerar(const FinDeGeneracion& fin, const MateriaDeHallazgos& materia);

private:
    struct Leido {
        std::uint64_t revision = 0;
        std::filesystem::path ruta;
        std::optional<IdentidadDeArchivo> identidad;
        Preferencias preferencias;
        std::string idioma;
        bool conectado = false;
        bool operator==(const Leido&) const = default;
    };

    Hallazgos Analizados(const MateriaDeHallazgos& materia);

    bool encendido_ = true;
    bool llamado_ = false;
    std::optional<Leido> leido_;
    Hallazgos hallazgos_;
    std::string fallo_;
};

// The number of errors that a report made of the document has.
int ContarErrores(const MateriaDeHallazgos& materia);

}  // namespace qor
