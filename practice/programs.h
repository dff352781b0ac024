#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "practice/database.h"

namespace qor {

struct ProgramaDePractica {
    std::string nombre;
    std::string creador;
    std::string fecha;  // YYYYMMDD
    std::string hora;   // HHMMSS
    std::string texto;  // lines end with LF
};

// The programs of the practice system: INSERT REPORT puts them in, and whoever reads a source finds them. What changes them belongs
// to the unit of work. Texts are windows-1252.
class ProgramasDePractica : public abap::Programas {
public:
    explicit ProgramasDePractica(BaseDePractica& base) : base_(base) {}

    // In upper case, in the place of one of the same name. False for a name that is blank or longer than 40 characters.
    bool Insertar(std::string_view nombre, std::span<const std::string> lineas) override;

    std::optional<ProgramaDePractica> Buscar(std::string_view nombre);  // upper case
    std::vector<ProgramaDePractica> Todos();                            // by name, without their text

private:
    BaseDePractica& base_;
};

}  // namespace qor
