#pragma once

#include <windows.h>

#include <utility>

namespace qor::sistema {

// Owns a handle of an opened file, or none.
class Mango {
public:
    explicit Mango(HANDLE valor) : valor_(valor) {}
    Mango(Mango&& otro) noexcept : valor_(otro.Soltar()) {}
    Mango& operator=(Mango&&) = delete;
    ~Mango() {
        if (!Abierto()) return;
        const DWORD error = ::GetLastError();
        ::CloseHandle(valor_);
        ::SetLastError(error);
    }

    bool Abierto() const { return valor_ != INVALID_HANDLE_VALUE; }
    HANDLE Valor() const { return valor_; }
    HANDLE Soltar() { return std::exchange(valor_, INVALID_HANDLE_VALUE); }

private:
    HANDLE valor_;
};

}  // namespace qor::sistema
