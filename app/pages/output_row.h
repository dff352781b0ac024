#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "app/pages/page.h"

namespace qor {

// The row below the tabs: the program file, and the button that writes it.
class FilaDeSalida : public QWidget {
    Q_OBJECT
public:
    FilaDeSalida(const EntornoDePagina& entorno, const std::function<void()>& generar, QWidget* padre);

    // While connected a report goes into the system, and no file is asked for.
    void MostrarPrograma(bool visible);

private:
    std::vector<QWidget*> delPrograma_;
};

}  // namespace qor
