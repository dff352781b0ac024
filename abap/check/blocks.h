#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "abap/check/report_faults.h"
#include "abap/lexer.h"

namespace qor::abap {

// Statements that stand between a first and a last one.
class Bloques {
public:
    explicit Bloques(Informe& informe) : informe_(informe) {}

    // `final` is the key of the statement that closes it. Where only the system knows whether there is one, the block is
    // `opcional`.
    void Abrir(const Palabra& palabra, Clave final, bool opcional = false);

    // A statement that closes, or one that belongs to the block that `final` closes, such as ELSE.
    void Cerrar(const Palabra& palabra, Clave final);
    void Continuar(const Palabra& palabra, Clave final);

    // Blocks end where the text of a FORM or of an event does.
    void CerrarTodos();

private:
    struct Bloque {
        Palabra palabra;
        Clave final = 0;
        bool opcional = false;
        int sentencia = 0;
    };

    bool Buscar(const Palabra& palabra, Clave final);
    void Abandonar();

    Informe& informe_;
    std::vector<Bloque> abiertos_;
};

}  // namespace qor::abap
