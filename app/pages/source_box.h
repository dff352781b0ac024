#pragma once

#include <QWidget>
#include <filesystem>
#include <functional>

#include "app/pages/page.h"

namespace qor {

class CajaPlegable;

// The source of the data, at the foot of the first page: a file or table, or the user's own code.
class PanelDeOrigen : public QWidget {
    Q_OBJECT
public:
    struct Acciones {
        std::function<void()> otroOrigen;                                  // opens the dialog of the user's own code
        std::function<void(const std::filesystem::path&)> archivoElegido;  // shows the data of a file that was just chosen
    };

    PanelDeOrigen(const EntornoDePagina& entorno, const Acciones& acciones, QWidget* padre);

private:
    CajaPlegable* NuevoGrupo();

    EntornoDePagina entorno_;
    Acciones acciones_;
};

}  // namespace qor
