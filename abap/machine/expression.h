#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "abap/machine/machine.h"
#include "abap/values/comparison.h"
#include "abap/values/number.h"

// Calculations and conditions of a compiled program.
namespace qor::abap {

struct Expresion {
    enum class Clase : std::uint8_t { Campo, Operacion, Negacion, Funcion, LargoDeTexto };

    Clase clase = Clase::Campo;
    Operando campo;
    char operador = 0;  // as Calcular() has it
    FuncionNumerica funcion = FuncionNumerica::Abs;
    std::unique_ptr<Expresion> a;
    std::unique_ptr<Expresion> b;

    bool EsCampo() const { return clase == Clase::Campo; }
};

// What kind of calculation it is, by its operands and the target.
Calculo CalculoDe(Maquina& maquina, const Expresion& expresion);
Calculo CalculoDe(const Campo& campo);
inline Calculo Mayor(Calculo a, Calculo b) { return a < b ? b : a; }

Numero Valor(Maquina& maquina, const Expresion& expresion, Calculo calculo);

// Evaluates an expression, and puts its value into the target as an assignment does.
void Asignar(Maquina& maquina, const Expresion& expresion, const Operando& destino);

// The value as a whole number, for counts and indexes.
std::int64_t ValorEntero(Maquina& maquina, const Expresion& expresion);

class Condicion {
public:
    Condicion() = default;
    Condicion(const Condicion&) = delete;
    Condicion& operator=(const Condicion&) = delete;
    virtual ~Condicion() = default;
    virtual bool Vale(Maquina& maquina) const = 0;
};

// The parts of a line of a RANGES table or SELECT-OPTIONS, by their names. Throws where the table has none of them.
class PartesDeRango {
public:
    explicit PartesDeRango(const TablaInterna& rango);

    Campo Signo(std::uint8_t* fila) const { return CampoDeComponente(*partes_[0], fila); }
    Campo Opcion(std::uint8_t* fila) const { return CampoDeComponente(*partes_[1], fila); }
    Campo Bajo(std::uint8_t* fila) const { return CampoDeComponente(*partes_[2], fila); }
    Campo Alto(std::uint8_t* fila) const { return CampoDeComponente(*partes_[3], fila); }

private:
    std::array<const Componente*, 4> partes_{};
};

// Whether a value is in the lines of a RANGES table or SELECT-OPTIONS: any of those that include, none of those that exclude. A
// table without lines holds every value.
bool EstaEnRango(const Campo& valor, const TablaInterna& rango);

}  // namespace qor::abap
