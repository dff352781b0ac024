#pragma once

#include <cstdint>
#include <string>

#include "abap/surroundings.h"

// Ids of entries of the batch-input queue: twenty digits, the moment of their creation and six of a running number. Those of
// recordings have a 9 in front of theirs, so that a session and a recording of one moment differ.
namespace qor {

inline std::string IdDeCola(const abap::Momento& momento, std::int64_t numero) {
    constexpr std::int64_t millon = 1'000'000;
    const std::string cifras = std::to_string(millon + numero % millon);
    return momento.fecha + momento.hora + cifras.substr(1);
}

inline std::string IdDeGrabacion(const abap::Momento& momento, std::int64_t numero) {
    constexpr std::int64_t desde = 900'000;
    constexpr std::int64_t cuantas = 100'000;
    return IdDeCola(momento, desde + numero % cuantas);
}

}  // namespace qor
