#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "practice/remote_system.h"
#include "sap/names.h"

// The function modules of the practice system that can be called from outside.
namespace qor {

using FilasRemotas = std::vector<std::vector<std::string>>;  // each with the cells of its columns

// What a call takes with it and brings back.
struct LlamadaRemota {
    std::map<std::string, std::string, std::less<>> exporta;
    std::map<std::string, FilasRemotas, std::less<>> tablas;
};

struct TablaDeModulo {
    std::string_view nombre;
    std::size_t ancho = 0;  // characters of its first column
};

struct ModuloRemoto {
    std::span<const std::string_view> parametros;
    std::span<const TablaDeModulo> tablas;
    // Throws FalloDelServicio with the reason where the module ends with an exception.
    void (*correr)(SistemaRemoto& sistema, LlamadaRemota& llamada);
};

// Null where the system has no such module. Names are compared without regard to case.
const ModuloRemoto* BuscarModuloRemoto(const NombresRFC& nombres, std::string_view modulo);

}  // namespace qor
