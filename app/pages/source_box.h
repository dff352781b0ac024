#pragma once

#include <QWidget>
#include <functional>

#include "app/pages/page.h"

class QGroupBox;

namespace qor {

// The source of the data, at the foot of the first page: a file or table, or the user's own code. `otroOrigen` opens the dialog of
// the latter.
class PanelDeOrigen : public QWidget {
    Q_OBJECT
public:
    PanelDeOrigen(const EntornoDePagina& entorno, const std::function<void()>& otroOrigen, QWidget* padre);

private:
    QGroupBox* NuevoGrupo();

    EntornoDePagina entorno_;
};

}  // namespace qor
