#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "abap/compile/compiler.h"

namespace qor::abap {

// What the right sides of a condition on rows were when the statement began.
struct ValoresDeCondicion {
    const void* dueno = nullptr;  // the condition that they are of
    std::vector<Campo> campos;
    std::vector<std::string> copias;  // their bytes
    std::vector<const TablaInterna*> rangos;
    std::vector<Igualdad> igualdades;
};

// WHERE of LOOP, MODIFY and DELETE: on the left components of the rows, on the right operands.
class CondicionDeFilas {
public:
    // Reads it up to the word that can't go on with it.
    static std::unique_ptr<CondicionDeFilas> Leer(Compilador& c, Lectura& l, const OperandoDeTabla& tabla);

    // Takes the right sides.
    void Tomar(Maquina& maquina, ValoresDeCondicion& valores) const;

    // The first row at or behind `desde` that fulfils it, or Filas().
    std::size_t Buscar(TablaInterna& tabla, const ValoresDeCondicion& valores, std::size_t desde) const;

    bool Cumple(const TablaInterna& tabla, const ValoresDeCondicion& valores, std::size_t fila) const;

private:
    struct Nodo {
        enum class Clase : std::uint8_t { Y, O, No, Compara, Entre, EnRango, Inicial };

        Clase clase = Clase::Y;
        Relacion relacion = Relacion::EQ;
        Componente componente;
        std::size_t lugar = 0;  // of the first of its values, or of its range
        std::vector<Nodo> partes;
    };

    Nodo LeerO(Compilador& c, Lectura& l);
    Nodo LeerY(Compilador& c, Lectura& l);
    Nodo LeerNo(Compilador& c, Lectura& l);
    Nodo LeerComparacion(Compilador& c, Lectura& l);
    void LeerValor(Compilador& c, Lectura& l);
    void SepararIgualdades();
    static bool Cumple(const Nodo& nodo, const TablaInterna& tabla, const ValoresDeCondicion& valores, std::size_t fila);

    OperandoDeTabla tabla_;
    int hondura_ = 0;     // while it is read
    Nodo raiz_;           // what is left of it without the equalities
    bool resto_ = false;  // something is
    std::vector<Nodo> igualdades_;
    std::vector<Operando> valores_;
    std::vector<OperandoDeTabla> rangos_;
};

}  // namespace qor::abap
