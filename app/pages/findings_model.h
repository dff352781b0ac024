#pragma once

#include <QAbstractTableModel>
#include <QIcon>
#include <array>
#include <vector>

#include "findings/finding.h"

namespace qor {

// The icons of the severities; each has a shape of its own beside its colour.
class IconosDeGravedad {
public:
    IconosDeGravedad();
    const QIcon& De(Gravedad gravedad) const { return iconos_.at(static_cast<std::size_t>(gravedad)); }

private:
    std::array<QIcon, 3> iconos_;
};

QString PalabraDe(const TextosIdioma& textos, Gravedad gravedad);
// The place in words of the loaded language: "program side, row 12, value".
QString LugarEnPalabras(const TextosIdioma& textos, const Lugar& lugar);
// Plain text for a tool tip, which is broken into lines where it is long.
QString ComoConsejo(const QString& texto);

// Findings as rows of a list, in their order.
class ModeloDeHallazgos : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Columnas { Severidad, Codigo, Sitio, Texto, CantidadDeColumnas };

    ModeloDeHallazgos(const TextosIdioma& textos, QObject* padre) : QAbstractTableModel(padre), textos_(textos) {}

    const std::vector<Hallazgo>& Lista() const { return lista_; }
    void Poner(std::vector<Hallazgo> lista);

    int rowCount(const QModelIndex& padre = {}) const override { return padre.isValid() ? 0 : static_cast<int>(lista_.size()); }
    int columnCount(const QModelIndex& padre = {}) const override { return padre.isValid() ? 0 : CantidadDeColumnas; }
    QVariant data(const QModelIndex& lugar, int papel) const override;
    QVariant headerData(int columna, Qt::Orientation orientacion, int papel) const override;

private:
    const TextosIdioma& textos_;
    IconosDeGravedad iconos_;
    std::vector<Hallazgo> lista_;
};

}  // namespace qor
