#include "base/piecewise_reader.h"

#include <algorithm>
#include <cstring>

#include "base/failure.h"
#include "base/file_calls.h"

namespace qor {

namespace {

constexpr std::size_t largoDeBloque = std::size_t{1} << 18;

const char* BuscarCaracter(const char* desde, const char* hasta, char caracter) {
    const auto* lugar = static_cast<const char*>(std::memchr(desde, caracter, static_cast<std::size_t>(hasta - desde)));
    return lugar ? lugar : hasta;
}

}  // namespace

LectorPorTrozos::LectorPorTrozos(ArchivoAbierto archivo)
    : archivo_(std::move(archivo)), tamano_(archivo_.Identidad().tamano), bloque_(largoDeBloque) {
    llamadas::AnunciarLectura(archivo_.Numero());
}

bool LectorPorTrozos::Llenar() {
    const auto cuantos = archivo_.Leer(bloque_.data(), bloque_.size());
    if (cuantos == 0 && leidos_ < tamano_) {
        throw FalloDeArchivo("The file became shorter while it was read", archivo_.Ruta());
    }
    leidos_ += cuantos;
    aqui_ = bloque_.data();
    fin_ = aqui_ + cuantos;
    saltoLF_ = saltoCR_ = nullptr;
    return cuantos > 0;
}

// The end of the line that begins at `aqui_`, as far as this block has it. Each kind of line end is looked for once.
const char* LectorPorTrozos::BuscarFin() {
    if (!saltoLF_ || saltoLF_ < aqui_) saltoLF_ = BuscarCaracter(aqui_, fin_, '\n');
    if (!saltoCR_ || saltoCR_ < aqui_) saltoCR_ = BuscarCaracter(aqui_, fin_, '\r');
    return std::min(saltoLF_, saltoCR_);
}

bool LectorPorTrozos::Linea(std::string_view& linea, std::size_t maximo) {
    resto_.clear();
    bool empezada = false;
    for (;;) {
        if (aqui_ == fin_ && !Llenar()) {
            linea = resto_;
            return empezada;
        }
        if (trasCR_) {
            trasCR_ = false;
            if (*aqui_ == '\n') {
                ++aqui_;
                continue;
            }
        }
        const char* const hasta = BuscarFin();
        const std::string_view trozo(aqui_, static_cast<std::size_t>(hasta - aqui_));
        aqui_ = hasta;
        if (hasta == fin_) {
            empezada = true;
            resto_.append(trozo.substr(0, maximo - std::min(maximo, resto_.size())));
            continue;
        }
        trasCR_ = *aqui_++ == '\r';
        if (empezada) {
            resto_.append(trozo.substr(0, maximo - std::min(maximo, resto_.size())));
            linea = resto_;
        } else {
            linea = trozo;
        }
        return true;
    }
}

bool LectorPorTrozos::Bytes(std::string& bytes, std::size_t largo) {
    bytes.clear();
    trasCR_ = false;
    while (bytes.size() < largo && (aqui_ != fin_ || Llenar())) {
        const auto cuantos = std::min(largo - bytes.size(), static_cast<std::size_t>(fin_ - aqui_));
        bytes.append(aqui_, cuantos);
        aqui_ += cuantos;
    }
    return !bytes.empty();
}

}  // namespace qor
