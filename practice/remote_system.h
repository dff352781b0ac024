#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "practice/course.h"
#include "practice/system.h"

namespace qor {

// A practice system that reports are sent to from outside: nobody sees their records, transactions and messages, only their lists.
class SistemaRemoto {
public:
    // Throws FalloDeEjecucion, as SistemaDePractica does.
    explicit SistemaRemoto(const OpcionesDeSistema& opciones);
    ~SistemaRemoto();
    SistemaRemoto(const SistemaRemoto&) = delete;
    SistemaRemoto& operator=(const SistemaRemoto&) = delete;

    // Compiles a report and runs it, as a unit of work; the lines of its list. Throws FalloDelServicio where the report does not
    // come to its end, with the reason.
    std::vector<std::string> Correr(std::string_view reporte);

    BaseDePractica& Base() { return sistema_.Base(); }
    ProgramasDePractica& Programas() { return sistema_.Programas(); }
    // Another program has changed the system's file: what was read of it is no longer true.
    bool EsViejo();

private:
    class Vista;

    std::unique_ptr<Vista> vista_;
    Curso curso_;
    SistemaDePractica sistema_;
    std::int64_t version_;
};

}  // namespace qor
