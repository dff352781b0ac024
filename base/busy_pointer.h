#pragma once

#include "base/view.h"

namespace qor {

// The pointer is busy as long as this lives.
class ConPunteroOcupado {
public:
    explicit ConPunteroOcupado(Vista& vista) : vista_(vista) { vista_.PunteroOcupado(true); }
    ~ConPunteroOcupado() { vista_.PunteroOcupado(false); }
    ConPunteroOcupado(const ConPunteroOcupado&) = delete;
    ConPunteroOcupado& operator=(const ConPunteroOcupado&) = delete;

private:
    Vista& vista_;
};

}  // namespace qor
