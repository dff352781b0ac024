#include "base/line_index.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/failure.h"

namespace qor {

namespace {

constexpr std::size_t bytesPorPaso = std::size_t{1} << 20;
constexpr std::size_t bytesPorLectura = std::size_t{1} << 16;
constexpr std::size_t lineasPorMarca = 256;

const char* BuscarCaracter(const char* desde, const char* hasta, char caracter) {
    const auto* lugar = static_cast<const char*>(std::memchr(desde, caracter, static_cast<std::size_t>(hasta - desde)));
    return lugar ? lugar : hasta;
}

}  // namespace

IndiceDeLineas::IndiceDeLineas(const std::filesystem::path& ruta) : archivo_(ruta) {}

// How many bytes were read; a file that can't be read any further ends there.
std::size_t IndiceDeLineas::LeerEn(std::vector<char>& bloque, std::uint64_t lugar) const {
    try {
        return archivo_.LeerEn(bloque.data(), bloque.size(), lugar);
    } catch (const FalloDeArchivo&) {
        return 0;
    }
}

bool IndiceDeLineas::Avanzar() {
    bloque_.resize(bytesPorPaso);
    const auto llenos = LeerEn(bloque_, leidos_);
    std::vector<Marca> nuevas;
    std::size_t lineas = Lineas();
    std::uint64_t ultima = marcas_.empty() ? 0 : marcas_.back().lugar;
    const char* const desde = bloque_.data();
    const char* const fin = desde + llenos;
    const char* aqui = desde;
    const char* saltoLF = nullptr;  // the next one of each kind at or behind `aqui`; each is looked for once
    const char* saltoCR = nullptr;
    if (llenos > 0 && std::exchange(trasCR_, false) && *aqui == '\n') ++aqui;
    while (aqui < fin) {
        if (alInicio_) {
            const std::uint64_t lugar = leidos_ + static_cast<std::uint64_t>(aqui - desde);
            if (lineas % lineasPorMarca == 0 || lugar - ultima > bytesPorPaso) {
                nuevas.push_back({lineas, lugar});
                ultima = lugar;
            }
            ++lineas;
        }
        if (saltoLF < aqui) saltoLF = BuscarCaracter(aqui, fin, '\n');
        if (saltoCR < aqui) saltoCR = BuscarCaracter(aqui, fin, '\r');
        aqui = std::min(saltoLF, saltoCR);
        alInicio_ = aqui < fin;
        if (!alInicio_) break;
        const bool esCR = *aqui++ == '\r';
        trasCR_ = esCR && aqui == fin;
        if (esCR && aqui < fin && *aqui == '\n') ++aqui;
    }
    leidos_ += llenos;
    const std::lock_guard guarda(candado_);
    marcas_.insert(marcas_.end(), nuevas.begin(), nuevas.end());
    lineas_ = lineas;
    completo_ = llenos == 0;
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
        const std::size_t llenos = LeerEn(bloque, lugar);
        if (llenos == 0) return textos;
        std::uint64_t siguiente = lugar + llenos;
        for (std::size_t i = 0; i < llenos; ++i) {
            const char c = bloque[i];
            const bool segundoDeCrLf = trasCR && c == '\n';
            trasCR = c == '\r';
            if (segundoDeCrLf) continue;
            if (alInicio) {
                if (++linea == hasta) return textos;
                if (linea >= desde) textos.emplace_back();
            }
            alInicio = c == '\n' || c == '\r';
            if (alInicio || linea < desde || textos.back().size() == maximo) continue;
            textos.back() += c;
            if (textos.back().size() < maximo) continue;
            if (linea + 1 == hasta) return textos;
            // Behind a very long line there is a mark: what lies before it isn't read.
            const Marca detras = MarcaPara(linea + 1);
            if (detras.linea != linea + 1 || detras.lugar <= siguiente) continue;
            siguiente = detras.lugar;
            alInicio = true;
            trasCR = false;
            break;
        }
        lugar = siguiente;
    }
}

}  // namespace qor
