#pragma once

#include <functional>

#include "app/pages/folding_box.h"
#include "app/pages/page.h"

class QPushButton;

namespace qor {

class CajaDeLinea;

// What edits the grids, below the program side: OK codes to drag onto a value, Autofill, operations, conditions, the searches.
class CajaDeEdicion : public CajaPlegable {
    Q_OBJECT
public:
    struct Acciones {
        std::function<void()> agregarOperacion;
        std::function<void()> condiciones;
    };

    CajaDeEdicion(const EntornoDePagina& entorno, const Acciones& acciones, QWidget* padre);

    // Searches again in the grid that was searched last; as a command.
    void RepetirBusqueda();

private:
    QWidget* NuevaFilaDeArrastre();
    void CrearBusquedas();

    EntornoDePagina entorno_;
    CajaDeLinea* buscado_ = nullptr;
    QPushButton* enArchivo_ = nullptr;
    QPushButton* enTransaccion_ = nullptr;
    bool ultimaEnArchivo_ = true;
};

}  // namespace qor
