#include "app/standard_output.h"

#include <cerrno>

#include "base/file_calls.h"

namespace qor {

namespace {

constexpr int descriptorDeSalida = 1;

}  // namespace

int SalidaEstandar::sync() {
    for (const char* desde = pbase(); error_ == 0 && desde < pptr();) {
        const auto escritos = llamadas::Escribir(descriptorDeSalida, desde, static_cast<std::size_t>(pptr() - desde));
        if (escritos < 0) error_ = errno;
        desde += escritos > 0 ? escritos : 0;
    }
    setp(bloque_.data(), bloque_.data() + bloque_.size());
    if (error_ == 0) return 0;
    errno = error_;
    return -1;
}

SalidaEstandar::int_type SalidaEstandar::overflow(int_type caracter) {
    if (sync() != 0) return traits_type::eof();
    if (!traits_type::eq_int_type(caracter, traits_type::eof())) sputc(traits_type::to_char_type(caracter));
    return traits_type::not_eof(caracter);
}

}  // namespace qor
