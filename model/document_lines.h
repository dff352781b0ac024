#pragma once

#include <array>
#include <map>
#include <vector>

#include "model/place.h"

namespace qor {

// At which line of a document's file its contents stand. The reader of the document tells it, record by record, so that both have
// the same idea of what is a row.
class LineasDeDocumento {
public:
    // The line at which each field of a record begins, from 1. The first field is the tag.
    using Registro = std::array<int, 10>;
    void Anotar(int etiqueta, const Registro& comienzos);

    // The line, from 1, at which the cell, the option or the text begins; inside a text of several lines that of its own line. 1
    // for what has no place in the file: the specification as a whole, settings, and rows or records that are not there.
    int LineaDe(const Lugar& lugar) const;

private:
    std::map<int, std::vector<Registro>> registros_;  // by tag; of a tag that is no table's only the last record, which counts
};

}  // namespace qor
