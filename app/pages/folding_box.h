#pragma once

#include <QGroupBox>
#include <vector>

class QGridLayout;

namespace qor {

// A box with two arrangements of its controls: a flat one, and a narrow one for where there is no room for it.
class CajaPlegable : public QGroupBox {
public:
    struct Puesto {
        QWidget* control;
        int fila;
        int columna;
        int columnas = 1;
    };
    using Arreglo = std::vector<Puesto>;

    using QGroupBox::QGroupBox;

    // Each has the same controls. The column takes the room that is left.
    void PonerArreglos(Arreglo llano, Arreglo plegado, int columnaQueCrece);

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* evento) override;

private:
    int AnchoDe(const Arreglo& arreglo) const;
    void Arreglar(bool plegada);

    Arreglo llano_;
    Arreglo plegado_;
    QGridLayout* orden_ = nullptr;
    bool plegada_ = false;
};

}  // namespace qor
