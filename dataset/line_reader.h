#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

namespace qor {

// Reads a file of any size line by line, in memory that only grows with what is held. Lines end with CR LF, LF or CR; a last line
// without an end counts. From the anchor on, what was read stays in memory: lines are told as places behind the anchor, which keep
// their meaning while more is read.
class LectorDeLineas {
public:
    struct Linea {
        std::size_t inicio = 0;  // behind the anchor
        std::size_t largo = 0;
        bool conCrLf = false;  // ends with CR LF in the file
    };

    // Throws FalloDeEjecucion when the file can't be opened.
    explicit LectorDeLineas(const std::filesystem::path& ruta);
    ~LectorDeLineas();
    LectorDeLineas(const LectorDeLineas&) = delete;
    LectorDeLineas& operator=(const LectorDeLineas&) = delete;

    // The next line; false at the end of the file. Throws FalloDeEjecucion when the file can't be read.
    bool Siguiente(Linea& linea);

    std::string_view Texto(const Linea& linea) const { return {bloque_.data() + ancla_ + linea.inicio, linea.largo}; }

    // The bytes of the file from the anchor to the place behind the anchor.
    std::string_view DesdeAncla(std::size_t hasta) const { return {bloque_.data() + ancla_, hasta}; }

    // Puts the anchor at a place behind it. Lines told before are then `cuanto` nearer.
    void MoverAncla(std::size_t cuanto) { ancla_ += cuanto; }

    std::uintmax_t Tamano() const { return tamano_; }
    std::uintmax_t Leidos() const { return leidos_; }

    // The file has another size or time of change than when it was opened.
    bool HaCambiado() const;

private:
    bool LeerMas();

    int descriptor_ = -1;
    std::vector<char> bloque_;
    std::size_t ancla_ = 0;
    std::size_t lugar_ = 0;   // where the next line begins
    std::size_t llenos_ = 0;  // bytes of the block in use
    std::uintmax_t tamano_ = 0;
    std::uintmax_t leidos_ = 0;
    std::int64_t cambiadoEn_ = 0;  // nanoseconds
    bool alFinal_ = false;
};

}  // namespace qor
