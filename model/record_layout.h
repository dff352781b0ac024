#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "model/operations.h"
#include "model/options.h"
#include "model/specification.h"

namespace qor {

// A line of the one file begins with an id. The report compares as many characters as the id has; blanks stand behind the end of a
// line, and blanks at the end of the id don't count.
bool TieneIdentificador(std::string_view linea, std::string_view identificador);

// How the records of a specification lie in the lines of their files. Groups are those of the step-loops; 0 is the main record.
class DisenoDeRegistros {
public:
    // What it is given has to live as long as it.
    DisenoDeRegistros(const Especificacion& especificacion, const Opciones& opciones);

    const Operaciones& LasOperaciones() const { return operaciones_; }
    bool HayArchivo() const;  // the records come from files, not from tables or the user's own source
    bool ArchivoUnico() const { return archivoUnico_; }
    bool PorTabuladores() const { return opciones_.DelimTab() && opciones_.ClienteOp; }
    // What the lines of a group begin with in the one file.
    std::string_view Identificador(int grupo) const;

    // Where a field stands: its first column from 0, its width, and its number from 1.
    struct Sitio {
        std::size_t columna = 0;
        std::size_t ancho = 0;
        std::size_t numero = 1;
    };
    Sitio SitioDe(int filaDeArchivo, int grupo) const;
    // What a line has there, without the blanks around it.
    std::string_view ValorEn(std::string_view linea, int filaDeArchivo, int grupo) const;
    // The rows of the file side that tell to which main record a line of the group belongs.
    std::vector<int> Claves(int grupo) const;

    // Whether the field of a row of the file side is part of a group's records, and whether it is a key of them.
    bool Pertenece(int filaDeArchivo, int grupo) const;
    bool EsClave(int filaDeArchivo, int grupo) const;

private:
    const Especificacion& especificacion_;
    const Opciones& opciones_;
    Operaciones operaciones_;
    bool archivoUnico_;
};

}  // namespace qor
