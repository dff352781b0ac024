#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QStringList>
#include <QVBoxLayout>
#include <QVariant>
#include <algorithm>
#include <initializer_list>

// Small services for laying out pages.
namespace qor {

// The room of a control stays when it is hidden.
template <typename T>
T* ConSuLugar(T* control) {
    QSizePolicy politica = control->sizePolicy();
    politica.setRetainSizeWhenHidden(true);
    control->setSizePolicy(politica);
    return control;
}

// Gives a control whose text changes the room of the widest of its texts, so that nothing beside it moves.
template <typename T>
void PonerConLugarPara(T* control, const QString& texto, const QStringList& todos) {
    const QString clave = todos.join(QLatin1Char('\n')) + control->font().key();
    if (control->property("lugar").toString() != clave) {
        control->setProperty("lugar", clave);
        control->ensurePolished();
        int ancho = 0;
        for (const auto& uno : todos) {
            control->setText(uno);
            ancho = std::max(ancho, control->sizeHint().width());
        }
        control->setMinimumWidth(ancho);
    }
    control->setText(texto);
}

inline QLabel* EnVariasLineas(QLabel* rotulo) {
    rotulo->setWordWrap(true);
    rotulo->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    return rotulo;
}

inline QLabel* EnNegrita(QLabel* rotulo) {
    QFont letra = rotulo->font();
    letra.setBold(true);
    rotulo->setFont(letra);
    return rotulo;
}

// A label whose letter brings the focus to the control.
inline QLabel* RotuloDe(QLabel* rotulo, QWidget* control) {
    rotulo->setBuddy(control);
    return rotulo;
}

// Two columns of boxes on a page, each box as high as it needs to be.
inline void EnDosColumnas(std::initializer_list<QWidget*> izquierda, std::initializer_list<QWidget*> derecha, QWidget* pagina) {
    auto* const orden = new QHBoxLayout(pagina);
    for (const auto& columna : {izquierda, derecha}) {
        auto* const vertical = new QVBoxLayout;
        for (auto* const caja : columna) vertical->addWidget(caja);
        vertical->addStretch();
        orden->addLayout(vertical, 1);
    }
}

}  // namespace qor
