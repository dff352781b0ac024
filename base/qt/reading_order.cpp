#include "base/qt/reading_order.h"

#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <tuple>
#include <vector>

#include "base/qt/text.h"

namespace qor {

namespace {

class Lectura {
public:
    void Leer(QWidget& control) {
        if (auto* const fichas = qobject_cast<QTabWidget*>(&control)) {
            leidos.push_back(fichas->tabBar());
            for (int i = 0; i < fichas->count(); ++i) Leer(*fichas->widget(i));
        } else if (auto* const paginas = qobject_cast<QStackedWidget*>(&control)) {
            for (int i = 0; i < paginas->count(); ++i) Leer(*paginas->widget(i));
        } else if (auto* const partes = qobject_cast<QSplitter*>(&control)) {
            for (int i = 0; i < partes->count(); ++i) Leer(*partes->widget(i));
        } else if (auto* const desplazable = qobject_cast<QScrollArea*>(&control);
                   desplazable != nullptr && desplazable->widget() != nullptr) {
            Leer(*desplazable->widget());
        } else if (control.property(propiedadDeOrdenPropio).toBool()) {
            for (QWidget* dentro = control.nextInFocusChain(); dentro != &control; dentro = dentro->nextInFocusChain()) {
                if (control.isAncestorOf(dentro) && (dentro->focusPolicy() & Qt::TabFocus) != 0) leidos.push_back(dentro);
            }
        } else {
            if ((control.focusPolicy() & Qt::TabFocus) != 0) leidos.push_back(&control);
            if (control.layout() != nullptr) Leer(*control.layout());
        }
    }

    std::vector<QWidget*> leidos;

private:
    void Leer(const QLayout& orden) {
        std::vector<QLayoutItem*> partes;
        for (int i = 0; i < orden.count(); ++i) partes.push_back(orden.itemAt(i));
        if (const auto* const rejilla = qobject_cast<const QGridLayout*>(&orden)) {
            std::vector<std::pair<std::tuple<int, int>, QLayoutItem*>> porLugar;
            for (int i = 0; i < rejilla->count(); ++i) {
                int fila = 0, columna = 0, filas = 0, columnas = 0;
                rejilla->getItemPosition(i, &fila, &columna, &filas, &columnas);
                porLugar.emplace_back(std::tuple(fila, columna), rejilla->itemAt(i));
            }
            std::stable_sort(porLugar.begin(), porLugar.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
            std::transform(porLugar.begin(), porLugar.end(), partes.begin(), [](const auto& parte) { return parte.second; });
        }
        for (auto* const parte : partes) {
            if (parte->widget() != nullptr) Leer(*parte->widget());
            if (parte->layout() != nullptr) Leer(*parte->layout());
        }
    }
};

}  // namespace

void OrdenarTabulador(QWidget& ventana) {
    Lectura lectura;
    lectura.Leer(ventana);
    if (lectura.leidos.empty()) return;
    // The order is a ring, and a window has to be its beginning; it is taken for one only while it could have the focus itself.
    const Qt::FocusPolicy suya = ventana.focusPolicy();
    if (ventana.isWindow()) {
        ventana.setFocusPolicy(Qt::TabFocus);
        QWidget::setTabOrder(&ventana, lectura.leidos.front());
    }
    for (std::size_t i = 1; i < lectura.leidos.size(); ++i) QWidget::setTabOrder(lectura.leidos[i - 1], lectura.leidos[i]);
    ventana.setFocusPolicy(suya);
}

void NombrarPorRotulos(QWidget& ventana) {
    constexpr const char* porRotulo = "nombradoPorRotulo";
    for (const auto* const rotulo : ventana.findChildren<QLabel*>()) {
        QWidget* const control = rotulo->buddy();
        if (control == nullptr || (!control->accessibleName().isEmpty() && !control->property(porRotulo).toBool())) continue;
        control->setAccessibleName(SinLetra(rotulo->text()));
        control->setProperty(porRotulo, true);
    }
}

}  // namespace qor
