#pragma once

#include <QAbstractItemModel>
#include <QTreeView>
#include <vector>

#include "app/rehearsal_lines.h"
#include "base/messages.h"

namespace qor {

// What a record sends as a tree: operations, screens, fields; what was left out in grey, with the reason.
class ModeloDeEnvios : public QAbstractItemModel {
    Q_OBJECT
public:
    enum Columnas { Campo, Valor, DeArchivo, Celda, CantidadDeColumnas };

    ModeloDeEnvios(const TextosIdioma& textos, QObject* padre);

    void Poner(std::vector<LineaDeEnvio> lineas);
    const LineaDeEnvio* Linea(const QModelIndex& lugar) const;
    // The first field that made the record fail.
    QModelIndex PrimerCulpable() const;

    QModelIndex index(int fila, int columna, const QModelIndex& padre = {}) const override;
    QModelIndex parent(const QModelIndex& lugar) const override;
    int rowCount(const QModelIndex& padre = {}) const override;
    int columnCount(const QModelIndex& /*padre*/ = {}) const override { return CantidadDeColumnas; }
    QVariant data(const QModelIndex& lugar, int papel) const override;
    QVariant headerData(int columna, Qt::Orientation orientacion, int papel) const override;

private:
    const std::vector<int>& Hijos(const QModelIndex& padre) const;
    QString Texto(const LineaDeEnvio& linea, int columna) const;

    const TextosIdioma& textos_;
    std::vector<LineaDeEnvio> lineas_;
    std::vector<std::vector<int>> hijos_;  // of line n at n + 1; the first one has those that stand under none
    std::vector<int> puestos_;             // of a line among its brothers
};

// The tree on the screen. Enter and a double click activate a line.
class ArbolDeEnvios : public QTreeView {
    Q_OBJECT
public:
    ArbolDeEnvios(const TextosIdioma& textos, QWidget* padre);

    // A field that made the record fail is brought into sight.
    void Poner(std::vector<LineaDeEnvio> lineas);

    // The line that is current; null for none.
    const LineaDeEnvio* Actual() const { return modelo_->Linea(currentIndex()); }

signals:
    void Activada(const Lugar& celda);
    // The same on the file field, or on where the value comes from, of one that was read from a file.
    void EntradaActivada(const LineaDeEnvio& linea);

private:
    void Abarcar(const QModelIndex& padre);
    void AjustarColumnas();

    ModeloDeEnvios* modelo_;
    bool ajustado_ = false;
};

}  // namespace qor
