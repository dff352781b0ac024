#pragma once

#include <QWidget>

#include "base/messages.h"

class QLabel;
class QToolButton;
class QVBoxLayout;

namespace qor {

// A pane of the window: a title and a button that closes it stand over what it shows.
class PanelQueSeCierra : public QWidget {
    Q_OBJECT

signals:
    void Cerrado();

protected:
    // Names of the controls: those of the title and of the button.
    PanelQueSeCierra(const char* titulo, const char* cerrar, QWidget* padre);

    // Puts the content below the head; the title leads to it.
    QVBoxLayout* PonerContenido(QWidget* contenido);
    void PonerTitulo(const QString& titulo);
    // The name of what the pane shows, for its content and for the button's.
    void Nombrar(const QString& nombre, const TextosIdioma& textos);
    int AltoDeLaCabeza() const;

private:
    QLabel* titulo_;
    QToolButton* cerrar_;
};

}  // namespace qor
