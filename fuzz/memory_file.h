#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "fuzz/require.h"

namespace qor {

// A file that is in memory alone, for readers that take a path.
class ArchivoEnMemoria {
public:
    ArchivoEnMemoria() : descriptor_(::memfd_create("fuzz", 0)), ruta_("/proc/self/fd/" + std::to_string(descriptor_)) {
        Exigir(descriptor_ >= 0, "there is memory for a file");
    }
    ~ArchivoEnMemoria() { ::close(descriptor_); }
    ArchivoEnMemoria(const ArchivoEnMemoria&) = delete;
    ArchivoEnMemoria& operator=(const ArchivoEnMemoria&) = delete;

    void Poner(const std::uint8_t* datos, std::size_t cantidad) {
        Exigir(::ftruncate(descriptor_, 0) == 0, "a file in memory can be emptied");
        Exigir(::pwrite(descriptor_, datos, cantidad, 0) == static_cast<ssize_t>(cantidad), "a file in memory can be written");
    }

    const std::filesystem::path& Ruta() const { return ruta_; }

private:
    int descriptor_;
    std::filesystem::path ruta_;
};

}  // namespace qor
