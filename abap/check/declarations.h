#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "abap/key.h"

namespace qor::abap {

constexpr int largoDesconocido = -1;
constexpr int sinRegistro = -1;

// A data object, a component of a record, or a type.
struct Dato {
    Clave clave = 0;
    std::string_view nombre;
    int linea = 0;               // of its declaration; 0 for what the language brings
    char tipo = 'C';             // C N D T X I F P g(string) y(xstring); u for a structure, r for a reference, ? for none known
    int largo = 1;               // characters; largoDesconocido
    int registro = sinRegistro;  // its components
    bool abierto = false;        // nobody knows its components
    bool tabla = false;          // an internal table, whose line the rest describes
    bool anidada = false;        // a line of it is an internal table itself
    bool constante = false;      // also a record of constants
    bool formal = false;         // a parameter of a FORM
};

// A dato of which nothing is known.
Dato DatoAbierto(Clave clave, std::string_view nombre, int linea);

// Names of one scope, in the order of their declarations.
class Ambito {
public:
    const Dato* Buscar(Clave clave) const;

    // Adds a dato. Where its name is taken, the one that was there first stays and is given back, but for one of the language.
    const Dato* Agregar(const Dato& dato);

    void Vaciar();
    const std::vector<Dato>& Datos() const { return datos_; }

private:
    void Crecer();

    std::vector<Dato> datos_;
    std::vector<std::uint32_t> casillas_;  // index in `datos_` plus 1; the size is a power of two
};

// The components of a structure.
struct Registro {
    Ambito componentes;
    bool abierto = false;  // it has others besides

    // Its length in characters where it is known.
    int Largo() const;
};

// All that is declared at one place of the report.
class Declaraciones {
public:
    Declaraciones();

    const Dato* Buscar(Clave clave) const;
    const Dato* BuscarTipo(Clave clave) const;

    const Dato* Agregar(const Dato& dato) { return (enForma_ ? locales_ : globales_).Agregar(dato); }
    const Dato* AgregarGlobal(const Dato& dato) { return globales_.Agregar(dato); }
    const Dato* AgregarTipo(const Dato& dato) { return (enForma_ ? tiposLocales_ : tipos_).Agregar(dato); }

    void EntrarEnForma();
    void SalirDeForma();
    bool EnForma() const { return enForma_; }

    int AgregarRegistro(Registro registro);
    const Registro& De(int registro) const { return registros_[static_cast<std::size_t>(registro)]; }

private:
    Ambito globales_;
    Ambito locales_;
    Ambito tipos_;
    Ambito tiposLocales_;
    std::vector<Registro> registros_;
    bool enForma_ = false;
};

}  // namespace qor::abap
