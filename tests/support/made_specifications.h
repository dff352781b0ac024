#pragma once

#include <string>
#include <vector>

#include "model/naming.h"
#include "tests/support/window_fixture.h"

namespace qor::pruebas {

// A specification that is made for a test, with all that its report depends on.
struct Hecha {
    VentanaDePrueba prueba;
    Preferencias preferencias;
    std::string ruta = "/a/orders.qor";  // of its document
    int variante = 0;                    // of 4, for what the document leaves open

    Especificacion& Espec() { return prueba.documento.especificacion; }
    Opciones& Opc() { return prueba.documento.opciones; }
};

struct DocumentoHecho {
    const char* nombre;
    void (*llenar)(Hecha&);
    int fuerza;  // any so many of the choices are combined with it in every way
};

// A choice that shapes reports, and its levels; the first one of each has no name.
struct Nivel {
    const char* nombre;
    void (*poner)(Hecha&);
};
using Eleccion = std::vector<Nivel>;

const std::vector<DocumentoHecho>& DocumentosHechos();
const std::vector<Eleccion>& EleccionesHechas();

// The document with the levels of its choices, the last of which is the variant.
void Llenar(Hecha& hecha, const DocumentoHecho& documento, const std::vector<int>& niveles);

// What the row of levels is called.
std::string NombreDe(const DocumentoHecho& documento, const std::vector<int>& niveles);

}  // namespace qor::pruebas
