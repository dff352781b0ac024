#pragma once

#include <QGroupBox>
#include <functional>

#include "app/connection_actions.h"
#include "app/pages/page.h"

namespace qor {

// The third page: what a connection offers, imports of files, and the editor of data sets. The connection outlives the page.
class PaginaDeHerramientas : public QWidget {
    Q_OBJECT
public:
    PaginaDeHerramientas(const EntornoDePagina& entorno, AccionesDeConexion& conexion, const std::function<void()>& editorDeDatos);

    // Enables what can be done with the connection as it is.
    void MostrarConexion(const EstadoDelMenu& estado);

private:
    QWidget* NuevaColumnaDeConexion();
    QWidget* NuevaColumnaDeArchivos(const std::function<void()>& editorDeDatos);
    QGroupBox* NuevaConexion(QWidget* padre);
    QGroupBox* NuevasOrdenesEnLinea(QWidget* padre);
    QGroupBox* NuevaImportacion(QWidget* padre);
    QGroupBox* NuevosAnchos(QWidget* padre);

    EntornoDePagina entorno_;
    AccionesDeConexion& conexion_;
    QPushButton* logon_ = nullptr;
    QPushButton* logoff_ = nullptr;
    QGroupBox* enLinea_ = nullptr;
    QGroupBox* importacion_ = nullptr;
    QGroupBox* anchos_ = nullptr;
};

}  // namespace qor
