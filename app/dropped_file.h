#pragma once

#include <cstdint>
#include <filesystem>

namespace qor {

// What a file is that is dropped onto the main form.
enum class ClaseDeArchivo : std::uint8_t {
    Documento,      // its name ends in ".qor", in whatever case
    Grabacion,      // a recording or a batch-input session, which sap/import.h reads
    ArchivoDeDatos  // anything else: an input file
};

// A file is a recording where the beginning of it has a line of one; a file that can't be read is none. Nothing but the name and
// the first 64 KB is looked at, so that a file of any size is told at once.
ClaseDeArchivo ClaseDe(const std::filesystem::path& archivo);

}  // namespace qor
