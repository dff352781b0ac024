#pragma once

#include <cstring>
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

// A failed operation on a file. `what()` has the reason alone, mostly in the system's own words.
class FalloDeArchivo : public FalloDeEjecucion {
public:
    FalloDeArchivo(const std::string& motivo, std::filesystem::path ruta) : FalloDeEjecucion(motivo), ruta_(std::move(ruta)) {}
    // The reason that an error number stands for.
    FalloDeArchivo(int error, std::filesystem::path ruta) : FalloDeArchivo(std::strerror(error), std::move(ruta)) {}

    // The reason and the file's name, such as "No space left on device: /home/x/a.qor"; UTF-8, the name in the bytes that it has.
    std::string Detalle() const { return std::string(what()) + ": " + ruta_.string(); }

private:
    std::filesystem::path ruta_;
};

}  // namespace qor
