#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

#include "base/files.h"
#include "input/check_line.h"
#include "input/check_relation.h"
#include "input/data_finding.h"
#include "input/line_reader.h"

// Checks of whole input files, in one pass over each, in memory that grows with nothing but the number of keys. How a line is read
// tells input/check_line.h, how records belong together input/check_relation.h, in what a file is written input/encoding.h.
//
// - A byte order mark, UTF-8 and a change of line ends are told once for a file, at the first line that shows them. A file in UTF-8
//   is read on as the characters that it means, without the mark, so that nothing else follows from it: columns count characters.
// - In a file that is windows-1252 otherwise, a line is a hint whose characters outside ASCII would be UTF-8, all of them.
// - A file in UTF-16 is not read beyond its mark. What needs all records is not told then.
// - With fewer files than the layout has, the first ones are checked, and against one another what they hold.
namespace qor {

// A line as it was read.
struct LineaRevisada {
    int archivo = 0;                                        // place in the layout's files
    std::uint64_t numero = 0;                               // from 1
    int clase = -1;                                         // of its record: place in the layout's classes; -1 for none
    std::string_view texto;                                 // in windows-1252, without its end
    LineaLeida leida;                                       // its bytes and place in the file
    bool enUtf8 = false;                                    // has characters outside ASCII, in a file in UTF-8
    bool mala = false;                                      // has an error of its own, or is read wrong for the file's encoding
    std::uint32_t unidad = RelacionDeRegistros::sinUnidad;  // as RelacionDeRegistros::Tomar answers it
};

// Gets what a check finds. Each answer of false ends it.
class OyenteDeRevision {
public:
    virtual ~OyenteDeRevision() = default;
    virtual bool Hallado(const HallazgoDeDatos& hallazgo) = 0;
    // Each line behind its findings, blank ones of the one file too.
    virtual bool Leida(const LineaRevisada&) { return true; }
    // Now and then, and at the end of each file.
    virtual bool Avanzo(int /*archivo*/, std::uint64_t /*leidos*/, std::uint64_t /*tamano*/) { return true; }
};

class RevisionDeArchivos {
public:
    // The rules have to live as long as this. At most as many files as the layout has.
    RevisionDeArchivos(const DisenoDeEntrada& diseno, const ReglasDeValores& reglas,
                       const std::vector<std::filesystem::path>& archivos);
    RevisionDeArchivos(const RevisionDeArchivos&) = delete;
    RevisionDeArchivos& operator=(const RevisionDeArchivos&) = delete;

    // Once. False where the listener ended it. Throws FalloDeArchivo.
    bool Correr(OyenteDeRevision& oyente);

    struct DeArchivo {
        ArchivoAbierto archivo;
        bool leido = false;           // to its end
        std::uint64_t registros = 0;  // lines that are records
    };
    const std::vector<DeArchivo>& Archivos() const { return archivos_; }
    const RelacionDeRegistros& Relacion() const { return relacion_; }

private:
    class Pasada;

    RevisorDeLineas revisor_;
    RelacionDeRegistros relacion_;
    std::vector<DeArchivo> archivos_;
};

}  // namespace qor
