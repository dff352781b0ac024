#pragma once

#include <cstdint>
#include <pugixml.hpp>
#include <string>
#include <string_view>

#include "input/sheet_work_file.h"

namespace qor {

// The name of an element without its prefix.
std::string_view NombreLocal(const pugi::xml_node& nodo);

class ParteXlsx;

// The text of a string item, shared or in a cell: that of its runs, without what only tells how it is read aloud. UTF-8; control
// characters that are written as "_x000A_" are themselves again.
std::string TextoDeElemento(const pugi::xml_node& elemento);

// The same of a text that stands alone.
void AgregarTextoDeCelda(std::string& utf8, std::string_view escrito);

// The strings that the cells of a workbook share. They lie in work files, however many they are.
class TextosCompartidos {
public:
    explicit TextosCompartidos(ParteXlsx& parte);

    // False for a string that isn't there.
    bool Texto(std::uint64_t numero, std::string& utf8);

private:
    void Guardar(ParteXlsx& parte);

    ArchivoDeTrabajo textos_;
    ArchivoDeTrabajo finales_;  // for each string the place behind its text
    std::uint64_t cuantos_ = 0;
    PaginasDeTrabajo paginasDeTextos_;
    PaginasDeTrabajo paginasDeFinales_;
};

}  // namespace qor
