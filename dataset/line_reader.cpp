#include "dataset/line_reader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "base/failure.h"

namespace qor {

namespace {

constexpr std::size_t tamanoDeBloque = std::size_t{1} << 20;

std::int64_t HoraDeCambio(const struct stat& datos) {
    return static_cast<std::int64_t>(datos.st_mtim.tv_sec) * 1'000'000'000 + datos.st_mtim.tv_nsec;
}

}  // namespace

LectorDeLineas::LectorDeLineas(const std::filesystem::path& ruta)
    : descriptor_(::open(ruta.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)), bloque_(tamanoDeBloque) {
    struct stat datos {};
    if (descriptor_ < 0 || ::fstat(descriptor_, &datos) != 0 || !S_ISREG(datos.st_mode)) {
        if (descriptor_ >= 0) ::close(descriptor_);
        throw FalloDeEjecucion("the file can't be opened");
    }
    ::posix_fadvise(descriptor_, 0, 0, POSIX_FADV_SEQUENTIAL);
    tamano_ = static_cast<std::uintmax_t>(datos.st_size);
    cambiadoEn_ = HoraDeCambio(datos);
}

LectorDeLineas::~LectorDeLineas() { ::close(descriptor_); }

bool LectorDeLineas::HaCambiado() const {
    struct stat datos {};
    return ::fstat(descriptor_, &datos) != 0 || static_cast<std::uintmax_t>(datos.st_size) != tamano_ ||
           HoraDeCambio(datos) != cambiadoEn_;
}

// Keeps what stands behind the anchor, and reads a block behind it. False at the end of the file.
bool LectorDeLineas::LeerMas() {
    if (alFinal_) return false;
    if (ancla_ > 0) {
        std::memmove(bloque_.data(), bloque_.data() + ancla_, llenos_ - ancla_);
        llenos_ -= ancla_;
        lugar_ -= ancla_;
        ancla_ = 0;
    }
    if (bloque_.size() - llenos_ < tamanoDeBloque / 2) bloque_.resize(bloque_.size() * 2);
    for (;;) {
        const auto leidos = ::read(descriptor_, bloque_.data() + llenos_, bloque_.size() - llenos_);
        if (leidos < 0 && errno == EINTR) continue;
        if (leidos < 0) throw FalloDeEjecucion(std::string("the file can't be read: ") + std::strerror(errno));
        alFinal_ = leidos == 0;
        llenos_ += static_cast<std::size_t>(leidos);
        leidos_ += static_cast<std::uintmax_t>(leidos);
        return leidos > 0;
    }
}

bool LectorDeLineas::Siguiente(Linea& linea) {
    std::size_t mirados = 0;
    for (;;) {
        const char* const principio = bloque_.data() + lugar_;
        const std::size_t hay = llenos_ - lugar_;
        // Both ends are looked for apart: memchr is far faster than a search for either.
        const auto* fin = static_cast<const char*>(std::memchr(principio + mirados, '\n', hay - mirados));
        const std::size_t hasta = fin != nullptr ? static_cast<std::size_t>(fin - principio) : hay;
        if (const auto* retorno = static_cast<const char*>(std::memchr(principio + mirados, '\r', hasta - mirados))) fin = retorno;
        // A CR at the very end of what was read may have its LF in the next block.
        const bool completa = fin != nullptr && (*fin == '\n' || fin + 1 < principio + hay || alFinal_);
        if (!completa) {
            mirados = fin != nullptr ? static_cast<std::size_t>(fin - principio) : hay;
            if (LeerMas()) continue;
            if (fin == nullptr) {
                if (hay == 0) return false;
                linea = {lugar_ - ancla_, hay, false};
                lugar_ = llenos_;
                return true;
            }
            continue;
        }
        linea.inicio = lugar_ - ancla_;
        linea.largo = static_cast<std::size_t>(fin - principio);
        linea.conCrLf = *fin == '\r' && fin + 1 < principio + hay && fin[1] == '\n';
        lugar_ += linea.largo + (linea.conCrLf ? 2 : 1);
        return true;
    }
}

}  // namespace qor
