#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/files.h"
#include "model/document.h"

// Copies of unsaved work, for the case that the program is killed or the power fails. A running program keeps one file in a
// directory of their own, locked as long as it runs; a copy that nobody holds was left behind, and the next start offers it. A copy
// never takes the place of the document.
//
// The file: "QORWORK 1"; the document's path, with "%" in front of the two hexadecimal digits of a line break or "%"; device,
// inode, size and time of the document's file when it was read (nothing for a document that was never saved); then the document
// with all its rows. Lines end with CR LF.
namespace qor {

// A copy that was left behind.
struct CopiaDeTrabajo {
    ArchivoBloqueado archivo;  // held, so that no other program takes it
    Documento documento;       // path and identity of its file; not locked, and with changes
    std::string cuando;        // date and time of the copy
};

class CopiasDeTrabajo {
public:
    // The directory is made, for its owner alone, when the first copy is written.
    explicit CopiasDeTrabajo(std::filesystem::path directorio) : directorio_(std::move(directorio)) {}

    // The copies left behind by programs that are gone, the newest first. What can't be read as a copy is passed over and stays.
    std::vector<CopiaDeTrabajo> Abandonadas() const;

    // Brings the own copy up to date: writes it where the document has changed since the last one, removes it where nothing is
    // unsaved. Throws FalloDeArchivo when it can't be written; the one before then stays.
    void Actualizar(const Documento& documento);

    // Removes the own copy where nothing is unsaved any more. Never throws.
    void QuitarSiGuardado(const Documento& documento);

    // Makes a copy that was left behind the own one, so that restored work is still safe. `documento` is the restored one.
    void Adoptar(CopiaDeTrabajo& copia, const Documento& documento);

    // Deletes a copy, the own one or one that was left behind. Never throws.
    void Quitar();
    static void Descartar(CopiaDeTrabajo& copia);

private:
    std::filesystem::path directorio_;
    ArchivoBloqueado propia_;
    std::uint64_t revision_ = 0;  // of the document in the own copy
};

}  // namespace qor
