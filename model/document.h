#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "base/files.h"
#include "model/options.h"
#include "model/specification.h"
#include "model/undo.h"

namespace qor {

// The report that a run of the generator has put somewhere.
struct ReporteEscrito {
    std::filesystem::path ruta;
    IdentidadDeArchivo identidad;
};

// One open document: a specification with its options, where it is kept, and what was done to it since. Nothing of how it is seen.
struct Documento {
    Especificacion especificacion;
    Opciones opciones;

    std::filesystem::path ruta;  // absolute; empty for a document that was never saved
    ArchivoBloqueado canal;      // the open file, which is the lock
    // The file as it was when it was read or written last; nothing for a document that was never saved.
    std::optional<IdentidadDeArchivo> identidad;

    // The last one made of it; a run replaces it without a question as long as nobody else has touched it.
    std::optional<ReporteEscrito> reporte;

    PilaDeshacer deshacer;

    // Every change of the specification or an option by the user, an import or an insertion is told here.
    void Cambiar() { ++revision_; }
    void DarPorGuardado() { guardada_ = revision_; }
    // The specification differs from its file.
    bool HayCambios() const { return revision_ != guardada_; }
    // Raised by each change, never lowered.
    std::uint64_t Revision() const { return revision_; }

    // Pushes a step to undo, which is a change.
    void GuardarDeshacer(RegistroDeshacer registro);

    bool Bloqueado() const { return canal.Abierto(); }
    // There are declarations of the user's or of a BAPI.
    bool HayDefiniciones() const;

    // The path and its name part as texts of the model: what reports, prints and titles show. A character that the code page lacks
    // is "?".
    std::string RutaDocumento() const;
    std::string NombreDocumento() const;

private:
    std::uint64_t revision_ = 0;
    std::uint64_t guardada_ = 0;
};

}  // namespace qor
