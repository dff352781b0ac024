#pragma once

#include <array>
#include <streambuf>

namespace qor {

// The standard output of the process, in large blocks. Once a write has failed, nothing more is written, and every flush fails with
// its error in errno.
class SalidaEstandar : public std::streambuf {
public:
    SalidaEstandar() { setp(bloque_.data(), bloque_.data() + bloque_.size()); }

protected:
    int_type overflow(int_type caracter) override;
    int sync() override;

private:
    std::array<char, 65536> bloque_{};
    int error_ = 0;
};

}  // namespace qor
