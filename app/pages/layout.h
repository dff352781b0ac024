#pragma once

#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>
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
