#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <QWidget>
#include <array>

#include "app/rehearsal_lines.h"
#include "base/messages.h"

class QComboBox;
class QLineEdit;
class QTableView;

namespace qor {

QString PalabraDe(const TextosIdioma& textos, EstadoDeRegistro estado);

// The records that are shown, as rows of a table: number, state, why it failed.
class ModeloDeEnsayo : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Columnas { Numero, Estado, Motivo, CantidadDeColumnas };

    ModeloDeEnsayo(const TextosIdioma& textos, QObject* padre);

    const RegistrosVistos& Registros() const { return registros_; }
    void Poner(const ResultadoDeEnsayo* resultado);
    void Filtrar(std::optional<EstadoDeRegistro> estado, const QString& texto);

    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& padre = {}) const override { return padre.isValid() ? 0 : CantidadDeColumnas; }
    QVariant data(const QModelIndex& lugar, int papel) const override;
    QVariant headerData(int columna, Qt::Orientation orientacion, int papel) const override;

private:
    const TextosIdioma& textos_;
    std::array<QIcon, 4> iconos_;
    RegistrosVistos registros_;
};

// The table with its filter and its search box.
class PanelDeRegistros : public QWidget {
    Q_OBJECT
public:
    PanelDeRegistros(const TextosIdioma& textos, QWidget* padre);

    // A new result, or null for none. The first record that failed is chosen, else the first one that was reached.
    void Poner(const ResultadoDeEnsayo* resultado);
    // The record that is chosen; 0 for none.
    std::size_t Elegido() const;
    // Shows a record, without the filter where it is not among those shown.
    void Elegir(std::size_t registro);
    void EnfocarBusqueda();
    const RegistrosVistos& Registros() const { return modelo_->Registros(); }
    QTableView* Tabla() const { return tabla_; }

signals:
    void Cambiado();

private:
    void Filtrar();
    void PonerFiltros();
    void AjustarColumnas();

    const TextosIdioma& textos_;
    ModeloDeEnsayo* modelo_;
    QComboBox* filtro_;
    QLineEdit* busqueda_;
    QTableView* tabla_;
};

}  // namespace qor
