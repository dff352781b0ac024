#pragma once

#include <filesystem>

namespace qor {

// A directory for files of a moment, which no other user can enter. It goes with this object, and what lies in it too.
class DirectorioPrivado {
public:
    // Throws FalloDeEjecucion where none can be made.
    DirectorioPrivado();
    ~DirectorioPrivado();
    DirectorioPrivado(const DirectorioPrivado&) = delete;
    DirectorioPrivado& operator=(const DirectorioPrivado&) = delete;

    const std::filesystem::path& Ruta() const { return ruta_; }

private:
    std::filesystem::path ruta_;
};

}  // namespace qor
