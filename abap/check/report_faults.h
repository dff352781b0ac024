#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "abap/check/check.h"
#include "abap/lexer.h"

namespace qor::abap {

// Collects the faults of a report.
class Informe {
public:
    // What follows belongs to the statement that begins at that line. A mute one leaves no faults.
    void EmpezarSentencia(int linea, bool muda);
    int Sentencia() const { return sentencia_; }
    int CambiarSentencia(int linea) { return std::exchange(sentencia_, linea); }  // answers the one before
    void Callar(bool muda) { muda_ = muda; }
    bool EstaMuda() const { return muda_; }

    void Agregar(Falta::Clase clase, const Palabra& palabra, std::string_view nombre, int otraLinea = 0);
    void Agregar(Falta::Clase clase, const Palabra& palabra) { Agregar(clase, palabra, palabra.texto); }
    void AgregarDe(int sentencia, Falta::Clase clase, const Palabra& palabra);

    // A fault in the form of the statement; names in it don't count then.
    void AgregarDeForma(Falta::Clase clase, const Palabra& palabra, std::string_view nombre);

    // Blocks can't be known any more: a point is missing, or a literal open.
    void PerderBloques() { sinBloques_ = true; }

    std::size_t Cantidad() const { return faltas_.size(); }
    std::vector<Falta> Tomar();

private:
    std::vector<Falta> faltas_;
    std::size_t inicio_ = 0;  // faults of the statements before
    int sentencia_ = 0;
    bool muda_ = false;
    bool sinBloques_ = false;
};

}  // namespace qor::abap
