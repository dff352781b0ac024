#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The value encoding of documents and of the language file: values separated by a comma or a line end, strings between double
// quotes (a double quote inside a string is doubled), plain decimal numbers, and the booleans #TRUE# and #FALSE#.
namespace qor {

struct Valor {
    enum class Clase { Texto, Numero, Booleano };
    Clase clase = Clase::Texto;
    bool entreComillas = false;
    std::string texto;  // as it stood in the file, without the quotes; the token of a number or a boolean

    // A text and exactly empty. Numbers and booleans are never empty.
    bool Vacio() const { return clase == Clase::Texto && texto.empty(); }

    // Conversions where a value is used. A text that is no number, or a number beyond 16 bits, throws FalloDeEjecucion.
    std::string ComoTexto() const;
    int ComoEntero() const;
    bool ComoBooleano() const;
};

class LectorValores {
public:
    // The text must outlive the reader.
    explicit LectorValores(std::string_view texto) : texto_(texto) {}

    bool AlFinal() const { return lugar_ >= texto_.size(); }
    void VolverAlPrincipio() { lugar_ = contado_ = 0, linea_ = 1; }

    // The line of the text at which the next value begins, from 1. Lines end with CR LF, LF or CR, inside strings too.
    int Linea();

    // The next value. Throws FalloDeEjecucion when the read starts at the end of the text.
    Valor Leer();

    // The next value as a record's tag: a 16-bit number, rounded; whatever is no number, a quoted text too, is 0.
    int LeerEtiqueta();

private:
    void PasarSeparador();
    std::string LeerCadena();

    std::string_view texto_;
    std::size_t lugar_ = 0;
    std::size_t contado_ = 0;  // the line ends in front of it are counted in linea_
    int linea_ = 1;
};

// The writing side. A record is one line.
std::string CampoTexto(std::string_view texto);
std::string CampoBooleano(bool valor);

}  // namespace qor
