#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "base/files.h"

namespace qor {

// A file that takes its place whole or not at all: every file that this system writes over another one.
//
// The text is collected in a work file beside the destination, which takes its name in one atomic step. Until then the destination
// stays as it was, whatever fails and whenever the process ends; the work file goes with this object. Where the file system has
// files without a name, the work file has none up to the last moment; else, and at that moment, it is made exclusively: under the
// told name, which is the destination with another extension, or under a free one.
//
// - Symbolic links at the destination are followed and stay. One that leads nowhere gets its file.
// - A destination that can't be written to, or that another opening of this system holds locked, is a failure.
// - The new file gets owner, group and permissions of the old one, but no set-id bits. An owner that can't be given is passed over;
//   where the group can't be given either, it gets no more rights than all others have. A file without a predecessor gets the
//   permissions that the process gives to new files.
// - What is no regular file (a pipe, a device, a file of this process under /proc) is written to where it stands.
//
// Whatever fails throws FalloDeArchivo with the name of the destination.
class ArchivoNuevo {
public:
    // `extension` ends the told name of the work file. `propio` is the caller's own lock on a file, which is no hindrance; it has
    // to live as long as this. Only looks and makes the work file; nothing is seen at the destination.
    explicit ArchivoNuevo(const std::filesystem::path& destino, std::string_view extension = ".TMP",
                          const ArchivoAbierto* propio = nullptr);
    ~ArchivoNuevo();
    ArchivoNuevo(const ArchivoNuevo&) = delete;
    ArchivoNuevo& operator=(const ArchivoNuevo&) = delete;

    // Texts are gathered and written in large blocks. After a failed write nothing can be put in its place any more.
    void Escribir(std::string_view texto);

    // Brings what was written so far to the disk: whatever is in the way of the new file shows here.
    void LlevarAlDisco();

    // Brings the text to the disk and puts it in its place; the last thing to do with this object. With `esperada` the destination
    // must still be that file in that state, else it is a failure. The answer holds the new file locked, without a moment between;
    // it is not open where no regular file was written.
    ArchivoBloqueado PonerEnSuLugar(const std::optional<IdentidadDeArchivo>& esperada = std::nullopt);

    // The same for what came out until an action failed, whose failure is the one to tell: no other one is thrown.
    void PonerLoHecho();

    // Of the new file, once it is in its place.
    const IdentidadDeArchivo& Identidad() const { return identidad_; }

private:
    void AbrirDirecto(bool regular);
    void AbrirTrabajo();
    bool AbrirSinNombre();
    template <typename Hacer>
    void DarNombreDeTrabajo(Hacer hacer);
    std::filesystem::path NombreDeTrabajo(int intento) const;
    void TomarDestino();
    void Vaciar();
    void DarAtributos();
    void Colocar();
    [[noreturn]] void Fallar(int error) const;

    std::filesystem::path destino_;
    std::filesystem::path objetivo_;  // where the links lead
    std::string extension_;
    const ArchivoAbierto* propio_;
    IdentidadDeArchivo identidad_;
    bool directo_ = false;
    bool hayDestino_ = false;
    std::optional<EstadoDeArchivo> anterior_;  // the old file, as last seen
    Descriptor bloqueo_;                       // of the old file
    Descriptor descriptor_;                    // of the new file
    std::filesystem::path trabajo_;            // empty while the work file has no name
    std::string pendiente_;
    bool incompleto_ = false;  // a write has failed
};

// Makes a directory where it is missing, with those above it. Throws FalloDeArchivo.
void CrearDirectorio(const std::filesystem::path& directorio);

// A text as the whole content of a file.
void GuardarArchivo(const std::filesystem::path& destino, std::string_view texto, std::string_view extension = ".TMP");

// Whether what is written to one path would take the place of what the other one leads to, or would lead to: links of both kinds
// are followed, and a file need not be there yet. A device takes in anything and is nobody's place. Throws FalloDeArchivo.
bool EsElMismoLugar(const std::filesystem::path& uno, const std::filesystem::path& otro);

}  // namespace qor
