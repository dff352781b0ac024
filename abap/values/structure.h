#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "abap/values/field.h"

namespace qor::abap {

struct Estructura;

// The type of a field.
struct TipoDeCampo {
    Tipo tipo = Tipo::C;
    std::uint32_t largo = 1;
    std::uint8_t decimales = 0;
    const Estructura* estructura = nullptr;  // of Tipo::Estructura
};

struct Componente {
    std::string nombre;  // upper case
    std::uint32_t desplazamiento = 0;
    TipoDeCampo tipo;
    bool clave = false;  // of a database table
};

// Components one behind the other; I is aligned to 4 and F to 8, and a structure to what its components need.
struct Estructura {
    std::string nombre;  // upper case; may be empty
    std::vector<Componente> componentes;
    std::uint32_t largo = 0;
    std::uint32_t alineacion = 1;

    // By its name in upper case; null where there is none.
    const Componente* Buscar(std::string_view nombreDeComponente) const;

    // Puts a component behind the others, where the alignment of its type allows.
    void Agregar(std::string nombreDeComponente, const TipoDeCampo& tipo, bool clave = false);

    // Behind the last component: the length becomes a multiple of the alignment.
    void Cerrar();
};

// A component of a structure that lies at `datos`.
Campo CampoDeComponente(const Componente& componente, std::uint8_t* datos);

// Gives a field, or every component of a structure, its initial value: blanks, zeros. Throws MOVE_TO_LIT_NOTALLOWED.
void PonerInicial(const Campo& campo, const Estructura* estructura);

// Whether a field, or every component of a structure, has its initial value.
bool EsInicial(const Campo& campo, const Estructura* estructura);

}  // namespace qor::abap
