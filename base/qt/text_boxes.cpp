#include "base/qt/text_boxes.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QTextBlock>
#include <QTimer>
#include <memory>

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

bool EsImprimible(const QKeyEvent& evento) { return !evento.text().isEmpty() && evento.text().at(0).isPrint(); }

bool EsDeMando(const QKeyEvent& evento) {
    return (evento.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0 &&
           (evento.modifiers() & Qt::GroupSwitchModifier) == 0;
}

// A key that puts characters in, and not a command.
bool EsTexto(const QKeyEvent& evento) { return EsImprimible(evento) && !EsDeMando(evento); }

// A command whose letter Qt's own boxes would take for a text: Alt and a letter that is no shortcut.
bool EsLetraDeMando(const QKeyEvent& evento) {
    return EsImprimible(evento) && EsDeMando(evento) && (evento.modifiers() & Qt::ControlModifier) == 0;
}

QString PrimeraLinea(const QString& texto) { return texto.section('\n', 0, 0); }

}  // namespace

CajaDeLinea::CajaDeLinea(QWidget* padre) : QLineEdit(padre) {}

std::string CajaDeLinea::Texto() const { return TextoDelModelo(text()); }

void CajaDeLinea::PonerTexto(std::string_view texto) {
    const QString nuevo = TextoQt(texto);
    if (text() != nuevo) setText(nuevo);
}

void CajaDeLinea::Pegar(const QString& texto) { Insertar(PrimeraLinea(texto)); }

void CajaDeLinea::PegarDelPortapapeles() { Pegar(QApplication::clipboard()->text()); }

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
        PegarDelPortapapeles();
        return;
    }
    if (EsLetraDeMando(*evento)) return evento->ignore();
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
    Pegar(evento->mimeData()->text());
    evento->acceptProposedAction();
}

// The middle button, where the system pastes its selection by it.
void CajaDeLinea::mouseReleaseEvent(QMouseEvent* evento) {
    auto* const portapapeles = QApplication::clipboard();
    if (evento->button() != Qt::MiddleButton || !portapapeles->supportsSelection() || isReadOnly()) {
        QLineEdit::mouseReleaseEvent(evento);
        return;
    }
    deselect();
    setCursorPosition(cursorPositionAt(evento->position().toPoint()));
    Pegar(portapapeles->text(QClipboard::Selection));
}

void CajaDeLinea::contextMenuEvent(QContextMenuEvent* evento) {
    const std::unique_ptr<QMenu> menu(createStandardContextMenu());
    for (auto* const accion : menu->actions()) {
        if (!accion->text().startsWith(QLineEdit::tr("&Paste"))) continue;
        accion->disconnect();
        connect(accion, &QAction::triggered, this, [this] { PegarDelPortapapeles(); });
    }
    menu->exec(evento->globalPos());
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

void CajaDeTexto::IrALinea(int linea) {
    setFocus(Qt::OtherFocusReason);
    const QTextBlock bloque = document()->findBlockByNumber(linea - 1);
    if (linea < 1 || !bloque.isValid()) return;
    setTextCursor(QTextCursor(bloque));
    // Once the box has its size, and its text the colours.
    QTimer::singleShot(0, this, &CajaDeTexto::SenalarLinea);
}

void CajaDeTexto::SenalarLinea() {
    centerCursor();
    QColor color = palette().color(QPalette::Highlight);
    color.setAlphaF(0.25F);
    QTextEdit::ExtraSelection marca;
    marca.cursor = textCursor();
    marca.format.setBackground(color);
    marca.format.setProperty(QTextFormat::FullWidthSelection, true);
    setExtraSelections({marca});
    connect(
        this, &QPlainTextEdit::textChanged, this, [this] { setExtraSelections({}); }, Qt::SingleShotConnection);
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
    if (EsLetraDeMando(*evento)) return evento->ignore();
    QPlainTextEdit::keyPressEvent(evento);
}

void CajaDeTexto::insertFromMimeData(const QMimeData* origen) {
    const std::string filtrado = Filtrar(origen->text());
    if (!filtrado.empty()) insertPlainText(LineasQt(filtrado));
}

}  // namespace qor
