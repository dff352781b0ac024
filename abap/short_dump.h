#pragma once

#include <stdexcept>
#include <string>

namespace qor::abap {

// A run-time error: it ends the report. `what()` says what was wrong, windows-1252.
class Volcado : public std::runtime_error {
public:
    Volcado(std::string nombre, const std::string& texto) : std::runtime_error(texto), nombre_(std::move(nombre)) {}

    const std::string& Nombre() const { return nombre_; }  // such as CONVT_NO_NUMBER

private:
    std::string nombre_;
};

}  // namespace qor::abap
