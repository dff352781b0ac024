#pragma once

#include <initializer_list>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "abap/check/blocks.h"
#include "abap/check/declarations.h"
#include "abap/check/report_faults.h"
#include "abap/names.h"

namespace qor::abap {

// A FORM by its head.
struct Forma {
    Palabra nombre;
    int tablas = 0;
    int parametros = 0;
    bool conocida = false;  // its head was read to the end
};

// A PERFORM of a FORM of this report.
struct Llamada {
    Palabra nombre;
    Palabra ultima;  // its last word
    int tablas = 0;
    int parametros = 0;
    int sentencia = 0;
    bool contada = false;  // its operands were read to the end
};

// A record between its BEGIN OF and END OF.
struct RegistroEnObra {
    Palabra nombre;
    Clave sentencia = 0;  // DATA, TYPES, ...
    int linea = 0;        // of its statement
    Registro registro;
    bool tabla = false;
    bool hayInclusion = false;
};

// What is known of the report so far.
struct Contexto {
    Informe informe;
    Declaraciones datos;
    Bloques bloques{informe};
    std::vector<RegistroEnObra> enObra;
    std::unordered_map<Clave, Forma> formas;
    std::vector<Llamada> llamadas;
    std::unordered_set<Clave> macros;
    std::unordered_set<Clave> perdidas;  // words of statements that could not be read: they may have declared anything
    std::unordered_set<Clave> grupos;    // of types, with names of their own, that TYPE-POOLS brings
    std::size_t incluidos = 0;           // components that INCLUDE has copied
    bool incierto = false;               // text that isn't here declares too
    bool enPantalla = false;             // in an event of the selection screen
};

enum class ClaseDeCondicion { Logica, DeTabla, DeBase };

// Reads one statement from word to word. Its functions tell a fault and answer false where the statement can't go on; the rest is
// not looked at then. Names that are wrong don't stop it.
class Frase {
public:
    Frase(std::span<const Palabra> palabras, Contexto& contexto) : palabras_(palabras), contexto_(contexto) {}

    Contexto& Entorno() { return contexto_; }

    bool Hay(std::size_t n = 0) const { return lugar_ + n < palabras_.size(); }
    const Palabra& Actual() const { return palabras_[lugar_]; }
    const Palabra& Mirar(std::size_t n) const { return palabras_[lugar_ + n]; }
    const Palabra& Primera() const { return palabras_.front(); }
    const Palabra& Ultima() const { return palabras_.back(); }
    std::span<const Palabra> Palabras() const { return palabras_; }
    void Avanzar(std::size_t n = 1) { lugar_ += n; }
    std::size_t Lugar() const { return lugar_; }

    bool Es(Clave clave, std::size_t n = 0) const { return Hay(n) && Mirar(n).clave == clave; }
    bool EsAlguna(std::initializer_list<Clave> claves, std::size_t n = 0) const;
    bool Toma(Clave clave);
    bool Toma(Clave una, Clave otra);  // both or none
    bool Exige(Clave clave);
    bool Exige(Clave una, Clave otra) { return Exige(una) && Exige(otra); }

    // One word of any kind, not looked at.
    bool Algo();

    bool Fin();  // nothing more may stand here
    bool Resto() {
        lugar_ = palabras_.size();
        return true;
    }

    // The rest is nothing that is known here, whatever is asked for next.
    bool Rendirse() {
        rendida_ = true;
        return Resto();
    }

    bool Falla(Falta::Clase clase, const Palabra& palabra);

    // The first fault of its form.
    struct Fallo {
        Falta::Clase clase = Falta::Clase::NoEsSentencia;
        Palabra palabra;
    };
    const std::optional<Fallo>& Fallada() const { return fallada_; }

    bool Falla(Falta::Clase clase) { return Falla(clase, Hay() ? Actual() : Ultima()); }
    // Here is not what must be: nothing at all, or something else.
    bool FallaAqui() { return Falla(Hay() ? Falta::Clase::NoEsSentencia : Falta::Clase::OperandoAusente); }

    bool Operando();                                     // a name, a literal, a number
    bool Variable();                                     // a name
    bool Destino();                                      // a name that gets a value
    bool Tabla(const Dato*& linea);                      // the name of an internal table, and its line where it is known
    bool Operandos(std::initializer_list<Clave> hasta);  // one or more
    bool Expresion();
    bool Condicion(ClaseDeCondicion clase, const Dato* linea = nullptr);
    bool Componente(const Dato* linea);  // a component of that line, where its components are known

    // What a name stands for, and the faults of it. Null for what is not known.
    const Dato* Revisar(const Palabra& palabra);

    // Tells that a constant is changed, where this is one.
    void RevisarDestino(const Palabra& palabra);

    // Tells a component that a record of this report does not have; all other names are taken as they are.
    void RevisarComponente(const Palabra& palabra);

    // Tells a fault of a name once in the statement.
    void Decir(Falta::Clase clase, const Palabra& palabra, std::string_view nombre);

private:
    bool Nombre(bool puedeEscribirse);
    bool Primario();
    bool Funcion();
    bool Termino(ClaseDeCondicion clase, const Dato* linea);
    bool Relacion(ClaseDeCondicion clase);
    bool Lista();
    bool EsParentesisDeExpresion() const;
    const Dato* SinDeclarar(const Palabra& palabra, const Referencia& r);
    void RevisarTrozo(const Palabra& palabra, const Referencia& r, const Dato* dato);
    bool EsSegura(const Palabra& palabra) const;
    bool EsOtraQueTabla(const Palabra& palabra, const Dato* dato) const;
    void RevisarIndice(const Palabra& palabra, std::string_view indice);

    std::span<const Palabra> palabras_;
    Contexto& contexto_;
    std::size_t lugar_ = 0;
    int hondura_ = 0;
    bool rendida_ = false;
    std::optional<Fallo> fallada_;
    std::unordered_set<Clave> dichas_;
};

// The component of a dato; null where there is none or nobody knows. `ajeno` tells that there is none.
const Dato* BuscarComponentes(const Declaraciones& datos, const Dato& dato, std::string_view componentes, bool& ajeno);

}  // namespace qor::abap
