#include "dataset/line_reader.h"

#include <algorithm>
#include <cstring>

namespace qor {

namespace {

constexpr std::size_t tamanoDeBloque = std::size_t{1} << 20;

// The first character of a line's end, or nothing. Both ends are looked for apart: memchr is far faster than a search for either.
const char* BuscarFin(const char* desde, std::size_t hay) {
    const auto* fin = static_cast<const char*>(std::memchr(desde, '\n', hay));
    const std::size_t hasta = fin != nullptr ? static_cast<std::size_t>(fin - desde) : hay;
    const auto* const retorno = static_cast<const char*>(std::memchr(desde, '\r', hasta));
    return retorno != nullptr ? retorno : fin;
}

}  // namespace

LectorDeLineas::LectorDeLineas(ArchivoAbierto& archivo, std::size_t maximo)
    : archivo_(archivo),
      maximo_(maximo),
      tamano_(archivo.Identidad().tamano),
      bloque_(static_cast<std::size_t>(std::min<std::uintmax_t>(tamanoDeBloque, tamano_ + 1))) {
    llamadas::AnunciarLectura(archivo.Numero());
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
    const auto leidos = archivo_.Leer(bloque_.data() + llenos_, bloque_.size() - llenos_);
    alFinal_ = leidos == 0;
    llenos_ += leidos;
    leidos_ += leidos;
    return leidos > 0;
}

// Goes to where the next line begins, and forgets what it passes.
void LectorDeLineas::SaltarResto() {
    cortada_ = false;
    for (;;) {
        const char* const principio = bloque_.data() + lugar_;
        const std::size_t hay = llenos_ - lugar_;
        const auto* const fin = BuscarFin(principio, hay);
        if (fin != nullptr && (*fin == '\n' || fin + 1 < principio + hay || alFinal_)) {
            const bool conCrLf = *fin == '\r' && fin + 1 < principio + hay && fin[1] == '\n';
            lugar_ += static_cast<std::size_t>(fin - principio) + (conCrLf ? 2 : 1);
            return;
        }
        lugar_ += fin != nullptr ? static_cast<std::size_t>(fin - principio) : hay;
        ancla_ = lugar_;
        if (!LeerMas() && fin == nullptr) return;
    }
}

bool LectorDeLineas::Siguiente(Linea& linea) {
    if (cortada_) SaltarResto();
    std::size_t mirados = 0;
    for (;;) {
        const char* const principio = bloque_.data() + lugar_;
        const std::size_t hay = llenos_ - lugar_;
        const auto* const fin = BuscarFin(principio + mirados, hay - mirados);
        // A CR at the very end of what was read may have its LF in the next block.
        const bool completa = fin != nullptr && (*fin == '\n' || fin + 1 < principio + hay || alFinal_);
        if (!completa) {
            if (fin == nullptr && hay >= maximo_) {
                linea = {lugar_ - ancla_, maximo_, false};
                lugar_ += hay;
                cortada_ = true;
                return true;
            }
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
        linea.largo = std::min(linea.largo, maximo_);
        return true;
    }
}

}  // namespace qor
