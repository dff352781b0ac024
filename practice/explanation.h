#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/phrase.h"
#include "model/input_place.h"
#include "model/naming.h"
#include "model/options.h"
#include "model/place.h"
#include "model/record_layout.h"
#include "model/specification.h"
#include "practice/failures.h"
#include "practice/record_lines.h"

namespace qor {

// What a user asks about a failure: which value it was, where that came from, and what is to be done. Answered from the
// specification that the report was generated from. Lines are windows-1252.
class Explicaciones {
public:
    // Without a specification only the value itself is known. What it is given has to live as long as it. `valores`: the folder of
    // the value lists, as the user knows it.
    Explicaciones(const Especificacion* especificacion, const Opciones* opciones, std::string valores);
    Explicaciones(const Explicaciones&) = delete;
    Explicaciones& operator=(const Explicaciones&) = delete;

    // The records are those of an earlier run, read back from the error table.
    void EsRepeticion(bool repeticion) { repeticion_ = repeticion; }
    void PonerArchivos(ArchivoDeGrupo archivo);

    // Value and origin, and what is to be done.
    std::vector<Frase> De(const FalloDeRegistro& fallo);

    // The cell of the program side whose value or screen failed; Parte::Ninguna where that is not known.
    Lugar CeldaDe(const FalloDeRegistro& fallo) const;

    // Where in the input files that value stands; nothing where it comes from none of them, or the line was not found.
    std::optional<LugarDeEntrada> EntradaDe(const FalloDeRegistro& fallo);

    // What the report reads a group's records from; 0 is the main record. Empty where it reads no file.
    std::string VariableDeArchivo(int grupo, const ConvencionesDeNombres& nombres) const;

private:
    // Where a value is sent from: a row of the program side.
    struct Procedencia {
        int fila = -1;
        int campoDeArchivo = -1;  // row of the file side that its value cell names
        int grupo = 0;
    };

    std::optional<Procedencia> Buscar(const FalloDeRegistro& fallo) const;
    int BuscarFila(const FalloDeRegistro& fallo) const;
    Frase DeDondeViene(const FalloDeRegistro& fallo, const Procedencia& procedencia);
    Frase LugarEnArchivo(const FalloDeRegistro& fallo, const Procedencia& procedencia);
    Frase QueHacer(const FalloDeRegistro& fallo, const std::optional<Procedencia>& procedencia) const;

    const Especificacion* especificacion_;
    const Opciones* opciones_;
    std::string valores_;
    std::optional<DisenoDeRegistros> diseno_;
    std::optional<LineasDeRegistros> lineas_;
    bool repeticion_ = false;
};

}  // namespace qor
