#include "base/qt/text_boxes.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>

#include "base/qt/abap_highlighter.h"
#include "base/qt/fixed_font.h"
#include "base/qt/text.h"
#include "base/text.h"

namespace qor {

namespace {

std::string PasarFiltro(const FiltroDeTexto& filtro, std::string texto) {
    std::erase(texto, '"');
    return filtro && !texto.empty() ? filtro(texto) : texto;
}

// A key that puts characters in, and not a command.
bool EsTexto(const QKeyEvent& evento) {
    const bool deMando = (evento.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0 &&
                         (evento.modifiers() & Qt::GroupSwitchModifier) == 0;
    return !evento.text().isEmpty() && evento.text().at(0).isPrint() && !deMando;
}

}  // namespace

CajaDeLinea::CajaDeLinea(QWidget* padre) : QLineEdit(padre) {}

std::string CajaDeLinea::Texto() const { return TextoDelModelo(text()); }

void CajaDeLinea::PonerTexto(std::string_view texto) {
    const QString nuevo = TextoQt(texto);
    if (text() != nuevo) setText(nuevo);
}

void CajaDeLinea::Insertar(const QString& texto) {
    const std::string filtrado = PasarFiltro(filtro_, TextoDelModelo(texto));
    if (!filtrado.empty()) insert(TextoQt(filtrado));
}

void CajaDeLinea::keyPressEvent(QKeyEvent* evento) {
    if (EsTexto(*evento) && !isReadOnly()) {
        Insertar(evento->text());
        return;
    }
    if (evento->matches(QKeySequence::Paste) && !isReadOnly()) {
        Insertar(QApplication::clipboard()->text().section('\n', 0, 0));
        return;
    }
    QLineEdit::keyPressEvent(evento);
}

void CajaDeLinea::inputMethodEvent(QInputMethodEvent* evento) {
    if (evento->commitString().isEmpty()) {
        QLineEdit::inputMethodEvent(evento);
        return;
    }
    const QString texto = evento->commitString();
    QInputMethodEvent sinTexto;  // ends the composition
    QLineEdit::inputMethodEvent(&sinTexto);
    Insertar(texto);
}

void CajaDeLinea::dropEvent(QDropEvent* evento) {
    Insertar(evento->mimeData()->text());
    evento->acceptProposedAction();
}

CajaDeTexto::CajaDeTexto(QWidget* padre) : QPlainTextEdit(padre) { setTabChangesFocus(true); }

void CajaDeTexto::MostrarComoABAP() {
    setFont(LetraFija());
    setLineWrapMode(QPlainTextEdit::NoWrap);
    new ColoresABAP(document());
}

std::string CajaDeTexto::Texto() const { return LineasDelModelo(toPlainText()); }

void CajaDeTexto::PonerTexto(std::string_view texto) {
    const QString nuevo = LineasQt(texto);
    if (toPlainText() != nuevo) setPlainText(nuevo);
}

std::string CajaDeTexto::Filtrar(const QString& texto) const { return PasarFiltro(filtro_, LineasDelModelo(texto)); }

void CajaDeTexto::keyPressEvent(QKeyEvent* evento) {
    const bool esFinDeLinea = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
    if (!isReadOnly() && (EsTexto(*evento) || esFinDeLinea)) {
        const std::string filtrado = Filtrar(esFinDeLinea ? QStringLiteral("\n") : evento->text());
        if (!filtrado.empty()) insertPlainText(LineasQt(filtrado));
        ensureCursorVisible();
        return;
    }
    QPlainTextEdit::keyPressEvent(evento);
}

void CajaDeTexto::insertFromMimeData(const QMimeData* origen) {
    const std::string filtrado = Filtrar(origen->text());
    if (!filtrado.empty()) insertPlainText(LineasQt(filtrado));
}

}  // namespace qor
