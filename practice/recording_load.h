#pragma once

#include <filesystem>
#include <string>

#include "base/failure.h"
#include "practice/database.h"

namespace qor {

// A file that holds a recording to keep.
struct GrabacionDeArchivo {
    std::string nombre;  // of the file, windows-1252
    std::string texto;   // as it was recorded
    int transacciones;
};

// A file that could be read, but can't be kept as a recording. Behind `Que`, in English, `Detalle` has the reason and the file.
class FalloDeGrabacion : public FalloDeArchivo {
public:
    FalloDeGrabacion(const char* que, int palabra, const std::string& motivo, const std::filesystem::path& ruta)
        : FalloDeArchivo(motivo, ruta, CausaDeFallo::Danado), que_(que), palabra_(palabra) {}
    const char* Que() const { return que_; }
    int Palabra() const { return palabra_; }  // the same as a word of the language file

private:
    const char* que_;
    int palabra_;
};

// Reads the program made of a recording, or a file of session records. Throws FalloDeGrabacion where it is none of them, and
// FalloDeArchivo where it can't be read.
GrabacionDeArchivo LeerGrabacionDeArchivo(const std::filesystem::path& archivo);

// Keeps it in a practice system, in the place of one of the same name; a unit of work of its own.
void GuardarGrabacion(BaseDePractica& base, const GrabacionDeArchivo& grabacion);

}  // namespace qor
