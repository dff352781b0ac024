#pragma once

#include <deque>

#include "practice/database.h"

// What the database keeps of a table and of a SELECT that is being read; for its own units.
namespace qor {

struct BaseDePractica::Entrada {
    DefinicionDeTabla definicion;
    std::string lugar;       // as a statement names it
    TablaProvista provista;  // of one that was not made by anybody
    bool hecha = false;      // the database has it
    bool enUnidad = false;   // it was made in this unit of work, and goes with it
    std::unique_ptr<Sentencia> insertar;
    std::unique_ptr<Sentencia> actualizar;
    std::unique_ptr<Sentencia> borrar;

    void SoltarSentencias() {
        insertar.reset();
        actualizar.reset();
        borrar.reset();
    }
    void Deshacer() {
        SoltarSentencias();
        hecha = false;
    }
};

// Rows come from the statement while nothing is changed; in front of the first change the rest of them is taken out.
class BaseDePractica::Cursor : public abap::FilasDeBase {
public:
    // `volcado` is the name of the dump where a row can't be read.
    Cursor(BaseDePractica& base, std::string clave, std::unique_ptr<Sentencia> sentencia, const char* volcado);
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;
    ~Cursor() override;

    bool Siguiente(std::vector<abap::ValorDeBase>& fila) override;
    void Vaciar();

private:
    bool Leer(std::vector<abap::ValorDeBase>& fila);
    void Soltar();

    BaseDePractica& base_;
    std::string clave_;
    std::unique_ptr<Sentencia> sentencia_;
    const char* volcado_;
    std::deque<std::vector<abap::ValorDeBase>> filas_;
};

}  // namespace qor
