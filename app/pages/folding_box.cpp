#include "app/pages/folding_box.h"

#include <QGridLayout>
#include <algorithm>
#include <numeric>
#include <utility>

#include "base/qt/reading_order.h"

namespace qor {

void CajaPlegable::PonerArreglos(Arreglo llano, Arreglo plegado, int columnaQueCrece) {
    llano_ = std::move(llano);
    plegado_ = std::move(plegado);
    orden_ = new QGridLayout(this);
    orden_->setColumnStretch(columnaQueCrece, 1);
    Arreglar(false);
}

void CajaPlegable::Arreglar(bool plegada) {
    plegada_ = plegada;
    for (const auto& puesto : llano_) orden_->removeWidget(puesto.control);
    for (const auto& [control, fila, columna, columnas] : plegada ? plegado_ : llano_) {
        orden_->addWidget(control, fila, columna, 1, columnas);
    }
    OrdenarTabulador(*this);
}

// The least width of an arrangement, whether it is the present one or not.
int CajaPlegable::AnchoDe(const Arreglo& arreglo) const {
    std::vector<int> anchos;
    const auto minimo = [](QWidget* control) { return control->isHidden() ? 0 : QWidgetItem(control).minimumSize().width(); };
    const int hueco = orden_->horizontalSpacing();
    for (const auto& puesto : arreglo) {
        anchos.resize(std::max(anchos.size(), static_cast<std::size_t>(puesto.columna + puesto.columnas)));
        auto& ancho = anchos[static_cast<std::size_t>(puesto.columna)];
        if (puesto.columnas == 1) ancho = std::max(ancho, minimo(puesto.control));
    }
    for (const auto& puesto : arreglo) {
        const auto desde = anchos.begin() + puesto.columna;
        const auto hasta = desde + puesto.columnas;
        const int falta = minimo(puesto.control) - std::accumulate(desde, hasta, hueco * (puesto.columnas - 1));
        if (falta > 0) *(hasta - 1) += falta;
    }
    const QMargins margenes = orden_->contentsMargins();
    const QMargins marco = contentsMargins();
    return std::accumulate(anchos.begin(), anchos.end(), hueco * (static_cast<int>(anchos.size()) - 1)) + margenes.left() +
           margenes.right() + marco.left() + marco.right();
}

QSize CajaPlegable::minimumSizeHint() const { return {AnchoDe(plegado_), QGroupBox::minimumSizeHint().height()}; }

void CajaPlegable::resizeEvent(QResizeEvent* evento) {
    QGroupBox::resizeEvent(evento);
    const bool plegada = width() < AnchoDe(llano_);
    if (plegada != plegada_) Arreglar(plegada);
}

}  // namespace qor
