#pragma once

#include <QScrollArea>
#include <QScrollBar>

namespace qor {

// A page that can be scrolled where the screen is too small for it, and else looks like any page.
class PaginaDesplazable : public QScrollArea {
public:
    explicit PaginaDesplazable(QWidget* contenido) {
        setWidget(contenido);
        setWidgetResizable(true);
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        contenido->setAutoFillBackground(false);
        viewport()->setAutoFillBackground(false);
    }

    // All of the page, with room for a bar beside it, so that a lack of height asks for no bar below.
    QSize sizeHint() const override { return widget()->sizeHint() + QSize(verticalScrollBar()->sizeHint().width(), 0); }

protected:
    // What has the keyboard stays in sight when the room gets less.
    void resizeEvent(QResizeEvent* evento) override {
        QScrollArea::resizeEvent(evento);
        auto* const control = window()->focusWidget();
        if (control != nullptr && widget()->isAncestorOf(control)) ensureWidgetVisible(control, 0, 0);
    }
};

}  // namespace qor
