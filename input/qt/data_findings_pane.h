#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <QWidget>

#include "base/messages.h"
#include "input/layout.h"
#include "input/preview_findings.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QTreeView;

namespace qor {

// Findings about input files as rows of a list, in their order.
class ModeloDeHallazgosDeDatos : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Columnas { Severidad, Archivo, Linea, Campo, Valor, Texto, CantidadDeColumnas };

    ModeloDeHallazgosDeDatos(const TextosIdioma& textos, const HallazgosVistos& hallazgos, QObject* padre)
        : QAbstractTableModel(padre), textos_(textos), hallazgos_(hallazgos) {}

    void PonerIconos(const QIcon& error, const QIcon& aviso);
    // The names of the files, by their places.
    void PonerArchivos(QStringList nombres) { archivos_ = std::move(nombres); }
    // Shows what the list has now. `seguidos`: nothing but more at its end.
    void Seguir(bool seguidos);

    int rowCount(const QModelIndex& padre = {}) const override { return padre.isValid() ? 0 : filas_; }
    int columnCount(const QModelIndex& padre = {}) const override { return padre.isValid() ? 0 : CantidadDeColumnas; }
    QVariant data(const QModelIndex& lugar, int papel) const override;
    QVariant headerData(int columna, Qt::Orientation orientacion, int papel) const override;

private:
    const TextosIdioma& textos_;
    const HallazgosVistos& hallazgos_;
    QStringList archivos_;
    QIcon error_;
    QIcon aviso_;
    int filas_ = 0;
};

// How a check of the files stands: the findings so far, how many there are, how far it is, and what goes on with it. It shows what
// it is given, and tells what a user asks for.
class PanelDeHallazgosDeDatos : public QWidget {
    Q_OBJECT
public:
    struct Estado {
        bool empezado = false;
        bool corriendo = false;
        bool completo = false;  // the whole of the files was checked
        int porMil = 0;
        QString fallo;  // why the check ended early
    };

    PanelDeHallazgosDeDatos(const TextosIdioma& textos, const HallazgosVistos& hallazgos, QWidget* padre);

    ModeloDeHallazgosDeDatos* Modelo() { return modelo_; }
    void Mostrar(const Estado& estado, bool seguidos);
    // Files have a column of their own where there are several.
    void MostrarArchivos(bool varios);

    // The finding that is selected; -1 for none.
    int Elegido() const;
    void Elegir(int hallazgo);

    QSize minimumSizeHint() const override;

signals:
    void Activado(int hallazgo);
    void VecinoPedido(int paso);
    void RevisionPedida();
    void AltoPedido();

private:
    QString Cuenta(const Estado& estado) const;

    const TextosIdioma& textos_;
    const HallazgosVistos& hallazgos_;
    ModeloDeHallazgosDeDatos* modelo_;
    QLabel* cuenta_;
    QProgressBar* progreso_;
    QPushButton* revisar_;
    QPushButton* detener_;
    QPushButton* anterior_;
    QPushButton* siguiente_;
    QTreeView* lista_;
};

}  // namespace qor
