#pragma once

#include <cstdio>
#include <cstdlib>

// Ends the run where a promise is broken, so that the fuzzer keeps the input.
inline void Exigir(bool condicion, const char* promesa) {
    if (condicion) return;
    std::fprintf(stderr, "broken: %s\n", promesa);
    std::abort();
}
