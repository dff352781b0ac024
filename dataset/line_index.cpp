#include "dataset/line_index.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>

#include "base/failure.h"

namespace qor {

namespace {

constexpr std::size_t bytesPorPaso = std::size_t{1} << 20;
constexpr std::size_t bytesPorLectura = std::size_t{1} << 16;
constexpr std::size_t lineasPorMarca = 256;

}  // namespace

IndiceDeLineas::IndiceDeLineas(const std::filesystem::path& ruta) : descriptor_(::open(ruta.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (descriptor_ < 0) throw FalloDeEjecucion("the file can't be opened");
}

IndiceDeLineas::~IndiceDeLineas() { ::close(descriptor_); }

bool IndiceDeLineas::Avanzar() {
    bloque_.resize(bytesPorPaso);
    const auto llenos = ::pread(descriptor_, bloque_.data(), bloque_.size(), static_cast<off_t>(leidos_));
    std::vector<Marca> nuevas;
    std::size_t lineas = Lineas();
    std::uint64_t ultima = marcas_.empty() ? 0 : marcas_.back().lugar;
    for (std::size_t i = 0; llenos > 0 && i < static_cast<std::size_t>(llenos); ++i) {
        const char c = bloque_[i];
        const bool segundoDeCrLf = trasCR_ && c == '\n';
        trasCR_ = c == '\r';
        if (segundoDeCrLf) continue;
        if (alInicio_) {
            const std::uint64_t lugar = leidos_ + i;
            if (lineas % lineasPorMarca == 0 || lugar - ultima > bytesPorPaso) {
                nuevas.push_back({lineas, lugar});
                ultima = lugar;
            }
            ++lineas;
        }
        alInicio_ = c == '\n' || c == '\r';
    }
    if (llenos > 0) leidos_ += static_cast<std::uint64_t>(llenos);
    const std::lock_guard guarda(candado_);
    marcas_.insert(marcas_.end(), nuevas.begin(), nuevas.end());
    lineas_ = lineas;
    completo_ = llenos <= 0;
    return !completo_;
}

std::size_t IndiceDeLineas::Lineas() const {
    const std::lock_guard guarda(candado_);
    return lineas_;
}

bool IndiceDeLineas::Completo() const {
    const std::lock_guard guarda(candado_);
    return completo_;
}

IndiceDeLineas::Marca IndiceDeLineas::MarcaPara(std::size_t linea) const {
    const std::lock_guard guarda(candado_);
    const auto detras =
        std::upper_bound(marcas_.begin(), marcas_.end(), linea, [](std::size_t n, const Marca& m) { return n < m.linea; });
    return *std::prev(detras);
}

std::vector<std::string> IndiceDeLineas::Leer(std::size_t desde, std::size_t cuantas, std::size_t maximo) const {
    std::vector<std::string> textos;
    const std::size_t conocidas = Lineas();
    if (desde >= conocidas) return textos;
    const std::size_t hasta = std::min(desde + cuantas, conocidas);
    auto [linea, lugar] = MarcaPara(desde);
    std::vector<char> bloque(bytesPorLectura);
    bool trasCR = false;
    bool alInicio = true;
    --linea;  // the first character begins it
    for (;;) {
        const auto llenos = ::pread(descriptor_, bloque.data(), bloque.size(), static_cast<off_t>(lugar));
        if (llenos <= 0) return textos;
        for (std::size_t i = 0; i < static_cast<std::size_t>(llenos); ++i) {
            const char c = bloque[i];
            const bool segundoDeCrLf = trasCR && c == '\n';
            trasCR = c == '\r';
            if (segundoDeCrLf) continue;
            if (alInicio) {
                if (++linea == hasta) return textos;
                if (linea >= desde) textos.emplace_back();
            }
            alInicio = c == '\n' || c == '\r';
            if (!alInicio && linea >= desde && linea < hasta && textos.back().size() < maximo) textos.back() += c;
        }
        lugar += static_cast<std::uint64_t>(llenos);
    }
}

}  // namespace qor
