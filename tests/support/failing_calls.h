#pragma once

#include <atomic>

#include "base/file_calls.h"

namespace qor::pruebas {

// As long as it lives, the n-th call of a kind (from 1; 0 for none) fails with an error number, and flushes wait for no disk.
// Counts on, so that a test can see whether that call came at all.
class FalloProvocado {
public:
    FalloProvocado(LlamadaDeArchivo llamada, int cual, int error) : cual_(cual) {
        PonerTrampa([this, llamada, cual, error](LlamadaDeArchivo hecha) {
            if (hecha == llamada && ++cuenta_ == cual) return error;
            return hecha == LlamadaDeArchivo::LlevarAlDisco ? sinDisco : 0;
        });
    }
    ~FalloProvocado() { PonerTrampa({}); }
    FalloProvocado(const FalloProvocado&) = delete;
    FalloProvocado& operator=(const FalloProvocado&) = delete;

    bool Ocurrio() const { return cuenta_ >= cual_; }

private:
    std::atomic<int> cuenta_ = 0;
    int cual_ = 0;
};

// As long as it lives, flushes wait for no disk: for tests that write many files.
struct SinEsperarAlDisco : FalloProvocado {
    SinEsperarAlDisco() : FalloProvocado(LlamadaDeArchivo::LlevarAlDisco, 0, 0) {}
};

}  // namespace qor::pruebas
