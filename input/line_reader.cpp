#include "input/line_reader.h"

#include <algorithm>
#include <cstring>

#include "base/failure.h"
#include "base/file_calls.h"
#include "base/text.h"
#include "input/encoding.h"

namespace qor {

namespace {

constexpr std::size_t largoDeBloque = std::size_t{1} << 18;

const char* BuscarCaracter(const char* desde, const char* hasta, char caracter) {
    const auto* lugar = static_cast<const char*>(std::memchr(desde, caracter, static_cast<std::size_t>(hasta - desde)));
    return lugar != nullptr ? lugar : hasta;
}

std::string_view Entre(const char* desde, const char* hasta) { return {desde, static_cast<std::size_t>(hasta - desde)}; }

std::ptrdiff_t LargoDeFin(FinDeLinea fin) { return fin == FinDeLinea::Ninguno ? 0 : fin == FinDeLinea::CRLF ? 2 : 1; }

}  // namespace

LectorDeEntrada::LectorDeEntrada(const ArchivoAbierto& archivo, std::uint64_t lugar, std::size_t maximo)
    : archivo_(archivo),
      tamano_(archivo.Identidad().tamano),
      leidos_(lugar),
      maximo_(maximo),
      bloque_(largoDeBloque + 1),
      aqui_(bloque_.data()),
      fin_(aqui_) {
    llamadas::AnunciarLectura(archivo.Numero());
}

// Reads on behind what is not used yet, which moves to the beginning of the block. False at the end of the file.
bool LectorDeEntrada::Llenar() {
    if (agotado_) return false;
    const auto quedan = static_cast<std::size_t>(fin_ - aqui_);
    if (quedan > bloque_.size() / 2) {
        std::vector<char> mayor(bloque_.size() * 2);
        std::copy(aqui_, fin_, mayor.data());
        bloque_.swap(mayor);
    } else {
        std::memmove(bloque_.data(), aqui_, quedan);
    }
    const auto cuantos = archivo_.LeerEn(bloque_.data() + quedan, bloque_.size() - quedan, leidos_);
    if (cuantos == 0 && leidos_ < tamano_) {
        throw FalloDeArchivo("The file became shorter while it was read", archivo_.Ruta());
    }
    leidos_ += cuantos;
    agotado_ = cuantos == 0;
    aqui_ = bloque_.data();
    fin_ = aqui_ + quedan + cuantos;
    saltoLF_ = saltoCR_ = nullptr;
    limpio_ = EsAsciiSinNulos(Entre(aqui_, fin_));
    return !agotado_;
}

// The end of the line that reaches to `desde` at least, or `fin_`. Each kind of line end is looked for once.
const char* LectorDeEntrada::BuscarFin(const char* desde) {
    if (saltoLF_ == nullptr || saltoLF_ < desde) saltoLF_ = BuscarCaracter(desde, fin_, '\n');
    if (saltoCR_ == nullptr || saltoCR_ < desde) saltoCR_ = BuscarCaracter(desde, fin_, '\r');
    return std::min(saltoLF_, saltoCR_);
}

// How a line ends that reaches to `hasta`.
FinDeLinea LectorDeEntrada::FinEn(const char* hasta) const {
    if (hasta == fin_) return FinDeLinea::Ninguno;
    if (*hasta == '\n') return FinDeLinea::LF;
    return hasta + 1 < fin_ && hasta[1] == '\n' ? FinDeLinea::CRLF : FinDeLinea::CR;
}

bool LectorDeEntrada::Linea(LineaLeida& linea) {
    if (aqui_ == fin_ && !Llenar()) return false;
    linea.lugar = leidos_ - static_cast<std::size_t>(fin_ - aqui_);
    linea.sobra = false;
    const char* hasta = BuscarFin(aqui_);
    // Behind a CR at the end of the block there may be a LF.
    while (hasta == fin_ || (*hasta == '\r' && hasta + 1 == fin_)) {
        const auto vistos = static_cast<std::size_t>(hasta - aqui_);
        if (vistos > maximo_) break;
        const bool mas = Llenar();
        hasta = BuscarFin(aqui_ + vistos);
        if (!mas) break;
    }
    if (static_cast<std::size_t>(hasta - aqui_) > maximo_) {
        TerminarLarga(linea, hasta);
        return true;
    }
    linea.texto = Entre(aqui_, hasta);
    linea.fin = FinEn(hasta);
    linea.bytes = Entre(aqui_, hasta + LargoDeFin(linea.fin));
    linea.largo = linea.bytes.size();
    linea.limpia = limpio_;
    aqui_ += linea.largo;
    return true;
}

// The beginning of the line goes to a place of its own, the rest is passed over.
void LectorDeEntrada::TerminarLarga(LineaLeida& linea, const char* hasta) {
    larga_.assign(aqui_, aqui_ + maximo_);
    linea.texto = linea.bytes = Entre(larga_.data(), larga_.data() + maximo_);
    linea.limpia = false;
    aqui_ += maximo_;
    for (;;) {
        linea.sobra = linea.sobra || !EstaEnBlanco(Entre(aqui_, hasta));
        aqui_ = hasta;
        if (hasta != fin_ && !(*hasta == '\r' && hasta + 1 == fin_)) break;
        const bool mas = Llenar();
        hasta = BuscarFin(aqui_);
        if (!mas) break;
    }
    linea.fin = FinEn(hasta);
    aqui_ += LargoDeFin(linea.fin);
    linea.largo = leidos_ - static_cast<std::size_t>(fin_ - aqui_) - linea.lugar;
}

}  // namespace qor
