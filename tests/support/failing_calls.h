#pragma once

#include <atomic>

#include "base/file_calls.h"

namespace qor::pruebas {

// As long as it lives, the n-th call of a kind (from 1; 0 for none) fails with an error number. Counts on, so that a test can see
// whether that call came at all.
class FalloProvocado {
public:
    FalloProvocado(LlamadaDeArchivo llamada, int cual, int error) {
        PonerTrampa(
            [this, llamada, cual, error](LlamadaDeArchivo hecha) { return hecha == llamada && ++cuenta_ == cual ? error : 0; });
        cual_ = cual;
    }
    ~FalloProvocado() { PonerTrampa({}); }
    FalloProvocado(const FalloProvocado&) = delete;
    FalloProvocado& operator=(const FalloProvocado&) = delete;

    bool Ocurrio() const { return cuenta_ >= cual_; }

private:
    std::atomic<int> cuenta_ = 0;
    int cual_ = 0;
};

}  // namespace qor::pruebas
