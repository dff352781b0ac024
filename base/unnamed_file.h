#pragma once

#include <filesystem>

#include "base/file_calls.h"

namespace qor {

// A file without a name in a directory, for this user alone; what is in it goes with the object. Where the system has no such
// files, it has a name that nobody looks for. Whatever fails throws FalloDeArchivo with the name of the directory.
class ArchivoSinNombre {
public:
    explicit ArchivoSinNombre(const std::filesystem::path& carpeta);
    ~ArchivoSinNombre();
    ArchivoSinNombre(const ArchivoSinNombre&) = delete;
    ArchivoSinNombre& operator=(const ArchivoSinNombre&) = delete;

    int Numero() const { return descriptor_.Valor(); }

    // A path to it for what opens files on its own, valid in this process as long as this lives.
    std::filesystem::path Ruta() const;

    // Lets a library make the file anew under that path; until it is taken back, nothing else can be done with it.
    std::filesystem::path Prestar();
    void Retomar();

private:
    std::filesystem::path carpeta_;
    std::filesystem::path ruta_;  // where the system has no files without a name
    Descriptor descriptor_;
};

}  // namespace qor
