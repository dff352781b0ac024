#pragma once

#include <string>
#include <string_view>

#include "abap/surroundings.h"

namespace qor::abap {

// The list of a report, which is put together line by line. A line takes `ancho` columns; what does not fit goes to a new line and
// is cut there. Blanks behind a line are cut, and lines of blanks only left out unless blank lines are on.
class Lista {
public:
    Lista(SalidaDeLista& salida, int ancho) : salida_(salida), ancho_(ancho) {}

    void NuevaLinea();           // WRITE /
    void Posicion(int columna);  // the column of the next output, from 1; one outside of the line is passed over
    void Escribir(std::string_view texto, bool conHueco);  // with a blank behind it, where something follows
    void Saltar(int lineas);                               // SKIP; lines behind which nothing comes are none
    void Raya(int columna, int largo);                     // ULINE within a line; cut at the end of the line
    void RayaEntera();                                     // ULINE
    void LineasEnBlanco(bool con) { enBlanco_ = con; }

    // Hands out the line that is begun. The list goes on with a new one.
    void Terminar();

    int Ancho() const { return ancho_; }
    int Columna() const { return columna_; }

private:
    void Poner(std::string_view texto);
    void Entregar();

    SalidaDeLista& salida_;
    int ancho_;
    std::string linea_;
    int columna_ = 1;       // of the next output
    bool abierta_ = false;  // something was written into the line
    bool enBlanco_ = false;
    int saltadas_ = 0;  // lines of SKIP that are not handed out yet
};

}  // namespace qor::abap
