#include "base/qt/read_only_box.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <algorithm>

#include "base/qt/text.h"

namespace qor {

namespace {

bool CambiariaElTexto(const QKeyEvent& evento) {
    switch (evento.key()) {
        case Qt::Key_Backspace:
        case Qt::Key_Delete:
        case Qt::Key_Return:
        case Qt::Key_Enter: return true;
        case Qt::Key_Escape:
        case Qt::Key_Tab:
        case Qt::Key_Backtab: return false;
        default: break;
    }
    const bool deMando = (evento.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
    if (evento.matches(QKeySequence::Paste) || evento.matches(QKeySequence::Cut)) return true;
    return !deMando && !evento.text().isEmpty() && evento.text().at(0).isPrint();
}

}  // namespace

CajaDeLectura::CajaDeLectura(QWidget* padre) : QPlainTextEdit(padre) {
    setReadOnly(true);
    setTabChangesFocus(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void CajaDeLectura::PonerTexto(std::string_view texto) { setPlainText(LineasQt(texto)); }

QSize CajaDeLectura::TamanoEntero() const {
    const int borde = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    int ancho = 0;
    for (QTextBlock parrafo = document()->begin(); parrafo.isValid(); parrafo = parrafo.next()) {
        ancho = std::max(ancho, fontMetrics().horizontalAdvance(parrafo.text()));
    }
    const int barra = verticalScrollBar()->sizeHint().width();
    return {ancho + borde + barra, fontMetrics().lineSpacing() * (blockCount() + 1) + borde};
}

void CajaDeLectura::keyPressEvent(QKeyEvent* evento) {
    if (!CambiariaElTexto(*evento)) {
        QPlainTextEdit::keyPressEvent(evento);
        return;
    }
    evento->accept();
    if (alTeclear_) alTeclear_();
}

}  // namespace qor
