#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "model/record_layout.h"

namespace qor {

// A field of a record, as it lies in a line.
struct CampoDeRegistro {
    int fila = 0;             // of the file side, from 0
    std::string nombre;       // cut
    std::size_t columna = 0;  // its first one, from 0, behind the id of the record
    std::size_t ancho = 0;    // 0 where the file side has none
    bool clave = false;       // tells to which main record a record of a step-loop belongs
    bool cambiante = false;   // the user's own conversions name it, and may give it another value before keys are compared
};

// One kind of records: the main record, or that of a step-loop.
struct ClaseDeRegistro {
    int grupo = 0;                        // 0 the main record, else the step-loop, from 1
    std::string identificador;            // what its lines begin with in the one file; empty in files of their own
    std::vector<CampoDeRegistro> campos;  // in the order of the line
    std::size_t largo = 0;                // of a whole line of fixed width, with the id

    // The place of the field of a row of the file side in `campos`; -1 where the record has it not.
    int BuscarFila(int fila) const;
};

// A file that the report reads.
struct ArchivoDeEntrada {
    std::string nombre;       // the name of its parameter: FILE, SLOOP_1, SLOOP_2 and so on
    std::vector<int> clases;  // of the records in it: places in DisenoDeEntrada::Clases
};

// How the input of a specification lies in its files.
class DisenoDeEntrada {
public:
    // Copies what it needs.
    DisenoDeEntrada(const Especificacion& especificacion, const Opciones& opciones);

    // The records come from files, not from tables or a source of the user's own. Without it there are no classes and no files.
    bool HayArchivo() const { return hayArchivo_; }
    // Tabs between the fields; else fixed width.
    bool PorTabuladores() const { return porTabuladores_; }
    bool ArchivoUnico() const { return archivoUnico_; }

    const std::vector<ClaseDeRegistro>& Clases() const { return clases_; }       // the main record first
    const std::vector<ArchivoDeEntrada>& Archivos() const { return archivos_; }  // that of the main record first

    // The class of the record that a line of a file is, a place in `Clases`; -1 where it is none. In the one file the report
    // compares an id with as many characters of the line, which has blanks behind its end.
    int ClaseDeLinea(int archivo, std::string_view linea) const;

private:
    bool hayArchivo_ = false;
    bool porTabuladores_ = false;
    bool archivoUnico_ = false;
    std::vector<ClaseDeRegistro> clases_;
    std::vector<ArchivoDeEntrada> archivos_;
};

}  // namespace qor
