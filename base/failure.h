#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

namespace qor {

// A failure while an action runs: a substring of negative length, a full table, a file that can't be read. The action's
// failure trap turns it into the message that belongs to the action; `what()` says plainly what was wrong.
class FalloDeEjecucion : public std::runtime_error {
public:
    explicit FalloDeEjecucion(const std::string& motivo) : std::runtime_error(motivo) {}
};

// What stood in the way of an operation on a file, where a person can be told in words.
enum class CausaDeFallo { Otra, Falta, EnUso, SinPermiso, SoloLectura, SinLugar, NoEsArchivo, Cambiado, Danado };

// The cause that an error number of the system stands for.
CausaDeFallo CausaDe(int error);

// A failed operation on a file. `what()` has the reason alone, mostly in the system's own words.
class FalloDeArchivo : public FalloDeEjecucion {
public:
    FalloDeArchivo(const std::string& motivo, std::filesystem::path ruta, CausaDeFallo causa = CausaDeFallo::Otra);
    // The reason that an error number stands for.
    FalloDeArchivo(int error, std::filesystem::path ruta);
    // EnUso, Cambiado or NoEsArchivo, which no error number tells.
    FalloDeArchivo(CausaDeFallo causa, std::filesystem::path ruta);

    // The reason and the file's name, such as "No space left on device: /home/x/a.qor"; UTF-8, the name in the bytes that it has.
    std::string Detalle() const;

    CausaDeFallo Causa() const { return causa_; }
    const std::filesystem::path& Ruta() const { return ruta_; }

private:
    std::filesystem::path ruta_;
    CausaDeFallo causa_;
};

}  // namespace qor
