#pragma once

#include <QWidget>
#include <vector>

#include "app/findings_watch.h"
#include "app/pages/findings_model.h"

namespace qor {

// The margin beside a grid: a sign for each of its lines whose row has findings, with their sentences as tool tip. The cells of
// such a line bear them as accessible description.
class MargenDeSignos : public QWidget {
    Q_OBJECT
public:
    using CeldasDeLinea = std::vector<QWidget*>;

    MargenDeSignos(const char* nombre, QWidget* padre);

    // The cells of each line of the grid, from above. They live as long as the margin.
    void PonerCeldas(std::vector<CeldasDeLinea> lineas) { lineas_ = std::move(lineas); }

    void PonerSignos(SignosDeFilas signos);
    // The table row in the first line. Nothing is done while that stays.
    void MostrarDesde(int primeraFila);

    QSize sizeHint() const override;

protected:
    bool event(QEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;

private:
    int Lado() const;
    QRect MarcoDe(std::size_t linea) const;
    const SignoDeFila* SignoDe(std::size_t linea) const;
    void Describir();

    IconosDeGravedad iconos_;
    std::vector<CeldasDeLinea> lineas_;
    SignosDeFilas signos_;
    int primeraFila_ = 0;
};

}  // namespace qor
